#include "engine/drawings/jointgrid.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using brindle::engine::JointGrid;
using curves::polyline;

TEST(JointGrid, FindsTheNearestPlaceWithinReach)
{
    curves::RandomCurves random(1, 0.05);
    JointGrid grid(0.01);
    std::vector<Math::Point2d> places;
    for (int round = 0; round < 2000; ++round) {
        const Math::Point2d point = random.point();
        const auto away = [&point](const Math::Point2d& place) { return curves::distance(place, point); };
        const auto best = std::ranges::min_element(places, {}, away);
        const bool isNear = best != places.end() && away(*best) <= 0.01;
        EXPECT_EQ(grid.nearby(point), isNear ? std::optional(*best) : std::nullopt);
        if (random.below(3) == 0 && best != places.end()) {
            grid.remove(*best);
            places.erase(best);
        } else if (random.below(2) == 0) {
            grid.add(point);
            places.push_back(point);
        }
    }
}

TEST(JointGrid, APlaceStaysAsLongAsAStrokeEndsThere)
{
    JointGrid grid;
    grid.add({1, 1});
    grid.add({1, 1});
    grid.remove({1, 1});
    EXPECT_TRUE(grid.nearby({1, 1}));
    grid.remove({1, 1});
    grid.remove({1, 1});
    EXPECT_FALSE(grid.nearby({1, 1}));
    grid.add(polyline({{0, 0}, {5, 5}}));
    grid.add(polyline({{3, 3}})); // without a curve
    EXPECT_TRUE(grid.nearby({5, 5}));
    EXPECT_FALSE(grid.nearby({3, 3}));
    grid.remove(polyline({{0, 0}, {5, 5}}));
    EXPECT_FALSE(grid.nearby({0, 0}));
}

TEST(JointGrid, OfPlacesEquallyNearTheLeftmostThenTheLowestComes)
{
    JointGrid grid(1);
    for (const Math::Point2d& place : {Math::Point2d{0.5, 0}, {-0.5, 0}, {0, 0.5}})
        grid.add(place);
    EXPECT_EQ(grid.nearby({0, 0}), (Math::Point2d{-0.5, 0}));
    EXPECT_EQ(grid.nearby({0.5, 0.5}), (Math::Point2d{0, 0.5}));
}

TEST(JointGrid, EndsMoveToJointsAndHandlesStay)
{
    JointGrid grid(0.1);
    grid.add({0, 0});
    grid.add({10, 0});
    const GR_BezierPath2d snapped = grid.snapped([] {
        GR_BezierPath2d path;
        path.Append({0.05, 0.02}, true);
        path.Append({1, 1}, false);
        path.Append({9, 1}, false);
        path.Append({9.95, 0}, true);
        return path;
    }());
    EXPECT_EQ(snapped.GetFromPoint(), (Math::Point2d{0, 0}));
    EXPECT_EQ(snapped.GetToPoint(), (Math::Point2d{10, 0}));
    EXPECT_EQ(snapped.GetPoint(1), (Math::Point2d{1, 1}));
    const GR_BezierPath2d far = polyline({{0.2, 0}, {9.8, 0}});
    EXPECT_EQ(grid.snapped(far), far);
}

TEST(JointGrid, AnAlmostClosedStrokeClosesAndAVerySmallOneStays)
{
    const JointGrid grid(0.1);
    EXPECT_TRUE(grid.snapped(polyline({{0, 0}, {5, 0}, {5, 5}, {0.05, 0.05}})).IsClosed());
    EXPECT_FALSE(grid.snapped(polyline({{0, 0}, {5, 0}, {5, 5}, {0.2, 0.05}})).IsClosed());
    JointGrid near(0.1);
    near.add({0.01, 0.01});
    for (const GR_BezierPath2d& path :
         {polyline({{0, 0}, {0.05, 0}}), polyline({{0, 0}, {0.05, 0}, {0, 0.01}}), polyline({{0, 0}}), {}})
        EXPECT_EQ(near.snapped(path), path);
}

TEST(JointGrid, PlacesAtAnyDistanceWork)
{
    JointGrid grid(1e-4);
    const Math::Point2d places[] = {{1e308, -1e308}, {-1e308, 1e308}, {1e18, 1e18}, {1e-320, 0}, {-1e-4, 0}};
    for (const Math::Point2d& place : places)
        grid.add(place);
    for (const Math::Point2d& place : places)
        EXPECT_EQ(grid.nearby(place), place);
    EXPECT_FALSE(grid.nearby({9e307, -1e308}));
}

TEST(JointGrid, TheReachIsAFiniteNumberAboveZero)
{
    for (const double bad : {0.0, -1.0, std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_THROW(JointGrid{bad}, std::invalid_argument);
}

} // namespace
