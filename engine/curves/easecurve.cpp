#include "engine/curves/easecurve.h"

#include "engine/curves/beziersegment.h"

#include <limits>

namespace brindle::engine {

namespace {

double bounded(double value)
{
    constexpr double limit = std::numeric_limits<double>::max();
    return std::clamp(value, -limit, limit);
}

BezierSegment segmentBetween(const EasePoint& from, const EasePoint& to)
{
    const double length = to.frame - from.frame;
    double out = from.easeOut;
    double in = to.easeIn;
    // The condition of BezierSegment for a curve that doesn't run back. Here the handles are drawn back along their
    // slopes, so that the curve still leaves the points as these say.
    constexpr double rounding = 1e-9;
    if ((out > length || in > length) && out + in - std::sqrt(out * in) > length * (1 + rounding)) {
        out = std::min(out, length);
        in = std::min(in, length);
    }
    CurvePoint start;
    start.frame = from.frame;
    start.value = start.anchor = from.value;
    start.rightX = from.frame + out;
    start.rightY = bounded(from.value + out * from.slopeOut);
    CurvePoint end;
    end.frame = to.frame;
    end.value = end.anchor = to.value;
    end.leftX = to.frame - in;
    end.leftY = bounded(to.value - in * to.slopeIn);
    return {start, end};
}

/// A handle as an ease and its slope; without a reach the slope stays.
void setHandle(double& ease, double& slope, double frames, double rise)
{
    ease = std::max(frames, 0.0);
    if (frames > 0 && std::isfinite(rise / frames))
        slope = rise / frames;
}

} // namespace

bool EasePoint::operator==(const EasePoint& other) const
{
    return frame == other.frame && value == other.value && easeIn == other.easeIn && slopeIn == other.slopeIn &&
           easeOut == other.easeOut && slopeOut == other.slopeOut && constSegment == other.constSegment &&
           continuity == other.continuity && identity == other.identity;
}

bool EasePoint::isSound() const
{
    return std::isfinite(value) && std::isfinite(easeIn) && std::isfinite(slopeIn) && std::isfinite(easeOut) &&
           std::isfinite(slopeOut) && easeIn >= 0 && easeOut >= 0 && (continuity == 0 || continuity == 1);
}

void EasePoint::scale(double factor)
{
    value *= factor;
    slopeIn *= factor;
    slopeOut *= factor;
}

double EaseCurve::evaluate(double frame) const
{
    if (points().isEmpty())
        return 0;
    const auto [before, after] = points().around(frame);
    if (!before)
        return after->value;
    if (!after || before->constSegment || before->frame == frame)
        return before->value;
    return segmentBetween(*before, *after).valueAt(frame);
}

CurveEdit EaseCurve::splice(double frame, bool constantSegment, Log& log)
{
    if (!isFrame(frame))
        return Edit::Refused;
    const auto [before, after] = points().around(frame);
    if (before && before->frame == frame)
        return Edit::Nothing;

    EasePoint point;
    point.frame = frame + 0.0; // not -0
    point.constSegment = constantSegment;
    if (log.capacity() == 0)
        log.reserve(before && after ? changesOfSplice : changesOfSplice - 1);
    if (before && after && before->constSegment) {
        point.value = before->value;
        point.constSegment = true;
    } else if (before && after) {
        EasePoint left = *before;
        EasePoint right = *after;
        const auto parts = segmentBetween(left, right).split(frame);
        setHandle(left.easeOut, left.slopeOut, parts.fromRight.x - left.frame, parts.fromRight.y - left.value);
        setHandle(right.easeIn, right.slopeIn, right.frame - parts.toLeft.x, right.value - parts.toLeft.y);
        point.value = parts.middle.y;
        setHandle(point.easeIn, point.slopeIn, frame - parts.left.x, point.value - parts.left.y);
        setHandle(point.easeOut, point.slopeOut, parts.right.x - frame, parts.right.y - point.value);
        point.continuity = 1;
        change(*before, left, log);
        change(*after, right, log);
    } else if (before || after) {
        EasePoint end = before ? *before : *after;
        const double third = std::abs(frame - end.frame) / 3;
        point.value = end.value;
        (before ? end.easeOut : end.easeIn) = third;
        (before ? end.slopeOut : end.slopeIn) = 0;
        (before ? point.easeIn : point.easeOut) = third;
        change(before ? *before : *after, end, log);
    }
    make(point, log);
    return Edit::Done;
}

CurveEdit EaseCurve::move(double frame, double newFrame, double value, Log& log)
{
    if (!isFrame(newFrame) || (newFrame != frame && points().find(newFrame)))
        return Edit::Refused;
    if (newFrame == frame)
        return setValue(frame, value, log);
    const Edit edited = edit(frame, log, [value](EasePoint& point) { point.value = value; });
    if (edited == Edit::Done)
        relocate(frame, newFrame + 0.0, log);
    return edited;
}

CurveEdit EaseCurve::setValue(double frame, double value, Log& log)
{
    if (const EasePoint* there = points().find(frame); there && there->value == value)
        return Edit::Nothing;
    return edit(frame, log, [value](EasePoint& point) { point.value = value; });
}

CurveEdit EaseCurve::setEaseIn(double frame, double ease, Log& log)
{
    return edit(frame, log, [ease](EasePoint& point) { point.easeIn = ease > 0 || std::isnan(ease) ? ease : 0; });
}

CurveEdit EaseCurve::setEaseOut(double frame, double ease, Log& log)
{
    return edit(frame, log, [ease](EasePoint& point) { point.easeOut = ease > 0 || std::isnan(ease) ? ease : 0; });
}

CurveEdit EaseCurve::setSlopeIn(double frame, double slope, Log& log)
{
    return edit(frame, log, [slope](EasePoint& point) { point.slopeIn = slope; });
}

CurveEdit EaseCurve::setSlopeOut(double frame, double slope, Log& log)
{
    return edit(frame, log, [slope](EasePoint& point) { point.slopeOut = slope; });
}

} // namespace brindle::engine
