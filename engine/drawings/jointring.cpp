#include "engine/drawings/jointring.h"

#include "engine/geometry2d/curveshape.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <tuple>
#include <utility>

namespace brindle::engine {

namespace {

constexpr double sameDirection = 1e-10; // radians
constexpr double sameBend = 1e-9;       // of the curvatures, or of one over the curve's size

/// The sign of a.x * b.y - a.y * b.x, right also where the products agree in all digits of a double (Kahan).
double exactCross(const Math::Vector2d& a, const Math::Vector2d& b)
{
    const double product = a.y * b.x;
    const double error = std::fma(-a.y, b.x, product);
    return std::fma(a.x, b.y, -product) + error;
}

int quadrant(const Math::Vector2d& way)
{
    if (way.x > 0 && way.y >= 0)
        return 0;
    if (way.x <= 0 && way.y > 0)
        return 1;
    return way.x < 0 ? 2 : 3;
}

/// What departures are compared by.
struct Entry {
    const Departure* departure;
    Math::Vector2d way; ///< To the next control point; later to the place on the circle.
    double size;        ///< Of the curve.
    double curvature;   ///< Infinite where the first handle has no length.

    explicit Entry(const Departure& from) : departure(&from)
    {
        const auto points = from.curve.used();
        std::size_t next = 1;
        while (points[next] == points[0]) // the curve isn't a point
            ++next;
        way = points[next] - points[0];
        size = 0;
        for (const auto& point : points)
            size = std::max(size, (point - points[0]).length());
        curvature = curvatureBehind(points, next);
    }

private:
    /// From the control points behind the joint: 2/3 of the cross product of the first two ways over the cube of the
    /// first one's length for a cubic curve, 1/2 of it for a quadratic one.
    double curvatureBehind(std::span<const Math::Point2d> points, std::size_t next) const
    {
        if (next + 1 >= points.size())
            return 0;
        const double turn = way.cross(points[next + 1] - points[next]);
        if (turn == 0)
            return 0;
        if (next > 1)
            return std::copysign(std::numeric_limits<double>::infinity(), turn);
        const double length = way.length();
        return turn / length / length / length * (points.size() == 4 ? 2.0 / 3 : 0.5);
    }
};

bool turnsLeft(const Entry& one, const Entry& other)
{
    const int first = quadrant(one.way);
    const int second = quadrant(other.way);
    return first != second ? first < second : exactCross(one.way, other.way) > 0;
}

bool sameWay(const Entry& one, const Entry& other)
{
    return one.way.dot(other.way) > 0 &&
           std::abs(one.way.cross(other.way)) <= sameDirection * one.way.length() * other.way.length();
}

bool sameCurvature(const Entry& one, const Entry& other)
{
    if (one.curvature == other.curvature)
        return true;
    const double largest = std::max({std::abs(one.curvature), std::abs(other.curvature), 1 / one.size, 1 / other.size});
    return std::isfinite(largest) && std::abs(one.curvature - other.curvature) <= sameBend * largest;
}

/// Calls `visit` with each run of two or more neighbours that are the same.
template <typename Same, typename Visit>
void forEachRun(std::span<Entry> entries, const Same& same, const Visit& visit)
{
    for (std::size_t begin = 0; begin < entries.size();) {
        std::size_t end = begin + 1;
        while (end < entries.size() && same(entries[end - 1], entries[end]))
            ++end;
        if (end - begin > 1)
            visit(entries.subspan(begin, end - begin));
        begin = end;
    }
}

/// The first parameter at which a curve stops moving away from its start, or bends the other way; 1 if there is none.
double clearUntil(const PlaneCurve& curve, const Math::Vector2d& way)
{
    constexpr double atTheStart = 1e-6;
    double first = 1;
    const auto consider = [&first](std::span<const double> coefficients) {
        for (const double root : bernsteinRoots(coefficients)) {
            if (root > atTheStart)
                first = std::min(first, root);
        }
    };
    const PlaneCurve slopes = curve.derivative();
    std::array<double, GR_Bezier2d::maxDegree> forward{};
    for (unsigned int i = 0; i <= slopes.degree; ++i)
        forward[i] = way.dot({slopes.points[i].x, slopes.points[i].y});
    consider({forward.data(), slopes.degree + 1});
    if (curve.degree < 3)
        return first;
    const auto& p = slopes.points;
    const auto cross = [](const Math::Point2d& a, const Math::Point2d& b) { return a.x * b.y - a.y * b.x; };
    // The cross product of first and second derivative, up to a factor.
    const std::array<double, 3> bend{cross(p[0], p[1]), cross(p[0], p[2]) / 2, cross(p[1], p[2])};
    consider(bend);
    return first;
}

/// The way from the start of a curve to where it is at a distance from there, before a parameter.
Math::Vector2d wayToCircle(const PlaneCurve& curve, double radius, double until)
{
    constexpr int steps = 60;
    double low = 0;
    double high = until;
    for (int step = 0; step < steps && low < high; ++step) {
        const double middle = (low + high) / 2;
        ((curve.at(middle) - curve.from()).length() < radius ? low : high) = middle;
    }
    return curve.at(high) - curve.from();
}

/// Whether the path runs from the lesser end to the greater one: the same for paths that differ in their sense only.
bool isForward(const Departure& departure)
{
    const GR_BezierPath2d& path = *departure.path;
    const unsigned int count = path.GetNumPoints();
    const auto rank = [&path](unsigned int index) {
        const Math::Point2d& point = path.GetPoint(index);
        return std::tuple(point.x, point.y, path.IsOnCurve(index));
    };
    for (unsigned int i = 0; i < count; ++i) {
        const auto here = rank(i);
        const auto mirrored = rank(count - 1 - i);
        if (here != mirrored)
            return (here < mirrored) == departure.isLeft;
    }
    return departure.isLeft;
}

void orderByName(std::span<Entry> entries)
{
    std::ranges::sort(entries, {},
                      [](const Entry& entry) { return std::pair(entry.departure->id, entry.departure->isLeft); });
    std::vector<Entry> arriving;
    std::size_t leaving = 0;
    for (const Entry& entry : entries) {
        if (isForward(*entry.departure))
            entries[leaving++] = entry;
        else
            arriving.push_back(entry);
    }
    std::ranges::reverse_copy(arriving, entries.begin() + static_cast<std::ptrdiff_t>(leaving));
}

void orderByCircle(std::span<Entry> entries)
{
    std::vector<double> until;
    double radius = std::numeric_limits<double>::infinity();
    for (const Entry& entry : entries) {
        const PlaneCurve& curve = entry.departure->curve;
        until.push_back(clearUntil(curve, entry.way));
        radius = std::min(radius, (curve.at(until.back()) - curve.from()).length());
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Math::Vector2d way = wayToCircle(entries[i].departure->curve, radius, until[i]);
        if (way != Math::Vector2d{})
            entries[i].way = way;
    }
    // All lie within a right angle on either side of the common direction; measured from there, an angle is a number.
    const Math::Vector2d along = entries.front().departure->curve.slopeAt(0) == Math::Vector2d{}
                                     ? entries.front().way
                                     : entries.front().departure->curve.slopeAt(0);
    std::ranges::sort(
        entries, {}, [&along](const Entry& entry) { return std::atan2(along.cross(entry.way), along.dot(entry.way)); });
    forEachRun(entries, sameWay, orderByName);
}

void orderByCurvature(std::span<Entry> entries)
{
    std::ranges::sort(entries, {}, &Entry::curvature);
    forEachRun(entries, sameCurvature, orderByCircle);
}

} // namespace

std::vector<int> ringOrder(std::vector<Departure> departures)
{
    std::vector<Entry> entries(departures.begin(), departures.end());
    if (entries.size() > 2) { // of one or two, any order is the same ring
        std::ranges::sort(entries, turnsLeft);
        // The ring begins where directions differ, so that no run of equal ones is cut in two.
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (!sameWay(entries[(i + entries.size() - 1) % entries.size()], entries[i])) {
                std::ranges::rotate(entries, entries.begin() + static_cast<std::ptrdiff_t>(i));
                break;
            }
        }
        forEachRun(std::span(entries), sameWay, orderByCurvature);
    }
    std::ranges::rotate(entries, std::ranges::min_element(entries, {}, [](const Entry& entry) {
                            return std::pair(entry.departure->id, entry.departure->isLeft);
                        }));
    std::vector<int> ring;
    ring.reserve(entries.size());
    for (const Entry& entry : entries)
        ring.push_back(entry.departure->halfEdge);
    return ring;
}

} // namespace brindle::engine
