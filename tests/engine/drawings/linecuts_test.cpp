#include "engine/drawings/linecuts.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using brindle::engine::lineCuts;
using brindle::engine::LineForm;
using curves::polyline;

LineForm lineWithTips(const GR_BezierPath2d& path, double halfWidth, GR_TipType tip)
{
    return {&path, {}, halfWidth, {tip, tip}};
}

void expectDistances(const GR_LineCuts& line, const std::vector<double>& expected)
{
    ASSERT_EQ(line.cuts.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(line.cuts[i].distance, expected[i], 1e-9);
}

} // namespace

TEST(LineCuts, AStraightLineIsCutAtItsEndsAndBeyondItsTips)
{
    const GR_BezierPath2d path = polyline({{0, 0}, {10, 0}});
    const GR_LineCuts flat = lineCuts(lineWithTips(path, 2, kFlatTip), 0.1);
    EXPECT_NEAR(flat.length, 10, 1e-9);
    EXPECT_EQ(flat.width, 4);
    expectDistances(flat, {0, 10});
    EXPECT_EQ(flat.cuts[1].left, (Math::Point2d{10, 2}));
    EXPECT_EQ(flat.cuts[1].right, (Math::Point2d{10, -2}));

    const GR_LineCuts round = lineCuts(lineWithTips(path, 2, kRoundTip), 0.1);
    expectDistances(round, {-2, 0, 10, 12});
    EXPECT_EQ(round.cuts[0].left, (Math::Point2d{-2, 2}));
    EXPECT_EQ(round.cuts[0].overhang, 0);
}

TEST(LineCuts, TheyTurnAtACornerAndJoinWhereALineIsClosed)
{
    const GR_BezierPath2d corner = polyline({{0, 0}, {10, 0}, {10, 10}});
    const GR_LineCuts open = lineCuts(lineWithTips(corner, 1, kFlatTip), 0.1);
    const auto atCorner = std::count_if(open.cuts.begin(), open.cuts.end(),
                                        [](const GR_LineCuts::Cut& cut) { return std::abs(cut.distance - 10) < 1e-9; });
    EXPECT_EQ(atCorner, 7) << "the end of the first side, and six steps of 15 degrees";
    EXPECT_NEAR(open.length, 20, 1e-9);

    const GR_BezierPath2d square = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
    const GR_LineCuts closed = lineCuts(lineWithTips(square, 1, kRoundTip), 0.1);
    EXPECT_EQ(closed.cuts.front().distance, 0);
    EXPECT_NEAR(closed.cuts.back().distance, 40, 1e-9);
    EXPECT_NEAR(closed.cuts.back().left.x, closed.cuts.front().left.x, 1e-9);
    EXPECT_NEAR(closed.cuts.back().left.y, closed.cuts.front().left.y, 1e-9);
}

TEST(LineCuts, DistancesGrowAlongACurveAndEndWithItsLength)
{
    GR_BezierPath2d path;
    for (const Math::Point2d& point : {Math::Point2d{0, 0}, {40, 90}, {60, -90}, {100, 0}})
        path.Append(point, path.GetNumPoints() == 0 || point.x == 100);
    const GR_LineCuts line = lineCuts(lineWithTips(path, 5, kFlatTip), 0.05);
    double chords = 0;
    for (std::size_t i = 1; i < line.cuts.size(); ++i) {
        const GR_LineCuts::Cut& from = line.cuts[i - 1];
        const GR_LineCuts::Cut& to = line.cuts[i];
        EXPECT_GE(to.distance, from.distance);
        const Math::Vector2d right = to.right - from.right;
        const Math::Vector2d left = to.left - from.left;
        chords += Math::Vector2d{(right.x + left.x) / 2, (right.y + left.y) / 2}.length();
    }
    EXPECT_NEAR(chords, line.length, 0.01 * line.length);
    EXPECT_NEAR(line.cuts.back().distance, line.length, 1e-9);
    EXPECT_GT(line.cuts.size(), 8u);
}

TEST(LineCuts, ALineInOnePlaceHasItsTips)
{
    const GR_BezierPath2d path = polyline({{3, 4}, {3, 4}});
    expectDistances(lineCuts(lineWithTips(path, 2, kRoundTip), 0.1), {-2, 0, 0, 2});
    EXPECT_THROW(lineCuts(lineWithTips(path, 2, kRoundTip), 0), std::invalid_argument);
    const GR_BezierPath2d broken = polyline({{0, 0}, {std::numeric_limits<double>::quiet_NaN(), 0}});
    EXPECT_THROW(lineCuts(lineWithTips(broken, 2, kRoundTip), 1), std::domain_error);
}
