#include "engine/geometry2d/curveshape.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

constexpr double onTheLine = 1e-12; // of the curve's size

/// Adds the places where one coordinate of the curve turns back: the roots of its derivative, which is quadratic at
/// most. Near a place where the curve turns, an error of the root counts by its square.
void addTurns(const PlaneCurve& curve, const PlaneCurve& slopes, double Math::Point2d::*coordinate, Math::Box2d& box)
{
    const auto addAt = [&](double t) {
        if (t > 0 && t < 1)
            box.AddClosed(curve.at(t));
    };
    const double first = slopes.points[0].*coordinate;
    const double second = slopes.points[1].*coordinate;
    if (slopes.degree == 1) {
        addAt(first / (first - second));
    } else if (slopes.degree == 2) {
        const double third = slopes.points[2].*coordinate;
        const double half = second - first;
        const double discriminant = second * second - first * third;
        if (discriminant < 0)
            return;
        const double sum = -(half + std::copysign(std::sqrt(discriminant), half));
        addAt(sum / (first - 2 * second + third));
        addAt(first / sum);
    }
}

/// A place and a weight of Gauss's quadrature on [-1, 1].
struct Node {
    double place, weight;
};

/// The upper half of the rule with 8 places; the lower half mirrors it.
constexpr std::array<Node, 4> gauss8{{{0.1834346424956498, 0.3626837833783620},
                                      {0.5255324099163290, 0.3137066458778873},
                                      {0.7966664774136267, 0.2223810344533745},
                                      {0.9602898564975363, 0.1012285362903763}}};

double speedIntegral(const PlaneCurve& slopes, double start, double end)
{
    const double middle = (start + end) / 2;
    const double half = (end - start) / 2;
    const auto speed = [&slopes](double t) {
        const Math::Point2d slope = slopes.at(t);
        return std::sqrt(slope.x * slope.x + slope.y * slope.y);
    };
    double sum = 0;
    for (const Node& node : gauss8)
        sum += node.weight * (speed(middle - half * node.place) + speed(middle + half * node.place));
    return sum * half;
}

/// The length of a curve whose coordinates are about 1: Gauss's quadrature, on halves of halves until both halves
/// together agree with the whole. Near a cusp, where the speed has a corner, the halves become small quickly.
double speedIntegral(const PlaneCurve& slopes)
{
    struct Part {
        double start, end, integral;
    };
    constexpr double tolerance = 1e-12;
    constexpr double smallest = 1e-9; // in the parameter: what is shorter adds less than the tolerance
    std::vector<Part> open{{0, 1, speedIntegral(slopes, 0, 1)}};
    double sum = 0;
    while (!open.empty()) {
        const Part part = open.back();
        open.pop_back();
        const double middle = (part.start + part.end) / 2;
        const Part left{part.start, middle, speedIntegral(slopes, part.start, middle)};
        const Part right{middle, part.end, speedIntegral(slopes, middle, part.end)};
        const double both = left.integral + right.integral;
        if (std::abs(both - part.integral) <= tolerance || part.end - part.start < smallest) {
            sum += both;
        } else {
            open.push_back(right);
            open.push_back(left);
        }
    }
    return sum;
}

} // namespace

Math::Vector2d fromTangent(const PlaneCurve& curve)
{
    requireFinite(curve);
    for (const auto& point : curve.used()) {
        if (point != curve.from())
            return direction(curve.from(), point);
    }
    return {};
}

Math::Box2d tightBox(const PlaneCurve& curve)
{
    requireFinite(curve);
    Math::Box2d box(curve.from(), curve.to());
    bool isWithinX = true;
    bool isWithinY = true;
    for (const Math::Point2d& point : curve.used()) {
        isWithinX = isWithinX && point.x >= box.minX() && point.x <= box.maxX();
        isWithinY = isWithinY && point.y >= box.minY() && point.y <= box.maxY();
    }
    if (isWithinX && isWithinY)
        return box;
    const UnitFrame frame(curve.used());
    const PlaneCurve slopes = frame.toUnit(curve).derivative();
    if (!isWithinX)
        addTurns(curve, slopes, &Math::Point2d::x, box);
    if (!isWithinY)
        addTurns(curve, slopes, &Math::Point2d::y, box);
    return box;
}

