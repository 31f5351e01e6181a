#include "engine/geometry2d/patharea.h"

#include "engine/geometry2d/nearest.h"
#include "engine/geometry2d/winding.h"

#include <cstdlib>

namespace brindle::engine {

namespace {

constexpr double onTheEdge = 1e-9; // of the path's size

Math::Box2d hullOf(const GR_BezierPath2d& path)
{
    Math::Box2d box;
    for (unsigned int i = 0; i < path.GetNumPoints(); ++i) {
        requireFinite({&path.GetPoint(i), 1});
        box.AddClosed(path.GetPoint(i));
    }
    return box;
}

} // namespace

PathArea::PathArea(const GR_BezierPath2d& path, Math::Constants::FillType fill)
    : m_box(hullOf(path)),
      m_frame(m_box),
      m_fill(fill)
{
    if (path.IsEmpty())
        return;
    for (const PlaneCurve& curve : planeCurves(path)) {
        const PlaneCurve unit = m_frame.toUnit(curve);
        m_pieces.push_back({unit, unit.hullBox()});
    }
    // It also stands for a path of one point.
    PlaneCurve closing;
    closing.degree = 1;
    closing.points = {m_frame.toUnit(path.GetToPoint()), m_frame.toUnit(path.GetFromPoint())};
    m_pieces.push_back({closing, closing.hullBox()});
    for (Piece& piece : m_pieces)
        piece.hull.Enlarge(onTheEdge, onTheEdge);
}

PathArea::Place PathArea::placeOf(const Math::Point2d& point) const
{
    requireFinite({&point, 1});
    Math::Box2d reach = m_box;
    reach.Enlarge(onTheEdge * m_frame.scale(), onTheEdge * m_frame.scale());
    if (!reach.contains(point))
        return Outside;
    const Math::Point2d unit = m_frame.toUnit(point);
    int turns = 0;
    for (const Piece& piece : m_pieces) {
        if (piece.hull.contains(unit)) {
            const auto found = nearest(piece.curve, unit);
            if (found && found->distanceSquared <= onTheEdge * onTheEdge)
                return Edge;
        }
        turns += rayCrossings(piece.curve, unit);
    }
    const bool inside = m_fill == Math::Constants::EvenOdd ? turns % 2 != 0 : turns != 0;
    return inside ? Inside : Outside;
}

} // namespace brindle::engine
