#include "engine/curves/curvepoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <numeric>
#include <random>

namespace {

using brindle::engine::CurvePoint;
using brindle::engine::CurvePoints;

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

TEST(CurvePoints, GoingAlongInEitherDirectionFindsWhatStandsThere)
{
    constexpr int count = 1000;
    CurvePoints points;
    for (int frame = 1; frame <= count; ++frame)
        points.insert(pointAt(frame));
    const auto expectAround = [&](double asked) {
        const auto [before, after] = points.around(asked);
        const double last = std::min(std::floor(asked), double(count));
        ASSERT_EQ(before ? before->frame : 0, last);
        ASSERT_EQ(after ? after->frame : count + 1, last + 1);
    };
    for (int quarter = 0; quarter <= 4 * count + 8; ++quarter)
        expectAround(quarter / 4.0);
    for (int quarter = 4 * count + 8; quarter >= 0; --quarter)
        expectAround(quarter / 4.0);

    // Taking the next point on the way, and putting it back behind oneself.
    for (int frame = 2; frame < count; ++frame) {
        ASSERT_EQ(points.around(frame - 0.5).after->frame, frame);
        const CurvePoint taken = points.take(frame);
        ASSERT_EQ(points.around(frame - 0.5).after->frame, frame + 1);
        ASSERT_EQ(points.find(frame), nullptr);
        ASSERT_EQ(points.around(frame + 1).before->frame, frame + 1);
        points.insert(taken);
        ASSERT_NE(points.find(frame), nullptr);
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
