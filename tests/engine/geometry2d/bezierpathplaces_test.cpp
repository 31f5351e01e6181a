#include "tests/engine/geometry2d/randomcurves.h"

#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

using curves::curve;
using curves::distance;
using curves::polyline;
using Math::Constants::EvenOdd;
using Math::Constants::NonZero;

TEST(BezierPathPlaces, TheParameterIsTheCurvesIndexAndThePlaceOnIt)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {10, 0}, {10, 20}});
    EXPECT_EQ(path.Evaluate(0), (Math::Point2d{0, 0}));
    EXPECT_EQ(path.Evaluate(0.5), (Math::Point2d{5, 0}));
    EXPECT_EQ(path.Evaluate(1), (Math::Point2d{10, 0}));
    EXPECT_EQ(path.Evaluate(1.25), (Math::Point2d{10, 5}));
    EXPECT_EQ(path.Evaluate(2), (Math::Point2d{10, 20}));
    EXPECT_EQ(path.Evaluate(-5), (Math::Point2d{0, 0}));
    EXPECT_EQ(path.Evaluate(1e300), (Math::Point2d{10, 20}));
    EXPECT_EQ(polyline({{3, 4}}).Evaluate(7), (Math::Point2d{3, 4}));
    EXPECT_THROW(path.Evaluate(nan), std::invalid_argument);
    EXPECT_THROW(path.Evaluate(infinity), std::invalid_argument);
}

TEST(BezierPathPlaces, ThePartsOfASplitAreThePath)
{
    curves::RandomCurves random(71);
    for (int round = 0; round < 1000; ++round) {
        const GR_BezierPath2d path = random.path(1 + random.below(5));
        const double length = path.GetNumBezier();
        const double cut = random.number(0, length);
        const auto [before, behind] = path.Split(cut);
        ASSERT_EQ(before.GetNumBezier() + behind.GetNumBezier(), path.GetNumBezier() + 1);
        ASSERT_EQ(before.GetToPoint(), behind.GetFromPoint());
        ASSERT_EQ(before.GetFromPoint(), path.GetFromPoint());
        ASSERT_EQ(behind.GetToPoint(), path.GetToPoint());
        ASSERT_NEAR(before.GetLength() + behind.GetLength(), path.GetLength(), 1e-6);
        GR_BezierPath2d joined = before;
        joined.Append(behind);
        ASSERT_NEAR(joined.GetArea(), path.GetArea(), 1e-8);
        const double index = std::floor(cut);
        ASSERT_LT(distance(joined.Evaluate(index + 1), path.Evaluate(cut)), 1e-12);
    }
}

TEST(BezierPathPlaces, ASplitAtAJointCutsNoCurve)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {1, 0}, {2, 0}});
    const auto [before, behind] = path.Split(1);
    EXPECT_EQ(before, polyline({{0, 0}, {1, 0}}));
    EXPECT_EQ(behind, polyline({{1, 0}, {2, 0}}));
    EXPECT_EQ(path.Split(0).first, polyline({{0, 0}}));
    EXPECT_EQ(path.Split(0).second, path);
    EXPECT_EQ(path.Split(2).first, path);
    EXPECT_EQ(path.Split(2).second, polyline({{2, 0}}));
    EXPECT_EQ(polyline({{5, 5}}).Split(0.5).second, polyline({{5, 5}}));
}

TEST(BezierPathPlaces, ATruncationIsAStretchAndRunsBackwardsWithItsEndsExchanged)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    GR_BezierPath2d part = path;
    part.Truncate(0.5, 2.5);
    EXPECT_EQ(part, polyline({{5, 0}, {10, 0}, {10, 10}, {5, 10}}));
    part = path;
    part.Truncate(2.5, 0.5);
    EXPECT_EQ(part, polyline({{5, 10}, {10, 10}, {10, 0}, {5, 0}}));
    part = path;
    part.Truncate(1.5, 1.5);
    EXPECT_EQ(part, polyline({{10, 5}}));
    part = path;
    part.Truncate(-1, 99);
    EXPECT_EQ(part, path);
    EXPECT_THROW(part.Truncate(nan, 1), std::invalid_argument);
    EXPECT_THROW(part.Truncate(0, infinity), std::invalid_argument);
    EXPECT_EQ(part, path);
}

