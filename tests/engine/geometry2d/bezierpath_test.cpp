#include "core/host/gr_bezierpath.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace {

using curves::curve;
using curves::polyline;

/// A cubic curve, a line and a parabola.
GR_BezierPath2d mixed()
{
    GR_BezierPath2d path;
    path.Append(curve({{0, 0}, {0, 4}, {4, 4}, {4, 0}}));
    path.Append({8, 0}, true);
    path.Append({10, 2}, false);
    path.Append({12, 0}, true);
    return path;
}

TEST(BezierPath, ANewPathIsEmpty)
{
    const GR_BezierPath2d path;
    EXPECT_TRUE(path.IsEmpty());
    EXPECT_EQ(path.GetNumPoints(), 0u);
    EXPECT_EQ(path.GetNumBezier(), 0u);
    EXPECT_EQ(path.GetNumPointsOnCurve(), 0u);
    EXPECT_FALSE(path.IsClosed());
}

TEST(BezierPath, PointsOffTheCurveMakeTheDegree)
{
    const GR_BezierPath2d path = mixed();
    EXPECT_EQ(path.GetNumPoints(), 7u);
    EXPECT_EQ(path.GetNumPointsOnCurve(), 4u);
    ASSERT_EQ(path.GetNumBezier(), 3u);
    const unsigned int degrees[] = {3, 1, 2};
    for (unsigned int i = 0; i < 3; ++i)
        EXPECT_EQ(path.GetDegree(i), degrees[i]);
    const bool onCurve[] = {true, false, false, true, true, false, true};
    for (unsigned int i = 0; i < 7; ++i)
        EXPECT_EQ(path.IsOnCurve(i), onCurve[i]) << i;
    EXPECT_EQ(path.GetBezier(0), curve({{0, 0}, {0, 4}, {4, 4}, {4, 0}}));
    EXPECT_EQ(path.GetBezier(1), curve({{4, 0}, {8, 0}}));
    EXPECT_EQ(path.GetBezier(2), curve({{8, 0}, {10, 2}, {12, 0}}));
}

TEST(BezierPath, AThirdPointOffTheCurveAndAFirstOneAreRefused)
{
    GR_BezierPath2d path;
    EXPECT_THROW(path.Append({1, 1}, false), std::invalid_argument);
    EXPECT_TRUE(path.IsEmpty());
    path.Append({0, 0}, true);
    path.Append({1, 0}, false);
    path.Append({2, 0}, false);
    EXPECT_THROW(path.Append({3, 0}, false), std::invalid_argument);
    EXPECT_EQ(path.GetNumPoints(), 3u);
    EXPECT_EQ(path.GetNumBezier(), 0u);
}

TEST(BezierPath, ACurveThatGoesOnIsJoinedAndAnotherIsLedToByALine)
{
    GR_BezierPath2d path;
    path.Append(curve({{0, 0}, {1, 1}, {2, 0}}));
    path.Append(curve({{2 + 1e-15, 0}, {3, 1}, {4, 0}}));
    EXPECT_EQ(path.GetNumBezier(), 2u);
    EXPECT_EQ(path.GetPoint(2), (Math::Point2d{2, 0}));
    path.Append(curve({{5, 5}, {6, 6}}));
    ASSERT_EQ(path.GetNumBezier(), 4u);
    EXPECT_EQ(path.GetBezier(2), curve({{4, 0}, {5, 5}}));
    EXPECT_EQ(path.GetBezier(3), curve({{5, 5}, {6, 6}}));
}

TEST(BezierPath, ACurveOfDegree0IsAPoint)
{
    GR_BezierPath2d path;
    path.Append(curve({{1, 1}}));
    EXPECT_EQ(path.GetNumPoints(), 1u);
    path.Append(curve({{1, 1}}));
    EXPECT_EQ(path.GetNumPoints(), 1u);
    path.Append(curve({{2, 1}}));
    EXPECT_EQ(path, polyline({{1, 1}, {2, 1}}));
}

