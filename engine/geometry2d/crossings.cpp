#include "engine/geometry2d/crossings.h"

#include <queue>
#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

constexpr double slack = 1e-12;          // what rounding may put between parts that touch
constexpr double tiny = 1.0 / (1 << 23); // of the parameter: here a part counts as a place
// Looked at and found, at most: a few hundred and a dozen are enough unless curves run along each other.
constexpr int mostPairs = 4000;
constexpr std::size_t mostFound = 500;

/// A part of a curve, by its control points and its parameters on the whole.
struct Part {
    PlaneCurve curve;
    double start, end;
    Math::Box2d hull;

    Part(const PlaneCurve& part, double from, double to) : curve(part), start(from), end(to), hull(part.hullBox()) {}

    double size() const { return std::max(hull.width(), hull.height()); }
    bool isTiny() const { return end - start <= tiny || size() <= slack; }
    std::pair<Part, Part> halves() const
    {
        const double middle = start + (end - start) / 2;
        const auto [before, behind] = curve.halves();
        return {Part(before, start, middle), Part(behind, middle, end)};
    }
};

bool boxesApart(const Math::Box2d& one, const Math::Box2d& other)
{
    return one.minX() > other.maxX() + slack || other.minX() > one.maxX() + slack ||
           one.minY() > other.maxY() + slack || other.minY() > one.maxY() + slack;
}

/// Whether a line along the chord of one part keeps the other away.
bool chordApart(const PlaneCurve& one, const PlaneCurve& other)
{
    const Math::Vector2d chord = one.to() - one.from();
    const double length = chord.length();
    if (length <= slack)
        return false;
    const auto range = [&](const PlaneCurve& curve) {
        double low = INFINITY;
        double high = -INFINITY;
        for (const auto& point : curve.used()) {
            const double distance = chord.cross(point - one.from()) / length;
            low = std::min(low, distance);
            high = std::max(high, distance);
        }
        return std::pair(low, high);
    };
    const auto [low, high] = range(one);
    const auto [otherLow, otherHigh] = range(other);
    return otherLow > high + slack || low > otherHigh + slack;
}

/// The largest angle between the chord of a part and its directions. An angle over 90 degrees counts as any direction.
struct Cone {
    Math::Vector2d axis;
    double halfAngle = INFINITY;
};

Cone coneOf(const PlaneCurve& curve)
{
    const Math::Vector2d axis = curve.to() - curve.from();
    double steepest = 0;
    for (unsigned int i = 0; i < curve.degree; ++i) {
        const Math::Vector2d way = curve.points[i + 1] - curve.points[i];
        const double along = axis.dot(way);
        const double across = std::abs(axis.cross(way));
        if (along <= 0 && way != Math::Vector2d{})
            return {};
        if (across > steepest * along)
            steepest = across / along;
    }
    return {axis, axis == Math::Vector2d{} ? INFINITY : std::atan(steepest)};
}

/// Parts whose directions never agree cross at most once.
bool crossOnceAtMost(const Part& one, const Part& other)
{
    const Cone first = coneOf(one.curve);
    const Cone second = coneOf(other.curve);
    if (!std::isfinite(first.halfAngle) || !std::isfinite(second.halfAngle))
        return false;
    // Between lines, whatever their sense.
    const double angle = std::atan2(std::abs(first.axis.cross(second.axis)), std::abs(first.axis.dot(second.axis)));
    return first.halfAngle + second.halfAngle < angle;
}

} // namespace

Meeting polished(const PlaneCurve& first, const PlaneCurve& second, Meeting at)
{
    constexpr int steps = 12;
    const PlaneCurve firstSlopes = first.derivative();
    const PlaneCurve secondSlopes = second.derivative();
    const auto separation = [&](const Meeting& places) {
        return distanceSquared(first.at(places.first), second.at(places.second));
    };
    double best = separation(at);
    for (int step = 0; step < steps && best > 0; ++step) {
        const Math::Vector2d way = second.at(at.second) - first.at(at.first);
        const Math::Vector2d a = firstSlopes.at(at.first) - Math::Point2d{};
        const Math::Vector2d b = secondSlopes.at(at.second) - Math::Point2d{};
        const double determinant = b.cross(a);
        if (determinant == 0)
            break;
        const Meeting next{std::clamp(at.first + b.cross(way) / determinant, 0.0, 1.0),
                           std::clamp(at.second + a.cross(way) / determinant, 0.0, 1.0)};
        const double nextSeparation = separation(next);
        if (!(nextSeparation < best))
            break;
        at = next;
        best = nextSeparation;
    }
    return at;
}

std::vector<Meeting> crossings(const PlaneCurve& first, const PlaneCurve& second, const std::vector<Stretch>& known)
{
    std::vector<Meeting> found;
    const auto polish = [&](const Part& one, const Part& other) {
        return polished(first, second, {(one.start + one.end) / 2, (other.start + other.end) / 2});
    };
    const auto isKnown = [&known](const Part& part) {
        return std::ranges::any_of(
            known, [&part](const Stretch& stretch) { return stretch.start <= part.start && part.end <= stretch.end; });
    };
    const auto within = [](double t, const Part& part) {
        const double margin = part.end - part.start;
        return t >= part.start - margin && t <= part.end + margin;
    };

    // The largest parts come first: if too many are left at the end, all of them are small.
    std::queue<std::pair<Part, Part>> open;
    open.emplace(Part(first, 0, 1), Part(second, 0, 1));
    int looked = 0;
    while (!open.empty() && found.size() < mostFound) {
        const auto [one, other] = std::move(open.front());
        open.pop();
        if (boxesApart(one.hull, other.hull) || chordApart(one.curve, other.curve) ||
            chordApart(other.curve, one.curve) || isKnown(one))
            continue;
        if ((one.isTiny() && other.isTiny()) || ++looked > mostPairs) {
            found.push_back(polish(one, other));
            continue;
        }
        if (crossOnceAtMost(one, other)) {
            const Meeting at = polish(one, other);
            const double separation = distanceSquared(first.at(at.first), second.at(at.second));
            if (separation <= slack * slack && within(at.first, one) && within(at.second, other)) {
                found.push_back(at);
                continue;
            }
        }
        const bool divideOne = !one.isTiny() && (other.isTiny() || one.size() >= other.size());
        const auto [before, behind] = divideOne ? one.halves() : other.halves();
        open.push(divideOne ? std::pair(behind, other) : std::pair(one, behind));
        open.push(divideOne ? std::pair(before, other) : std::pair(one, before));
    }
    return found;
}

} // namespace brindle::engine
