#include "core/geometry/curvelist.h"

#include "core/geometry/matrix.h"
#include "core/geometry/rectangles.h"
#include "core/geometry/vectors.h"
#include "tests/core/support/curves.h"
#include "tests/core/support/failure.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <cmath>
#include <limits>
#include <memory>

/// The operations in which a curve and a path of one curve are alike.
namespace {

using OMC::Bezier;
using OMC::BezierPath;
using OMC::Obj;

const std::string tooLarge = "The curve's points are too large, or not finite.";
const std::string notFinite = "A point of the curve is not finite.";

std::string invalidArgument(int index)
{
    return "Invalid argument at index " + std::to_string(index) + ".";
}

template <typename Curve>
class CurveListTest : public testing::Test {
protected:
    static QVariant held(const Curve& curve) { return QVariant::fromValue(curve); }

    Curve curve = curveThrough<Curve>(hump);
};

class CurveNames {
public:
    template <typename Curve>
    static std::string GetName(int)
    {
        return std::is_same_v<Curve, Bezier> ? "Bezier" : "BezierPath";
    }
};

using Curves = testing::Types<Bezier, BezierPath>;
TYPED_TEST_SUITE(CurveListTest, Curves, CurveNames);

// --- The list of control points ------------------------------------------------------------------------------------

TYPED_TEST(CurveListTest, ItIsTheListOfItsControlPoints)
{
    EXPECT_EQ(this->curve.size(), 4u);
    EXPECT_EQ(pointsIn(this->curve.list()), hump);
    for (int index = 0; index < 4; ++index)
        EXPECT_EQ(pointIn(this->curve.get(index)), hump[static_cast<std::size_t>(index)]);
}

TYPED_TEST(CurveListTest, APointBeyondTheListIsOutOfRange)
{
    for (const int index : {-1, 4, 5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(failureOf([&] { this->curve.get(index); }), indexOutOfRange);
        EXPECT_EQ(failureOf([&] { this->curve.set(index, numbers({1, 2})); }), indexOutOfRange);
    }
    EXPECT_EQ(pointsIn(this->curve.list()), hump);
}

TYPED_TEST(CurveListTest, APointHasNoName)
{
    EXPECT_EQ(failureOf([&] { this->curve.get(QStringLiteral("0")); }), "Unable to retrieve item in container.");
    EXPECT_EQ(failureOf([&] { this->curve.set(QStringLiteral("0"), 1); }), "Unable to set item in container.");
}

TYPED_TEST(CurveListTest, AWrittenPointIsReadStrictly)
{
    const struct {
        const char* name;
        QVariant point;
        Math::Point2d result;
    } rows[] = {
        {"a Point2d", value({1, 2}), {1, 2}},
        {"two numbers", numbers({3, 4}), {3, 4}},
        {"a list of one point", numbers(Points{{5, 6}}), {5, 6}},
        {"a number, which is x", 7, {7, 0}},
        {"no numbers at all", numbers({nan, infinity}), {nan, infinity}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        this->curve.set(2, row.point);
        const Math::Point2d point = pointIn(this->curve.get(2));
        EXPECT_TRUE(point.x == row.result.x || std::isnan(row.result.x));
        EXPECT_EQ(point.y, row.result.y);
    }
    EXPECT_EQ(pointIn(this->curve.get(1)), hump[1]);
    EXPECT_EQ(pointIn(this->curve.get(3)), hump[3]);
}

TYPED_TEST(CurveListTest, WritingNoPointIsRefused)
{
    EXPECT_EQ(failureOf([&] { this->curve.set(0, QVariantList()); }), "Must specify a point.");
    EXPECT_EQ(failureOf([&] { this->curve.set(0, QVariantList{QVariantList()}); }), "Must specify a point.");
    EXPECT_EQ(failureOf([&] { this->curve.set(0, QStringLiteral("x")); }), noPoint2d);
    EXPECT_EQ(failureOf([&] { this->curve.set(0, QVariantList{value({1, 2}), QStringLiteral("x")}); }), noPoint2d);
    EXPECT_EQ(pointsIn(this->curve.list()), hump);
}

TYPED_TEST(CurveListTest, SeveralPointsAreWrittenInARow)
{
    this->curve.set(1, numbers(Points{{1, 2}, {3, 4}}));
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{hump[0], {1, 2}, {3, 4}, hump[3]}));
}

TYPED_TEST(CurveListTest, ItContainsPointsThatAreControlPointsExactly)
{
    const struct {
        const char* name;
        QVariant points;
        bool contained;
    } rows[] = {
        {"a control point", value({10, 10}), true},
        {"as numbers", numbers({0, 10}), true},
        {"with a negative zero", numbers({-0.0, 10}), true},
        {"several", numbers(Points{{0, 0}, {10, 0}, {0, 0}}), true},
        {"nested", QVariantList{numbers(Points{{0, 0}}), value({10, 0})}, true},
        {"a point on the curve", numbers({5, 7.5}), false},
        {"close to one", numbers({10, 1e-300}), false},
        {"one of several that is none", numbers(Points{{0, 0}, {1, 0}}), false},
        {"no point", QVariantList(), false},
        {"no number", numbers({nan, 0}), false},
        {"a number: (0, 0)", 0, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(this->curve.contains(row.points), row.contained);
    }
    EXPECT_EQ(failureOf([&] { this->curve.contains(QStringLiteral("x")); }), noPoint2d);
}

TYPED_TEST(CurveListTest, APointThatIsNoNumberIsNeverContained)
{
    this->curve.set(0, numbers({nan, 0}));
    EXPECT_FALSE(this->curve.contains(numbers({nan, 0})));
    EXPECT_TRUE(this->curve.contains(numbers({10, 0})));
}

// --- Going through it ----------------------------------------------------------------------------------------------

TYPED_TEST(CurveListTest, ALoopTakesEachPointOnce)
{
    const Obj handle = this->curve.__iter__();
    auto* iterator = OMC::objectIn<TypeParam>(handle);
    ASSERT_NE(iterator, nullptr);
    Points points;
    for (; !iterator->__atend__(); ++*iterator)
        points.push_back(pointIn(iterator->__iterItem__()));
    EXPECT_EQ(points, hump);
    EXPECT_EQ(failureOf([&] { iterator->__iterItem__(); }), indexOutOfRange);
    ++*iterator;
    --*iterator;
    EXPECT_EQ(pointIn(iterator->__iterItem__()), hump[3]) << "at the end it stayed at the end";
}

TYPED_TEST(CurveListTest, TwoLoopsDoNotDisturbEachOther)
{
    const Obj first = this->curve.__iter__();
    ++*OMC::objectIn<TypeParam>(first);
    const Obj second = OMC::objectIn<TypeParam>(first)->__iter__();
    EXPECT_EQ(pointIn(OMC::objectIn<TypeParam>(first)->__iterItem__()), hump[1]);
    EXPECT_EQ(pointIn(OMC::objectIn<TypeParam>(second)->__iterItem__()), hump[0]);
    EXPECT_EQ(pointIn(this->curve.__iterItem__()), hump[0]);
}

TYPED_TEST(CurveListTest, BeforeTheFirstPointThereIsNoStep)
{
    --this->curve;
    EXPECT_EQ(pointIn(this->curve.__iterItem__()), hump[0]);
    ++this->curve;
    --this->curve;
    --this->curve;
    EXPECT_EQ(pointIn(this->curve.__iterItem__()), hump[0]);
}

// --- Copies and comparison -----------------------------------------------------------------------------------------

TYPED_TEST(CurveListTest, ACopyIsACurveOfItsOwnAtItsFirstPoint)
{
    ++this->curve;
    const std::unique_ptr<OMC::BaseObject> object(this->curve.copy());
    auto* copy = dynamic_cast<TypeParam*>(object.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->getOwnership(), OMC::Unowned);
    EXPECT_EQ(pointIn(copy->__iterItem__()), hump[0]);
    copy->set(0, numbers({9, 9}));
    EXPECT_EQ(pointsIn(this->curve.list()), hump);

    TypeParam assigned;
    assigned = this->curve;
    EXPECT_EQ(pointsIn(assigned.list()), hump);
    EXPECT_EQ(pointIn(assigned.__iterItem__()), hump[0]);
    assigned.set(0, numbers({9, 9}));
    EXPECT_EQ(pointsIn(this->curve.list()), hump);
}

TYPED_TEST(CurveListTest, ItTravelsInsideAVariantByValue)
{
    const QVariant held = QVariant::fromValue(this->curve);
    const auto* curve = OMC::objectFrom<TypeParam>(held);
    ASSERT_NE(curve, nullptr);
    EXPECT_NE(curve, &this->curve);
    EXPECT_EQ(pointsIn(curve->list()), hump);
}

TYPED_TEST(CurveListTest, CurvesAreEqualWhenTheirPointsAre)
{
    EXPECT_TRUE(this->curve == this->held(curveThrough<TypeParam>(hump)));
    EXPECT_FALSE(this->curve == this->held(curveThrough<TypeParam>(loop)));
    EXPECT_FALSE(this->curve == this->held(curveThrough<TypeParam>({{0, 0}, {10, 0}})));
    EXPECT_TRUE(this->curve == OMC::toVariant(Obj(new TypeParam(this->curve))));
}

TYPED_TEST(CurveListTest, ACurveIsComparedWithWhatAListTells)
{
    // The last point of a curve that is read from points stays (0, 0).
    const TypeParam read = curveThrough<TypeParam>({hump[0], hump[1], hump[2], {0, 0}});
    EXPECT_TRUE(read == numbers(hump));
    EXPECT_FALSE(this->curve == numbers(hump));
    EXPECT_EQ(failureOf([&] { return this->curve == QVariant(QStringLiteral("x")); }), noPoint2d);
    EXPECT_EQ(failureOf([&] { return this->curve == OMC::toVariant(Obj(new OMC::BaseObject)); }), noPoint2d);
}

TYPED_TEST(CurveListTest, ItKnowsItsOwnReverse)
{
    TypeParam reversed = this->curve;
    reversed.reverse();
    EXPECT_EQ(pointsIn(reversed.list()), Points(hump.rbegin(), hump.rend()));
    EXPECT_TRUE(this->curve.equivalentReverse(this->held(reversed)));
    EXPECT_FALSE(this->curve.equivalentReverse(this->held(this->curve)));
    reversed.reverse();
    EXPECT_TRUE(this->curve == this->held(reversed));
}

// --- Along the curve -----------------------------------------------------------------------------------------------

TYPED_TEST(CurveListTest, EvaluatingGivesThePointAtAParameter)
{
    EXPECT_EQ(pointIn(this->curve.evaluate(0)), hump.front());
    EXPECT_EQ(pointIn(this->curve.evaluate(0.5)), (Math::Point2d{5, 7.5}));
    EXPECT_EQ(pointIn(this->curve.evaluate(1)), hump.back());
}

TYPED_TEST(CurveListTest, TheTangentsPointAlongTheCurve)
{
    const Obj from = this->curve.getFromTangent();
    const Obj to = this->curve.getToTangent();
    ASSERT_TRUE(OMC::objectIn<OMC::Vector2d>(from) && OMC::objectIn<OMC::Vector2d>(to));
    EXPECT_EQ(pointIn(from), (Math::Point2d{0, 1}));
    EXPECT_EQ(pointIn(to), (Math::Point2d{0, -1}));
}

TYPED_TEST(CurveListTest, TheBoxIsTightAboutTheCurve)
{
    const Obj box = this->curve.getBoundingBox();
    const auto* rectangle = OMC::objectIn<OMC::AllocatedRect2D>(box);
    ASSERT_NE(rectangle, nullptr);
    EXPECT_EQ(*rectangle, OMC::AllocatedRect2D(10, 7.5, 0, 0));
}

TYPED_TEST(CurveListTest, TheNearestPointIsTheOneThatALineOfSightMeetsFirst)
{
    EXPECT_NEAR(this->curve.closestPoint(numbers({5, 20})), 0.5, 1e-9);
    EXPECT_NEAR(this->curve.closestPoint(value({5, 7.5})), 0.5, 1e-9);
    EXPECT_NEAR(this->curve.closestPoint(numbers({-3, -1})), 0.0, 1e-9);
    EXPECT_NEAR(this->curve.closestPoint(numbers({1000, -1000})), 1.0, 1e-9);
    EXPECT_NEAR(this->curve.closestPoint(-5), 0.0, 1e-9);
}

TYPED_TEST(CurveListTest, ThereIsNoNearestPointOfNoPoint)
{
    for (const Math::Point2d& point : {Math::Point2d{nan, 0}, {0, infinity}}) {
        SCOPED_TRACE(testing::PrintToString(point));
        EXPECT_EQ(failureOf([&] { this->curve.closestPoint(numbers(point)); }), "Failed to find a nearest point.");
    }
    for (const QVariant& value : {QVariant(), QVariant(QStringLiteral("x")), QVariant(QVariantList())})
        EXPECT_EQ(failureOf([&] { this->curve.closestPoint(value); }), noPoint2d);
}

// --- Changes -------------------------------------------------------------------------------------------------------

TYPED_TEST(CurveListTest, MultiplyingTransformsTheControlPointsByAMatrixInAnyForm)
{
    this->curve.multiply(QVariantList{5, -1});
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{{5, -1}, {5, 9}, {15, 9}, {15, -1}}));
    this->curve.multiply(2);
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{{10, -2}, {10, 18}, {30, 18}, {30, -2}}));
    this->curve.multiply(QStringLiteral("no matrix"));
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{{10, -2}, {10, 18}, {30, 18}, {30, -2}}));
}

