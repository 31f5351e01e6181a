#include "engine/drawings/thicknessspan.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

BezierSegment ThicknessSpan::curve() const
{
    const auto point = [](const End& end) {
        CurvePoint made;
        made.frame = end.position;
        made.value = made.anchor = end.side.thickness;
        made.setLeftHandle(end.side.fromControlPosition, end.side.fromControl);
        made.setRightHandle(end.side.toControlPosition, end.side.toControl);
        return made;
    };
    return {point(m_from), point(m_to)};
}

double ThicknessSpan::widthAt(double position) const
{
    if (isStraight()) {
        const double share = (position - m_from.position) / (m_to.position - m_from.position);
        return std::lerp(m_from.side.thickness, m_to.side.thickness, share);
    }
    return std::max(0., curve().valueAt(position));
}

std::pair<double, double> ThicknessSpan::range() const
{
    const auto [least, greatest] = std::minmax(m_from.side.thickness, m_to.side.thickness);
    if (isStraight())
        return {least, greatest};
    // Only the widths count: where along the path a handle lies changes which position has the extremum, and not the
    // extremum.
    GR_Bezier2d widths(GR_Bezier2d::maxDegree, Math::Constants::Closed, Math::Constants::Closed);
    widths.SetPoint(0, {0, m_from.side.thickness});
    widths.SetPoint(1, {0, m_from.side.toControl});
    widths.SetPoint(2, {0, m_to.side.fromControl});
    widths.SetPoint(3, {0, m_to.side.thickness});
    const Math::Box2d& box = widths.GetBoxRef();
    return {std::max(0., box.minY()), std::max(0., box.maxY())};
}

bool ThicknessSpan::isConstant() const
{
    const double width = m_from.side.thickness;
    return m_to.side.thickness == width && m_from.side.toControl == width && m_to.side.fromControl == width;
}

ThicknessSpan::Parts ThicknessSpan::split(double position) const
{
    Parts parts{m_from.side, {}, m_to.side};
    if (isStraight()) {
        const double width = widthAt(position);
        parts.middle = {width, width, position, width, position};
        return parts;
    }
    const BezierSegment::Parts pieces = curve().split(position);
    parts.from.toControl = pieces.fromRight.y;
    parts.from.toControlPosition = pieces.fromRight.x;
    parts.middle.fromControl = pieces.left.y;
    parts.middle.fromControlPosition = pieces.left.x;
    parts.middle.thickness = std::max(0., pieces.middle.y);
    parts.middle.toControl = pieces.right.y;
    parts.middle.toControlPosition = pieces.right.x;
    parts.to.fromControl = pieces.toLeft.y;
    parts.to.fromControlPosition = pieces.toLeft.x;
    return parts;
}

} // namespace brindle::engine
