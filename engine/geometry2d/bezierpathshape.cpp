#include "core/host/gr_bezierpath.h"

#include "engine/geometry2d/curveshape.h"
#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

// The shape of a path: boxes, tangents, lengths and areas.

using namespace brindle::engine;

namespace {

/// Twice the area of a closed polygon in the frame of its points: positive where it runs anticlockwise.
double twiceUnitArea(std::span<const Math::Point2d> points, const UnitFrame& frame)
{
    double sum = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Math::Point2d from = frame.toUnit(points[i]);
        const Math::Point2d to = frame.toUnit(points[(i + 1) % points.size()]);
        sum += (from - Math::Point2d{}).cross(to - Math::Point2d{});
    }
    return sum;
}

/// One factor after the other: the square of the scale alone may be too large.
double scaledArea(double unitArea, const UnitFrame& frame)
{
    return unitArea * frame.scale() * frame.scale();
}

} // namespace

bool GR_BezierPath2d::IsDegenerate() const
{
    return GetNumBezier() == 0 ||
           std::ranges::all_of(m_points, [this](const auto& point) { return point == m_points.front(); });
}

bool GR_BezierPath2d::IsPolyline() const
{
    return std::ranges::all_of(planeCurves(*this), isSegment);
}

Math::Box2d GR_BezierPath2d::GetBox() const
{
    // Curves whose handles are within what is known already add nothing.
    Math::Box2d box = GetInnerBox();
    for (std::size_t index = 1; index < m_onCurve.size(); ++index) {
        const auto first = m_points.begin() + m_onCurve[index - 1];
        PlaneCurve curve{m_onCurve[index] - m_onCurve[index - 1]};
        std::copy_n(first, curve.degree + 1, curve.points.begin());
        const auto used = curve.used();
        if (!std::ranges::all_of(used, [&box](const auto& point) { return box.contains(point); }))
            box.AddClosed(tightBox(curve));
    }
    return box;
}

Math::Box2d GR_BezierPath2d::GetInnerBox() const
{
    Math::Box2d box;
    for (const unsigned int index : m_onCurve) {
        requireFinite({&m_points[index], 1});
        box.AddClosed(m_points[index]);
    }
    return box;
}

Math::Vector2d GR_BezierPath2d::GetFromTangent() const
{
    for (unsigned int i = 0; i < GetNumBezier(); ++i) {
        const Math::Vector2d tangent = GetBezier(i).GetFromTangent();
        if (tangent != Math::Vector2d{})
            return tangent;
    }
    return {};
}

Math::Vector2d GR_BezierPath2d::GetToTangent() const
{
    for (unsigned int i = GetNumBezier(); i > 0; --i) {
        const Math::Vector2d tangent = GetBezier(i - 1).GetToTangent();
        if (tangent != Math::Vector2d{})
            return tangent;
    }
    return {};
}

double GR_BezierPath2d::GetLength() const
{
    double sum = 0;
    for (const PlaneCurve& curve : planeCurves(*this))
        sum += length(curve);
    return finiteResult(sum);
}

double GR_BezierPath2d::GetArea() const
{
    if (GetNumBezier() == 0)
        return 0;
    const UnitFrame frame(m_points);
    double sum = 0;
    for (const PlaneCurve& curve : planeCurves(*this))
        sum += sectorArea(frame.toUnit(curve), {});
    const Math::Vector2d from = frame.toUnit(GetFromPoint()) - Math::Point2d{};
    const Math::Vector2d to = frame.toUnit(GetToPoint()) - Math::Point2d{};
    return finiteResult(scaledArea(sum + to.cross(from) / 2, frame));
}

double GR_BezierPath2d::GetPolygonLength() const
{
    return IsEmpty() ? 0 : GetSubPolygonLength(GetNumPoints() - 1);
}

double GR_BezierPath2d::GetSubPolygonLength(unsigned int index) const
{
    const Math::Point2d* from = &GetPoint(0);
    GetPoint(index); // throws when there is none
    double sum = 0;
    for (const Math::Point2d& to : std::span(m_points).first(std::size_t{index} + 1)) {
        sum += (to - *from).length();
        from = &to;
    }
    return finiteResult(sum);
}

double GR_BezierPath2d::GetPolygonArea() const
{
    if (IsEmpty())
        return 0;
    const UnitFrame frame(m_points);
    return finiteResult(scaledArea(std::abs(twiceUnitArea(m_points, frame) / 2), frame));
}

bool GR_BezierPath2d::IsClockwisePolygon() const
{
    return !IsEmpty() && twiceUnitArea(m_points, UnitFrame(m_points)) < 0;
}
