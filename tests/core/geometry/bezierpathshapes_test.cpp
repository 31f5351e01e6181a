#include "core/geometry/bezierpath.h"
#include "core/geometry/rectangles.h"
#include "tests/core/support/curves.h"
#include "tests/core/support/failure.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

/// The paths that are made whole (circles, rectangles, what is fitted to points) and the areas that they fill.
namespace {

using OMC::BezierPath;
using OMC::Obj;

// --- Shapes --------------------------------------------------------------------------------------------------------

TEST(BezierPathShapesTest, ACircleStartsAboveItsCentreAndRunsClockwise)
{
    const BezierPath circle = pathOf(BezierPath::createCircle(0, 0, 1, 4));
    EXPECT_EQ(circle.getBezierCount(), 4u);
    EXPECT_EQ(circle.size(), 13u);
    EXPECT_TRUE(circle.getClosed());
    EXPECT_TRUE(circle.getPolygonClockwise());
    EXPECT_EQ(pointIn(circle.get(0)), (Math::Point2d{0, 1}));
    EXPECT_EQ(pointIn(circle.get(12)), (Math::Point2d{0, 1}));
    const double handle = std::tan(3.1415926 / 8) * 1.3333333333333333;
    EXPECT_NEAR(pointIn(circle.get(1)).x, handle, 1e-12);
    EXPECT_NEAR(pointIn(circle.get(3)).x, 1, 1e-7);
    EXPECT_NEAR(pointIn(circle.get(3)).y, 0, 1e-7);
    EXPECT_EQ(pointIn(circle.get(3)).x, std::sin(6.2831852 / 4)) << "the constants are cut off";
    for (unsigned int index = 0; index < 4; ++index)
        EXPECT_EQ(circle.bezierDegree(index), 3u);
}

TEST(BezierPathShapesTest, ACircleStaysNearItsRadius)
{
    const struct {
        unsigned int arcs;
        double error;
    } rows[] = {{2, 0.02}, {3, 0.002}, {4, 0.0003}, {8, 5e-6}, {100, 1e-6}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arcs);
        const BezierPath circle = pathOf(BezierPath::createCircle(3, -4, 10, row.arcs));
        EXPECT_EQ(circle.getBezierCount(), row.arcs);
        for (double parameter = 0; parameter <= row.arcs; parameter += 0.25) {
            const Math::Point2d point = pointIn(circle.evaluate(parameter));
            EXPECT_NEAR(std::hypot(point.x - 3, point.y + 4), 10, 10 * row.error);
        }
    }
}

TEST(BezierPathShapesTest, AnOvalHasARadiusForEachAxis)
{
    const BezierPath oval = pathOf(BezierPath::createOval(1, 2, 30, 4, 4));
    EXPECT_NEAR(pointIn(oval.get(0)).x, 1, 1e-12);
    EXPECT_NEAR(pointIn(oval.get(0)).y, 6, 1e-12);
    EXPECT_NEAR(pointIn(oval.get(3)).x, 31, 1e-5);
    EXPECT_NEAR(pointIn(oval.get(6)).y, -2, 1e-5);
    const Obj box = oval.getBoundingBoxInner();
    EXPECT_NEAR(OMC::objectIn<OMC::AllocatedRect2D>(box)->width, 60, 1e-5);
    EXPECT_NEAR(OMC::objectIn<OMC::AllocatedRect2D>(box)->height, 8, 1e-5);
}

TEST(BezierPathShapesTest, ACircleOfNoArcsIsEmptyAndOneOfTooManyIsRefused)
{
    EXPECT_TRUE(pathOf(BezierPath::createCircle(0, 0, 1, 0)).getEmpty());
    EXPECT_EQ(pathOf(BezierPath::createCircle(0, 0, 1, 1)).getBezierCount(), 1u);
    for (const unsigned int arcs : {BezierPath::mostMade + 1, std::numeric_limits<unsigned int>::max()}) {
        EXPECT_EQ(failureOf([&] { BezierPath::createCircle(0, 0, 1, arcs); }), "Invalid argument at index 3.");
        EXPECT_EQ(failureOf([&] { BezierPath::createOval(0, 0, 1, 1, arcs); }), "Invalid argument at index 4.");
    }
}

