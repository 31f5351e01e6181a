#include "core/geometry/bezierpath.h"

#include "core/geometry/rectangles.h"
#include "core/geometry/vectors.h"
#include "tests/core/support/curves.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/properties.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace {

using OMC::Bezier;
using OMC::BezierPath;
using OMC::Obj;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
const std::string outOfRange = "Index is out of range.";
const std::string notFinite = "A point of the curve is not finite.";
const std::string noPoint = "The path has no point.";
const std::string noPoint2d = "Unsupported Point2D type.";

const Math::Point2d origin{0, 0};

BezierPath pathOf(const Obj& handle)
{
    const auto* path = OMC::objectIn<BezierPath>(handle);
    return path ? *path : BezierPath();
}

/// A path of straight lines from point to point.
BezierPath polyline(const Points& points)
{
    GR_BezierPath2d path;
    for (const Math::Point2d& point : points)
        path.Append(point, true);
    return BezierPath(path);
}

QVariant held(const BezierPath& path)
{
    return QVariant::fromValue(path);
}
QVariant heldCurve(const Points& points)
{
    return QVariant::fromValue(curveThrough<Bezier>(points));
}

const BezierPath square = pathOf(BezierPath::createRectangle(0, 0, 10, 10));

// --- Making one ----------------------------------------------------------------------------------------------------

TEST(BezierPathTest, ANewOneIsEmpty)
{
    const BezierPath path;
    EXPECT_TRUE(path.getEmpty());
    EXPECT_EQ(path.size(), 0u);
    EXPECT_EQ(path.getBezierCount(), 0u);
    EXPECT_EQ(path.getPointsOnCurve(), 0u);
    EXPECT_TRUE(path.getDegenerate());
    EXPECT_FALSE(path.getClosed());
    EXPECT_TRUE(path.list().isEmpty());
    EXPECT_EQ(path.__str__(), "BezierPath()[0]");
    EXPECT_TRUE(path.__atend__());
}

TEST(BezierPathTest, ItsTextHasTheNumberOfItsPoints)
{
    EXPECT_EQ(curveThrough<BezierPath>(hump).__str__(), "BezierPath()[4]");
    EXPECT_EQ(square.__str__(), "BezierPath()[5]");
}

TEST(BezierPathTest, APathInAValueIsTakenAsItIs)
{
    EXPECT_TRUE(BezierPath(held(square), 3) == held(square));
    EXPECT_TRUE(BezierPath(OMC::toVariant(Obj(new BezierPath(square))), 0) == held(square));
}

TEST(BezierPathTest, ReadingAPathReplacesTheOneBeforeAndReadingCurvesAppends)
{
    BezierPath path = curveThrough<BezierPath>(hump);
    BezierPath::getBezierPathFromQVariant(held(square), path, 3);
    EXPECT_TRUE(path == held(square));

    path = curveThrough<BezierPath>({{0, 0}, {1, 0}});
    const QVariant line = heldCurve({{1, 0}, {1, 1}});
    BezierPath::getBezierPathFromQVariant(QVariantList{line, line, line, line}, path, 3);
    EXPECT_EQ(pointIn(path.get(0)), origin);
    EXPECT_GE(path.getBezierCount(), 5u);
}

