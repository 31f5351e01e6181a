#include "engine/geometry2d/planecurve.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using brindle::engine::bernsteinRoots;
using brindle::engine::PlaneCurve;
using brindle::engine::UnitFrame;

double valueAt(std::vector<double> coefficients, double t)
{
    for (std::size_t count = coefficients.size() - 1; count > 0; --count)
        for (std::size_t i = 0; i < count; ++i)
            coefficients[i] += (coefficients[i + 1] - coefficients[i]) * t;
    return coefficients[0];
}

TEST(PlaneCurve, RootsOfKnownPolynomials)
{
    struct Row {
        const char* name;
        std::vector<double> coefficients, roots;
    };
    const Row rows[] = {
        {"zero", {0, 0, 0}, {}},
        {"constant", {1}, {}},
        {"constant in form", {2, 2, 2}, {}},
        {"line", {-1, 3}, {0.25}},
        {"line from a root", {0, 3}, {0}},
        {"line to a root", {3, 0}, {1}},
        {"both ends", {0, 1, 0}, {0, 1}},
        {"in the middle", {-1, 1}, {0.5}},
        {"a touch in the middle", {1, -1, 1}, {0.5}},
        {"a fivefold root at the end", {1, 0, 0, 0, 0, 0}, {1}},
        {"a root in the middle of a cubic", {-1, 0.3, -0.3, 1}, {0.5}},
        {"next to a root at the end that rounds", {2.63, -3.78, -1.1e-16}, {2.63 / (2.63 + 2 * 3.78)}},
        {"huge", {-1e308, 1e308}, {0.5}},
        {"tiny", {-1e-320, 1e-320}, {0.5}},
        {"no numbers", {-1, std::numeric_limits<double>::quiet_NaN(), 1}, {}},
        {"infinite", {-std::numeric_limits<double>::infinity(), 1}, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto roots = bernsteinRoots(row.coefficients);
        ASSERT_EQ(roots.size(), row.roots.size());
        for (std::size_t i = 0; i < roots.size(); ++i)
            EXPECT_NEAR(roots[i], row.roots[i], 1e-12);
    }
    EXPECT_THROW(bernsteinRoots(std::vector<double>(9, 1)), std::length_error);
}

TEST(PlaneCurve, NoChangeOfSignOfRandomPolynomialsIsMissed)
{
    curves::RandomCurves random(15);
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        std::vector<double> coefficients(2 + random.below(5));
        for (double& coefficient : coefficients) {
            // Also small whole numbers, where zeros and the same numbers are common, and numbers of very unlike size.
            const double number = random.number(-1, 1);
            const double sizes[] = {number, std::floor(number * 3), number * std::pow(10, -random.number(0, 14))};
            coefficient = sizes[round % 3];
        }
        const auto roots = bernsteinRoots(coefficients);
        ASSERT_LE(roots.size(), coefficients.size());
        ASSERT_TRUE(std::ranges::is_sorted(roots));
        for (const double root : roots)
            ASSERT_NEAR(valueAt(coefficients, root), 0, 1e-12) << round;
        double before = coefficients.front();
        double last = 0;
        for (int i = 1; i <= 64; ++i) {
            const double t = i / 64.0;
            const double value = valueAt(coefficients, t);
            if (value * before < 0) {
                ASSERT_TRUE(std::ranges::any_of(roots, [&](double root) { return root >= last && root <= t; }))
                    << round;
                ++found;
            }
            if (value != 0) {
                before = value;
                last = t;
            }
        }
    }
    EXPECT_GT(found, 10000);
}

TEST(PlaneCurve, AUnitFrameTakesAnySizeToAboutOneAndBack)
{
    curves::RandomCurves random(16, 1);
    for (const double size : {5e-324, 1e-300, 1.0, 1e300, 1.7e308}) {
        const Math::Point2d points[] = {{-size, 0}, {size, size}};
        const UnitFrame frame(points);
        for (const auto& point : points) {
            const Math::Point2d unit = frame.toUnit(point);
            EXPECT_LE(std::max(std::abs(unit.x), std::abs(unit.y)), 2) << size;
            EXPECT_EQ(frame.fromUnit(unit), point) << size;
        }
    }
    const Math::Point2d far[] = {{1e6, 1e6}, {1e6 + 1, 1e6}};
    EXPECT_EQ(UnitFrame(far).toUnit(far[0]).x, -0.5);
    const Math::Point2d odd[] = {{std::numeric_limits<double>::quiet_NaN(), 0}};
    EXPECT_THROW(UnitFrame{odd}, std::domain_error);
    const Math::Point2d one[] = {{3, 4}};
    EXPECT_EQ(UnitFrame(one).scale(), 1);
}

TEST(PlaneCurve, HalvesAreStretches)
{
    curves::RandomCurves random(17);
    for (int round = 0; round < 1000; ++round) {
        const PlaneCurve whole = brindle::engine::planeCurve(random.curve());
        const auto [before, behind] = whole.halves();
        const PlaneCurve first = whole.stretch(0, 0.5);
        const PlaneCurve second = whole.stretch(0.5, 1);
        for (unsigned int i = 0; i <= whole.degree; ++i) {
            EXPECT_LT(curves::distance(before.points[i], first.points[i]), 1e-12);
            EXPECT_LT(curves::distance(behind.points[i], second.points[i]), 1e-12);
        }
    }
}

} // namespace