bool isSegment(const PlaneCurve& curve)
{
    const UnitFrame frame(curve.used());
    const PlaneCurve unit = frame.toUnit(curve);
    const Math::Vector2d chord = unit.to() - unit.from();
    const double length = chord.length();
    if (length == 0)
        return curve.isPoint();
    const Math::Vector2d along = chord * (1 / length);
    return std::ranges::all_of(unit.used(), [&](const Math::Point2d& point) {
        const Math::Vector2d way = point - unit.from();
        const double place = way.dot(along);
        return std::abs(way.cross(along)) <= onTheLine * length && place >= -onTheLine * length &&
               place <= length * (1 + onTheLine);
    });
}

bool isStraight(const PlaneCurve& curve)
{
    const UnitFrame frame(curve.used());
    const PlaneCurve unit = frame.toUnit(curve);
    Math::Vector2d longest;
    for (const auto& point : unit.used()) {
        const Math::Vector2d way = point - unit.from();
        if (way.length() > longest.length())
            longest = way;
    }
    if (longest == Math::Vector2d{})
        return true;
    return std::ranges::all_of(unit.used(), [&](const Math::Point2d& point) {
        return std::abs((point - unit.from()).cross(longest)) <= onTheLine * longest.dot(longest);
    });
}

GR_Bezier2d::Characteristic characteristic(const PlaneCurve& curve)
{
    const UnitFrame frame(curve.used());
    if (curve.degree < 3 || isStraight(curve))
        return GR_Bezier2d::Plain;
    const PlaneCurve slopes = frame.toUnit(curve).derivative();
    const PlaneCurve bends = slopes.derivative();

    // The cross product of the derivatives is of degree 3 in form and 2 in fact: as a t^2 + b t + c.
    const auto cross = [&](double t) {
        const Math::Point2d slope = slopes.at(t);
        const Math::Point2d bend = bends.at(t);
        return slope.x * bend.y - slope.y * bend.x;
    };
    const double atStart = cross(0);
    const double inMiddle = cross(0.5);
    const double atEnd = cross(1);
    const std::array<double, 3> bernstein{atStart, 2 * inMiddle - (atStart + atEnd) / 2, atEnd};

    constexpr double atAnEnd = 1e-9;    // nearer to an end, a root is the end's
    constexpr double standstill = 1e-9; // of the curve's size: slower, the curve stops
    const auto inside = [](double t) { return t > atAnEnd && t < 1 - atAnEnd; };
    const auto stops = [&](double t) {
        const Math::Point2d slope = slopes.at(t);
        return inside(t) && std::hypot(slope.x, slope.y) <= standstill;
    };

    const double a = bernstein[0] - 2 * bernstein[1] + bernstein[2];
    const double b = 2 * (bernstein[1] - bernstein[0]);
    if (a != 0 && stops(-b / (2 * a)))
        return GR_Bezier2d::Cusp;
    const std::vector<double> roots = bernsteinRoots(bernstein);
    if (std::ranges::any_of(roots, stops))
        return GR_Bezier2d::Cusp;
    switch (std::ranges::count_if(roots, inside)) {
    case 0:
        return GR_Bezier2d::Plain;
    case 1:
        return GR_Bezier2d::OneInflection;
    default:
        return GR_Bezier2d::TwoInflections;
    }
}

double length(const PlaneCurve& curve)
{
    requireFinite(curve);
    if (curve.degree == 0 || curve.isPoint())
        return 0;
    if (isSegment(curve)) // also where it would be 0 in the frame
        return finiteResult(std::hypot(curve.to().x - curve.from().x, curve.to().y - curve.from().y));
    const UnitFrame frame(curve.used());
    return finiteResult(speedIntegral(frame.toUnit(curve).derivative()) * frame.scale());
}

double sectorArea(const PlaneCurve& curve, const Math::Point2d& centre)
{
    // Half the integral of place cross slope, of degree 5 at most, which Gauss's rule of three points takes exactly.
    static const std::array<Node, 3> nodes{
        {{0.5 - std::sqrt(0.15), 5.0 / 18}, {0.5, 8.0 / 18}, {0.5 + std::sqrt(0.15), 5.0 / 18}}};
    requireFinite(curve);
    const PlaneCurve slopes = curve.derivative();
    double sum = 0;
    for (const Node& node : nodes) {
        const Math::Point2d slope = slopes.at(node.place);
        sum += node.weight * (curve.at(node.place) - centre).cross({slope.x, slope.y});
    }
    return sum / 2;
}

} // namespace brindle::engine