TEST(BezierPathTest, PointsAreReadAsOneCurveOfTheDegree)
{
    const Points points = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
    const struct {
        const char* name;
        unsigned int degree;
        Points result;
    } rows[] = {
        {"degree 3", 3, {{1, 2}, {3, 4}, {5, 6}, {0, 0}}},
        {"degree 2", 2, {{1, 2}, {3, 4}, {0, 0}}},
        {"degree 1", 1, {{1, 2}, {0, 0}}},
        {"degree 0", 0, {}},
        {"degree 4: the list is too short", 4, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(pointsIn(BezierPath(numbers(points), row.degree).list()), row.result);
    }
    EXPECT_EQ(failureOf([&] { BezierPath(numbers(Points(9, origin)), 4); }),
              "Invalid bezier degree - valid value is from 0 through 3.");
}

TEST(BezierPathTest, WhatTellsNoCurveIsRefused)
{
    for (const QVariant& bad :
         {QVariant(), QVariant(QStringLiteral("x")), heldCurve(hump), OMC::toVariant(Obj(new OMC::BaseObject))})
        EXPECT_EQ(failureOf([&] { BezierPath(bad, 3); }), noPoint2d);
}

TEST(BezierPathTest, SeveralCurvesMakeAChain)
{
    const BezierPath path(QVariantList{heldCurve({{0, 0}, {1, 0}}), heldCurve({{1, 0}, {2, 1}, {3, 0}}),
                                       heldCurve({{3, 0}, {4, 0}}), heldCurve({{4, 0}, {4, 1}, {5, 1}, {5, 0}})},
                          3);
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 0}, {2, 1}, {3, 0}, {4, 0}, {4, 1}, {5, 1}, {5, 0}}));
    const unsigned int degrees[] = {1, 2, 1, 3};
    ASSERT_EQ(path.getBezierCount(), 4u);
    for (unsigned int index = 0; index < 4; ++index)
        EXPECT_EQ(path.bezierDegree(index), degrees[index]);
    EXPECT_EQ(path.getPointsOnCurve(), 5u);
}

// --- Shapes --------------------------------------------------------------------------------------------------------

TEST(BezierPathTest, ACircleStartsAboveItsCentreAndRunsClockwise)
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

TEST(BezierPathTest, ACircleStaysNearItsRadius)
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

TEST(BezierPathTest, AnOvalHasARadiusForEachAxis)
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

TEST(BezierPathTest, ACircleOfNoArcsIsEmptyAndOneOfTooManyIsRefused)
{
    EXPECT_TRUE(pathOf(BezierPath::createCircle(0, 0, 1, 0)).getEmpty());
    EXPECT_EQ(pathOf(BezierPath::createCircle(0, 0, 1, 1)).getBezierCount(), 1u);
    for (const unsigned int arcs : {BezierPath::mostMade + 1, std::numeric_limits<unsigned int>::max()}) {
        EXPECT_EQ(failureOf([&] { BezierPath::createCircle(0, 0, 1, arcs); }), "Invalid argument at index 3.");
        EXPECT_EQ(failureOf([&] { BezierPath::createOval(0, 0, 1, 1, arcs); }), "Invalid argument at index 4.");
    }
}

TEST(BezierPathTest, AShapeOfNumbersThatAreNotFiniteIsRefused)
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

TEST(BezierPathTest, ARectangleGoesFromItsFirstCornerAlongX)
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

TEST(BezierPathTest, AFitComesWithinOneOfAllPoints)
{
    const BezierPath fit = pathOf(BezierPath::createBezierFit(numbers(wave()), false, false));
    EXPECT_EQ(pointIn(fit.get(0)), wave().front());
    EXPECT_EQ(pointIn(fit.get(static_cast<int>(fit.size()) - 1)), wave().back());
    EXPECT_LE(farthest(fit, wave()), 1.0 + 1e-9);
    EXPECT_LT(fit.size(), 40u);
    EXPECT_FALSE(fit.getClosed());
}

TEST(BezierPathTest, AFitOfOneCurveIsOneCurve)
{
    const BezierPath fit = pathOf(BezierPath::createBezierFit(numbers(wave()), false, true));
    EXPECT_EQ(fit.getBezierCount(), 1u);
    EXPECT_EQ(fit.size(), 4u);
    EXPECT_EQ(pointIn(fit.get(0)), wave().front());
    EXPECT_EQ(pointIn(fit.get(3)), wave().back());
}

TEST(BezierPathTest, AClosedFitIsClosed)
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