TEST(BezierPathPlaces, ReversingTwiceGivesThePathBack)
{
    curves::RandomCurves random(72);
    for (int round = 0; round < 200; ++round) {
        const GR_BezierPath2d path = random.path(4);
        GR_BezierPath2d reverse = path;
        reverse.Reverse();
        EXPECT_TRUE(reverse.isReverseEqual(path));
        EXPECT_NE(reverse, path);
        EXPECT_EQ(reverse.GetFromPoint(), path.GetToPoint());
        EXPECT_LT(distance(reverse.Evaluate(0.75), path.Evaluate(3.25)), 1e-12);
        reverse.Reverse();
        EXPECT_EQ(reverse, path);
    }
}

TEST(BezierPathPlaces, RoundAndMatrixReachAllPoints)
{
    GR_BezierPath2d path = polyline({{0.4, 0.6}, {1.2, 9.9}});
    path.Round(1);
    EXPECT_EQ(path, polyline({{0, 1}, {1, 10}}));
    EXPECT_THROW(path.Round(0), std::invalid_argument);
    Math::Matrix2x3 matrix;
    path *= matrix.Scale({2, 2}).Translate({1, 1});
    EXPECT_EQ(path, polyline({{1, 3}, {3, 21}}));
    Math::Matrix2x3 huge;
    huge.Scale({1e308, 1e308});
    EXPECT_THROW(path *= huge, std::domain_error);
    EXPECT_EQ(path, polyline({{1, 3}, {3, 21}}));
}

TEST(BezierPathPlaces, TheNearestPlaceIsAsNearAsTheNearestOfAllCurves)
{
    curves::RandomCurves random(73);
    for (int round = 0; round < 500; ++round) {
        const GR_BezierPath2d path = random.path(6);
        const Math::Point2d point = random.point();
        double expected = infinity;
        for (unsigned int i = 0; i < 6; ++i)
            expected = std::min(expected, curves::referenceDistance(path.GetBezier(i), point, 200));
        double radiusSquared = infinity;
        double parameter = -1;
        ASSERT_TRUE(path.GetClosestPoint(point, radiusSquared, parameter));
        EXPECT_NEAR(std::sqrt(radiusSquared), expected, 1e-8);
        EXPECT_NEAR(distance(path.Evaluate(parameter), point), expected, 1e-8);
    }
}

TEST(BezierPathPlaces, NothingIsNearBeyondTheRadiusOrOnAnEmptyPath)
{
    double radiusSquared = 1;
    double parameter = 0.25;
    EXPECT_FALSE(polyline({{0, 0}, {4, 0}}).GetClosestPoint({2, 1.1}, radiusSquared, parameter));
    EXPECT_FALSE(GR_BezierPath2d().GetClosestPoint({0, 0}, radiusSquared, parameter));
    EXPECT_FALSE(polyline({{0, 0}, {nan, 0}}).GetClosestPoint({0, 0}, radiusSquared, parameter));
    EXPECT_EQ(radiusSquared, 1);
    EXPECT_EQ(parameter, 0.25);
    EXPECT_TRUE(polyline({{3, 3}}).GetClosestPoint({3, 4}, radiusSquared, parameter));
    EXPECT_EQ(parameter, 0);
}

