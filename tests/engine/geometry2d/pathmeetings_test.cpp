#include "engine/geometry2d/pathmeetings.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace {

using curves::curve;
using curves::distance;
using curves::polyline;

TEST(PathMeetings, ClosedPathsWithoutCrossingsDontMeetThemselves)
{
    const GR_BezierPath2d none[] = {
        {},
        polyline({{1, 1}}),
        polyline({{1, 1}, {1, 1}, {1, 1}}),
        polyline({{0, 0}, {1, 0}, {1, 1}}),
        polyline({{0, 0}, {1, 0}, {1, 1}, {0, 0}}),
        polyline({{0, 0}, {1, 0}, {1, 0}, {1, 0}, {1, 1}, {0, 0}, {0, 0}}),
        polyline({{0, 0}, {1, 0}, {2, 0}}),
        polyline({{0, 0}, {2, 1}, {0, 0}}),
        curves::circle({7, 7}, 3),
    };
    for (const GR_BezierPath2d& path : none) {
        EXPECT_FALSE(path.IsIntersecting());
        EXPECT_TRUE(path.GetIntersections().empty());
    }
}

TEST(PathMeetings, ACrossingIsFoundOnceAtItsLowestParameter)
{
    const GR_BezierPath2d eight = polyline({{0, 0}, {4, 4}, {4, 0}, {0, 4}, {0, 0}});
    ASSERT_EQ(eight.GetIntersections().size(), 1u);
    EXPECT_LT(distance(eight.GetIntersections()[0], {2, 2}), 1e-12);
    EXPECT_NEAR(brindle::engine::pathSelfMeetings(eight)[0], 0.5, 1e-12);

    // A corner that touches another side is on two curves.
    const GR_BezierPath2d corner = polyline({{0, 0}, {10, 0}, {10, 5}, {5, 0}, {0, 5}});
    ASSERT_EQ(corner.GetIntersections().size(), 1u);
    EXPECT_LT(distance(corner.GetIntersections()[0], {5, 0}), 1e-12);

    // Three strands through one place.
    const GR_BezierPath2d three = polyline({{-2, 0}, {2, 0}, {2, 2}, {-2, -2}, {0, -2}, {0, 2}});
    ASSERT_EQ(three.GetIntersections().size(), 1u);
    EXPECT_LT(distance(three.GetIntersections()[0], {0, 0}), 1e-12);

    // The closing joint is passed once more.
    const GR_BezierPath2d joint = polyline({{0, 0}, {4, 0}, {4, 4}, {-4, -4}, {-4, 0}, {0, 0}});
    ASSERT_EQ(joint.GetIntersections().size(), 1u);
    EXPECT_LT(distance(joint.GetIntersections()[0], {0, 0}), 1e-12);
}

TEST(PathMeetings, ACurveThatLoopsAndOneThatComesBackAreFound)
{
    GR_BezierPath2d path;
    path.Append(curve({{0, 0}, {3, 2}, {-2, 2}, {1, 0}}));
    path.Append({1, -5}, true);
    path.Append({-5, -5}, true);
    path.Append({-5, 0.25}, true);
    path.Append({5, 0.25}, true);
    const auto places = path.GetIntersections();
    EXPECT_EQ(places.size(), 3u);
}

TEST(PathMeetings, StarsMeetThemselvesFiveTimes)
{
    const GR_BezierPath2d star = polyline({{0, 10}, {6, -8}, {-9.5, 3}, {9.5, 3}, {-6, -8}, {0, 10}});
    EXPECT_EQ(star.GetIntersections().size(), 5u);
}

TEST(PathMeetings, OverlappingNeighboursMeetWhereTheOverlapEnds)
{
    const GR_BezierPath2d back = polyline({{0, 0}, {4, 0}, {1, 0}});
    ASSERT_EQ(back.GetIntersections().size(), 1u);
    EXPECT_LT(distance(back.GetIntersections()[0], {1, 0}), 1e-12);
}

TEST(PathMeetings, TwoPathsMeetInTheOrderOfTheFirst)
{
    const GR_BezierPath2d line = polyline({{10, 0}, {-10, 0}});
    const GR_BezierPath2d circle = curves::circle({0, 0}, 5);
    const auto places = line.GetIntersections(circle);
    ASSERT_EQ(places.size(), 2u);
    EXPECT_LT(distance(places[0], {5, 0}), 1e-12);
    EXPECT_LT(distance(places[1], {-5, 0}), 1e-12);
    // The joints of the circle are met once each, the closing one too.
    EXPECT_EQ(circle.GetIntersections(line).size(), 2u);
    EXPECT_EQ(circle.GetIntersections(polyline({{0, -10}, {0, 10}})).size(), 2u);
    EXPECT_TRUE(line.IsIntersecting(circle));
    EXPECT_FALSE(line.IsIntersecting(curves::circle({0, 50}, 5)));
    EXPECT_FALSE(line.IsIntersecting({}));
    EXPECT_TRUE(line.IsIntersecting(polyline({{3, 0}})));
}