TYPED_TEST(CurveListTest, RoundingMovesThePointsToMultiplesOfTheStep)
{
    this->curve.multiply(QVariantList{0.3, -0.7});
    this->curve.round(1);
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{{0, -1}, {0, 9}, {10, 9}, {10, -1}}));
    this->curve.round(4);
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{{0, 0}, {0, 8}, {12, 8}, {12, 0}}));
    for (const double step : {0.0, -1.0, nan, infinity})
        EXPECT_EQ(failureOf([&] { this->curve.round(step); }), invalidArgument(0)) << step;
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{{0, 0}, {0, 8}, {12, 8}, {12, 0}}));
}

TYPED_TEST(CurveListTest, SplittingKeepsTheFirstPartAndGivesTheSecond)
{
    const Obj behind = this->curve.split(0.5);
    const auto* second = OMC::objectIn<TypeParam>(behind);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(pointsIn(this->curve.list()), (Points{{0, 0}, {0, 5}, {2.5, 7.5}, {5, 7.5}}));
    EXPECT_EQ(pointsIn(second->list()), (Points{{5, 7.5}, {7.5, 7.5}, {10, 5}, {10, 0}}));
}

TYPED_TEST(CurveListTest, AStretchIsANewCurve)
{
    const Obj stretch = this->curve.truncate(0.5, 1);
    ASSERT_NE(OMC::objectIn<TypeParam>(stretch), nullptr);
    EXPECT_EQ(pointsIn(OMC::objectIn<TypeParam>(stretch)->list()), (Points{{5, 7.5}, {7.5, 7.5}, {10, 5}, {10, 0}}));
    const Obj backwards = this->curve.truncate(1, 0);
    EXPECT_TRUE(this->curve.equivalentReverse(QVariant::fromValue(backwards)));
    EXPECT_EQ(pointsIn(this->curve.list()), hump);
}

