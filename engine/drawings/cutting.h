#pragma once

#include "engine/drawings/planarmap.h"

#include <cstddef>
#include <span>
#include <vector>

namespace brindle::engine {

/// A piece of a stroke that is cut.
struct StrokePiece {
    int stroke; ///< Among the strokes that were given.
    GR_BezierPath2d path;
    double from, to;       ///< Where it lies on the stroke: shares of the stroke's length.
    bool tailCut, headCut; ///< Whether its ends were made by cutting, and are not those of the stroke.
};

/// Cuts strokes of one layer where they cross or touch one another or themselves; an end that stands on another stroke
/// cuts that one. Where strokes coincide, they are cut at both ends of the common stretch, and coincident pieces
/// remain. Gives all pieces of the strokes that are cut, each stroke's in their order; the others are as before.
///
/// All pieces that end in one place end in the same point: the joint there, or one point for cuts within `reach` of
/// each other. The shapes stay but for that. No cut is made within reach of an end of the stroke, along the stroke, nor
/// between two cuts that a stretch within reach joins. Throws std::domain_error when a point is not finite.
std::vector<StrokePiece> cutPieces(std::span<const MapStroke> strokes, double reach);

/// As many pairs of curves with boxes that meet are compared by crossedComponents() at most.
constexpr std::size_t mostComparedPairs = 250000;

/// For each component of a map, whether its strokes cross or touch strokes elsewhere than in joints, so that areas of
/// the component may overlap others. With more pairs to compare, which takes thousands of strokes on top of one
/// another, all components count as crossed.
std::vector<bool> crossedComponents(const PlanarMap& map, double reach);

} // namespace brindle::engine
