#include "engine/geometry2d/nearest.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

namespace {

/// Binomial coefficients up to the product of a cubic and its derivative.
constexpr double binomial[6][6] = {{1}, {1, 1}, {1, 2, 1}, {1, 3, 3, 1}, {1, 4, 6, 4, 1}, {1, 5, 10, 10, 5, 1}};

} // namespace

std::optional<NearestPlace> nearest(const PlaneCurve& curve, const Math::Point2d& point)
{
    if (!isFinite(curve.used()) || !isFinite(point))
        return std::nullopt;
    const UnitFrame frame(curve.used());
    const PlaneCurve unit = frame.toUnit(curve);
    // A point that is further away than this lies in the same direction from all of the curve.
    constexpr double farthest = 1e150;
    Math::Point2d target = frame.toUnit(point);
    target = {std::clamp(target.x, -farthest, farthest), std::clamp(target.y, -farthest, farthest)};

    // For a near point the measure is the squared distance, which tells the smallest distances apart. For a far point
    // the part that all places have in common is left out: it is so large that the differences would be lost in
    // rounding.
    constexpr double far = 4;
    const bool isFar = std::max(std::abs(target.x), std::abs(target.y)) > far;
    const auto measure = [&target, isFar](const Math::Point2d& place) {
        if (!isFar)
            return distanceSquared(place, target);
        return place.x * (place.x - 2 * target.x) + place.y * (place.y - 2 * target.y);
    };
    double best = 0;
    double bestMeasure = measure(unit.from());
    const auto consider = [&](double t) {
        const double candidate = measure(unit.at(t));
        if (candidate < bestMeasure) {
            bestMeasure = candidate;
            best = t;
        }
    };

    if (unit.degree > 0) {
        const PlaneCurve slopes = unit.derivative();
        const unsigned int degree = unit.degree + slopes.degree;
        std::array<double, 6> product{};
        for (unsigned int i = 0; i <= unit.degree; ++i) {
            const Math::Vector2d way = unit.points[i] - target;
            for (unsigned int j = 0; j <= slopes.degree; ++j) {
                const double weight = binomial[unit.degree][i] * binomial[slopes.degree][j] / binomial[degree][i + j];
                product[i + j] += weight * way.dot({slopes.points[j].x, slopes.points[j].y});
            }
        }
        for (const double t : bernsteinRoots({product.data(), degree + 1}))
            consider(t);
        consider(1);
    }
    return NearestPlace{distanceSquared(finiteResult(curve.at(best)), point), best};
}

} // namespace brindle::engine