TYPED_TEST(CurveListTest, AParameterThatIsNotFiniteIsRefused)
{
    for (const double parameter : {nan, infinity, -infinity}) {
        EXPECT_EQ(failureOf([&] { this->curve.evaluate(parameter); }), invalidArgument(0));
        EXPECT_EQ(failureOf([&] { this->curve.split(parameter); }), invalidArgument(0));
        EXPECT_EQ(failureOf([&] { this->curve.truncate(parameter, 1); }), invalidArgument(0));
        EXPECT_EQ(failureOf([&] { this->curve.truncate(0, parameter); }), invalidArgument(1));
    }
    EXPECT_EQ(pointsIn(this->curve.list()), hump);
}

// --- Meeting -------------------------------------------------------------------------------------------------------

TYPED_TEST(CurveListTest, ACurveWithALoopMeetsItself)
{
    EXPECT_FALSE(this->curve.intersecting());
    EXPECT_TRUE(this->curve.intersections().isEmpty());
    const TypeParam crossing = curveThrough<TypeParam>(loop);
    EXPECT_TRUE(crossing.intersecting());
    const Points places = pointsIn(crossing.intersections());
    ASSERT_EQ(places.size(), 1u);
    EXPECT_NEAR(places[0].x, 5, 1e-9);
}

