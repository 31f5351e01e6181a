#pragma once

#include "core/host/gr_bezierpath.h"
#include "core/host/math_point.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace brindle::engine {

/// The places at which ends of a layer's strokes stand, to bring the ends of a new stroke to them. Places are kept as
/// they are; the grid only finds those nearby: cells are twice the reach wide, so that what is within reach of a place
/// lies in the four cells around it, on either side of a line of the grid.
class JointGrid {
public:
    /// Ends that are no further apart than this, in units of the drawing, become one joint.
    static constexpr double defaultReach = 1e-4;

    /// `reach`: finite and above 0, else std::invalid_argument.
    explicit JointGrid(double reach = defaultReach);

    /// Counts one more stroke end at a place, or one less. Taking away what isn't there does nothing.
    void add(const Math::Point2d& place);
    void remove(const Math::Point2d& place);
    void add(const GR_BezierPath2d& path);    ///< Both ends; none of a path without a curve.
    void remove(const GR_BezierPath2d& path); ///< The ends that add() counted.

    /// The place within reach that is nearest to a point; of several, the leftmost, then the lowest one.
    std::optional<Math::Point2d> nearby(const Math::Point2d& point) const;

    /// The path with each end moved to the joint within reach, if there is one; the handles stay. Where there is none,
    /// a last point within reach of the first one moves there. A path that lies within reach of its first point as a
    /// whole, and one without a curve, stay as they are. The grid is not changed.
    GR_BezierPath2d snapped(GR_BezierPath2d path) const;

private:
    struct Cell {
        double column, row;
        bool operator==(const Cell&) const = default;
    };
    struct CellHash {
        std::size_t operator()(const Cell& cell) const;
    };
    struct Place {
        Math::Point2d point;
        int ends; ///< How many strokes end here.
    };

    Cell cellOf(const Math::Point2d& point) const;

    double m_reach;
    std::unordered_map<Cell, std::vector<Place>, CellHash> m_cells;
};

} // namespace brindle::engine
