#pragma once

#include "engine/curves/framepoints.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace brindle::engine {

/// The outcome of an edit of a curve.
enum class CurveEdit { Done, Nothing, Refused };

/// One elementary change of a curve's points, with what takes it back.
template <typename Point>
struct PointChange {
    enum Kind { Made, Taken, Edited, Moved };
    Kind kind;
    Point before; ///< The point as it was; a point made, as it was made.
    double frame; ///< The point's frame after the change.
};

/// The control points of a function of the frame, and the edits that all such functions have. What lies between two
/// points is the derived class's: bezier curves, eases, velocities.
///
/// Frames are finite and lie within a thousand million of 0, all other numbers of a point are `isSound()`. An edit that
/// would break this, or names a point that isn't there, is refused and changes nothing. Each edit appends what it did
/// to the log, and `revert` takes a log back, newest change first.
template <typename PointT>
class PointCurve {
public:
    using Point = PointT;
    using Edit = CurveEdit;
    using Change = PointChange<Point>;
    using Log = std::vector<Change>;

    static bool isFrame(double frame) { return std::abs(frame) <= 1e9; }

    const FramePoints<Point>& points() const { return m_points; }

    Edit erase(double frame, Log& log);
    Edit setConstSegment(double frame, bool constantSegment, Log& log);
    Edit setContinuity(double frame, int continuity, Log& log);
    /// Multiplies all values by a factor.
    Edit scale(double factor, Log& log);
    /// Makes room for `delta` frames behind frame `at`, or takes the -`delta` frames behind it out with their points.
    Edit shift(int at, int delta, Log& log);

    /// Puts points, whose frames ascend, in place of all that stand from a frame up to another one.
    Edit replace(double first, double last, const std::vector<Point>& points, Log& log);

    /// Puts a point as it is given, in place of one at its frame; false when a number is refused.
    bool put(const Point& point);

    /// The part of a curve that an edit at a frame may change: the point there, or else those beside it.
    struct Kept {
        double frame = 0;
        bool stands = false; ///< A point stands at the frame.
        int count = 0;
        std::array<Point, 2> points;
    };
    Kept keep(double frame) const;
    /// Takes the point at the frame away where there was none, and writes the others back.
    void restore(const Kept& kept);

    void revert(Log& log);

protected:
    ~PointCurve() = default;
    PointCurve() = default;
    PointCurve(const PointCurve&) = default;
    PointCurve& operator=(const PointCurve&) = default;

    /// Changes the point at a frame by `function(Point&)`, and nothing when what comes out isn't sound.
    template <typename Function>
    Edit edit(double frame, Log& log, Function function);
    Point& make(Point point, Log& log);
    void take(double frame, Log& log);
    /// Gives one of the points the fields of another one at the same frame.
    void change(const Point& there, const Point& point, Log& log);
    void relocate(double from, double to, Log& log);
    /// Writes all points by `function(Point&)`, past the log.
    template <typename Function>
    void editAll(Function function)
    {
        m_points.editAll(function);
    }

private:
    FramePoints<Point> m_points;
    unsigned long long m_identities = 0;
};

template <typename Point>
template <typename Function>
CurveEdit PointCurve<Point>::edit(double frame, Log& log, Function function)
{
    const Point* there = m_points.find(frame);
    if (!there)
        return Edit::Refused;
    Point point = *there;
    function(point);
    if (!point.isSound())
        return Edit::Refused;
    change(*there, point, log);
    return Edit::Done;
}

template <typename Point>
Point& PointCurve<Point>::make(Point point, Log& log)
{
    point.identity = ++m_identities;
    log.push_back({Change::Made, point, point.frame});
    return m_points.insert(point);
}

template <typename Point>
void PointCurve<Point>::take(double frame, Log& log)
{
    log.push_back({Change::Taken, m_points.take(frame), frame});
}

template <typename Point>
void PointCurve<Point>::change(const Point& there, const Point& point, Log& log)
{
    if (there == point)
        return;
    log.push_back({Change::Edited, there, point.frame});
    m_points.edit(there) = point;
}

template <typename Point>
void PointCurve<Point>::relocate(double from, double to, Log& log)
{
    Point point = m_points.take(from);
    log.push_back({Change::Moved, point, to});
    point.frame = to;
    m_points.insert(point);
}