TEST(BezierPathTest, AFitOfFewPointsIsWhatTheyAre)
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

TEST(BezierPathTest, AFitOfWhatIsNoPointIsRefused)
{
    EXPECT_EQ(failureOf([] { BezierPath::createBezierFit(QStringLiteral("x"), false, false); }), noPoint2d);
    for (const double bad : {nan, infinity}) {
        const Points points = {{0, 0}, {10, bad}, {20, -bad}, {30, 0}};
        EXPECT_EQ(failureOf([&] { BezierPath::createBezierFit(numbers(points), false, false); }), notFinite);
        EXPECT_EQ(failureOf([&] { BezierPath::createBezierFit(numbers(points), true, true); }), notFinite);
    }
}

// --- Its curves ----------------------------------------------------------------------------------------------------

TEST(BezierPathTest, ItsCurvesAreGivenOneByOne)
{
    const Obj handle = square.bezier(1);
    ASSERT_NE(OMC::objectIn<Bezier>(handle), nullptr);
    EXPECT_EQ(pointsIn(OMC::objectIn<Bezier>(handle)->list()), (Points{{10, 0}, {10, 10}}));
    for (const unsigned int index : {4u, 5u, std::numeric_limits<unsigned int>::max()}) {
        EXPECT_EQ(failureOf([&] { square.bezier(index); }), outOfRange);
        EXPECT_EQ(failureOf([&] { square.bezierDegree(index); }), outOfRange);
    }
    EXPECT_EQ(failureOf([&] { BezierPath().bezier(0); }), outOfRange);
}

TEST(BezierPathTest, CurvesAndPathsAreAppended)
{
    BezierPath path = polyline({{0, 0}, {1, 0}});
    path.bezierAppend(heldCurve({{1, 0}, {2, 0}}));
    path.bezierAppend(held(polyline({{2, 0}, {3, 0}, {3, 1}})));
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}}));
    path.bezierAppend(numbers(Points{{3, 1}, {4, 1}, {5, 1}, {9, 9}}));
    EXPECT_EQ(path.getBezierCount(), 5u);
    EXPECT_EQ(path.bezierDegree(4), 3u);
    path.bezierAppend(QVariantList());
    EXPECT_EQ(path.getBezierCount(), 5u);
}

TEST(BezierPathTest, CurvesAndPathsAreAddedInFront)
{
    BezierPath path = polyline({{0, 0}, {1, 0}});
    path.bezierAppendFront(heldCurve({{-1, 0}, {0, 0}}));
    path.bezierAppendFront(held(polyline({{-1, 5}, {-1, 4}, {-1, 0}})));
    EXPECT_EQ(pointsIn(path.list()), (Points{{-1, 5}, {-1, 4}, {-1, 0}, {0, 0}, {1, 0}}));
}

TEST(BezierPathTest, OfSeveralCurvesAddedInFrontTheLastComesFirst)
{
    BezierPath path = polyline({{3, 0}, {4, 0}});
    path.bezierAppendFront(QVariantList{heldCurve({{2, 0}, {3, 0}}), heldCurve({{1, 0}, {2, 0}}),
                                        heldCurve({{0, 0}, {1, 0}}), heldCurve({{-1, 0}, {0, 0}})});
    EXPECT_EQ(pointsIn(path.list()), (Points{{-1, 0}, {0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}));
}

TEST(BezierPathTest, AGapIsJoinedByALine)
{
    BezierPath path = polyline({{0, 0}, {1, 0}});
    path.bezierAppend(heldCurve({{5, 0}, {6, 0}}));
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 0}, {5, 0}, {6, 0}}));
}

TEST(BezierPathTest, APathIsAppendedToItself)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {0, 0}});
    path.bezierAppend(QVariant::fromValue<QObject*>(&path));
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 0}, {0, 0}, {1, 0}, {0, 0}}));
    path.bezierAppendFront(QVariant::fromValue<QObject*>(&path));
    EXPECT_EQ(path.getBezierCount(), 8u);
}

