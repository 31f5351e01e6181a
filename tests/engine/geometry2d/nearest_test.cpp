#include "engine/geometry2d/nearest.h"

#include "tests/engine/geometry2d/randomcurves.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using curves::curve;
using curves::distance;

TEST(Nearest, NoSampleOfTenThousandRandomCurvesIsNearer)
{
    curves::RandomCurves random(21);
    for (int round = 0; round < 10000; ++round) {
        const GR_Bezier2d made = random.curve();
        const Math::Point2d point = random.point();
        double radiusSquared = infinity;
        double parameter = -1;
        ASSERT_TRUE(made.GetClosestPoint(point, radiusSquared, parameter));
        const double found = distance(made.Evaluate(parameter), point);
        ASSERT_NEAR(std::sqrt(radiusSquared), found, 1e-9);
        ASSERT_NEAR(found, curves::referenceDistance(made, point, 200), 1e-8) << round;
    }
}

TEST(Nearest, APointOfTheCurveIsItsOwnNearest)
{
    curves::RandomCurves random(22);
    for (int round = 0; round < 2000; ++round) {
        const GR_Bezier2d made = random.curve();
        double radiusSquared = 1;
        double parameter = -1;
        ASSERT_TRUE(made.GetClosestPoint(made.Evaluate(random.number(0, 1)), radiusSquared, parameter));
        ASSERT_LT(std::sqrt(radiusSquared), 1e-9) << round;
    }
}

TEST(Nearest, BeyondTheRadiusNothingIsFoundAndNothingIsWritten)
{
    const GR_Bezier2d made = curve({{0, 0}, {10, 0}});
    double radiusSquared = 3.99;
    double parameter = 0.5;
    EXPECT_FALSE(made.GetClosestPoint({4, 2}, radiusSquared, parameter));
    EXPECT_EQ(radiusSquared, 3.99);
    EXPECT_EQ(parameter, 0.5);
    radiusSquared = 4;
    EXPECT_TRUE(made.GetClosestPoint({4, 2}, radiusSquared, parameter));
    EXPECT_EQ(radiusSquared, 4);
    EXPECT_NEAR(parameter, 0.4, 1e-15);
}

TEST(Nearest, OfSeveralNearestPlacesTheFirstIsFound)
{
    double radiusSquared = 1000;
    double parameter = -1;
    EXPECT_TRUE(curve({{-3, 0}, {0, 6}, {3, 0}}).GetClosestPoint({0, -100}, radiusSquared = 1e5, parameter));
    EXPECT_EQ(parameter, 0);
    EXPECT_TRUE(curve({{2, 2}, {2, 2}, {2, 2}}).GetClosestPoint({2, 3}, radiusSquared, parameter));
    EXPECT_EQ(parameter, 0);
}

TEST(Nearest, WhatIsNotFiniteIsNotFound)
{
    double radiusSquared = infinity;
    double parameter = 0.5;
    const GR_Bezier2d made = curve({{0, 0}, {10, 0}});
    for (const double odd : {nan, infinity, -infinity}) {
        EXPECT_FALSE(made.GetClosestPoint({odd, 0}, radiusSquared, parameter));
        EXPECT_FALSE(curve({{0, 0}, {odd, 0}}).GetClosestPoint({0, 0}, radiusSquared, parameter));
    }
    radiusSquared = nan;
    EXPECT_FALSE(made.GetClosestPoint({0, 0}, radiusSquared, parameter));
    EXPECT_EQ(parameter, 0.5);
}

TEST(Nearest, FarPointsAreNearestWhereTheirDirectionSays)
{
    const GR_Bezier2d arch = curve({{-1, 0}, {-1, 2}, {1, 2}, {1, 0}});
    for (const double far : {1e6, 1e100, 1e300, 1.7e308}) {
        double radiusSquared = infinity;
        double parameter = -1;
        ASSERT_TRUE(arch.GetClosestPoint({0, far}, radiusSquared, parameter)) << far;
        EXPECT_NEAR(parameter, 0.5, 1e-9) << far;
    }
}

TEST(Nearest, HugeAndTinyCurvesAreAsGoodAsOthers)
{
    for (const double size : {1e-300, 1e-150, 1e150, 1e300}) {
        const GR_Bezier2d made = curve({{0, 0}, {size, size}, {2 * size, 0}});
        double radiusSquared = infinity;
        double parameter = -1;
        ASSERT_TRUE(made.GetClosestPoint({size, size}, radiusSquared, parameter)) << size;
        EXPECT_NEAR(parameter, 0.5, 1e-12) << size;
    }
}

} // namespace