TEST(BezierPath, HandlesThatWaitAreCompletedByTheCurveBehind)
{
    GR_BezierPath2d path;
    path.Append({0, 0}, true);
    path.Append({1, 1}, false);
    path.Append(curve({{2, 0}, {3, 0}}));
    ASSERT_EQ(path.GetNumBezier(), 2u);
    EXPECT_EQ(path.GetBezier(0), curve({{0, 0}, {1, 1}, {2, 0}}));
}

TEST(BezierPath, PathsAreAppendedAndPrependedWhole)
{
    GR_BezierPath2d path = polyline({{12, 0}, {20, 0}});
    path.AppendFront(mixed());
    GR_BezierPath2d other = mixed();
    other.Append(polyline({{12, 0}, {20, 0}}));
    EXPECT_EQ(path, other);
    EXPECT_EQ(path.GetNumBezier(), 4u);

    path.AppendFront(Math::Point2d{-5, 0});
    EXPECT_EQ(path.GetBezier(0), curve({{-5, 0}, {0, 0}}));
    path.AppendFront(curve({{-9, 0}, {-7, 3}, {-5, 0}}));
    EXPECT_EQ(path.GetBezier(0), curve({{-9, 0}, {-7, 3}, {-5, 0}}));
    EXPECT_EQ(path.GetNumBezier(), 6u);
    path.AppendFront(curve({{-20, 0}, {-10, 0}}));
    EXPECT_EQ(path.GetBezier(1), curve({{-10, 0}, {-9, 0}}));
}

TEST(BezierPath, APathAppendedToItselfIsThereTwice)
{
    GR_BezierPath2d path = polyline({{0, 0}, {1, 0}, {0, 0}});
    path.Append(path);
    EXPECT_EQ(path, polyline({{0, 0}, {1, 0}, {0, 0}, {1, 0}, {0, 0}}));
    path.AppendFront(path);
    EXPECT_EQ(path.GetNumBezier(), 8u);
}

TEST(BezierPath, ClosingLeadsBackToTheFirstPoint)
{
    GR_BezierPath2d path = polyline({{0, 0}, {4, 0}, {4, 4}});
    EXPECT_FALSE(path.IsClosed());
    path.ClosePath();
    EXPECT_TRUE(path.IsClosed());
    EXPECT_EQ(path, polyline({{0, 0}, {4, 0}, {4, 4}, {0, 0}}));
    path.ClosePath();
    EXPECT_EQ(path.GetNumPoints(), 4u);
    path.SetPoint(3, {1, 1});
    EXPECT_FALSE(path.IsClosed());
}

TEST(BezierPath, ClosingCompletesHandlesThatWaitAndLeavesASinglePoint)
{
    GR_BezierPath2d path;
    path.ClosePath();
    EXPECT_TRUE(path.IsEmpty());
    path.Append({0, 0}, true);
    path.ClosePath();
    EXPECT_EQ(path.GetNumPoints(), 1u);
    path.Append({1, 2}, false);
    path.Append({2, 2}, false);
    EXPECT_FALSE(path.IsClosed());
    path.ClosePath();
    EXPECT_TRUE(path.IsClosed());
    EXPECT_EQ(path.GetBezier(0), curve({{0, 0}, {1, 2}, {2, 2}, {0, 0}}));
}

TEST(BezierPath, ACircleOfArcsIsClosedWithFourCurves)
{
    const GR_BezierPath2d path = curves::circle({0, 0}, 1);
    EXPECT_TRUE(path.IsClosed());
    EXPECT_EQ(path.GetNumBezier(), 4u);
    EXPECT_EQ(path.GetFromPoint(), (Math::Point2d{0, 1}));
}

TEST(BezierPath, ErasingAHandleLowersTheDegree)
{
    GR_BezierPath2d path = mixed();
    path.Erase(1, 1);
    EXPECT_EQ(path.GetBezier(0), curve({{0, 0}, {4, 4}, {4, 0}}));
    EXPECT_EQ(path.GetNumBezier(), 3u);
}