TEST(BezierPathTest, AFailureAmongSeveralCurvesAppendsNone)
{
    BezierPath path = polyline({{0, 0}, {1, 0}});
    const QVariantList list = {heldCurve({{1, 0}, {2, 0}}), heldCurve({{2, 0}, {3, 0}}), heldCurve({{3, 0}, {4, 0}}),
                               QStringLiteral("x")};
    EXPECT_EQ(failureOf([&] { path.bezierAppend(list); }), noPoint2d);
    EXPECT_EQ(failureOf([&] { path.bezierAppendFront(list); }), noPoint2d);
    EXPECT_EQ(failureOf([&] { path.bezierSet(0, list); }), noPoint2d);
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 0}}));
}

TEST(BezierPathTest, CurvesAreReplacedFromAnIndexOn)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {2, 0}, {3, 0}});
    path.bezierSet(1, heldCurve({{1, 5}, {1.5, 9}, {2, 5}}));
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 5}, {1.5, 9}, {2, 5}, {3, 0}}));
    path.bezierSet(0, held(polyline({{7, 7}, {8, 8}, {9, 9}})));
    EXPECT_EQ(pointsIn(path.list()), (Points{{7, 7}, {8, 8}, {9, 9}, {3, 0}}));
}

TEST(BezierPathTest, ReplacingMoreCurvesThanThereAreIsRefused)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {2, 0}});
    const QVariant two = held(polyline({{7, 7}, {8, 8}, {9, 9}}));
    EXPECT_EQ(failureOf([&] { path.bezierSet(1, two); }), outOfRange);
    EXPECT_EQ(failureOf([&] { path.bezierSet(2, heldCurve(hump)); }), outOfRange);
    EXPECT_EQ(failureOf([&] { path.bezierSet(std::numeric_limits<unsigned int>::max(), heldCurve(hump)); }),
              outOfRange);
    EXPECT_EQ(failureOf([&] {
                  path.bezierSet(0, QVariant::fromValue(Bezier(hostCurve({{1, 1}}))));
              }),
              "A curve of a path has a degree from 1 through 3.");
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 0}, {2, 0}}));
}

// --- Its points ----------------------------------------------------------------------------------------------------

TEST(BezierPathTest, PointsThatAreWrittenBeyondTheEndAreAppended)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {2, 0}});
    path.set(1, numbers(Points{{7, 7}, {8, 8}, {9, 9}, {10, 10}}));
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {7, 7}, {8, 8}, {9, 9}, {10, 10}}));
    EXPECT_EQ(path.getPointsOnCurve(), 5u);
    EXPECT_EQ(failureOf([&] { path.set(5, numbers(Points{{1, 1}})); }), outOfRange);
}

TEST(BezierPathTest, APointIsOnTheCurveOrAHandle)
{
    const BezierPath path = curveThrough<BezierPath>(hump);
    const bool on[] = {true, false, false, true};
    for (unsigned int index = 0; index < 4; ++index)
        EXPECT_EQ(path.pointOnCurve(index), on[index]);
    EXPECT_EQ(failureOf([&] { path.pointOnCurve(4); }), outOfRange);
}

TEST(BezierPathTest, APointThatIsInsertedLeavesTheShape)
{
    BezierPath path = curveThrough<BezierPath>(hump);
    path.insertPoint(0.5);
    EXPECT_EQ(path.getBezierCount(), 2u);
    EXPECT_EQ(pointIn(path.get(3)), (Math::Point2d{5, 7.5}));
    EXPECT_EQ(pointIn(path.evaluate(0.5)), pointIn(curveThrough<BezierPath>(hump).evaluate(0.25)));
    for (const double bad : {nan, infinity})
        EXPECT_EQ(failureOf([&] { path.insertPoint(bad); }), "Invalid argument at index 0.");
    EXPECT_EQ(path.getBezierCount(), 2u);
}

