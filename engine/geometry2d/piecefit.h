#pragma once

#include "core/host/gr_bezierfitter.h"
#include "engine/geometry2d/planecurve.h"

#include <cstddef>
#include <span>
#include <vector>

namespace brindle::engine {

/// The directions in which a piece leaves its first point and comes back from its last one, of length 1; zero where the
/// fit is free to choose.
struct EndTangents {
    Math::Vector2d start;
    Math::Vector2d end; ///< Points back into the piece.
};

/// The parameters of points on a piece before it is known: from 0 to 1, with distances as the parametrization says.
std::vector<double> pieceParameters(std::span<const Math::Point2d> points,
                                    GR_BezierPath2dFitterOptions::Parametrization parametrization);

/// One cubic curve fitted to points, from the first to the last.
struct PieceFit {
    PlaneCurve curve;
    double worstSquared = 0; ///< The largest squared distance of a point from its place on the curve.
    std::size_t worst = 0;   ///< Which point that is.
};

/// The cubic curve with the least sum of squared distances at given parameters (Schneider 1990): the handles lie along
/// the tangents. Where the system of equations has no sensible solution, at a third of the chord (Wu and Barsky).
PieceFit fitPiece(std::span<const Math::Point2d> points, std::span<const double> parameters,
                  const EndTangents& tangents);

/// Moves each parameter towards the nearest place of the curve: one step of Newton's method.
void improveParameters(std::span<const Math::Point2d> points, const PlaneCurve& curve, std::span<double> parameters);

/// The best of the fits with parameters improved up to `iterations` times: the first one within the tolerance, if any.
PieceFit improvedFit(std::span<const Math::Point2d> points, const EndTangents& tangents, double tolerance,
                     const GR_BezierPath2dFitterOptions& options);

} // namespace brindle::engine
