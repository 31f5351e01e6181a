#include "engine/drawings/outlineshape.h"

#include "engine/drawings/tip.h"

#include <cmath>
#include <numbers>
#include <optional>

namespace brindle::engine {

namespace {

GR_BezierPath2d tipOf(const LineEnd& end, GR_TipType type, const std::optional<GR_Bezier2d>& curve)
{
    return curve ? tipOutline(end, *curve) : tipOutline(end, type);
}

} // namespace

double cornerAngle(const LineSection& before, const LineSection& behind)
{
    constexpr double smooth = 1e-9;
    const double angle = std::atan2(before.along.cross(behind.along), before.along.dot(behind.along));
    return std::abs(angle) <= smooth ? 0 : angle;
}

std::vector<CornerSector> cornerSectors(const LineSection& before, const LineSection& behind)
{
    constexpr double turningBack = 1e-6; // radians
    const double angle = cornerAngle(before, behind);
    const Math::Vector2d toLeft = before.toLeft();
    const CornerSector onRight{before.place, toLeft * -before.widths.right, angle};
    const CornerSector onLeft{before.place, toLeft * before.widths.left, angle};
    if (angle == 0)
        return {};
    if (std::numbers::pi - std::abs(angle) > turningBack)
        return {angle > 0 ? onRight : onLeft};
    return {{onRight.centre, onRight.from, std::numbers::pi}, {onLeft.centre, onLeft.from, -std::numbers::pi}};
}

GR_BezierPath2d startTip(const LineForm& form, const LineSection& start)
{
    return tipOf({start.place, -start.along, start.toLeft(), start.widths, form.thickness.startTangentLeft,
                  form.thickness.startTangentRight},
                 form.tips[0], form.thickness.tipFromBezier());
}

GR_BezierPath2d endTip(const LineForm& form, const LineSection& end)
{
    return tipOf({end.place, end.along, end.toLeft(), end.widths, form.thickness.stopTangentLeft,
                  form.thickness.stopTangentRight},
                 form.tips[1], form.thickness.tipToBezier());
}

LineSection placeSection(const LineForm& form, double share)
{
    return {form.path->GetFromPoint(), {1, 0}, form.widthsAt(share)};
}

} // namespace brindle::engine
