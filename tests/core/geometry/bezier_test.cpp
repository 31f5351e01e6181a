#include "core/geometry/bezier.h"

#include "tests/core/support/curves.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/properties.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using OMC::Bezier;
using OMC::BezierPath;
using OMC::Obj;

const std::string invalidDegree = "Invalid bezier degree - valid value is from 0 through 3.";

const Math::Point2d p0{1, 2}, p1{3, 4}, p2{5, 6}, p3{7, 8};

/// The points of each curve that a value is read as.
std::vector<Points> read(const QVariant& value, unsigned int degree)
{
    std::vector<GR_Bezier2d> curves;
    Bezier::getBezierFromQVariant(value, curves, degree);
    std::vector<Points> points;
    for (const GR_Bezier2d& curve : curves)
        points.push_back(pointsIn(Bezier(curve).list()));
    return points;
}

QVariant held(const Points& points)
{
    return QVariant::fromValue(curveThrough<Bezier>(points));
}

// --- Making one ----------------------------------------------------------------------------------------------------

TEST(BezierTest, ANewOneIsACubicAtTheOriginWithClosedEnds)
{
    const Bezier curve;
    EXPECT_EQ(curve.getDegree(), 3);
    EXPECT_EQ(pointsIn(curve.list()), Points(4, origin));
    EXPECT_EQ(curve.getFromBoundary(), QStringLiteral("Closed"));
    EXPECT_EQ(curve.getToBoundary(), QStringLiteral("Closed"));
    EXPECT_EQ(curve.getFromParameter(), 0.0);
    EXPECT_EQ(curve.getToParameter(), 1.0);
}

TEST(BezierTest, ItsTextHasTheNumberOfItsPoints)
{
    EXPECT_EQ(Bezier().__str__(), "Bezier()[4]");
    EXPECT_EQ(curveThrough<Bezier>({p0}).__str__(), "Bezier()[1]");
}

TEST(BezierTest, ThreePointsAreNoCubic)
{
    EXPECT_EQ(pointsIn(Bezier(numbers(Points{p0, p1, p2}), 3).list()), Points(4, origin));
}

TEST(BezierTest, OfFourPointsTheLastStaysAtTheOrigin)
{
    EXPECT_EQ(pointsIn(Bezier(numbers(Points{p0, p1, p2, p3}), 3).list()), (Points{p0, p1, p2, origin}));
}

TEST(BezierTest, TheDegreeThatItIsMadeWithIsNotLookedAt)
{
    for (const unsigned int degree : {0u, 1u, 2u, 3u, 7u}) {
        EXPECT_EQ(pointsIn(Bezier(numbers(Points{p0, p1, p2, p3}), degree).list()), (Points{p0, p1, p2, origin}));
        EXPECT_EQ(pointsIn(Bezier(numbers(Points{p0, p1, p2}), degree).list()), Points(4, origin));
    }
}

TEST(BezierTest, OfSeveralCurvesItIsTheFirst)
{
    const QVariantList list = {held(hump), held(loop), held(hump), held(hump)};
    EXPECT_EQ(pointsIn(Bezier(list, 3).list()), hump);
}

TEST(BezierTest, ALoneCurveInAValueIsNoListOfPoints)
{
    EXPECT_EQ(failureOf([] { Bezier(held(hump), 3); }), "Unsupported Point2D type.");
    EXPECT_EQ(pointsIn(Bezier(QVariantList{held(hump)}, 3).list()), Points(4, origin)) << "a list too short";
}

TEST(BezierTest, ASinglePointMakesNoCubic)
{
    for (const QVariant& point : {value(p0), numbers(p0), QVariant(5), QVariant(2.5)})
        EXPECT_EQ(pointsIn(Bezier(point, 3).list()), Points(4, origin));
}

// --- Reading curves ------------------------------------------------------------------------------------------------