TYPED_TEST(CurveListTest, TwoCurvesMeetWhereTheyCross)
{
    const QVariant line = this->held(curveThrough<TypeParam>({{-1, 5}, {4, 5}, {6, 5}, {11, 5}}));
    EXPECT_TRUE(this->curve.intersecting(line));
    const Points places = pointsIn(this->curve.intersections(line));
    ASSERT_EQ(places.size(), 2u);
    EXPECT_NEAR(places[0].y, 5, 1e-9);
    EXPECT_NEAR(places[1].y, 5, 1e-9);
    EXPECT_NEAR(places[0].x + places[1].x, 10, 1e-9);
    EXPECT_LT(places[0].x, places[1].x);
    const QVariant apart = this->held(curveThrough<TypeParam>({{0, 20}, {10, 20}, {20, 20}, {30, 20}}));
    EXPECT_FALSE(this->curve.intersecting(apart));
    EXPECT_TRUE(this->curve.intersections(apart).isEmpty());
}

TYPED_TEST(CurveListTest, WhatMeetsACurveMayBeAListOfPoints)
{
    // The points read as the cubic (-1, 5), (11, 5), (11, 5), (0, 0).
    const QVariant points = numbers(Points{{-1, 5}, {11, 5}, {11, 5}, {-1, 5}});
    EXPECT_TRUE(this->curve.intersecting(points));
    EXPECT_FALSE(this->curve.intersections(points).isEmpty());
    EXPECT_EQ(failureOf([&] { this->curve.intersecting(QStringLiteral("x")); }), noPoint2d);
    EXPECT_EQ(failureOf([&] { this->curve.intersections(QStringList{QStringLiteral("x")}); }), noPoint2d);
}