TEST(BezierPath, ErasingAPointOnTheCurveMergesItsCurvesWithTheOuterHandles)
{
    GR_BezierPath2d path;
    path.Append(curve({{0, 0}, {0, 1}, {1, 2}, {2, 2}}));
    path.Append(curve({{2, 2}, {3, 2}, {4, 1}, {4, 0}}));
    path.Erase(3, 1);
    EXPECT_EQ(path.GetNumBezier(), 1u);
    EXPECT_EQ(path.GetBezier(0), curve({{0, 0}, {0, 1}, {4, 1}, {4, 0}}));
}

TEST(BezierPath, ErasingAnEndTakesItsHandlesAlong)
{
    GR_BezierPath2d first = mixed();
    first.Erase(0, 1);
    EXPECT_EQ(first.GetFromPoint(), (Math::Point2d{4, 0}));
    EXPECT_EQ(first.GetNumBezier(), 2u);
    GR_BezierPath2d last = mixed();
    last.Erase(6, 1);
    EXPECT_EQ(last.GetNumPoints(), 5u);
    EXPECT_EQ(last.GetToPoint(), (Math::Point2d{8, 0}));
    GR_BezierPath2d all = mixed();
    all.Erase(0, 7);
    EXPECT_TRUE(all.IsEmpty());
}

TEST(BezierPath, ErasingMoreThanThereIsIsRefusedAndChangesNothing)
{
    GR_BezierPath2d path = mixed();
    constexpr unsigned int most = std::numeric_limits<unsigned int>::max();
    EXPECT_THROW(path.Erase(7, 1), std::out_of_range);
    EXPECT_THROW(path.Erase(0, 8), std::out_of_range);
    EXPECT_THROW(path.Erase(most, most), std::out_of_range);
    EXPECT_THROW(path.Erase(1, most), std::out_of_range);
    EXPECT_NO_THROW(path.Erase(7, 0));
    EXPECT_EQ(path, mixed());
}

TEST(BezierPath, AnInsertedPointKeepsTheShape)
{
    curves::RandomCurves random(51);
    for (int round = 0; round < 200; ++round) {
        const GR_BezierPath2d path = random.path(5);
        GR_BezierPath2d more = path;
        const double parameter = random.number(0, 5);
        const auto index = static_cast<unsigned int>(parameter);
        const double t = parameter - index;
        more.insertPoint(parameter);
        ASSERT_EQ(more.GetNumBezier(), 6u);
        ASSERT_EQ(more.GetNumPoints(), path.GetNumPoints() + path.GetDegree(index));
        EXPECT_LT(curves::distance(more.Evaluate(index + 1), path.Evaluate(parameter)), 1e-12);
        for (int sample = 0; sample < 10; ++sample) {
            const double u = random.number(0, 1);
            EXPECT_LT(curves::distance(more.Evaluate(index + u), path.Evaluate(index + t * u)), 1e-10);
            EXPECT_LT(curves::distance(more.Evaluate(index + 1 + u), path.Evaluate(index + t + (1 - t) * u)), 1e-10);
        }
        for (unsigned int i = index + 1; i < 5; ++i)
            EXPECT_EQ(more.GetBezier(i + 1), path.GetBezier(i));
    }
}

TEST(BezierPath, WhereAPointStandsNoneIsInserted)
{
    GR_BezierPath2d path = mixed();
    for (const double parameter : {0.0, 1.0, 2.0, 3.0, -1.0, 99.0})
        path.insertPoint(parameter);
    EXPECT_EQ(path, mixed());
    EXPECT_THROW(path.insertPoint(std::numeric_limits<double>::quiet_NaN()), std::invalid_argument);
    EXPECT_EQ(path, mixed());
}

TEST(BezierPath, PaddingRepeatsTheLastPoint)
{
    GR_BezierPath2d path = polyline({{0, 0}, {1, 0}});
    path.trimNumPointsToSize(4);
    EXPECT_EQ(path, polyline({{0, 0}, {1, 0}, {1, 0}, {1, 0}}));
    path.trimNumPointsToSize(2);
    EXPECT_EQ(path.GetNumPoints(), 4u);
    EXPECT_THROW(path.trimNumPointsToSize(std::numeric_limits<unsigned int>::max()), std::length_error);
    EXPECT_EQ(path.GetNumPoints(), 4u);
    GR_BezierPath2d empty;
    EXPECT_THROW(empty.trimNumPointsToSize(3), std::out_of_range);
    GR_BezierPath2d circle = curves::circle({0, 0}, 1);
    circle.trimNumPointsToSize(20);
    EXPECT_EQ(circle.GetNumPoints(), 20u);
    EXPECT_TRUE(circle.IsClosed());
}

