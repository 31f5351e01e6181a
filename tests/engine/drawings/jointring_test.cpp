#include "engine/drawings/jointring.h"

#include "tests/engine/drawings/randomdrawings.h"
#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

using curves::polyline;
using drawings::PlanarMap;
using drawings::Strokes;

/// The ids of the strokes that leave a joint, anticlockwise, from the least one on.
std::vector<unsigned int> ringAt(const Strokes& strokes, const Math::Point2d& place)
{
    const PlanarMap map = strokes.map();
    for (int joint = 0; joint < map.jointCount(); ++joint) {
        if (map.position(joint) != place)
            continue;
        std::vector<unsigned int> ids;
        for (const int edge : map.ring(joint))
            ids.push_back(map.idOf(PlanarMap::strokeOf(edge)));
        return ids;
    }
    return {};
}

GR_BezierPath2d cubic(std::initializer_list<Math::Point2d> points)
{
    GR_BezierPath2d path;
    path.Append(curves::curve(points));
    return path;
}

Math::Point2d turned(const Math::Point2d& point, double angle)
{
    return {point.x * std::cos(angle) - point.y * std::sin(angle),
            point.x * std::sin(angle) + point.y * std::cos(angle)};
}

/// y = bend x^2 + twist x^3 as a cubic curve from the origin, or towards it, turned about the origin.
GR_BezierPath2d parabola(double length, double bend, double twist, double angle, bool arrives)
{
    const double third = length / 3;
    std::array<Math::Point2d, 4> points{{{0, 0},
                                         {third, 0},
                                         {2 * third, bend * length * third},
                                         {length, bend * length * length + twist * length * length * length}}};
    GR_BezierPath2d path;
    for (std::size_t i = 0; i < 4; ++i)
        path.Append(turned(points[i], angle), i % 3 == 0);
    if (arrives)
        path.Reverse();
    return path;
}

TEST(JointRing, DirectionsAreComparedExactly)
{
    // Seventeen digits apart: the products of the coordinates round to the same number.
    const double a = 94906267; // above the root of 2^53
    Strokes strokes;
    strokes.add(polyline({{0, 0}, {-1, 0}}));
    strokes.add(polyline({{0, 0}, {a, a - 1}}));
    strokes.add(polyline({{0, 0}, {a + 1, a}}));
    strokes.add(polyline({{0, 0}, {0, -1}}));
    // They are nearer to each other than strokes that touch, so where they leave the circle decides: as exactly.
    EXPECT_EQ(ringAt(strokes, {0, 0}), (std::vector<unsigned int>{1, 4, 2, 3}));
}

TEST(JointRing, DirectionsOfARandomStarAreInTheOrderOfTheirAngles)
{
    curves::RandomCurves random(1);
    for (int round = 0; round < 300; ++round) {
        const unsigned int count = 3 + random.below(12);
        Strokes strokes;
        std::vector<std::pair<double, unsigned int>> angles;
        for (unsigned int i = 0; i < count; ++i) {
            const double angle = random.below(3) == 0
                                     ? std::numbers::pi / 2 * random.below(4) + 1e-8 * random.below(1000)
                                     : random.number(-3.14, 3.14);
            const auto isNear = [angle](const auto& other) {
                return std::abs(std::remainder(other.first - angle, 2 * std::numbers::pi)) < 1e-9;
            };
            if (std::ranges::any_of(angles, isNear))
                continue;
            const double length = std::exp(random.number(-10, 10));
            const unsigned int id = strokes.add(polyline({{0, 0}, turned({length, 0}, angle)}));
            if (random.below(2) == 0)
                strokes.path(id - 1).Reverse();
            angles.emplace_back(std::remainder(angle, 2 * std::numbers::pi), id);
        }
        std::ranges::sort(angles);
        std::vector<unsigned int> expected;
        for (const auto& [angle, id] : angles)
            expected.push_back(id);
        std::ranges::rotate(expected, std::ranges::find(expected, 1u));
        ASSERT_EQ(ringAt(strokes, {0, 0}), expected) << "round " << round;
    }
}