TEST(PathMeetings, PathsThatTouchAtAJointMeetThereOnce)
{
    const GR_BezierPath2d circle = curves::circle({0, 0}, 10);
    for (const Math::Point2d& way : {Math::Point2d{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
        SCOPED_TRACE(testing::Message() << way.x << ", " << way.y);
        const GR_BezierPath2d outside = curves::circle({way.x * 14, way.y * 14}, 4);
        const GR_BezierPath2d inside = curves::circle({way.x * 4, way.y * 4}, 6);
        for (const GR_BezierPath2d& other : {outside, inside}) {
            for (const auto& places : {circle.GetIntersections(other), other.GetIntersections(circle)}) {
                ASSERT_EQ(places.size(), 1u);
                EXPECT_LT(distance(places[0], {way.x * 10, way.y * 10}), 1e-6);
            }
        }
    }
}

TEST(PathMeetings, PathsThatShareAShortStretchOverAJointMeetAtItsEnds)
{
    const GR_BezierPath2d line = polyline({{0, 0}, {100, 0}, {200, 0}});
    const GR_BezierPath2d bridge = polyline({{50, 50}, {99, 0}, {101, 0}, {150, 50}});
    const auto places = line.GetIntersections(bridge);
    ASSERT_EQ(places.size(), 3u) << "both ends, and the joint between";
    EXPECT_LT(distance(places.front(), {99, 0}), 1e-9);
    EXPECT_LT(distance(places.back(), {101, 0}), 1e-9);
}

TEST(PathMeetings, APathThatTouchesItselfAtItsJointsMeetsThereOnce)
{
    // Round a circle, on to another one that touches it, and round that.
    GR_BezierPath2d path = curves::circle({0, 0}, 10);
    path.Append({0, 30}, true);
    path.Append({20, 30}, true);
    path.Append(curves::circle({20, 0}, 10));
    const auto places = path.GetIntersections();
    ASSERT_EQ(places.size(), 3u);
    EXPECT_LT(distance(places[0], {0, 10}), 1e-6) << "where the first round ends";
    EXPECT_LT(distance(places[1], {10, 0}), 1e-6);
    EXPECT_LT(distance(places[2], {20, 10}), 1e-6);
}

TEST(PathMeetings, NeighboursOfAHundredThousandAreLookedAtQuickly)
{
    GR_BezierPath2d spiral;
    for (int i = 0; i <= 100000; ++i) {
        const double angle = i / 1000.0;
        const Math::Point2d place{(10 + angle) * std::cos(angle), (10 + angle) * std::sin(angle)};
        spiral.Append(place, true);
        if (i < 100000)
            spiral.Append(place + Math::Vector2d{-std::sin(angle), std::cos(angle)} * 0.005, false);
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(spiral.IsIntersecting());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(PathMeetings, RandomPathsMeetWhereTheirCurvesDo)
{
    curves::RandomCurves random(81);
    const auto distanceTo = [](const GR_BezierPath2d& path, const Math::Point2d& point) {
        double radiusSquared = 1e300;
        double parameter = 0;
        return path.GetClosestPoint(point, radiusSquared, parameter) ? std::sqrt(radiusSquared) : 1e300;
    };
    for (int round = 0; round < 200; ++round) {
        const GR_BezierPath2d one = random.path(4);
        const GR_BezierPath2d other = random.path(4);
        std::size_t expected = 0;
        for (unsigned int i = 0; i < 4; ++i)
            for (unsigned int j = 0; j < 4; ++j)
                expected += one.GetBezier(i).GetIntersections(other.GetBezier(j)).size();
        const auto places = one.GetIntersections(other);
        EXPECT_EQ(places.size(), expected);
        for (const auto& place : places) {
            EXPECT_LT(distanceTo(one, place), 1e-9);
            EXPECT_LT(distanceTo(other, place), 5e-7);
        }
    }
}

TEST(PathMeetings, ThousandsOfCurvesTakeNoLongerThanTheirNeighbourhoods)
{
    GR_BezierPath2d wave;
    GR_BezierPath2d line;
    for (int i = 0; i < 5000; ++i) {
        const double x = i;
        wave.Append(curve({{x, 0}, {x + 0.3, 2}, {x + 0.7, -2}, {x + 1, 0}}));
        line.Append(curve({{x, 0.1}, {x + 1, 0.1}}));
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(wave.IsIntersecting());
    EXPECT_EQ(wave.GetIntersections(line).size(), 10000u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
