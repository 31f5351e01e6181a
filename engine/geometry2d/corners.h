#pragma once

#include "core/host/gr_bezierfitter.h"
#include "core/host/math_point.h"

#include <cstddef>
#include <span>
#include <vector>

namespace brindle::engine {

/// The corners among points that a path is to be fitted to, and the directions of the path at them.
///
/// An arm of a point is the mean of the ways to its neighbours on one side, up to the next point that stands out: one
/// where the path turns sharply and that lies further than the tolerance from the line between its neighbours. A short
/// arm has as many neighbours as the options say, a long one, which gives the directions, those within two tolerances
/// as well. A point is a corner where its arms make less than the corner angle, the short ones and the long ones, and
/// others nearby don't make still less; a point that stands out is one always. So the steps and turns within the
/// tolerance, the staircase of a drawn line and the trembling of a hand, are no corners.
class CornerFinder {
public:
    /// `closed`: the last point's neighbour is the first one.
    CornerFinder(std::span<const Math::Point2d> points, bool closed, double tolerance,
                 const GR_BezierPath2dFitterOptions& options);

    /// The indices of the corners, ascending; without the ends of an open path.
    std::vector<std::size_t> corners() const;

    /// The direction from a point along the path, forwards or backwards, of length 1; from its neighbours up to `limit`
    /// points away.
    Math::Vector2d armFrom(std::size_t index, int step, std::size_t limit) const;
    /// The direction in which a smooth path passes a point; neighbours up to `before` and `behind` points away count.
    Math::Vector2d throughDirection(std::size_t index, std::size_t before, std::size_t behind) const;

private:
    bool hasNeighbour(std::size_t index, int step) const;
    std::size_t neighbour(std::size_t index, int step) const;
    bool standsOut(std::size_t index) const;
    Math::Vector2d armFrom(std::size_t index, int step, std::size_t limit, double reach) const;
    double angleAt(std::size_t index, double reach) const; ///< Between the arms, in degrees.

    std::span<const Math::Point2d> m_points;
    bool m_closed;
    double m_tolerance;
    double m_reach;
    double m_cornerAngle;
    std::size_t m_neighbours;
    std::vector<char> m_standsOut;
};

} // namespace brindle::engine