TEST(BezierPathPlaces, WhatAPathContainsDependsOnTheFill)
{
    // A star of five points: its middle is run around twice.
    const GR_BezierPath2d star = polyline({{0, 10}, {6, -8}, {-9.5, 3}, {9.5, 3}, {-6, -8}, {0, 10}});
    struct Row {
        const char* name;
        Math::Point2d point;
        bool evenOdd, nonZero;
    };
    const Row rows[] = {
        {"middle", {0, 0}, false, true},   {"tip", {0, 8}, true, true},     {"outside", {5, 8}, false, false},
        {"far", {1e300, 0}, false, false}, {"corner", {0, 10}, true, true}, {"edge", {0, 3}, true, true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(star.IsContaining(row.point, EvenOdd), row.evenOdd) << row.name;
        EXPECT_EQ(star.IsContaining(row.point, NonZero), row.nonZero) << row.name;
    }
    EXPECT_THROW(star.IsContaining({nan, 0}, NonZero), std::domain_error);
    EXPECT_FALSE(GR_BezierPath2d().IsContaining({0, 0}, NonZero));
}

TEST(BezierPathPlaces, ACircleContainsWhatIsNearerThanItsRadius)
{
    const GR_BezierPath2d circle = curves::circle({3, 4}, 10);
    curves::RandomCurves random(74, 15);
    for (int round = 0; round < 5000; ++round) {
        const Math::Point2d point = random.point();
        const double away = distance(point, {3, 4});
        if (std::abs(away - 10) > 0.01) { // the arcs are that near to a true circle
            EXPECT_EQ(circle.IsContaining(point, NonZero), away < 10);
            EXPECT_EQ(circle.IsContaining(point, EvenOdd), away < 10);
        }
    }
    // Rays through joints and tops count each crossing once.
    for (double x = -20; x <= 20; x += 0.5) {
        for (const double y : {4.0, 14.0, -6.0, 4.0 + 1e-12})
            EXPECT_EQ(circle.IsContaining({x, y}, NonZero), y < 14 && y > -6 ? std::abs(x - 3) <= 10 : x == 3)
                << x << y;
    }
}

TEST(BezierPathPlaces, RandomPathsContainWhatTheirDensePolygonsDo)
{
    curves::RandomCurves random(75);
    for (int round = 0; round < 100; ++round) {
        const GR_BezierPath2d path = random.path(4);
        GR_BezierPath2d dense;
        for (int i = 0; i <= 800; ++i)
            dense.Append(path.Evaluate(i / 200.0), true);
        for (int sample = 0; sample < 20; ++sample) {
            const Math::Point2d point = random.point();
            double radiusSquared = 0.25;
            double parameter = 0;
            if (path.GetClosestPoint(point, radiusSquared, parameter))
                continue;
            for (const auto fill : {EvenOdd, NonZero})
                EXPECT_EQ(path.IsContaining(point, fill), dense.IsContaining(point, fill)) << round;
        }
    }
}

TEST(BezierPathPlaces, InsideAndOutside)
{
    const GR_BezierPath2d square = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    struct Row {
        const char* name;
        GR_BezierPath2d path;
        bool inside, outside;
    };
    const Row rows[] = {
        {"a circle within", curves::circle({5, 5}, 3), true, false},
        {"a circle that touches from within", curves::circle({5, 5}, 5), true, false},
        {"a circle across", curves::circle({0, 0}, 3), false, false},
        {"a circle beside", curves::circle({20, 5}, 3), false, true},
        {"a circle that touches from outside", curves::circle({13, 5}, 3), false, true},
        {"a circle around", curves::circle({5, 5}, 30), false, true},
        {"a line through", polyline({{-5, 5}, {15, 5}}), false, false},
        {"a line from the edge inwards", polyline({{0, 5}, {5, 5}}), true, false},
        {"a line from the edge outwards", polyline({{0, 5}, {-5, 5}}), false, true},
        {"a line along the edge", polyline({{2, 0}, {8, 0}}), true, false},
        {"the square itself", square, true, false},
        {"a point within", polyline({{5, 5}}), true, false},
        {"a point beside", polyline({{50, 5}}), false, true},
        {"nothing", {}, false, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.path.IsInside(square, NonZero), row.inside) << row.name;
        EXPECT_EQ(row.path.IsOutside(square, NonZero), row.outside) << row.name;
    }
    EXPECT_FALSE(square.IsInside({}, NonZero));
    EXPECT_FALSE(square.IsOutside({}, NonZero));
    // An open path's area is closed by a line, which can be crossed.
    const GR_BezierPath2d hook = polyline({{0, 0}, {10, 0}, {10, 10}});
    EXPECT_FALSE(polyline({{1, 8}, {9, 8}}).IsInside(hook, NonZero));
    EXPECT_FALSE(polyline({{1, 8}, {9, 8}}).IsOutside(hook, NonZero));
    EXPECT_TRUE(polyline({{8.5, 8}, {9, 8}}).IsInside(hook, NonZero));
}

TEST(BezierPathPlaces, AHoleIsOutsideForTheEvenOddFillAlone)
{
    GR_BezierPath2d twice = curves::circle({0, 0}, 10);
    twice.Append(curves::circle({0, 0}, 5));
    twice.Append({0, 10}, true);
    const GR_BezierPath2d small = curves::circle({0, 0}, 2);
    EXPECT_TRUE(small.IsInside(twice, NonZero));
    EXPECT_FALSE(small.IsInside(twice, EvenOdd));
    EXPECT_TRUE(small.IsOutside(twice, EvenOdd));
}

} // namespace