TEST(BezierPathShapesTest, AShapeOfNumbersThatAreNotFiniteIsRefused)
{
    for (const double bad : {nan, infinity, -infinity}) {
        for (unsigned int index = 0; index < 4; ++index) {
            SCOPED_TRACE(index);
            double n[] = {1, 2, 3, 4};
            n[index] = bad;
            const std::string failure = "Invalid argument at index " + std::to_string(index) + ".";
            EXPECT_EQ(failureOf([&] { BezierPath::createOval(n[0], n[1], n[2], n[3], 4); }), failure);
            EXPECT_EQ(failureOf([&] { BezierPath::createRectangle(n[0], n[1], n[2], n[3]); }), failure);
            if (index < 3) {
                EXPECT_EQ(failureOf([&] { BezierPath::createCircle(n[0], n[1], n[2], 4); }), failure);
            }
        }
    }
}

TEST(BezierPathShapesTest, ARectangleGoesFromItsFirstCornerAlongX)
{
    const BezierPath rectangle = pathOf(BezierPath::createRectangle(1, 2, 5, 4));
    EXPECT_EQ(pointsIn(rectangle.list()), (Points{{1, 2}, {5, 2}, {5, 4}, {1, 4}, {1, 2}}));
    EXPECT_TRUE(rectangle.getClosed());
    EXPECT_TRUE(rectangle.getPolyline());
    EXPECT_EQ(rectangle.getPolygonLength(), 12.0);
    EXPECT_EQ(rectangle.getPolygonArea(), 8.0);
    EXPECT_FALSE(rectangle.getPolygonClockwise());
}

// --- Fitting -------------------------------------------------------------------------------------------------------

/// The farthest that any of the points is from the path.
double farthest(const BezierPath& path, const Points& points)
{
    double distance = 0;
    for (const Math::Point2d& point : points) {
        const Math::Point2d nearest = pointIn(path.evaluate(path.closestPoint(numbers(point))));
        distance = std::max(distance, std::hypot(nearest.x - point.x, nearest.y - point.y));
    }
    return distance;
}

Points wave()
{
    Points points;
    for (int i = 0; i <= 200; ++i)
        points.push_back({i * 1.0, 40 * std::sin(i * 0.05)});
    return points;
}

TEST(BezierPathShapesTest, AFitComesWithinOneOfAllPoints)
{
    const BezierPath fit = pathOf(BezierPath::createBezierFit(numbers(wave()), false, false));
    EXPECT_EQ(pointIn(fit.get(0)), wave().front());
    EXPECT_EQ(pointIn(fit.get(static_cast<int>(fit.size()) - 1)), wave().back());
    EXPECT_LE(farthest(fit, wave()), 1.0 + 1e-9);
    EXPECT_LT(fit.size(), 40u);
    EXPECT_FALSE(fit.getClosed());
}

TEST(BezierPathShapesTest, AFitOfOneCurveIsOneCurve)
{
    const BezierPath fit = pathOf(BezierPath::createBezierFit(numbers(wave()), false, true));
    EXPECT_EQ(fit.getBezierCount(), 1u);
    EXPECT_EQ(fit.size(), 4u);
    EXPECT_EQ(pointIn(fit.get(0)), wave().front());
    EXPECT_EQ(pointIn(fit.get(3)), wave().back());
}

TEST(BezierPathShapesTest, AClosedFitIsClosed)
{
    Points ring;
    for (int i = 0; i < 60; ++i)
        ring.push_back({50 * std::cos(i * 0.1047), 50 * std::sin(i * 0.1047)});
    const BezierPath closed = pathOf(BezierPath::createBezierFit(numbers(ring), true, false));
    EXPECT_TRUE(closed.getClosed());
    EXPECT_LE(farthest(closed, ring), 1.0 + 1e-9);
    const BezierPath one = pathOf(BezierPath::createBezierFit(numbers(ring), true, true));
    EXPECT_TRUE(one.getClosed());
    ring.push_back(ring.front());
    EXPECT_TRUE(pathOf(BezierPath::createBezierFit(numbers(ring), false, false)).getClosed())
        << "points that end where they begin are a ring";
}