TEST(BezierPathTest, PointsAreErased)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {2, 0}, {3, 0}});
    path.erase(1, 2);
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {3, 0}}));
    constexpr unsigned int most = std::numeric_limits<unsigned int>::max();
    EXPECT_EQ(failureOf([&] { path.erase(2, 1); }), outOfRange);
    EXPECT_EQ(failureOf([&] { path.erase(0, 3); }), outOfRange);
    EXPECT_EQ(failureOf([&] { path.erase(1, most); }), outOfRange);
    EXPECT_EQ(failureOf([&] { path.erase(most, most); }), outOfRange);
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {3, 0}}));
    path.erase(0, 2);
    EXPECT_TRUE(path.getEmpty());
}

TEST(BezierPathTest, TrimmingPadsAndRefusesASizeBelowTheOneItHas)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {2, 0}});
    EXPECT_EQ(failureOf([&] { path.trim(2); }), "Cannot trim path to fewer points than available.");
    EXPECT_EQ(failureOf([&] { path.trim(0); }), "Cannot trim path to fewer points than available.");
    EXPECT_EQ(failureOf([&] { path.trim(BezierPath::mostMade + 1); }), "Invalid argument at index 0.");
    EXPECT_EQ(path.size(), 3u);
    path.trim(3);
    EXPECT_EQ(path.size(), 3u);
    path.trim(6);
    EXPECT_EQ(path.size(), 6u);
    EXPECT_EQ(pointIn(path.get(0)), origin);
    EXPECT_EQ(pointIn(path.evaluate(path.getBezierCount())), (Math::Point2d{2, 0}));
}

TEST(BezierPathTest, AnEmptyPathHasNothingToPadWith)
{
    BezierPath path;
    EXPECT_EQ(failureOf([&] { path.trim(5); }), noPoint);
    path.trim(0);
    EXPECT_TRUE(path.getEmpty());
}

TEST(BezierPathTest, StraighteningPutsALineInThePlaceOfEachCurve)
{
    BezierPath path = curveThrough<BezierPath>(hump);
    path.bezierAppend(heldCurve({{10, 0}, {15, 5}, {20, 0}}));
    path.bezierAppend(heldCurve({{20, 0}, {30, 0}}));
    path.straighten();
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {10, 0}, {20, 0}, {30, 0}}));
    EXPECT_TRUE(path.getPolyline());
    BezierPath circle = pathOf(BezierPath::createCircle(0, 0, 1, 4));
    circle.straighten();
    EXPECT_TRUE(circle.getClosed());
    EXPECT_EQ(circle.size(), 5u);
}

// --- Closed and empty ----------------------------------------------------------------------------------------------

TEST(BezierPathTest, ClosingLeadsBackToTheFirstPoint)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {1, 1}});
    EXPECT_FALSE(path.getClosed());
    path.setClosed(false);
    EXPECT_EQ(path.size(), 3u);
    path.setClosed(true);
    EXPECT_TRUE(path.getClosed());
    EXPECT_EQ(pointsIn(path.list()), (Points{{0, 0}, {1, 0}, {1, 1}, {0, 0}}));
    path.setClosed(false);
    EXPECT_TRUE(path.getClosed()) << "a closed path isn't opened";
    path.setClosed(true);
    path.close();
    EXPECT_EQ(path.size(), 4u);
}

TEST(BezierPathTest, EmptyingItTakesAllPoints)
{
    BezierPath path = square;
    path.setEmpty(false);
    EXPECT_EQ(path.size(), 5u);
    path.setEmpty(true);
    EXPECT_TRUE(path.getEmpty());
    path.setEmpty(false);
    EXPECT_TRUE(path.getEmpty());
    path = square;
    path.clear();
    EXPECT_TRUE(path.getEmpty());
}