TEST(BezierTest, PointsInARowMakeOneCurveOfTheDegree)
{
    const struct {
        const char* name;
        unsigned int degree;
        Points points;
        std::vector<Points> curves;
    } rows[] = {
        {"as many as the degree", 3, {p0, p1, p2}, {}},
        {"one more", 3, {p0, p1, p2, p3}, {{p0, p1, p2, origin}}},
        {"more make no second one", 3, {p0, p1, p2, p3, p0, p1, p2, p3}, {{p0, p1, p2, origin}}},
        {"degree 2", 2, {p0, p1, p2}, {{p0, p1, origin}}},
        {"degree 1", 1, {p0, p1}, {{p0, origin}}},
        {"degree 1, one point", 1, {p0}, {}},
        {"degree 0 makes none", 0, {p0, p1}, {}},
        {"no point", 0, {}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(numbers(row.points), row.degree), row.curves);
    }
}

TEST(BezierTest, CurvesAndRowsOfPointsMixInAList)
{
    const QVariant a = held(hump);
    const QVariant b = held(loop);
    const struct {
        const char* name;
        QVariantList list;
        std::vector<Points> curves;
    } rows[] = {
        {"three curves: too short", {a, b, a}, {}},
        {"four curves", {a, b, a, b}, {hump, loop, hump, loop}},
        {"points behind a curve", {a, value(p0), value(p1), value(p2)}, {hump, {p0, p1, p2, origin}}},
        {"a curve behind points, with too little left", {value(p0), value(p1), value(p2), a}, {{p0, p1, p2, origin}}},
        {"a curve behind points, with enough left",
         {value(p0), value(p1), value(p2), a, b, value(p3), value(p3)},
         {{p0, p1, p2, origin}, hump, loop}},
        {"points in lists of lists",
         {QVariantList{numbers(p0), numbers(p1)}, numbers(p2), a, a, a, a},
         {{p0, p1, p2, origin}, hump, hump, hump, hump}},
        {"numbers in a row are one point", {1, 2, 3, 4, 5, 6, 7, 8}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(row.list, 3), row.curves);
    }
}

TEST(BezierTest, ASinglePointMakesALineFromItToTheOrigin)
{
    EXPECT_EQ(read(value(p0), 1), (std::vector<Points>{{p0, origin}}));
    EXPECT_EQ(read(5, 1), (std::vector<Points>{{{5, 0}, origin}}));
}

TEST(BezierTest, ADegreeThatNoCurveHasIsRefusedWhereACurveWouldBeMade)
{
    const Points many(9, p0);
    EXPECT_EQ(failureOf([&] { read(numbers(many), 4); }), invalidDegree);
    EXPECT_EQ(failureOf([&] { read(value(p0), std::numeric_limits<unsigned int>::max()); }), invalidDegree);
    EXPECT_TRUE(read(numbers(many), std::numeric_limits<unsigned int>::max()).empty()) << "a list too short";
}

TEST(BezierTest, WhatIsNoPointIsRefusedAndNothingIsRead)
{
    Bezier curve = curveThrough<Bezier>(hump);
    for (const QVariant& bad : {QVariant(), QVariant(QStringLiteral("x")), QVariant(true),
                                OMC::toVariant(Obj(new OMC::BaseObject)), QVariant::fromValue(BezierPath())}) {
        EXPECT_EQ(failureOf([&] { read(bad, 3); }), "Unsupported Point2D type.");
        EXPECT_EQ(failureOf([&] {
                      read(QVariantList{value(p0), value(p1), value(p2), bad}, 3);
                  }),
                  "Unsupported Point2D type.");
        EXPECT_EQ(failureOf([&] { curve.intersecting(bad); }), "Unsupported Point2D type.");
    }
    EXPECT_EQ(pointsIn(curve.list()), hump);
}

// --- Writing several points ----------------------------------------------------------------------------------------

