#include "engine/drawings/tip.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using brindle::engine::LineEnd;
using brindle::engine::tipOutline;

/// A line to the right that ends at (10, 5).
LineEnd rightEnd(double left, double right)
{
    return {.place = {10, 5}, .outward = {1, 0}, .toLeft = {0, 1}, .widths = {left, right}};
}

std::vector<Math::Point2d> pointsOf(const GR_BezierPath2d& path)
{
    std::vector<Math::Point2d> points;
    for (unsigned int index = 0; index < path.GetNumPoints(); ++index)
        points.push_back(path.GetPoint(index));
    return points;
}

TEST(Tip, AFlatOneGoesStraightFromEdgeToEdge)
{
    EXPECT_EQ(pointsOf(tipOutline(rightEnd(2, 3), kFlatTip)), (std::vector<Math::Point2d>{{10, 7}, {10, 2}}));
}

TEST(Tip, AnyOtherTypeIsFlat)
{
    EXPECT_EQ(tipOutline(rightEnd(2, 3), static_cast<GR_TipType>(7)), tipOutline(rightEnd(2, 3), kFlatTip));
}

TEST(Tip, ARoundOneIsTheHalfCircleOfItsWidth)
{
    const GR_BezierPath2d tip = tipOutline(rightEnd(4, 4), kRoundTip);
    ASSERT_EQ(tip.GetNumBezier(), 2u);
    for (int step = 0; step <= 40; ++step) {
        const Math::Point2d point = tip.Evaluate(step / 20.);
        EXPECT_NEAR(std::hypot(point.x - 10, point.y - 5), 4, 4 * 0.0003);
        EXPECT_GE(point.x, 10);
    }
}

TEST(Tip, ARoundOneLeavesTheEdgesWithTheirSlopes)
{
    LineEnd end = rightEnd(4, 4);
    end.slopeLeft = -0.5;
    end.slopeRight = 0.25;
    const GR_BezierPath2d tip = tipOutline(end, kRoundTip);
    const Math::Vector2d left = tip.GetFromTangent();
    EXPECT_NEAR(left.y / left.x, -0.5, 1e-12);
    const Math::Vector2d right = tip.GetToTangent();
    EXPECT_NEAR(right.y / right.x, -0.25, 1e-12); // The right edge widens downwards.
    EXPECT_NEAR(tip.Evaluate(1).x, 14, 1e-12);
}

TEST(Tip, ABevelCutsTheCornersOff)
{
    EXPECT_EQ(pointsOf(tipOutline(rightEnd(4, 4), kBevelTip)),
              (std::vector<Math::Point2d>{{10, 9}, {12, 9}, {14, 7}, {14, 3}, {12, 1}, {10, 1}}));
    LineEnd pointed = rightEnd(4, 4);
    pointed.slopeLeft = pointed.slopeRight = -3;
    EXPECT_EQ(tipOutline(pointed, kBevelTip).GetPoint(1), (Math::Point2d{12, 5}));
}

TEST(Tip, ACurveIsTakenInHalfWidths)
{
    GR_Bezier2d curve(2, Math::Constants::Closed, Math::Constants::Closed);
    curve.SetPoint(0, {0, 1});
    curve.SetPoint(1, {2, 0});
    curve.SetPoint(2, {0, -1});
    EXPECT_EQ(pointsOf(tipOutline(rightEnd(4, 2), curve)),
              (std::vector<Math::Point2d>{{10, 9}, {10, 9}, {16, 5}, {10, 3}, {10, 3}}));
}

TEST(Tip, ALineWithoutWidthHasNone)
{
    EXPECT_TRUE(tipOutline(rightEnd(0, 0), kRoundTip).IsEmpty());
    EXPECT_TRUE(tipOutline(rightEnd(0, 0), GR_Bezier2d(3, Math::Constants::Closed, Math::Constants::Closed)).IsEmpty());
}

} // namespace
