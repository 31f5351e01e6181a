#include "engine/curves/curve.h"

#include "engine/curves/beziersegment.h"

#include <algorithm>

namespace brindle::engine {

double Curve::evaluate(double frame) const
{
    if (points().isEmpty())
        return 0;
    const auto [before, after] = points().around(frame);
    if (!before)
        return after->value;
    if (!after || before->constSegment || before->frame == frame)
        return before->value;
    return BezierSegment(*before, *after).valueAt(frame);
}

Curve::Edit Curve::splice(double frame, bool constantSegment, CurveLog& log)
{
    if (!isFrame(frame))
        return Edit::Refused;
    const auto [before, after] = points().around(frame);
    if (before && before->frame == frame)
        return Edit::Nothing;

    CurvePoint point;
    point.frame = frame + 0.0; // not -0
    point.leftX = point.rightX = frame;
    point.constSegment = constantSegment;
    // Most edits are one splice: what it writes down gets the room that it needs and no more.
    if (log.capacity() == 0)
        log.reserve(before && after ? changesOfSplice : changesOfSplice - 1);
    if (before && after) {
        spliceInto(point, *before, *after, log);
    } else if (before || after) {
        const CurvePoint& there = before ? *before : *after;
        CurvePoint end = there;
        point.value = point.anchor = point.leftY = point.rightY = end.value;
        const double third = (frame - end.frame) / 3;
        if (before) {
            end.setRightHandle(end.frame + third, end.value);
            point.leftX = frame - third;
        } else {
            end.setLeftHandle(end.frame + third, end.value);
            point.rightX = frame - third;
        }
        change(there, end, log);
    }
    make(point, log);
    return Edit::Done;
}

void Curve::spliceInto(CurvePoint& point, const CurvePoint& before, const CurvePoint& after, CurveLog& log)
{
    CurvePoint left = before;
    CurvePoint right = after;
    if (before.constSegment) {
        point.value = point.anchor = point.leftY = point.rightY = before.value;
        point.constSegment = true;
        left.setRightHandle(std::min(left.rightX, point.frame), left.rightHandleY());
        right.setLeftHandle(std::max(right.leftX, point.frame), right.leftHandleY());
    } else {
        const auto parts = BezierSegment(before, after).split(point.frame);
        left.setRightHandle(parts.fromRight.x, parts.fromRight.y);
        right.setLeftHandle(parts.toLeft.x, parts.toLeft.y);
        point.value = point.anchor = parts.middle.y;
        point.setLeftHandle(parts.left.x, parts.left.y);
        point.setRightHandle(parts.right.x, parts.right.y);
        point.continuity = 1;
    }
    change(before, left, log);
    change(after, right, log);
}

/// Draws the handles of the point at a frame, and those that face it, back to their neighbours.
void Curve::hold(double frame, CurveLog& log)
{
    const CurvePoint* before = points().before(frame);
    const CurvePoint* after = points().around(frame).after;
    const CurvePoint& there = *points().find(frame);
    CurvePoint point = there;
    if (before && before->rightX > frame) {
        CurvePoint facing = *before;
        facing.setRightHandle(frame, facing.rightHandleY());
        change(*before, facing, log);
    }
    if (after && after->leftX < frame) {
        CurvePoint facing = *after;
        facing.setLeftHandle(frame, facing.leftHandleY());
        change(*after, facing, log);
    }
    const double left = std::min(before ? std::max(point.leftX, before->frame) : point.leftX, frame);
    const double right = std::max(after ? std::min(point.rightX, after->frame) : point.rightX, frame);
    point.setLeftHandle(left, point.leftHandleY());
    point.setRightHandle(right, point.rightHandleY());
    change(there, point, log);
}

Curve::Edit Curve::move(double frame, double newFrame, double value, CurveLog& log)
{
    const CurvePoint* there = points().find(frame);
    if (!there || !isFrame(newFrame) || !std::isfinite(value) || (newFrame != frame && points().find(newFrame)))
        return Edit::Refused;
    if (newFrame == frame && value == there->value)
        return Edit::Nothing;
    CurvePoint point = *there;
    const double leftY = point.leftHandleY();
    const double rightY = point.rightHandleY();
    point.value = value;
    point.anchor = value;
    point.leftY = leftY;
    point.rightY = rightY;
    change(*there, point, log);
    if (newFrame != frame)
        relocate(frame, newFrame + 0.0, log);
    hold(newFrame, log);
    return Edit::Done;
}

Curve::Edit Curve::setValue(double frame, double value, CurveLog& log)
{
    if (const CurvePoint* there = points().find(frame); there && there->value == value)
        return Edit::Nothing;
    return edit(frame, log, [value](CurvePoint& point) { point.value = value; });
}

Curve::Edit Curve::setLeftHandle(double frame, double x, double y, CurveLog& log)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return Edit::Refused;
    const CurvePoint* before = points().before(frame);
    return edit(frame, log, [&](CurvePoint& point) {
        point.setLeftHandle(std::min(before ? std::max(x, before->frame) : x, frame), y);
    });
}

Curve::Edit Curve::setRightHandle(double frame, double x, double y, CurveLog& log)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return Edit::Refused;
    const CurvePoint* after = points().around(frame).after;
    return edit(frame, log, [&](CurvePoint& point) {
        point.setRightHandle(std::max(after ? std::min(x, after->frame) : x, frame), y);
    });
}

Curve::Edit Curve::replace(double first, double last, const std::vector<CurvePoint>& points, CurveLog& log)
{
    const Edit edit = PointCurve::replace(first, last, points, log);
    if (edit == Edit::Done && !points.empty()) {
        hold(points.front().frame, log);
        hold(points.back().frame, log);
    }
    return edit;
}

Curve::Edit Curve::shift(int at, int delta, CurveLog& log)
{
    const Edit edit = PointCurve::shift(at, delta, log);
    if (edit == Edit::Done && delta < 0) {
        const double begin = static_cast<double>(at) + 1;
        const auto [before, after] = points().around(begin);
        const CurvePoint* first = before && before->frame == begin ? before : after;
        if (first)
            hold(first->frame, log);
    }
    return edit;
}

} // namespace brindle::engine