TEST(BezierPath, ACurveIsReplacedAndItsNeighboursFollow)
{
    GR_BezierPath2d path = mixed();
    path.SetBezier(1, curve({{5, 5}, {6, 9}, {7, 9}, {8, 5}}));
    EXPECT_EQ(path.GetNumPoints(), 9u);
    EXPECT_EQ(path.GetBezier(0), curve({{0, 0}, {0, 4}, {4, 4}, {5, 5}}));
    EXPECT_EQ(path.GetBezier(1), curve({{5, 5}, {6, 9}, {7, 9}, {8, 5}}));
    EXPECT_EQ(path.GetBezier(2), curve({{8, 5}, {10, 2}, {12, 0}}));
    path.SetBezier(1, curve({{4, 0}, {8, 0}}));
    EXPECT_EQ(path, mixed());
    EXPECT_THROW(path.SetBezier(1, curve({{4, 0}})), std::invalid_argument);
    EXPECT_THROW(path.SetBezier(3, curve({{4, 0}, {5, 0}})), std::out_of_range);
    EXPECT_EQ(path, mixed());
}

TEST(BezierPath, AClosedPathStaysClosedWhenACurveAtTheJoinIsReplaced)
{
    GR_BezierPath2d path = polyline({{0, 0}, {4, 0}, {4, 4}, {0, 0}});
    path.SetBezier(0, curve({{1, 1}, {4, 0}}));
    EXPECT_EQ(path, polyline({{1, 1}, {4, 0}, {4, 4}, {1, 1}}));
    path.SetBezier(2, curve({{4, 4}, {2, 2}}));
    EXPECT_EQ(path, polyline({{2, 2}, {4, 0}, {4, 4}, {2, 2}}));
}

TEST(BezierPath, IndicesThatDontExistAreRefused)
{
    GR_BezierPath2d path = mixed();
    EXPECT_THROW(path.GetPoint(7), std::out_of_range);
    EXPECT_THROW(path.SetPoint(7, {}), std::out_of_range);
    EXPECT_THROW(path.IsOnCurve(7), std::out_of_range);
    EXPECT_THROW(path.GetDegree(3), std::out_of_range);
    EXPECT_THROW(path.GetBezier(3), std::out_of_range);
    EXPECT_THROW(path.GetSubPolygonLength(7), std::out_of_range);
    const GR_BezierPath2d empty;
    EXPECT_THROW(empty.GetFromPoint(), std::out_of_range);
    EXPECT_THROW(empty.GetToPoint(), std::out_of_range);
    EXPECT_THROW(GR_BezierPath2d().SetToPoint({}), std::out_of_range);
    EXPECT_THROW(empty.GetBezier(0), std::out_of_range);
    EXPECT_THROW(empty.GetSubPolygonLength(0), std::out_of_range);
    EXPECT_THROW(empty.Evaluate(0), std::out_of_range);
    EXPECT_THROW(empty.Split(0), std::out_of_range);
}

TEST(BezierPath, ManyCurvesAreAppendedAndReplacedInNoTime)
{
    GR_BezierPath2d path;
    for (int i = 0; i < 100000; ++i)
        path.Append(curve({{i + 0.0, 0}, {i + 0.3, 1}, {i + 0.6, -1}, {i + 1.0, 0}}));
    EXPECT_EQ(path.GetNumBezier(), 100000u);
    EXPECT_EQ(path.GetNumPoints(), 300001u);
    const GR_BezierPath2d same = path;
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i)
        path.SetBezier(i, path.GetBezier(i));
    EXPECT_EQ(path, same);
}

} // namespace