TEST(BezierPathTest, AnEmptyPathAnswersOrFailsWithOneSentence)
{
    BezierPath path;
    const QVariant other = held(square);
    path.reverse();
    path.round(1);
    path.multiply(2);
    path.close();
    path.straighten();
    path.setClosed(true);
    EXPECT_TRUE(path.getEmpty());
    EXPECT_FALSE(path.intersecting());
    EXPECT_FALSE(path.intersecting(other));
    EXPECT_TRUE(path.intersections(other).isEmpty());
    EXPECT_FALSE(path.contains(numbers({0, 0})));
    EXPECT_FALSE(path.inside(other));
    EXPECT_FALSE(path.outside(other));
    EXPECT_FALSE(path.containing(0));
    EXPECT_EQ(path.getPolygonLength(), 0.0);
    EXPECT_EQ(path.getPolygonArea(), 0.0);
    EXPECT_FALSE(path.getPolygonClockwise());
    EXPECT_TRUE(path.getPolyline());
    const Obj box = path.getBoundingBox();
    EXPECT_EQ(*OMC::objectIn<OMC::AllocatedRect2D>(box), OMC::AllocatedRect2D());
    EXPECT_EQ(failureOf([&] { path.closestPoint(0); }), "Failed to find a nearest point.");
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { path.get(0); }, [&] { path.set(0, 0); }, [&] { path.erase(0, 1); },
             [&] { path.getPolygonLength(0); }, [&] { path.bezierSet(0, held(square)); }})
        EXPECT_EQ(failureOf(call), outOfRange);
    for (const auto& call :
         std::initializer_list<std::function<void()>>{[&] { path.evaluate(0); }, [&] { path.split(0); },
                                                      [&] { path.truncate(0, 1); }, [&] { path.insertPoint(0); }})
        EXPECT_EQ(failureOf(call), noPoint);
}

// --- Measures ------------------------------------------------------------------------------------------------------

TEST(BezierPathTest, ThePolygonIsMeasuredAlongAllControlPoints)
{
    const BezierPath path = curveThrough<BezierPath>(hump);
    EXPECT_EQ(path.getPolygonLength(), 30.0);
    EXPECT_EQ(path.getPolygonLength(-1), 30.0);
    EXPECT_EQ(path.getPolygonLength(std::numeric_limits<int>::min()), 30.0);
    EXPECT_EQ(path.getPolygonLength(0), 0.0);
    EXPECT_EQ(path.getPolygonLength(1), 10.0);
    EXPECT_EQ(path.getPolygonLength(3), 30.0);
    EXPECT_EQ(failureOf([&] { path.getPolygonLength(4); }), outOfRange);
    EXPECT_EQ(path.getPolygonArea(), 100.0);
    EXPECT_TRUE(path.getPolygonClockwise());
}

TEST(BezierPathTest, ItHasABoxAboutItsCurvesAndOneAboutItsPoints)
{
    const BezierPath path = curveThrough<BezierPath>(hump);
    const Obj box = path.getBoundingBox();
    const Obj inner = path.getBoundingBoxInner();
    EXPECT_EQ(*OMC::objectIn<OMC::AllocatedRect2D>(box), OMC::AllocatedRect2D(10, 7.5, 0, 0));
    EXPECT_EQ(*OMC::objectIn<OMC::AllocatedRect2D>(inner), OMC::AllocatedRect2D(10, 0, 0, 0));
}

TEST(BezierPathTest, ItTellsWhetherItIsDegenerateOrAPolyline)
{
    const struct {
        const char* name;
        BezierPath path;
        bool degenerate;
        bool polyline;
    } rows[] = {
        {"a square", square, false, true},
        {"a curve", curveThrough<BezierPath>(hump), false, false},
        {"one point", polyline({{1, 1}}), true, true},
        {"one place", polyline({{1, 1}, {1, 1}}), true, true},
        {"a straight cubic", curveThrough<BezierPath>({{0, 0}, {1, 0}, {2, 0}, {3, 0}}), false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.path.getDegenerate(), row.degenerate);
        EXPECT_EQ(row.path.getPolyline(), row.polyline);
    }
}