TEST(BezierPathShapesTest, AFitOfFewPointsIsWhatTheyAre)
{
    const struct {
        const char* name;
        Points points;
        unsigned int curves;
    } rows[] = {
        {"none", {}, 0},
        {"one", {{1, 2}}, 0},
        {"the same twice", {{1, 2}, {1, 2}}, 0},
        {"two", {{1, 2}, {3, 4}}, 1},
    };
    for (const auto& row : rows) {
        for (const bool closed : {false, true}) {
            for (const bool one : {false, true}) {
                SCOPED_TRACE(testing::Message() << row.name << ", closed " << closed << ", one curve " << one);
                const BezierPath fit = pathOf(BezierPath::createBezierFit(numbers(row.points), closed, one));
                if (!closed) {
                    EXPECT_EQ(fit.getBezierCount(), row.curves);
                }
                EXPECT_EQ(fit.getEmpty(), row.points.empty());
            }
        }
    }
}

TEST(BezierPathShapesTest, AFitOfWhatIsNoPointIsRefused)
{
    EXPECT_EQ(failureOf([] { BezierPath::createBezierFit(QStringLiteral("x"), false, false); }),
              "Unsupported Point2D type.");
    for (const double bad : {nan, infinity}) {
        const Points points = {{0, 0}, {10, bad}, {20, -bad}, {30, 0}};
        EXPECT_EQ(failureOf([&] { BezierPath::createBezierFit(numbers(points), false, false); }),
                  "A point of the curve is not finite.");
        EXPECT_EQ(failureOf([&] { BezierPath::createBezierFit(numbers(points), true, true); }),
                  "A point of the curve is not finite.");
    }
}

// --- Areas ---------------------------------------------------------------------------------------------------------

TEST(BezierPathShapesTest, APointLiesInTheAreaThatThePathFills)
{
    EXPECT_TRUE(square.containing(numbers({5, 5})));
    EXPECT_FALSE(square.containing(numbers({15, 5})));
    EXPECT_TRUE(square.containing(QVariant(3))) << "a number is both coordinates";
    EXPECT_TRUE(square.containing(QVariantList{value({2, 2}), value({3, 3})})) << "positions add up";
    EXPECT_TRUE(square.containing(QStringLiteral("x"))) << "(0, 0), on the edge";
    EXPECT_EQ(failureOf([] { square.containing(numbers({nan, 0})); }), "A point of the curve is not finite.");
}

TEST(BezierPathShapesTest, WhatAPathRunsAroundTwiceIsFilledStill)
{
    BezierPath twice = square;
    twice.bezierAppend(QVariant::fromValue(square));
    EXPECT_TRUE(twice.containing(numbers({5, 5})));
}

TEST(BezierPathShapesTest, APathLiesInsideOrOutsideAnother)
{
    const struct {
        const char* name;
        BezierPath path;
        bool inside;
        bool outside;
    } rows[] = {
        {"within", pathOf(BezierPath::createRectangle(2, 2, 5, 5)), true, false},
        {"apart", pathOf(BezierPath::createRectangle(20, 20, 30, 30)), false, true},
        {"across the edge", pathOf(BezierPath::createRectangle(5, 5, 15, 15)), false, false},
        {"around", pathOf(BezierPath::createRectangle(-5, -5, 15, 15)), false, false},
        {"a circle within", pathOf(BezierPath::createCircle(5, 5, 4, 4)), true, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.path.inside(QVariant::fromValue(square)), row.inside);
        if (row.name != std::string("around")) {
            EXPECT_EQ(row.path.outside(QVariant::fromValue(square)), row.outside);
        }
    }
    EXPECT_EQ(failureOf([] { square.inside(QStringLiteral("x")); }), "Unsupported Point2D type.");
    EXPECT_EQ(failureOf([] { square.outside(QStringLiteral("x")); }), "Unsupported Point2D type.");
}

} // namespace