TEST(JointRing, StrokesThatTouchAreInTheOrderInWhichTheyPart)
{
    curves::RandomCurves random(2);
    for (int round = 0; round < 300; ++round) {
        const double angle = round < 8 ? std::numbers::pi / 4 * round : random.number(-3.14, 3.14);
        const bool byTwist = random.below(2) == 0; // or by curvature
        const unsigned int count = 3 + random.below(8);
        std::vector<double> bends;
        for (unsigned int i = 0; i < count; ++i)
            bends.push_back((static_cast<double>(i) - count / 2.0 + random.number(-0.2, 0.2)) / count);
        std::vector<unsigned int> order(count);
        std::iota(order.begin(), order.end(), 0u);
        for (unsigned int i = count; i > 1; --i)
            std::swap(order[i - 1], order[random.below(i)]);
        Strokes strokes;
        std::vector<unsigned int> expected(count);
        for (const unsigned int i : order) {
            const double twist = byTwist ? bends[i] : random.number(-0.01, 0.01);
            expected[i] = strokes.add(
                parabola(random.number(1, 3), byTwist ? 0.2 : bends[i], twist, angle, random.below(2) == 0));
        }
        expected.push_back(strokes.add(polyline({{0, 0}, turned({-1, 0}, angle)})));
        std::ranges::rotate(expected, std::ranges::find(expected, 1u));
        ASSERT_EQ(ringAt(strokes, {0, 0}), expected) << "round " << round;
    }
}

TEST(JointRing, AHandleWithoutLengthBendsMoreThanAnyOther)
{
    Strokes strokes;
    strokes.add(polyline({{0, 0}, {-1, 0}}));
    strokes.add(cubic({{0, 0}, {1, 0}, {2, 5}, {3, 9}}));  // a large curvature
    strokes.add(cubic({{0, 0}, {0, 0}, {2, 0}, {3, 1}}));  // an infinite one to the left
    strokes.add(cubic({{0, 0}, {0, 0}, {2, 0}, {3, -1}})); // and to the right
    strokes.add(cubic({{0, 0}, {0, 0}, {2, 0}, {3, 0}}));  // straight
    EXPECT_EQ(ringAt(strokes, {0, 0}), (std::vector<unsigned int>{1, 4, 5, 2, 3}));
}

TEST(JointRing, ATeardropEnclosesItsArea)
{
    // Both ends leave the joint in one direction.
    for (const bool reversed : {false, true}) {
        Strokes strokes;
        strokes.add(cubic({{0, 0}, {8, 0}, {8, 4}, {2, 4}}));
        GR_BezierPath2d drop = cubic({{0, 0}, {3, 0}, {3, 2}, {2, 2}});
        drop.Append(curves::curve({{2, 2}, {1, 2}, {1, 0}, {0, 0}}));
        strokes.add(drop);
        strokes.add(polyline({{0, 0}, {0, -1}}));
        if (reversed)
            strokes.path(1).Reverse();
        const PlanarMap map = strokes.map();
        const int inner = map.contourOf(PlanarMap::halfEdge(1, reversed ? PlanarMap::Right : PlanarMap::Left));
        EXPECT_EQ(map.strokes(inner), std::vector<int>{1});
        EXPECT_GT(map.area(inner), 1);
        EXPECT_EQ(map.contourCount(), 2);
    }
}

TEST(JointRing, CoincidentStrokesMakeFlatContoursBetweenThem)
{
    curves::RandomCurves random(3);
    for (int round = 0; round < 100; ++round) {
        const Math::Point2d from = random.point();
        const Math::Point2d to = random.below(5) == 0 ? from : random.point();
        GR_BezierPath2d path;
        path.Append(from, true);
        path.Append(random.point(), false);
        path.Append(random.point(), false);
        path.Append(to, true);
        Strokes strokes;
        const unsigned int count = 3 + random.below(4);
        for (unsigned int i = 0; i < count; ++i) {
            strokes.add(path);
            if (random.below(2) == 0)
                path.Reverse();
        }
        const PlanarMap map = strokes.map();
        const int joints = from == to ? 1 : 2;
        EXPECT_EQ(map.jointCount(), joints);
        EXPECT_EQ(joints - static_cast<int>(count) + map.contourCount(), 2) << "round " << round;
        int flat = 0;
        for (int contour = 0; contour < map.contourCount(); ++contour)
            flat += map.isDegenerate(contour);
        EXPECT_EQ(flat, from == to ? static_cast<int>(count) - 1 : static_cast<int>(count)) << "round " << round;
    }
}

} // namespace