TEST(BezierPathTest, TheParameterGoesOnFromCurveToCurve)
{
    EXPECT_EQ(pointIn(square.evaluate(0.5)), (Math::Point2d{5, 0}));
    EXPECT_EQ(pointIn(square.evaluate(2.25)), (Math::Point2d{7.5, 10}));
    EXPECT_EQ(pointIn(square.evaluate(4)), origin);
    EXPECT_EQ(pointIn(square.evaluate(100)), origin) << "held in the range";
    EXPECT_NEAR(square.closestPoint(numbers({20, 5})), 1.5, 1e-9);
}

// --- Areas ---------------------------------------------------------------------------------------------------------

TEST(BezierPathTest, APointLiesInTheAreaThatThePathFills)
{
    EXPECT_TRUE(square.containing(numbers({5, 5})));
    EXPECT_FALSE(square.containing(numbers({15, 5})));
    EXPECT_TRUE(square.containing(QVariant(3))) << "a number is both coordinates";
    EXPECT_TRUE(square.containing(QVariantList{value({2, 2}), value({3, 3})})) << "positions add up";
    EXPECT_TRUE(square.containing(QStringLiteral("x"))) << "(0, 0), on the edge";
    EXPECT_EQ(failureOf([] { square.containing(numbers({nan, 0})); }), notFinite);
}

TEST(BezierPathTest, WhatAPathRunsAroundTwiceIsFilledStill)
{
    BezierPath twice = square;
    twice.bezierAppend(held(square));
    EXPECT_TRUE(twice.containing(numbers({5, 5})));
}

TEST(BezierPathTest, APathLiesInsideOrOutsideAnother)
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
        EXPECT_EQ(row.path.inside(held(square)), row.inside);
        if (row.name != std::string("around")) {
            EXPECT_EQ(row.path.outside(held(square)), row.outside);
        }
    }
    EXPECT_EQ(failureOf([] { square.inside(QStringLiteral("x")); }), noPoint2d);
    EXPECT_EQ(failureOf([] { square.outside(QStringLiteral("x")); }), noPoint2d);
}

// --- As an object of the object model ------------------------------------------------------------------------------

TEST(BezierPathTest, ItsPropertiesAreInOrder)
{
    expectProperties(BezierPath::staticMetaObject, OMC::ListQVar::staticMetaObject,
                     {
                         {"closed", "bool", true},
                         {"empty", "bool", true},
                         {"degenerate", "bool", false},
                         {"polyline", "bool", false},
                         {"points_on_curve", "uint", false},
                         {"bezier_count", "uint", false},
                         {"bounding_box", "OMC::Obj", false},
                         {"bounding_box_inner", "OMC::Obj", false},
                         {"to_tangent", "OMC::Obj", false},
                         {"from_tangent", "OMC::Obj", false},
                         {"polygon_length", "double", false},
                         {"polygon_area", "double", false},
                         {"polygon_clockwise", "bool", false},
                     });
}

TEST(BezierPathTest, AScriptReadsAndWritesItsProperties)
{
    BezierPath path = polyline({{0, 0}, {1, 0}, {1, 1}});
    bool found = false;
    path.setAttr("closed", true, found);
    EXPECT_TRUE(found);
    EXPECT_EQ(path.getAttr("closed", found), QVariant(true));
    EXPECT_EQ(path.getAttr("polygon_length", found), QVariant(path.getPolygonLength()));
    EXPECT_EQ(failureOf([&] { path.setAttr("polygon_area", 5.0, found); }), "Property is read-only.");
    path.setAttr("empty", true, found);
    EXPECT_EQ(path.getAttr("bezier_count", found), QVariant(0u));
}

} // namespace
