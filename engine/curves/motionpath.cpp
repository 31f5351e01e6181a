#include "engine/curves/motionpath.h"

#include <limits>
#include <map>
#include <optional>
#include <set>

namespace brindle::engine {

using Math::Point3d;

namespace {

bool isWhole(double value)
{
    return value == std::floor(value);
}

} // namespace

MotionPath::MotionPath(VelocityCurve& velocity, PieceMaker maker) : m_velocity(velocity), m_maker(maker)
{
    m_velocity.setRuler(*this);
}

void MotionPath::setPoints(const std::vector<PathPoint>& points)
{
    m_points = points;
    for (PathPoint& point : m_points)
        point.identity = ++m_identities;
    m_pieces.clear();
    m_pieces.resize(points.empty() ? 0 : points.size() - 1);
    m_hasKeyFrames = false;
    ++m_changes;
}

// Places.

double MotionPath::clamped(double place) const
{
    return std::clamp(place, 0.0, std::max(0.0, size() - 1.0));
}

MotionPath::Place MotionPath::placeOf(double value) const
{
    const double place = clamped(value);
    const double whole = std::floor(place);
    const int index = static_cast<int>(whole);
    return {index, place == whole ? 0 : (place - whole) * lengthOf(index)};
}

const PathPiece& MotionPath::piece(int index) const
{
    std::unique_ptr<PathPiece>& piece = m_pieces[static_cast<std::size_t>(index)];
    if (!piece)
        piece = m_maker(m_points, index);
    return *piece;
}

double MotionPath::lengthOf(int index) const
{
    return index + 1 < size() ? piece(index).length() : 0;
}

double MotionPath::distance(double from, double to) const
{
    if (from > to)
        return -distance(to, from);
    const Place first = placeOf(from);
    const Place last = placeOf(to);
    double sum = last.distance - first.distance;
    for (int index = first.index; index < last.index; ++index)
        sum += lengthOf(index);
    return sum;
}

MotionPath::Place MotionPath::walk(double from, double distance) const
{
    Place place = placeOf(from);
    place.distance += distance;
    while (place.distance < 0 && place.index > 0)
        place.distance += lengthOf(--place.index);
    while (place.index + 1 < size() && place.distance >= lengthOf(place.index))
        place.distance -= lengthOf(place.index++);
    if (place.distance < 0 || place.index + 1 >= size())
        place.distance = 0;
    return place;
}

double MotionPath::placeAt(double from, double distance) const
{
    const Place place = walk(from, distance);
    return place.distance == 0 ? place.index : place.index + place.distance / lengthOf(place.index);
}

Point3d MotionPath::positionOf(const Place& place) const
{
    const Point3d& from = m_points[static_cast<std::size_t>(place.index)].position;
    return place.distance == 0 ? from : piece(place.index).at(place.distance);
}

bool MotionPath::valueAt(double frame, Point3d& position) const
{
    position = {};
    if (m_points.empty())
        return false;
    const unsigned long long velocityChanges = m_velocity.points().changes();
    if (m_recent.frame != frame || m_recent.changes != m_changes || m_recent.velocityChanges != velocityChanges) {
        const auto [from, distance] = m_velocity.wayAt(frame);
        m_recent = {frame, positionOf(distance == 0 ? placeOf(from) : walk(from, distance)), m_changes,
                    velocityChanges};
    }
    position = m_recent.position;
    return true;
}

// Keyframes.

int MotionPath::keyAt(double frame) const
{
    const VelocityPoint* point = m_velocity.points().find(frame);
    return point && isWhole(point->value) && point->value >= 0 && point->value < size() ? static_cast<int>(point->value)
                                                                                        : -1;
}

const VelocityPoint* MotionPath::keyBefore(double frame) const
{
    const VelocityPoint* point = m_velocity.points().around(frame).before;
    while (point && keyAt(point->frame) < 0)
        point = m_velocity.points().before(point->frame);
    return point;
}

const VelocityPoint* MotionPath::keyAfter(double frame) const
{
    const VelocityPoint* point = m_velocity.points().around(frame).after;
    while (point && keyAt(point->frame) < 0)
        point = m_velocity.points().around(point->frame).after;
    return point;
}

const VelocityPoint* MotionPath::keyOf(int index) const
{
    if (!m_hasKeyFrames || m_keyFramesOf != m_velocity.points().changes()) {
        m_keyFrames.assign(m_points.size(), std::numeric_limits<double>::quiet_NaN());
        m_velocity.points().forEach([this](const VelocityPoint& point) {
            const int key = keyAt(point.frame);
            if (key >= 0 && std::isnan(m_keyFrames[static_cast<std::size_t>(key)]))
                m_keyFrames[static_cast<std::size_t>(key)] = point.frame;
        });
        m_keyFramesOf = m_velocity.points().changes();
        m_hasKeyFrames = true;
    }
    return m_velocity.points().find(m_keyFrames[static_cast<std::size_t>(index)]);
}

std::vector<double> MotionPath::keyFrames(double first, double last) const
{
    std::vector<double> frames;
    const VelocityPoint* point = keyAt(first) >= 0 ? m_velocity.points().find(first) : keyAfter(first);
    for (; point && point->frame <= last; point = keyAfter(point->frame))
        frames.push_back(point->frame);
    return frames;
}

double MotionPath::timeOf(int index) const
{
    const auto& points = m_velocity.points();
    if (points.isEmpty())
        return 1;
    if (const VelocityPoint* key = keyOf(index))
        return key->frame;
    const VelocityPoint* from = nullptr;
    std::optional<double> time;
    points.forEach([&](const VelocityPoint& to) {
        if (!time && from && !from->constSegment && (clamped(from->value) <= index) != (clamped(to.value) <= index)) {
            double below = clamped(from->value) <= index ? from->frame : to.frame;
            double above = below == from->frame ? to.frame : from->frame;
            for (int step = 0; step < 64; ++step) {
                const double middle = below + (above - below) / 2;
                (clamped(m_velocity.evaluate(middle)) <= index ? below : above) = middle;
            }
            time = below;
        }
        from = &to;
    });
    return time ? *time : index < clamped(points.first().value) ? points.first().frame : points.last().frame;
}

// Elementary changes.

/// The pieces that the control point at an index has a part in are made anew when they are asked for.
void MotionPath::forget(int index)
{
    ++m_changes;
    for (int at = std::max(index - 2, 0); at < std::min(index + 2, static_cast<int>(m_pieces.size())); ++at)
        m_pieces[static_cast<std::size_t>(at)].reset();
}

void MotionPath::insertPoint(int index, const PathPoint& point)
{
    m_points.insert(m_points.begin() + index, point);
    if (m_points.size() > 1)
        m_pieces.insert(m_pieces.begin() + std::min(index, static_cast<int>(m_pieces.size())), nullptr);
    forget(index);
    m_velocity.renumber(index, 1);
}

void MotionPath::erasePoint(int index)
{
    m_points.erase(m_points.begin() + index);
    if (!m_pieces.empty())
        m_pieces.erase(m_pieces.begin() + std::min(index, static_cast<int>(m_pieces.size()) - 1));
    forget(index);
    m_velocity.renumber(index + 1, -1);
}

void MotionPath::insert(int index, PathPoint point, Log& log)
{
    point.identity = ++m_identities;
    insertPoint(index, point);
    log.push_back({MotionChange::Inserted, index});
}

void MotionPath::erase(int index, Log& log)
{
    log.push_back({MotionChange::Removed, index, m_points[static_cast<std::size_t>(index)]});
    erasePoint(index);
}

void MotionPath::change(int index, const PathPoint& point, Log& log)
{
    PathPoint& there = m_points[static_cast<std::size_t>(index)];
    if (there == point)
        return;
    log.push_back({MotionChange::Edited, index, there});
    there = point;
    forget(index);
}

template <typename VelocityEdit>
CurveEdit MotionPath::editVelocity(Log& log, VelocityEdit edit)
{
    log.push_back({MotionChange::Velocity});
    const Edit edited = edit(log.back().velocity);
    if (log.back().velocity.empty())
        log.pop_back();
    return edited;
}

void MotionPath::setValues(const std::vector<std::pair<double, double>>& values, Log& log)
{
    if (values.empty())
        return;
    editVelocity(log, [&](VelocityCurve::Log& changes) {
        for (const auto& [frame, value] : values)
            m_velocity.setValue(frame, value, changes);
        return Edit::Done;
    });
}

/// Puts a point of the velocity on a control point.
void MotionPath::standOn(double frame, int index, Log& log)
{
    editVelocity(log, [&](VelocityCurve::Log& changes) {
        m_velocity.splice(frame, false, changes);
        return m_velocity.setValue(frame, index, changes);
    });
}

// Edits.

CurveEdit MotionPath::addKey(double frame, Log& log)
{
    if (!VelocityCurve::isFrame(frame))
        return Edit::Refused;
    if (keyAt(frame) >= 0)
        return Edit::Nothing;
    const double value = m_velocity.evaluate(frame);
    const double place = clamped(value);
    const double whole = std::floor(place);
    const int index = static_cast<int>(whole);
    const double fraction = place - whole;
    if (m_points.empty()) {
        insert(0, {}, log);
        standOn(frame, 0, log);
        return Edit::Done;
    }

    const auto [before, after] = m_velocity.points().around(frame);
    const bool isAhead = !before || clamped(before->value) != place; // of the control point that it stands on
    if (fraction == 0 && isAhead && !(after && clamped(after->value) == place) && !(m_velocity.points().isEmpty())) {
        standOn(frame, index, log);
        return Edit::Done;
    }

    const int made = fraction == 0 && isAhead ? index : index + 1;
    std::vector<std::pair<double, double>> values;
    m_velocity.points().forEach([&](const VelocityPoint& point) {
        const double way = point.value - index;
        if (isWhole(point.value)) {
            if (made == index + 1 && fraction == 0 && way == 0 && point.frame > frame)
                values.emplace_back(point.frame, made);
        } else if (fraction == 0 ? way > 0 : way > 1) {
            values.emplace_back(point.frame, point.value + 1);
        } else if (fraction > 0 && way > 0) {
            values.emplace_back(point.frame,
                                way <= fraction ? index + way / fraction : made + (way - fraction) / (1 - fraction));
        }
    });
    PathPoint point;
    point.position = positionOf(placeOf(value));
    insert(made, point, log);
    setValues(values, log);
    standOn(frame, made, log);
    return Edit::Done;
}

CurveEdit MotionPath::makeKey(double frame, const Point3d& position, Log& log)
{
    return keyAt(frame) >= 0 ? Edit::Refused : setKey(frame, position, log);
}

CurveEdit MotionPath::setKey(double frame, const Point3d& position, Log& log)
{
    const Edit made = addKey(frame, log);
    if (made == Edit::Refused)
        return made;
    const Edit moved = move(keyAt(frame), position, log);
    return moved == Edit::Nothing ? made : moved;
}

CurveEdit MotionPath::move(int index, const Point3d& position, Log& log)
{
    if (!has(index))
        return Edit::Refused;
    PathPoint point = m_points[static_cast<std::size_t>(index)];
    if (point.position == position)
        return Edit::Nothing;
    point.position = position;
    if (!point.isSound())
        return Edit::Refused;
    change(index, point, log);
    return Edit::Done;
}

CurveEdit MotionPath::setParameters(int index, double tension, double continuity, double bias, Log& log)
{
    if (!has(index))
        return Edit::Refused;
    PathPoint point = m_points[static_cast<std::size_t>(index)];
    point.tension = tension;
    point.continuity = continuity;
    point.bias = bias;
    if (!point.isSound())
        return Edit::Refused;
    change(index, point, log);
    return Edit::Done;
}

CurveEdit MotionPath::setConstSegment(double frame, bool constantSegment, Log& log)
{
    return editVelocity(
        log, [&](VelocityCurve::Log& changes) { return m_velocity.setConstSegment(frame, constantSegment, changes); });
}

CurveEdit MotionPath::remove(int index, Log& log)
{
    if (!has(index))
        return Edit::Refused;
    std::vector<double> frames;
    std::vector<std::pair<double, double>> values;
    const double before = index > 0 ? lengthOf(index - 1) : 0;
    const double both = before + lengthOf(index);
    const bool isEnd = index == 0 || index + 1 == size();
    m_velocity.points().forEach([&](const VelocityPoint& point) {
        const double way = point.value - index;
        if (way == 0)
            frames.push_back(point.frame);
        else if (isWhole(point.value) || way < -1)
            return;
        else if (way > 1)
            values.emplace_back(point.frame, point.value - 1);
        else if (isEnd)
            values.emplace_back(point.frame, index == 0 ? 0 : index - 1);
        else if (both > 0)
            values.emplace_back(point.frame,
                                index - 1 + (before + (way < 0 ? way * before : way * (both - before))) / both);
        else
            values.emplace_back(point.frame, index - 1 + (1 + way) / 2);
    });
    if (!frames.empty()) {
        editVelocity(log, [&](VelocityCurve::Log& changes) {
            for (const double frame : frames)
                m_velocity.erase(frame, changes);
            return Edit::Done;
        });
    }
    erase(index, log);
    setValues(values, log);
    return Edit::Done;
}

CurveEdit MotionPath::removeKeys(const std::vector<double>& frames, Log& log)
{
    if (frames.empty())
        return Edit::Nothing;
    std::map<double, int> standing; // how many points of the velocity stand on a control point
    m_velocity.points().forEach([&](const VelocityPoint& point) { ++standing[point.value]; });
    std::set<int, std::greater<>> leaving;
    editVelocity(log, [&](VelocityCurve::Log& changes) {
        for (const double frame : frames) {
            const int index = keyAt(frame);
            if (index < 0)
                continue;
            m_velocity.erase(frame, changes);
            if (--standing[index] == 0)
                leaving.insert(index);
        }
        return Edit::Done;
    });
    for (const int index : leaving)
        remove(index, log);
    return Edit::Done;
}

CurveEdit MotionPath::trim(Log& log)
{
    if (m_velocity.points().isEmpty())
        return Edit::Nothing;
    double first = size();
    double last = 0;
    m_velocity.points().forEach([&](const VelocityPoint& point) {
        first = std::min(first, clamped(point.value));
        last = std::max(last, clamped(point.value));
    });
    const auto before = log.size();
    for (int index = size() - 1; index > last; --index)
        remove(index, log);
    for (int index = static_cast<int>(first) - 1; index >= 0; --index)
        remove(index, log);
    return log.size() == before ? Edit::Nothing : Edit::Done;
}

CurveEdit MotionPath::scale(double factor, int axis, Log& log)
{
    if (!std::isfinite(factor) || axis < 0 || axis > 3)
        return Edit::Refused;
    const auto before = log.size();
    for (int index = 0; index < size(); ++index) {
        Point3d position = m_points[static_cast<std::size_t>(index)].position;
        double* const coordinates[] = {&position.x, &position.y, &position.z};
        for (int i = 0; i < 3; ++i) {
            if (axis == 0 || axis == i + 1)
                *coordinates[i] *= factor;
        }
        if (move(index, position, log) == Edit::Refused)
            return Edit::Refused;
    }
    return log.size() == before ? Edit::Nothing : Edit::Done;
}

CurveEdit MotionPath::shift(int at, int delta, Log& log)
{
    const double begin = static_cast<double>(at) + 1;
    const auto before = log.size();
    if (delta < 0)
        removeKeys(keyFrames(begin, std::nextafter(begin - delta, begin)), log);
    const Edit shifted =
        editVelocity(log, [&](VelocityCurve::Log& changes) { return m_velocity.shift(at, delta, changes); });
    return shifted == Edit::Nothing && log.size() > before ? Edit::Done : shifted;
}

CurveEdit MotionPath::clear(double begin, double end, Log& log)
{
    const double last = std::nextafter(end, begin);
    const auto before = log.size();
    removeKeys(keyFrames(begin, last), log);
    editVelocity(log, [&](VelocityCurve::Log& changes) {
        const auto& points = m_velocity.points();
        const VelocityPoint* point = points.find(begin) ? points.find(begin) : points.around(begin).after;
        while (point && point->frame <= last) {
            m_velocity.erase(point->frame, changes);
            point = points.around(begin).after;
        }
        return Edit::Done;
    });
    return log.size() == before ? Edit::Nothing : Edit::Done;
}

void MotionPath::revert(Log& log)
{
    for (; !log.empty(); log.pop_back()) {
        MotionChange& change = log.back();
        switch (change.kind) {
        case MotionChange::Inserted:
            erasePoint(change.index);
            break;
        case MotionChange::Removed:
            change.before.identity = ++m_identities;
            insertPoint(change.index, change.before);
            break;
        case MotionChange::Edited: {
            PathPoint& there = m_points[static_cast<std::size_t>(change.index)];
            change.before.identity = there.identity;
            there = change.before;
            forget(change.index);
            break;
        }
        case MotionChange::Velocity:
            m_velocity.revert(change.velocity);
            break;
        }
    }
}

} // namespace brindle::engine
