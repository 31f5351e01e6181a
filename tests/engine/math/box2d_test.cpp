#include "core/host/math_box2d.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using Math::Box2d;
using Math::Point2d;

TEST(Box2d, StartsEmptyAtTheOriginWithoutASize)
{
    const Box2d box;
    EXPECT_TRUE(box.isEmpty());
    EXPECT_EQ(box.min(), Point2d());
    EXPECT_EQ(box.max(), Point2d());
    EXPECT_EQ(box.width(), 0);
    EXPECT_EQ(box.height(), 0);
    EXPECT_FALSE(box.contains(Point2d()));
}

TEST(Box2d, TheFirstPointIsTheBox)
{
    Box2d box;
    box.AddClosed(Point2d{3, -4});
    EXPECT_FALSE(box.isEmpty());
    EXPECT_EQ(box.min(), (Point2d{3, -4}));
    EXPECT_EQ(box.max(), (Point2d{3, -4}));
    EXPECT_TRUE(box.contains({3, -4}));
}

TEST(Box2d, HoldsWhatWasPutIntoItAndNoMore)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> number(-10, 10);
    for (int round = 0; round < 500; ++round) {
        Box2d box;
        double left = 99, right = -99, bottom = 99, top = -99;
        for (int count = 0; count < 10; ++count) {
            const Point2d point{number(random), number(random)};
            box.AddClosed(point);
            left = std::min(left, point.x);
            right = std::max(right, point.x);
            bottom = std::min(bottom, point.y);
            top = std::max(top, point.y);
            EXPECT_TRUE(box.contains(point));
        }
        EXPECT_EQ(box, Box2d({left, bottom}, {right, top}));
        EXPECT_EQ(box, Box2d({right, bottom}, {left, top}));
    }
}

TEST(Box2d, HoldsBoxes)
{
    Box2d box({0, 0}, {1, 1});
    box.AddClosed(Box2d());
    EXPECT_EQ(box, Box2d({0, 0}, {1, 1}));
    box.AddClosed(Box2d({-2, 3}, {-1, 4}));
    EXPECT_EQ(box, Box2d({-2, 0}, {1, 4}));
}

TEST(Box2d, MarginsMoveTheSides)
{
    struct Row {
        const char* name;
        double x, y;
        Box2d expected;
    };
    const Row rows[] = {{"outwards", 1, 2, Box2d({-1, -2}, {5, 4})},
                        {"inwards", -1, -0.5, Box2d({1, 0.5}, {3, 1.5})},
                        {"to where they meet", -2, -1, Box2d({2, 1}, {2, 1})},
                        {"no further", -50, -1e300, Box2d({2, 1}, {2, 1})}};
    for (const Row& row : rows)
        EXPECT_EQ(Box2d({0, 0}, {4, 2}).Enlarge(row.x, row.y), row.expected) << row.name;
    EXPECT_TRUE(Box2d().Enlarge(5, 5).isEmpty());
    EXPECT_EQ(Box2d().Enlarge(5, 5).width(), 0);
}

TEST(Box2d, LeavesOutWhatIsNoNumberAndHoldsTheInfinite)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    Box2d box;
    box.AddClosed(Point2d{nan, 1}).AddClosed(Point2d{1, nan});
    EXPECT_TRUE(box.isEmpty());
    box.AddClosed(Point2d{1, 2}).AddClosed(Point2d{infinity, nan}).AddClosed(Point2d{-infinity, 5});
    EXPECT_EQ(box, Box2d({-infinity, 2}, {1, 5}));
}

} // namespace
