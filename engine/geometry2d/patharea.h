#pragma once

#include "core/host/gr_bezierpath.h"
#include "engine/geometry2d/planecurve.h"

#include <vector>

namespace brindle::engine {

/// The area that a path fills, for asking about many places: the path's curves, and a straight line that closes it.
class PathArea {
public:
    /// Throws std::domain_error when a point is not finite.
    PathArea(const GR_BezierPath2d& path, Math::Constants::FillType fill);

    enum Place { Outside, Edge, Inside };
    /// On the edge are places within 1e-9 of the path's size from it.
    Place placeOf(const Math::Point2d& point) const;

private:
    struct Piece {
        PlaneCurve curve;
        Math::Box2d hull;
    };

    Math::Box2d m_box;
    UnitFrame m_frame; ///< The pieces are in this frame.
    std::vector<Piece> m_pieces;
    Math::Constants::FillType m_fill;
};

} // namespace brindle::engine
