#include "engine/geometry2d/corners.h"

#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace brindle::engine {

namespace {

/// How far a long arm reaches at least, in tolerances, unless it had more points than this.
constexpr double tolerancesReached = 2;
constexpr std::size_t mostReached = 256;

double degreesBetween(const Math::Vector2d& one, const Math::Vector2d& other)
{
    return std::abs(std::atan2(one.cross(other), one.dot(other))) * 180 / std::numbers::pi;
}

} // namespace

CornerFinder::CornerFinder(std::span<const Math::Point2d> points, bool closed, double tolerance,
                           const GR_BezierPath2dFitterOptions& options)
    : m_points(points),
      m_closed(closed),
      m_tolerance(tolerance),
      m_reach(tolerancesReached * tolerance),
      m_cornerAngle(options.cornerAngle),
      m_neighbours(std::min(static_cast<std::size_t>(options.neighbours), points.size() - 1)),
      m_standsOut(points.size(), 0)
{
    for (std::size_t i = 0; i < points.size(); ++i)
        m_standsOut[i] = standsOut(i);
}

bool CornerFinder::hasNeighbour(std::size_t index, int step) const
{
    return m_closed || (step > 0 ? index + 1 < m_points.size() : index > 0);
}

std::size_t CornerFinder::neighbour(std::size_t index, int step) const
{
    if (step > 0)
        return index + 1 < m_points.size() ? index + 1 : 0;
    return index > 0 ? index - 1 : m_points.size() - 1;
}

bool CornerFinder::standsOut(std::size_t index) const
{
    if (!hasNeighbour(index, -1) || !hasNeighbour(index, 1))
        return false;
    const Math::Point2d before = m_points[neighbour(index, -1)];
    const Math::Point2d behind = m_points[neighbour(index, 1)];
    const Math::Vector2d back = before - m_points[index];
    const Math::Vector2d forth = behind - m_points[index];
    if (degreesBetween(back, forth) >= m_cornerAngle)
        return false;
    const Math::Vector2d base = behind - before;
    const double width = base.length();
    const double height = width > 0 ? std::abs(back.cross(base)) / width : 0;
    // When the path turns straight back, its tip lies beside the base, not above it.
    const bool beside = base.dot(back) * base.dot(forth) > 0 || width == 0;
    return (beside ? std::min(back.length(), forth.length()) : height) > m_tolerance;
}

Math::Vector2d CornerFinder::armFrom(std::size_t index, int step, std::size_t limit, double reach) const
{
    Math::Vector2d sum;
    Math::Vector2d first;
    Math::Vector2d way;
    std::size_t at = index;
    for (std::size_t i = 0; i < limit && hasNeighbour(at, step); ++i) {
        if (i >= m_neighbours && (i >= mostReached || way.dot(way) >= reach * reach))
            break;
        at = neighbour(at, step);
        way = m_points[at] - m_points[index];
        sum = sum + way;
        if (i == 0)
            first = way;
        if (m_standsOut[at])
            break;
    }
    const Math::Vector2d mean = direction({}, {sum.x, sum.y});
    return mean == Math::Vector2d{} ? direction({}, {first.x, first.y}) : mean;
}

Math::Vector2d CornerFinder::armFrom(std::size_t index, int step, std::size_t limit) const
{
    return armFrom(index, step, limit, m_reach);
}

Math::Vector2d CornerFinder::throughDirection(std::size_t index, std::size_t before, std::size_t behind) const
{
    const Math::Vector2d back = armFrom(index, -1, before);
    const Math::Vector2d forth = armFrom(index, 1, behind);
    const Math::Vector2d through = direction({}, {forth.x - back.x, forth.y - back.y});
    return through == Math::Vector2d{} ? forth : through;
}

double CornerFinder::angleAt(std::size_t index, double reach) const
{
    // Not so far that the arms meet on the other side of a small closed path.
    const std::size_t limit = std::max(m_neighbours, m_points.size() / 3);
    return degreesBetween(armFrom(index, -1, limit, reach), armFrom(index, 1, limit, reach));
}

std::vector<std::size_t> CornerFinder::corners() const
{
    const std::size_t count = m_points.size();
    std::vector<double> angles(count, 180);
    for (std::size_t i = 0; i < count; ++i) {
        if (hasNeighbour(i, -1) && hasNeighbour(i, 1))
            angles[i] = angleAt(i, 0);
    }
    const auto sharperNearby = [&](std::size_t index, int step) {
        std::size_t at = index;
        for (std::size_t i = 0; i < m_neighbours && hasNeighbour(at, step); ++i) {
            at = neighbour(at, step);
            // Among neighbours with the same angle the first one counts.
            if (m_standsOut[at] || angles[at] < angles[index] || (angles[at] == angles[index] && at < index))
                return true;
        }
        return false;
    };
    std::vector<std::size_t> corners;
    double angleBefore = 0; // The angle between the long arms of the last corner.
    for (std::size_t i = 0; i < count; ++i) {
        double angle = 0;
        if (!m_standsOut[i]) {
            if (angles[i] >= m_cornerAngle || sharperNearby(i, -1) || sharperNearby(i, 1))
                continue;
            angle = angleAt(i, m_reach);
            if (angle >= m_cornerAngle)
                continue;
            const bool sameCorner = !corners.empty() && (m_points[i] - m_points[corners.back()]).length() < m_reach;
            if (sameCorner && angle >= angleBefore)
                continue;
            if (sameCorner)
                corners.pop_back();
        }
        corners.push_back(i);
        angleBefore = angle;
    }
    return corners;
}

} // namespace brindle::engine
