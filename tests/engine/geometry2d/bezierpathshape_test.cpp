#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <stdexcept>

namespace {

using curves::curve;
using curves::polyline;

TEST(BezierPathShape, DegenerateAndPolylinePaths)
{
    struct Row {
        const char* name;
        GR_BezierPath2d path;
        bool degenerate, polyline;
    };
    GR_BezierPath2d straightCubic;
    straightCubic.Append(curve({{0, 0}, {1, 1}, {2, 2}, {3, 3}}));
    const Row rows[] = {
        {"empty", {}, true, true},
        {"one point", polyline({{1, 1}}), true, true},
        {"a line of no length", polyline({{1, 1}, {1, 1}}), true, true},
        {"lines", polyline({{0, 0}, {1, 0}, {1, 1}}), false, true},
        {"a cubic curve on a line", straightCubic, false, true},
        {"a circle", curves::circle({0, 0}, 1), false, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.path.IsDegenerate(), row.degenerate) << row.name;
        EXPECT_EQ(row.path.IsPolyline(), row.polyline) << row.name;
    }
}

TEST(BezierPathShape, TheBoxHoldsTheCurvesAndTheInnerBoxThePointsOnThem)
{
    GR_BezierPath2d path;
    path.Append(curve({{0, 0}, {0, 4}, {4, 4}, {4, 0}}));
    path.Append({6, 1}, true);
    EXPECT_EQ(path.GetBox(), Math::Box2d({0, 0}, {6, 3}));
    EXPECT_EQ(path.GetInnerBox(), Math::Box2d({0, 0}, {6, 1}));
    EXPECT_TRUE(GR_BezierPath2d().GetBox().isEmpty());
    EXPECT_TRUE(GR_BezierPath2d().GetInnerBox().isEmpty());
    EXPECT_EQ(polyline({{2, 3}}).GetBox(), Math::Box2d({2, 3}, {2, 3}));

    curves::RandomCurves random(61);
    for (int round = 0; round < 300; ++round) {
        const GR_BezierPath2d made = random.path(6);
        Math::Box2d box = made.GetBox();
        box.Enlarge(1e-12, 1e-12);
        for (int i = 0; i <= 600; ++i)
            ASSERT_TRUE(box.contains(made.Evaluate(i / 100.0))) << round;
        EXPECT_TRUE(box.contains(made.GetInnerBox().min()) && box.contains(made.GetInnerBox().max()));
    }
}

TEST(BezierPathShape, TangentsPassOverCurvesOfNoLength)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {0, 0}, {3, 4}, {3, 9}, {3, 9}});
    EXPECT_NEAR((path.GetFromTangent() - Math::Vector2d{0.6, 0.8}).length(), 0, 1e-15);
    EXPECT_NEAR((path.GetToTangent() - Math::Vector2d{0, 1}).length(), 0, 1e-15);
    EXPECT_EQ(GR_BezierPath2d().GetFromTangent(), (Math::Vector2d{0, 0}));
    EXPECT_EQ(polyline({{1, 1}, {1, 1}}).GetToTangent(), (Math::Vector2d{0, 0}));
}

TEST(BezierPathShape, LengthAndAreaOfACircle)
{
    const GR_BezierPath2d circle = curves::circle({100, -50}, 10);
    EXPECT_NEAR(circle.GetLength(), 20 * std::numbers::pi, 0.02);
    EXPECT_NEAR(circle.GetArea(), -100 * std::numbers::pi, 0.1); // clockwise
    GR_BezierPath2d reverse = circle;
    reverse.Reverse();
    EXPECT_NEAR(reverse.GetArea(), -circle.GetArea(), 1e-10);
    EXPECT_NEAR(reverse.GetLength(), circle.GetLength(), 1e-10);
}

TEST(BezierPathShape, AStraightLineClosesTheArea)
{
    EXPECT_NEAR(polyline({{0, 0}, {4, 0}, {4, 4}}).GetArea(), 8, 1e-12);
    EXPECT_EQ(polyline({{0, 0}}).GetArea(), 0);
    EXPECT_EQ(GR_BezierPath2d().GetArea(), 0);
    EXPECT_EQ(polyline({{0, 0}, {1e300, 1e300}}).GetArea(), 0);
    EXPECT_THROW(polyline({{0, 0}, {1e300, 0}, {0, 1e300}}).GetArea(), std::domain_error);
}

TEST(BezierPathShape, AreasOfRandomPathsAreThoseOfDensePolygons)
{
    curves::RandomCurves random(62);
    for (int round = 0; round < 200; ++round) {
        const GR_BezierPath2d path = random.path(5);
        GR_BezierPath2d dense;
        constexpr int places = 1000;
        for (int i = 0; i <= 5 * places; ++i)
            dense.Append(path.Evaluate(i / double{places}), true);
        EXPECT_NEAR(path.GetArea(), dense.GetArea(), 0.3);
        EXPECT_NEAR(std::abs(path.GetArea()), dense.GetPolygonArea(), 0.3);
    }
}

TEST(BezierPathShape, MeasuresOfTheControlPolygon)
{
    GR_BezierPath2d path;
    path.Append(curve({{0, 0}, {0, 3}, {4, 3}, {4, 0}}));
    path.ClosePath();
    EXPECT_EQ(path.GetPolygonLength(), 14);
    const double parts[] = {0, 3, 7, 10, 14};
    for (unsigned int i = 0; i < 5; ++i)
        EXPECT_EQ(path.GetSubPolygonLength(i), parts[i]) << i;
    EXPECT_EQ(path.GetPolygonArea(), 12);
    EXPECT_TRUE(path.IsClockwisePolygon());
    path.Reverse();
    EXPECT_EQ(path.GetPolygonArea(), 12);
    EXPECT_FALSE(path.IsClockwisePolygon());
    EXPECT_EQ(GR_BezierPath2d().GetPolygonLength(), 0);
    EXPECT_EQ(GR_BezierPath2d().GetPolygonArea(), 0);
    EXPECT_FALSE(GR_BezierPath2d().IsClockwisePolygon());
    EXPECT_FALSE(polyline({{0, 0}, {1, 1}}).IsClockwisePolygon());
}

} // namespace
