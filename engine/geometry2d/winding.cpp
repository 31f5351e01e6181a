#include "engine/geometry2d/winding.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

/// The x of a curve at a height that it passes between two parameters, while y rises or falls throughout.
double crossingX(const PlaneCurve& curve, double start, double end, double height)
{
    constexpr int steps = 60; // a bisection of [0, 1] to the last bit of what is 1e-2 or more
    const bool rises = curve.at(start).y < curve.at(end).y;
    for (int step = 0; step < steps; ++step) {
        const double middle = start + (end - start) / 2;
        if (middle == start || middle == end)
            break;
        ((curve.at(middle).y < height) == rises ? start : end) = middle;
    }
    return curve.at(start).x;
}

} // namespace

int rayCrossings(const PlaneCurve& curve, const Math::Point2d& point)
{
    const Math::Box2d hull = curve.hullBox();
    if (hull.maxX() < point.x || hull.maxY() < point.y || hull.minY() > point.y)
        return 0;
    const auto above = [&point](double y) { return y >= point.y; };
    const auto direction = [](bool wasAbove, bool isAbove) {
        return static_cast<int>(isAbove) - static_cast<int>(wasAbove);
    };
    if (hull.minX() > point.x)
        return direction(above(curve.from().y), above(curve.to().y));

    // Between the places where y turns back, the curve passes a height at most once.
    std::vector<double> turns{0};
    if (curve.degree > 1) {
        const PlaneCurve slopes = curve.derivative();
        std::array<double, GR_Bezier2d::maxDegree> rise{};
        for (unsigned int i = 0; i <= slopes.degree; ++i)
            rise[i] = slopes.points[i].y;
        std::ranges::copy(bernsteinRoots({rise.data(), slopes.degree + 1}), std::back_inserter(turns));
    }
    turns.push_back(1);
    int crossings = 0;
    for (std::size_t i = 1; i < turns.size(); ++i) {
        const int crossing = direction(above(curve.at(turns[i - 1]).y), above(curve.at(turns[i]).y));
        if (crossing != 0 && crossingX(curve, turns[i - 1], turns[i], point.y) > point.x)
            crossings += crossing;
    }
    return crossings;
}

} // namespace brindle::engine
