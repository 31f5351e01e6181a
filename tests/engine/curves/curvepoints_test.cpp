#include "engine/curves/curvepoints.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <numeric>
#include <random>

namespace {

using engine::CurvePoint;
using engine::CurvePoints;

CurvePoint pointAt(double frame)
{
    CurvePoint point;
    point.frame = frame;
    point.value = frame * 2;
    return point;
}

TEST(CurvePoints, AnEmptyOneHasNoNeighbours)
{
    const CurvePoints points;
    EXPECT_TRUE(points.isEmpty());
    EXPECT_EQ(points.around(1).before, nullptr);
    EXPECT_EQ(points.around(1).after, nullptr);
    EXPECT_EQ(points.find(1), nullptr);
    EXPECT_EQ(points.before(1), nullptr);
}

TEST(CurvePoints, AgreesWithAMapOverRandomInsertionsAndRemovals)
{
    std::mt19937 random(7);
    CurvePoints points;
    std::map<double, CurvePoint> model;
    for (int step = 0; step < 30000; ++step) {
        const double frame = static_cast<double>(random() % 3000) / 2;
        const bool growing = step % 10000 < 7000;
        if (!model.contains(frame)) {
            if (growing || random() % 4 == 0) {
                points.insert(pointAt(frame));
                model.emplace(frame, pointAt(frame));
            }
        } else if (!growing || random() % 4 == 0) {
            EXPECT_EQ(points.take(frame).value, frame * 2);
            model.erase(frame);
        }

        const double asked = static_cast<double>(random() % 6004) / 4 - 1;
        const auto after = model.upper_bound(asked);
        const auto [foundBefore, foundAfter] = points.around(asked);
        ASSERT_EQ(foundBefore != nullptr, after != model.begin());
        ASSERT_EQ(foundAfter != nullptr, after != model.end());
        if (foundBefore) {
            ASSERT_EQ(foundBefore->frame, std::prev(after)->first);
        }
        if (foundAfter) {
            ASSERT_EQ(foundAfter->frame, after->first);
        }
        const auto least = model.lower_bound(asked);
        const CurvePoint* ahead = points.before(asked);
        ASSERT_EQ(ahead != nullptr, least != model.begin());
        if (ahead) {
            ASSERT_EQ(ahead->frame, std::prev(least)->first);
        }

        ASSERT_EQ(points.size(), static_cast<int>(model.size()));
        if (step % 500 == 0) {
            int index = 0;
            for (const auto& [key, point] : model)
                ASSERT_EQ(points.at(index++).frame, key);
            index = 0;
            auto expected = model.begin();
            points.forEach([&](const CurvePoint& point) { ASSERT_EQ(point.frame, (expected++)->first); });
        }
    }
}

TEST(CurvePoints, AHundredThousandInAnyOrderTakeATenthOfASecond)
{
    std::vector<int> frames(100000);
    std::iota(frames.begin(), frames.end(), 1);
    std::shuffle(frames.begin(), frames.end(), std::mt19937(3));

    const auto begin = std::chrono::steady_clock::now();
    CurvePoints points;
    for (const int frame : frames)
        points.insert(pointAt(frame));
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;

    EXPECT_EQ(points.size(), 100000);
    for (int index = 0; index < points.size(); ++index)
        ASSERT_EQ(points.at(index).frame, index + 1);
    EXPECT_LT(taken.count(), 2.0) << "far above the tenth of a second that it takes, for busy and sanitized machines";
}

} // namespace