TEST(BezierTest, TheLastPointIsNotAmongSeveralThatAreWritten)
{
    Bezier curve = curveThrough<Bezier>(hump);
    EXPECT_EQ(failureOf([&] { curve.set(0, numbers(Points{p0, p1, p2, p3})); }), "Index is out of range.");
    EXPECT_EQ(failureOf([&] { curve.set(2, numbers(Points{p0, p1})); }), "Index is out of range.");
    EXPECT_EQ(pointsIn(curve.list()), hump);
    curve.set(0, numbers(Points{p0, p1, p2}));
    EXPECT_EQ(pointsIn(curve.list()), (Points{p0, p1, p2, hump[3]}));
    curve.set(3, numbers(p3));
    EXPECT_EQ(pointsIn(curve.list()), (Points{p0, p1, p2, p3}));
}

// --- The degree ----------------------------------------------------------------------------------------------------

TEST(BezierTest, ItsDegreeIsFromZeroToThree)
{
    Bezier curve = curveThrough<Bezier>(hump);
    for (const int degree : {4, -1, 100, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(failureOf([&] { curve.setDegree(degree); }), invalidDegree);
        EXPECT_EQ(curve.getDegree(), 3);
    }
    for (const int degree : {0, 1, 2, 3}) {
        curve.setDegree(degree);
        EXPECT_EQ(curve.getDegree(), degree);
        EXPECT_EQ(curve.size(), static_cast<std::size_t>(degree) + 1);
    }
}

TEST(BezierTest, AHigherDegreeBringsBackThePointsOfBefore)
{
    Bezier curve = curveThrough<Bezier>(hump);
    curve.setDegree(1);
    EXPECT_EQ(pointsIn(curve.list()), (Points{hump[0], hump[1]}));
    EXPECT_EQ(pointIn(curve.evaluate(1)), hump[1]);
    curve.setDegree(3);
    EXPECT_EQ(pointsIn(curve.list()), hump);
    EXPECT_EQ(pointIn(curve.evaluate(0.5)), (Math::Point2d{5, 7.5}));
}

TEST(BezierTest, ACurveOfDegreeZeroIsAPoint)
{
    Bezier curve = curveThrough<Bezier>({p0});
    EXPECT_EQ(pointIn(curve.evaluate(0.7)), p0);
    EXPECT_EQ(curve.closestPoint(value(p0)), 0.0);
    EXPECT_EQ(failureOf([&] { curve.closestPoint(value(p1)); }), "Failed to find a nearest point.");
    EXPECT_TRUE(curve.getLine());
    curve.straighten();
    EXPECT_EQ(pointsIn(curve.list()), Points{p0});
    EXPECT_EQ(failureOf([&] { curve.get(1); }), "Index is out of range.");
}

TEST(BezierTest, StraighteningLeavesTheLineBetweenTheEnds)
{
    Bezier curve = curveThrough<Bezier>(hump);
    curve.straighten();
    EXPECT_EQ(pointsIn(curve.list()), (Points{hump[0], hump[3]}));
    EXPECT_EQ(curve.getDegree(), 1);
    curve.straighten();
    EXPECT_EQ(pointsIn(curve.list()), (Points{hump[0], hump[3]}));
    Bezier quadratic = curveThrough<Bezier>({p0, p1, p2});
    quadratic.straighten();
    EXPECT_EQ(pointsIn(quadratic.list()), (Points{p0, p2}));
}

// --- Boundaries and parameters -------------------------------------------------------------------------------------

TEST(BezierTest, ABoundaryIsOpenOrClosedWhateverTheCase)
{
    Bezier curve;
    const struct {
        const char* text;
        const char* result;
    } rows[] = {{"Open", "Open"}, {"closed", "Closed"}, {"OPEN", "Open"}, {"cLoSeD", "Closed"}, {"Closed", "Closed"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        curve.setFromBoundary(QString::fromLatin1(row.text));
        curve.setToBoundary(QString::fromLatin1(row.text));
        EXPECT_EQ(curve.getFromBoundary(), QString::fromLatin1(row.result));
        EXPECT_EQ(curve.getToBoundary(), QString::fromLatin1(row.result));
    }
    for (const char* text : {"", "Unknown", " Open", "Half-open", "1"}) {
        SCOPED_TRACE(text);
        const std::string failure = "Unexpected boundary type. Valid types are : Open, Closed";
        EXPECT_EQ(failureOf([&] { curve.setFromBoundary(QString::fromLatin1(text)); }), failure);
        EXPECT_EQ(failureOf([&] { curve.setToBoundary(QString::fromLatin1(text)); }), failure);
    }
    EXPECT_EQ(curve.getFromBoundary(), QStringLiteral("Closed"));
}

TEST(BezierTest, ABoundaryOfAnotherKindIsUnknown)
{
    GR_Bezier2d host = hostCurve(hump);
    host.SetToBoundary(static_cast<Math::Constants::Boundary>(2));
    EXPECT_EQ(Bezier(host).getToBoundary(), QStringLiteral("Unknown"));
    EXPECT_EQ(Bezier(host).getFromBoundary(), QStringLiteral("Closed"));
}

TEST(BezierTest, AnOpenEndMeetsNothing)
{
    Bezier curve = curveThrough<Bezier>({{0, 0}, {10, 0}});
    const QVariant across = held({{10, -5}, {10, 5}});
    EXPECT_TRUE(curve.intersecting(across));
    curve.setToBoundary(QStringLiteral("Open"));
    EXPECT_FALSE(curve.intersecting(across));
    EXPECT_TRUE(curve.intersections(across).isEmpty());
}

TEST(BezierTest, ItsParametersAreKept)
{
    Bezier curve;
    curve.setFromParameter(0.25);
    curve.setToParameter(-3);
    EXPECT_EQ(curve.getFromParameter(), 0.25);
    EXPECT_EQ(curve.getToParameter(), -3.0);
    for (const double bad : {nan, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(failureOf([&] { curve.setFromParameter(bad); }), "Invalid argument at index 0.");
        EXPECT_EQ(failureOf([&] { curve.setToParameter(bad); }), "Invalid argument at index 0.");
    }
    EXPECT_EQ(curve.getFromParameter(), 0.25);
    EXPECT_EQ(curve.getToParameter(), -3.0);
}

TEST(BezierTest, ThePartsOfACurveKnowWhichStretchTheyAre)
{
    Bezier curve = curveThrough<Bezier>(hump);
    const Obj behind = curve.split(0.25);
    EXPECT_EQ(curve.getFromParameter(), 0.0);
    EXPECT_EQ(curve.getToParameter(), 0.25);
    EXPECT_EQ(OMC::objectIn<Bezier>(behind)->getFromParameter(), 0.25);
    EXPECT_EQ(OMC::objectIn<Bezier>(behind)->getToParameter(), 1.0);
}

// --- Shape ---------------------------------------------------------------------------------------------------------

TEST(BezierTest, ItsShapeIsTold)
{
    const struct {
        const char* name;
        Points points;
        bool line;
        bool cusp;
        unsigned int inflections;
    } rows[] = {
        {"a hump", hump, false, false, 0},
        {"an S", {{0, 0}, {10, 10}, {0, -10}, {10, 0}}, false, false, 1},
        {"two bends", {{0, 0}, {5, 10}, {7, 10}, {3.9, 5}}, false, false, 0},
        {"a cusp", {{0, 0}, {10, 10}, {0, 10}, {10, 0}}, false, true, 0},
        {"a loop", loop, false, false, 0},
        {"a straight cubic", {{0, 0}, {1, 1}, {2, 2}, {3, 3}}, true, false, 0},
        {"a line", {{0, 0}, {3, 3}}, true, false, 0},
        {"a parabola", {{0, 0}, {5, 5}, {10, 0}}, false, false, 0},
        {"a point", {{1, 1}}, true, false, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Bezier curve = curveThrough<Bezier>(row.points);
        EXPECT_EQ(curve.getLine(), row.line);
        EXPECT_EQ(curve.getCusp(), row.cusp);
        EXPECT_EQ(curve.getInflections(), row.inflections);
    }
}

TEST(BezierTest, TwoInflectionsAreCounted)
{
    // A flat middle between two bends to the same side.
    const Bezier curve = curveThrough<Bezier>({{0, 0}, {9, 10}, {1, 10}, {10, 0}});
    EXPECT_EQ(curve.getInflections() + (curve.getCusp() ? 10 : 0) + (curve.intersecting() ? 100 : 0), 2u);
}

TEST(BezierTest, TheDerivativeIsACurveOneDegreeLower)
{
    const Obj handle = curveThrough<Bezier>(hump).derivative();
    const auto* derivative = OMC::objectIn<Bezier>(handle);
    ASSERT_NE(derivative, nullptr);
    EXPECT_EQ(pointsIn(derivative->list()), (Points{{0, 30}, {30, 0}, {0, -30}}));
    const Obj ofAPoint = curveThrough<Bezier>({p0}).derivative();
    EXPECT_EQ(pointsIn(OMC::objectIn<Bezier>(ofAPoint)->list()), Points{origin});
}

TEST(BezierTest, APointOnTheCurveComesInWholeNumbers)
{
    EXPECT_EQ(pointIn(curveThrough<Bezier>(hump).evaluateAndRound(0.5)), (Math::Point2d{5, 8}));
    EXPECT_EQ(pointIn(curveThrough<Bezier>({{-0.5, 0.4}}).evaluateAndRound(0)), (Math::Point2d{-1, 0}));
    EXPECT_EQ(failureOf([] { Bezier().evaluateAndRound(nan); }), "Invalid argument at index 0.");
}

TEST(BezierTest, TheSearchForTheNearestPointLeavesTheLastControlPointOut)
{
    // From (0, 100) the curve is as far as from its first point, and the last control point would reach farther.
    const Bezier curve = curveThrough<Bezier>({{0, 0}, {0, 0}, {0, 0}, {0, -1000}});
    EXPECT_NEAR(curve.closestPoint(numbers({0, 100})), 0.0, 1e-9);
    EXPECT_NEAR(curve.closestPoint(numbers({0, -2000})), 1.0, 1e-9);
    // Within the square root of 1.25 of the distance of the others nothing is found.
    const Bezier far = curveThrough<Bezier>({{0, 0}, {0, 0}, {0, 0}, {1000, 0}});
    EXPECT_NEAR(far.closestPoint(numbers({900, 0})), std::cbrt(0.9), 1e-9);
}

// --- As an object of the object model ------------------------------------------------------------------------------

TEST(BezierTest, ItsPropertiesAreInOrder)
{
    expectProperties(Bezier::staticMetaObject, OMC::ListQVar::staticMetaObject,
                     {
                         {"degree", "int", true},
                         {"from_boundary", "QString", true},
                         {"from_parameter", "double", true},
                         {"from_tangent", "OMC::Obj", false},
                         {"to_boundary", "QString", true},
                         {"to_parameter", "double", true},
                         {"to_tangent", "OMC::Obj", false},
                         {"bounding_box", "OMC::Obj", false},
                         {"line", "bool", false},
                         {"cusp", "bool", false},
                         {"inflections", "uint", false},
                     });
}

TEST(BezierTest, AScriptReadsAndWritesItsProperties)
{
    Bezier curve = curveThrough<Bezier>(hump);
    bool found = false;
    curve.setAttr("degree", 2, found);
    EXPECT_TRUE(found);
    EXPECT_EQ(curve.getAttr("degree", found), QVariant(2));
    curve.setAttr("from_boundary", QStringLiteral("open"), found);
    EXPECT_EQ(curve.getAttr("from_boundary", found), QVariant(QStringLiteral("Open")));
    EXPECT_EQ(failureOf([&] { curve.setAttr("line", true, found); }), "Property is read-only.");
    EXPECT_EQ(failureOf([&] { curve.setAttr("degree", 7, found); }), invalidDegree);
    EXPECT_EQ(curve.getAttr("inflections", found), QVariant(0u));
}

} // namespace
