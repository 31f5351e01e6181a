#include "engine/curves/curve.h"

#include "engine/curves/beziersegment.h"

#include <algorithm>

namespace brindle::engine {

namespace {

constexpr double frameLimit = 1e9;

bool isSound(const CurvePoint& point)
{
    return Curve::isFrame(point.frame) && std::isfinite(point.value) && std::isfinite(point.anchor) &&
           std::isfinite(point.leftX) && std::isfinite(point.leftY) && std::isfinite(point.rightX) &&
           std::isfinite(point.rightY) && point.continuity >= 0 && point.continuity <= 2;
}

} // namespace

bool Curve::isFrame(double frame)
{
    return std::abs(frame) <= frameLimit;
}

double Curve::evaluate(double frame) const
{
    if (m_points.isEmpty())
        return 0;
    const auto [before, after] = m_points.around(frame);
    if (!before)
        return after->value;
    if (!after || before->constSegment || before->frame == frame)
        return before->value;
    return BezierSegment(*before, *after).valueAt(frame);
}

CurvePoint& Curve::make(CurvePoint point, CurveLog& log)
{
    point.identity = ++m_identities;
    log.push_back({CurveChange::Made, point, point.frame});
    return m_points.insert(point);
}

void Curve::take(double frame, CurveLog& log)
{
    log.push_back({CurveChange::Taken, m_points.take(frame), frame});
}

/// Gives one of the points the fields of another one at the same frame.
void Curve::change(const CurvePoint& there, const CurvePoint& point, CurveLog& log)
{
    if (there == point)
        return;
    log.push_back({CurveChange::Edited, there, point.frame});
    m_points.edit(there) = point;
}

void Curve::relocate(double from, double to, CurveLog& log)
{
    CurvePoint point = m_points.take(from);
    log.push_back({CurveChange::Moved, point, to});
    point.frame = to;
    m_points.insert(point);
}

Curve::Edit Curve::splice(double frame, bool constantSegment, CurveLog& log)
{
    if (!isFrame(frame))
        return Edit::Refused;
    const auto [before, after] = m_points.around(frame);
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

Curve::Edit Curve::erase(double frame, CurveLog& log)
{
    if (!m_points.find(frame))
        return Edit::Refused;
    take(frame, log);
    return Edit::Done;
}

/// Draws the handles of the point at a frame, and those that face it, back to their neighbours.
void Curve::hold(double frame, CurveLog& log)
{
    const CurvePoint* before = m_points.before(frame);
    const CurvePoint* after = m_points.around(frame).after;
    const CurvePoint& there = *m_points.find(frame);
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
    const CurvePoint* there = m_points.find(frame);
    if (!there || !isFrame(newFrame) || !std::isfinite(value) || (newFrame != frame && m_points.find(newFrame)))
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
    const CurvePoint* there = m_points.find(frame);
    if (!there || !std::isfinite(value))
        return Edit::Refused;
    if (there->value == value)
        return Edit::Nothing;
    CurvePoint point = *there;
    point.value = value;
    change(*there, point, log);
    return Edit::Done;
}

Curve::Edit Curve::setLeftHandle(double frame, double x, double y, CurveLog& log)
{
    const CurvePoint* there = m_points.find(frame);
    if (!there || !std::isfinite(x) || !std::isfinite(y))
        return Edit::Refused;
    const CurvePoint* before = m_points.before(frame);
    CurvePoint point = *there;
    point.setLeftHandle(std::min(before ? std::max(x, before->frame) : x, frame), y);
    change(*there, point, log);
    return Edit::Done;
}

Curve::Edit Curve::setRightHandle(double frame, double x, double y, CurveLog& log)
{
    const CurvePoint* there = m_points.find(frame);
    if (!there || !std::isfinite(x) || !std::isfinite(y))
        return Edit::Refused;
    const CurvePoint* after = m_points.around(frame).after;
    CurvePoint point = *there;
    point.setRightHandle(std::max(after ? std::min(x, after->frame) : x, frame), y);
    change(*there, point, log);
    return Edit::Done;
}

Curve::Edit Curve::setConstSegment(double frame, bool constantSegment, CurveLog& log)
{
    const CurvePoint* there = m_points.find(frame);
    if (!there)
        return Edit::Refused;
    CurvePoint point = *there;
    point.constSegment = constantSegment;
    change(*there, point, log);
    return Edit::Done;
}

Curve::Edit Curve::setContinuity(double frame, int continuity, CurveLog& log)
{
    const CurvePoint* there = m_points.find(frame);
    if (!there || continuity < 0 || continuity > 2)
        return Edit::Refused;
    CurvePoint point = *there;
    point.continuity = continuity;
    change(*there, point, log);
    return Edit::Done;
}

Curve::Edit Curve::scale(double factor, CurveLog& log)
{
    if (!std::isfinite(factor))
        return Edit::Refused;
    std::vector<CurvePoint> scaled;
    bool sound = true;
    m_points.forEach([&](CurvePoint point) {
        const double leftY = point.leftHandleY() * factor;
        const double rightY = point.rightHandleY() * factor;
        point.value = point.anchor = point.value * factor;
        point.leftY = leftY;
        point.rightY = rightY;
        sound = sound && isSound(point);
        scaled.push_back(point);
    });
    if (!sound)
        return Edit::Refused;
    const auto before = log.size();
    for (const auto& point : scaled)
        change(*m_points.find(point.frame), point, log);
    return log.size() == before ? Edit::Nothing : Edit::Done;
}

Curve::Edit Curve::shift(int at, int delta, CurveLog& log)
{
    std::vector<double> gone;
    std::vector<double> moved;
    const double begin = static_cast<double>(at) + 1;
    const double end = delta < 0 ? begin - delta : begin;
    m_points.forEach([&](const CurvePoint& point) {
        if (point.frame >= end)
            moved.push_back(point.frame);
        else if (point.frame >= begin)
            gone.push_back(point.frame);
    });
    if (gone.empty() && (moved.empty() || delta == 0))
        return Edit::Nothing;
    if (!moved.empty() && (!isFrame(moved.back() + delta) || !isFrame(moved.front() + delta)))
        return Edit::Refused;

    for (const double frame : gone)
        take(frame, log);
    if (delta > 0)
        std::reverse(moved.begin(), moved.end()); // never onto one that has still to move
    for (const double frame : moved) {
        if (m_points.find(frame + delta)) { // two frames that the sum can't tell apart: one of the points goes
            take(frame, log);
            continue;
        }
        const CurvePoint& there = *m_points.find(frame);
        CurvePoint point = there;
        point.leftX += delta;
        point.rightX += delta;
        change(there, point, log);
        relocate(frame, frame + delta, log);
    }
    if (delta < 0 && !moved.empty())
        hold(moved.front() + delta, log);
    return Edit::Done;
}

bool Curve::put(const CurvePoint& point)
{
    if (!isSound(point))
        return false;
    CurvePoint given = point;
    given.frame += 0.0;
    if (const CurvePoint* there = m_points.find(point.frame)) {
        given.identity = there->identity;
        m_points.edit(*there) = given;
    } else {
        given.identity = ++m_identities;
        m_points.insert(given);
    }
    return true;
}

Curve::Kept Curve::keep(double frame) const
{
    const auto [before, after] = m_points.around(frame);
    Kept kept;
    kept.frame = frame;
    kept.stands = before && before->frame == frame;
    for (const CurvePoint* point : {before, kept.stands ? nullptr : after}) {
        if (point)
            kept.points[static_cast<std::size_t>(kept.count++)] = *point;
    }
    return kept;
}

void Curve::restore(const Kept& kept)
{
    if (!kept.stands && m_points.find(kept.frame))
        m_points.take(kept.frame);
    for (int index = 0; index < kept.count; ++index) {
        const CurvePoint& point = kept.points[static_cast<std::size_t>(index)];
        if (m_points.find(point.frame))
            put(point);
    }
}

void Curve::revert(CurveLog& log)
{
    for (; !log.empty(); log.pop_back()) {
        const CurveChange& change = log.back();
        switch (change.kind) {
        case CurveChange::Made:
            m_points.take(change.frame);
            break;
        case CurveChange::Taken: {
            CurvePoint point = change.before;
            point.identity = ++m_identities;
            m_points.insert(point);
            break;
        }
        case CurveChange::Edited: {
            // The point may have been taken and brought back since, as another one.
            CurvePoint& there = m_points.edit(*m_points.find(change.frame));
            const auto identity = there.identity;
            there = change.before;
            there.identity = identity;
            break;
        }
        case CurveChange::Moved: {
            CurvePoint point = m_points.take(change.frame);
            const auto identity = point.identity;
            point = change.before;
            point.identity = identity;
            m_points.insert(point);
            break;
        }
        }
    }
}

} // namespace brindle::engine
