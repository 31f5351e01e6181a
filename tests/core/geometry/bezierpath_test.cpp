#include "core/geometry/bezierpath.h"

#include "core/geometry/rectangles.h"
#include "core/geometry/vectors.h"
#include "tests/core/support/curves.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/properties.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace {

using OMC::Bezier;
using OMC::BezierPath;
using OMC::Obj;

const std::string noPoint = "The path has no point.";

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

// --- Its curves ----------------------------------------------------------------------------------------------------

TEST(BezierPathTest, ItsCurvesAreGivenOneByOne)
{
    const Obj handle = square.bezier(1);
    ASSERT_NE(OMC::objectIn<Bezier>(handle), nullptr);
    EXPECT_EQ(pointsIn(OMC::objectIn<Bezier>(handle)->list()), (Points{{10, 0}, {10, 10}}));
    for (const unsigned int index : {4u, 5u, std::numeric_limits<unsigned int>::max()}) {
        EXPECT_EQ(failureOf([&] { square.bezier(index); }), indexOutOfRange);
        EXPECT_EQ(failureOf([&] { square.bezierDegree(index); }), indexOutOfRange);
    }
    EXPECT_EQ(failureOf([&] { BezierPath().bezier(0); }), indexOutOfRange);
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
    EXPECT_EQ(failureOf([&] { path.bezierSet(1, two); }), indexOutOfRange);
    EXPECT_EQ(failureOf([&] { path.bezierSet(2, heldCurve(hump)); }), indexOutOfRange);
    EXPECT_EQ(failureOf([&] { path.bezierSet(std::numeric_limits<unsigned int>::max(), heldCurve(hump)); }),
              indexOutOfRange);
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
    EXPECT_EQ(failureOf([&] { path.set(5, numbers(Points{{1, 1}})); }), indexOutOfRange);
}

TEST(BezierPathTest, APointIsOnTheCurveOrAHandle)
{
    const BezierPath path = curveThrough<BezierPath>(hump);
    const bool on[] = {true, false, false, true};
    for (unsigned int index = 0; index < 4; ++index)
        EXPECT_EQ(path.pointOnCurve(index), on[index]);
    EXPECT_EQ(failureOf([&] { path.pointOnCurve(4); }), indexOutOfRange);
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
    EXPECT_EQ(failureOf([&] { path.erase(2, 1); }), indexOutOfRange);
    EXPECT_EQ(failureOf([&] { path.erase(0, 3); }), indexOutOfRange);
    EXPECT_EQ(failureOf([&] { path.erase(1, most); }), indexOutOfRange);
    EXPECT_EQ(failureOf([&] { path.erase(most, most); }), indexOutOfRange);
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
        EXPECT_EQ(failureOf(call), indexOutOfRange);
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
    EXPECT_EQ(failureOf([&] { path.getPolygonLength(4); }), indexOutOfRange);
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
