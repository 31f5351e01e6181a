#include "engine/curves/velocitycurve.h"

namespace brindle::engine {

bool VelocityPoint::operator==(const VelocityPoint& other) const
{
    return frame == other.frame && value == other.value && constSegment == other.constSegment &&
           identity == other.identity;
}

double VelocityCurve::evaluate(double frame) const
{
    const auto [from, distance] = wayAt(frame);
    if (distance == 0)
        return from;
    return m_ruler ? m_ruler->placeAt(from, distance) : from + distance;
}

double VelocityCurve::distance(const VelocityPoint& from, const VelocityPoint& to) const
{
    return m_ruler ? m_ruler->distance(from.value, to.value) : to.value - from.value;
}

/// The velocity at a point, which is `before` or `after` one of its neighbours. At the ends, and behind a constant
/// segment, it is that of the one side.
double VelocityCurve::slopeAt(const VelocityPoint& point, const VelocityPoint* before, const VelocityPoint* after) const
{
    if (before && before->constSegment)
        before = nullptr;
    if (point.constSegment)
        after = nullptr;
    const double lengthBefore = before ? point.frame - before->frame : 0;
    const double lengthAfter = after ? after->frame - point.frame : 0;
    const double slopeBefore = before ? distance(*before, point) / lengthBefore : 0;
    const double slopeAfter = after ? distance(point, *after) / lengthAfter : 0;
    if (!before || !after)
        return slopeBefore + slopeAfter;
    if (slopeBefore == 0 || slopeAfter == 0 || (slopeBefore < 0) != (slopeAfter < 0))
        return 0;
    const double ofBefore = lengthBefore + 2 * lengthAfter;
    const double ofAfter = 2 * lengthBefore + lengthAfter;
    return (ofBefore + ofAfter) / (ofBefore / slopeBefore + ofAfter / slopeAfter);
}

VelocityCurve::Way VelocityCurve::wayAt(double frame) const
{
    if (points().isEmpty())
        return {0, 0};
    const auto [before, after] = points().around(frame);
    if (!before)
        return {after->value, 0};
    if (!after || before->constSegment || before->frame == frame)
        return {before->value, 0};

    const double way = distance(*before, *after);
    if (way == 0)
        return {before->value, 0};
    const double length = after->frame - before->frame;
    const double t = (frame - before->frame) / length;
    const double start = length * slopeAt(*before, points().before(before->frame), after);
    const double end = length * slopeAt(*after, before, points().around(after->frame).after);
    const double u = 1 - t;
    const double gone = t * (u * u * start + t * ((3 - 2 * t) * way - u * end));
    if (std::isfinite(gone))
        return {before->value, gone};
    return {std::lerp(before->value, after->value, t), 0}; // at the end of what a double holds
}

CurveEdit VelocityCurve::splice(double frame, bool constantSegment, Log& log)
{
    if (!isFrame(frame))
        return Edit::Refused;
    const VelocityPoint* before = points().around(frame).before;
    if (before && before->frame == frame)
        return Edit::Nothing;
    VelocityPoint point;
    point.frame = frame + 0.0; // not -0
    point.value = evaluate(frame);
    point.constSegment = constantSegment || (before && before->constSegment);
    make(point, log);
    return Edit::Done;
}

bool VelocityCurve::canHave(double value) const
{
    constexpr double placeLimit = 1e9; // whole places are counted exactly
    return !m_ruler || std::abs(value) <= placeLimit;
}

CurveEdit VelocityCurve::move(double frame, double newFrame, double value, Log& log)
{
    if (!isFrame(newFrame) || !canHave(value) || (newFrame != frame && points().find(newFrame)))
        return Edit::Refused;
    if (newFrame == frame)
        return setValue(frame, value, log);
    const Edit edited = edit(frame, log, [value](VelocityPoint& point) { point.value = value; });
    if (edited == Edit::Done)
        relocate(frame, newFrame + 0.0, log);
    return edited;
}

CurveEdit VelocityCurve::setValue(double frame, double value, Log& log)
{
    if (const VelocityPoint* there = points().find(frame); there && there->value == value)
        return Edit::Nothing;
    if (!canHave(value))
        return Edit::Refused;
    return edit(frame, log, [value](VelocityPoint& point) { point.value = value; });
}

void VelocityCurve::renumber(double from, double by)
{
    editAll([from, by](VelocityPoint& point) {
        if (point.value >= from && point.value == std::floor(point.value))
            point.value += by;
    });
}

} // namespace brindle::engine