template <typename Point>
CurveEdit PointCurve<Point>::erase(double frame, Log& log)
{
    if (!m_points.find(frame))
        return Edit::Refused;
    take(frame, log);
    return Edit::Done;
}

template <typename Point>
CurveEdit PointCurve<Point>::setConstSegment(double frame, bool constantSegment, Log& log)
{
    return edit(frame, log, [=](Point& point) { point.constSegment = constantSegment; });
}

template <typename Point>
CurveEdit PointCurve<Point>::setContinuity(double frame, int continuity, Log& log)
{
    return edit(frame, log, [=](Point& point) { point.continuity = continuity; });
}

template <typename Point>
CurveEdit PointCurve<Point>::scale(double factor, Log& log)
{
    if (!std::isfinite(factor))
        return Edit::Refused;
    std::vector<Point> scaled;
    bool sound = true;
    m_points.forEach([&](Point point) {
        point.scale(factor);
        sound = sound && point.isSound();
        scaled.push_back(point);
    });
    if (!sound)
        return Edit::Refused;
    const auto before = log.size();
    for (const auto& point : scaled)
        change(*m_points.find(point.frame), point, log);
    return log.size() == before ? Edit::Nothing : Edit::Done;
}

template <typename Point>
CurveEdit PointCurve<Point>::shift(int at, int delta, Log& log)
{
    std::vector<double> gone;
    std::vector<double> moved;
    const double begin = static_cast<double>(at) + 1;
    const double end = delta < 0 ? begin - delta : begin;
    m_points.forEach([&](const Point& point) {
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
        const Point& there = *m_points.find(frame);
        Point point = there;
        point.shift(delta);
        change(there, point, log);
        relocate(frame, frame + delta, log);
    }
    return Edit::Done;
}

template <typename Point>
CurveEdit PointCurve<Point>::replace(double first, double last, const std::vector<Point>& points, Log& log)
{
    const auto canStand = [](const Point& point) { return isFrame(point.frame) && point.isSound(); };
    if (!std::all_of(points.begin(), points.end(), canStand))
        return Edit::Refused;
    std::vector<double> gone;
    m_points.forEach([&](const Point& point) {
        if (point.frame >= first && point.frame <= last)
            gone.push_back(point.frame);
    });
    for (const double frame : gone)
        take(frame, log);
    for (const Point& point : points)
        make(point, log);
    return gone.empty() && points.empty() ? Edit::Nothing : Edit::Done;
}

template <typename Point>
bool PointCurve<Point>::put(const Point& point)
{
    if (!isFrame(point.frame) || !point.isSound())
        return false;
    Point given = point;
    given.frame += 0.0; // not -0
    if (const Point* there = m_points.find(point.frame)) {
        given.identity = there->identity;
        m_points.edit(*there) = given;
    } else {
        given.identity = ++m_identities;
        m_points.insert(given);
    }
    return true;
}

template <typename Point>
typename PointCurve<Point>::Kept PointCurve<Point>::keep(double frame) const
{
    const auto [before, after] = m_points.around(frame);
    Kept kept;
    kept.frame = frame;
    kept.stands = before && before->frame == frame;
    for (const Point* point : {before, kept.stands ? nullptr : after}) {
        if (point)
            kept.points[static_cast<std::size_t>(kept.count++)] = *point;
    }
    return kept;
}

template <typename Point>
void PointCurve<Point>::restore(const Kept& kept)
{
    if (!kept.stands && m_points.find(kept.frame))
        m_points.take(kept.frame);
    for (int index = 0; index < kept.count; ++index) {
        const Point& point = kept.points[static_cast<std::size_t>(index)];
        if (m_points.find(point.frame))
            put(point);
    }
}

template <typename Point>
void PointCurve<Point>::revert(Log& log)
{
    for (; !log.empty(); log.pop_back()) {
        const Change& change = log.back();
        Point point = change.before;
        switch (change.kind) {
        case Change::Made:
            m_points.take(change.frame);
            break;
        case Change::Taken:
            point.identity = ++m_identities;
            m_points.insert(point);
            break;
        case Change::Edited: {
            // The point may have been taken and brought back since, as another one.
            Point& there = m_points.edit(*m_points.find(change.frame));
            point.identity = there.identity;
            there = point;
            break;
        }
        case Change::Moved:
            point.identity = m_points.take(change.frame).identity;
            m_points.insert(point);
            break;
        }
    }
}

} // namespace brindle::engine
