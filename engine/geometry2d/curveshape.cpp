#include "engine/geometry2d/curveshape.h"

#include <2geom/bezier-curve.h>

#include <algorithm>
#include <cmath>

namespace engine {

namespace {

constexpr double onTheLine = 1e-12; // of the curve's size

/// Adds the places where one coordinate of the curve turns back.
void addTurns(const PlaneCurve& curve, const PlaneCurve& slopes, double Math::Point2d::*coordinate, Math::Box2d& box)
{
    std::array<double, GR_Bezier2d::maxDegree> coefficients{};
    for (unsigned int i = 0; i <= slopes.degree; ++i)
        coefficients[i] = slopes.points[i].*coordinate;
    for (const double t : bernsteinRoots({coefficients.data(), slopes.degree + 1}))
        box.AddClosed(curve.at(t));
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
    if (curve.degree < 2)
        return box;
    const UnitFrame frame(curve.used());
    const PlaneCurve slopes = frame.toUnit(curve).derivative();
    addTurns(curve, slopes, &Math::Point2d::x, box);
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
    const PlaneCurve unit = frame.toUnit(curve);
    std::vector<Geom::Point> points;
    for (const auto& point : unit.used())
        points.emplace_back(point.x, point.y);
    constexpr double tolerance = 1e-10;
    return finiteResult(Geom::bezier_length(points, tolerance) * frame.scale());
}

double sectorArea(const PlaneCurve& curve, const Math::Point2d& centre)
{
    // Half the integral of place cross slope, of degree 5 at most, which Gauss's rule of three points takes exactly.
    struct Node {
        double t, weight;
    };
    static const std::array<Node, 3> nodes{
        {{0.5 - std::sqrt(0.15), 5.0 / 18}, {0.5, 8.0 / 18}, {0.5 + std::sqrt(0.15), 5.0 / 18}}};
    requireFinite(curve);
    const PlaneCurve slopes = curve.derivative();
    double sum = 0;
    for (const Node& node : nodes) {
        const Math::Point2d slope = slopes.at(node.t);
        sum += node.weight * (curve.at(node.t) - centre).cross({slope.x, slope.y});
    }
    return sum / 2;
}

} // namespace engine
