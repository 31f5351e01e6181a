#include "engine/curves/framefit.h"

#include "engine/curves/beziercolumn.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using brindle::engine::BezierColumn;
using brindle::engine::curveNear;
using brindle::engine::curveThrough;

double farthest(const std::vector<BezierCtrlPt>& points, const std::vector<double>& values, int first)
{
    BezierColumn column("fit");
    for (const BezierCtrlPt& point : points)
        EXPECT_TRUE(column.putPoint(point));
    double distance = 0;
    for (std::size_t i = 0; i < values.size(); ++i)
        distance = std::max(distance, std::abs(column.evaluate(first + static_cast<double>(i)) - values[i]));
    return distance;
}

std::vector<double> wave(int frames)
{
    std::vector<double> values;
    for (int frame = 0; frame < frames; ++frame)
        values.push_back(9 * std::sin(frame / 11.0) + frame * 0.03);
    return values;
}

TEST(FrameFitTest, ACurveThroughValuesHasEachOfThem)
{
    const auto values = wave(300);
    const auto points = curveThrough(values, 5);
    EXPECT_EQ(points.size(), 300u);
    EXPECT_EQ(farthest(points, values, 5), 0);
    EXPECT_EQ(farthest(curveThrough({3}, 1), {3}, 1), 0);
}

TEST(FrameFitTest, ACurveNearValuesHasFewPoints)
{
    const auto values = wave(300);
    const auto points = curveNear(values, 5, 0.005);
    EXPECT_LE(farthest(points, values, 5), 0.005);
    EXPECT_LT(points.size(), 30u);
    EXPECT_EQ(curveNear({1, 2, 3, 4, 5, 6, 7, 8}, 1, 0.005).size(), 2u) << "a line";
    EXPECT_EQ(curveNear({4}, 1, 0.005).size(), 1u);
    EXPECT_TRUE(curveNear({}, 1, 0.005).empty());
}

TEST(FrameFitTest, JumpsAndNoiseAreKept)
{
    std::mt19937 random(2);
    std::vector<double> values;
    for (int frame = 0; frame < 200; ++frame)
        values.push_back(frame < 60 ? 0 : frame < 120 ? 1000 : static_cast<double>(random() % 1000));
    EXPECT_LE(farthest(curveNear(values, 1, 0.005), values, 1), 0.005);
    values[20] = 1e300;
    EXPECT_LE(farthest(curveNear(values, 1, 0.005), values, 1), 0.005);
}

} // namespace