// --- Points that are no numbers ------------------------------------------------------------------------------------

TYPED_TEST(CurveListTest, WhatCanNotBeComputedIsOneFailureAndChangesNothing)
{
    for (const double bad : {nan, infinity, -infinity}) {
        SCOPED_TRACE(bad);
        TypeParam curve = this->curve;
        curve.set(1, numbers({bad, 10}));
        const auto points = [&] { return curve.list(); };
        EXPECT_EQ(points().size(), 4);
        EXPECT_EQ(failureOf([&] { curve.evaluate(0.5); }), tooLarge);
        EXPECT_EQ(failureOf([&] { curve.split(0.5); }), notFinite);
        EXPECT_EQ(failureOf([&] { curve.truncate(0.25, 0.5); }), notFinite);
        EXPECT_EQ(failureOf([&] { curve.getBoundingBox(); }), notFinite);
        EXPECT_EQ(failureOf([&] { curve.getFromTangent(); }), notFinite);
        EXPECT_EQ(failureOf([&] { curve.intersecting(); }), notFinite);
        EXPECT_EQ(failureOf([&] { curve.intersections(this->held(this->curve)); }), notFinite);
        EXPECT_EQ(points().size(), 4);
        EXPECT_EQ(pointIn(points()[3]), hump[3]);
    }
}

TYPED_TEST(CurveListTest, HugePointsGiveAResultOrOneFailure)
{
    const TypeParam curve = curveThrough<TypeParam>({{-1e308, 0}, {0, 1e308}, {1e308, 1e308}, {1e308, -1e308}});
    const auto fails = [](auto call) {
        const std::string failure = failureOf(call);
        return failure == "no exception" || failure == tooLarge || failure == "Failed to find a nearest point.";
    };
    EXPECT_TRUE(fails([&] { curve.evaluate(0.5); }));
    EXPECT_TRUE(fails([&] { curve.getBoundingBox(); }));
    EXPECT_TRUE(fails([&] { curve.intersections(); }));
    EXPECT_TRUE(fails([&] { curve.closestPoint(numbers({0, 0})); }));
    EXPECT_TRUE(fails([&] { TypeParam(curve).split(0.5); }));
    EXPECT_TRUE(fails([&] { TypeParam(curve).multiply(1e10); }));
}

} // namespace
