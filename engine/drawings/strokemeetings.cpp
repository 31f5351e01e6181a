#include "engine/drawings/strokemeetings.h"

#include "engine/geometry2d/intersection.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

/// The angle at a point within which a curve's control points lie. It holds the curve.
struct Cone {
    Math::Vector2d right, left; ///< Its sides.
    bool isNarrow = true;       ///< Whether it is less than half a turn: only then do the sides say what it is.

    explicit Cone(const PlaneCurve& curve)
    {
        Math::Vector2d first;
        for (const auto& point : curve.used()) {
            const Math::Vector2d way = point - curve.from();
            if (way == Math::Vector2d{})
                continue;
            if (first == Math::Vector2d{})
                first = right = left = way;
            isNarrow = isNarrow && first.dot(way) > 0;
            if (right.cross(way) < 0)
                right = way;
            if (left.cross(way) > 0)
                left = way;
        }
    }

    bool holds(const Math::Vector2d& way) const
    {
        return right.cross(way) >= 0 && way.cross(left) >= 0 && (right.dot(way) > 0 || left.dot(way) > 0);
    }
    bool isApartFrom(const Cone& other) const
    {
        return isNarrow && other.isNarrow && !holds(other.right) && !holds(other.left) && !other.holds(right) &&
               !other.holds(left);
    }
};

} // namespace

StrokeMeetings::StrokeMeetings(std::span<const MapStroke> strokes)
{
    for (std::size_t stroke = 0; stroke < strokes.size(); ++stroke)
        addParts(static_cast<int>(stroke), *strokes[stroke].path);
}

void StrokeMeetings::addParts(int stroke, const GR_BezierPath2d& path)
{
    const std::size_t start = m_parts.size();
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i) {
        const PlaneCurve curve = planeCurve(path.GetBezier(i));
        requireFinite(curve);
        if (curve.isPoint())
            continue;
        Math::Box2d hull = curve.hullBox();
        const double slack = meetingTolerance * std::max(hull.width(), hull.height());
        hull.Enlarge(slack, slack);
        m_parts.push_back({curve, hull, stroke, i, static_cast<int>(m_parts.size() - start), false, false});
    }
    if (m_parts.size() > start) {
        m_parts[start].isFirst = true;
        m_parts.back().isLast = true;
    }
}

void StrokeMeetings::forEach(const std::function<Pair(int, int)>& wanted,
                             const std::function<void(const StrokeMeeting&)>& visit) const
{
    std::vector<const Part*> order;
    order.reserve(m_parts.size());
    for (const Part& part : m_parts) {
        order.push_back(&part);
        for (const Meeting& at : selfMeetings(part.curve))
            visit({{part.stroke, part.index + at.first}, {part.stroke, part.index + at.second}});
    }
    std::ranges::stable_sort(order, {}, [](const Part* part) { return part->hull.minX(); });
    std::vector<const Part*> open;
    for (const Part* part : order) {
        std::erase_if(open, [part](const Part* other) { return other->hull.maxX() < part->hull.minX(); });
        for (const Part* other : open) {
            if (other->hull.minY() > part->hull.maxY() || other->hull.maxY() < part->hull.minY())
                continue;
            const Pair what = wanted(part->stroke, other->stroke);
            if (what == Pair::Stop)
                return;
            if (what == Pair::PassOver)
                continue;
            const auto [one, behind] = std::minmax(part, other);
            compare(*one, *behind, visit);
        }
        open.push_back(part);
    }
}

void StrokeMeetings::compare(const Part& one, const Part& other,
                             const std::function<void(const StrokeMeeting&)>& visit) const
{
    if (partAtJoint(one, other))
        return;
    for (const Meeting& at : meetings(one.curve, other.curve)) {
        if (!isJoint(one, at.first, other, at.second))
            visit({{one.stroke, one.index + at.first}, {other.stroke, other.index + at.second}});
    }
}

/// Whether two curves have a joint in common and meet nowhere else, as far as that is easy to see.
bool StrokeMeetings::partAtJoint(const Part& one, const Part& other) const
{
    for (const int end : {0, 1}) {
        for (const int otherEnd : {0, 1}) {
            const bool isCommon = (end == 0 ? one.curve.from() : one.curve.to()) ==
                                  (otherEnd == 0 ? other.curve.from() : other.curve.to());
            if (isCommon && isJoint(one, end, other, otherEnd)) {
                const Cone cone(end == 0 ? one.curve : one.curve.reversed());
                return cone.isApartFrom(Cone(otherEnd == 0 ? other.curve : other.curve.reversed()));
            }
        }
    }
    return false;
}

/// Whether two places are a point at which a stroke goes on from one curve to the next, or both an end of a stroke.
bool StrokeMeetings::isJoint(const Part& one, double t, const Part& other, double u) const
{
    constexpr double near = 1e-6;
    const bool atStart = t <= near;
    const bool atEnd = t >= 1 - near;
    const bool otherAtStart = u <= near;
    const bool otherAtEnd = u >= 1 - near;
    if (one.stroke == other.stroke && other.place == one.place + 1 && atEnd && otherAtStart)
        return true;
    const bool isEnd = (one.isFirst && atStart) || (one.isLast && atEnd);
    const bool otherIsEnd = (other.isFirst && otherAtStart) || (other.isLast && otherAtEnd);
    return isEnd && otherIsEnd;
}

} // namespace brindle::engine
