#include "engine/session/scenetiming.h"

#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using brindle::engine::SceneTiming;

struct Range {
    int start, stop;
};

} // namespace

TEST(SceneTimingTest, ATimingIsValidWithinItsFrames)
{
    struct {
        SceneTiming timing;
        bool valid;
    } const timings[] = {
        {{1, 1, 1, 24.0}, true},
        {{1'000'000, 1, 1'000'000, 0.001}, true},
        {{10, 5, 5, 24.0}, true},
        {{0, 1, 0, 24.0}, false},
        {{10, 0, 10, 24.0}, false},
        {{10, 6, 5, 24.0}, false},
        {{10, 1, 11, 24.0}, false},
        {{1'000'001, 1, 1, 24.0}, false},
        {{10, 1, 10, 0.0}, false},
        {{10, 1, 10, -24.0}, false},
        {{10, 1, 10, std::nan("")}, false},
        {{highest, 1, highest, 24.0}, false},
        {{lowest, lowest, 1, 24.0}, false},
    };
    for (const auto& [timing, valid] : timings)
        EXPECT_EQ(timing.isValid(), valid) << timing.count << ' ' << timing.start << ' ' << timing.stop;
}

TEST(SceneTimingTest, AShiftFitsTheFramesThereAre)
{
    struct {
        int at, delta;
        bool fits;
        int fittedAt;
    } const shifts[] = {
        {0, 5, true, 0},       {60, 5, true, 60},       {61, 5, false, 0},       {-1, 5, false, 0},
        {0, -59, true, 0},     {0, -60, false, 0},      {1, -59, true, 1},       {2, -59, false, 0},
        {60, -10, true, 50},   {60, -59, true, 1},      {60, -60, false, 0},     {59, -1, true, 59},
        {59, -2, false, 0},    {60, 999'940, true, 60}, {60, 999'941, false, 0}, {0, highest, false, 0},
        {0, lowest, false, 0}, {highest, 1, false, 0},  {lowest, -1, false, 0},  {highest, lowest, false, 0},
    };
    const SceneTiming timing;
    for (const auto& [at, delta, fits, fittedAt] : shifts) {
        const auto shift = timing.fitted(at, delta);
        EXPECT_EQ(shift.has_value(), fits) << at << ' ' << delta;
        if (shift && fits) {
            EXPECT_EQ(shift->at, fittedAt) << at << ' ' << delta;
            EXPECT_EQ(shift->delta, delta);
        }
    }
}

TEST(SceneTimingTest, TheRangeThatIsPlayedMovesAlong)
{
    struct {
        const char* what;
        Range before;
        int at, delta;
        Range after;
    } const moves[] = {
        {"insert ahead", {20, 40}, 5, 10, {30, 50}},
        {"insert right ahead", {20, 40}, 19, 10, {30, 50}},
        {"insert behind the first", {20, 40}, 20, 10, {20, 50}},
        {"insert within", {20, 40}, 30, 10, {20, 50}},
        {"insert right behind", {20, 40}, 40, 10, {20, 40}},
        {"insert at the end", {20, 40}, 60, 10, {20, 40}},
        {"insert ahead of all that is played", {1, 60}, 0, 10, {1, 70}},
        {"insert behind all that is played", {1, 60}, 60, 10, {1, 70}},
        {"insert ahead, played from the first frame", {1, 40}, 0, 10, {1, 50}},
        {"insert behind, played to the last frame", {20, 60}, 60, 10, {20, 70}},
        {"remove ahead", {20, 40}, 0, -10, {10, 30}},
        {"remove over the beginning", {20, 40}, 15, -10, {16, 30}},
        {"remove within", {20, 40}, 25, -10, {20, 30}},
        {"remove over the end", {20, 40}, 35, -10, {20, 35}},
        {"remove behind", {20, 40}, 45, -10, {20, 40}},
        {"remove all of it", {20, 40}, 15, -30, {15, 15}},
        {"remove all of it from the first frame", {2, 40}, 0, -50, {1, 1}},
        {"remove all but the last", {1, 60}, 0, -59, {1, 1}},
        {"remove the end", {1, 60}, 50, -10, {1, 50}},
        {"remove the end of what is played to the last frame", {55, 60}, 40, -20, {40, 40}},
    };
    for (const auto& [what, before, at, delta, after] : moves) {
        const SceneTiming timing{60, before.start, before.stop, 24.0};
        const SceneTiming moved = timing.shifted({at, delta});
        EXPECT_EQ(moved.count, 60 + delta) << what;
        EXPECT_EQ(moved.start, after.start) << what;
        EXPECT_EQ(moved.stop, after.stop) << what;
        EXPECT_TRUE(moved.isValid()) << what;
    }
}

TEST(SceneTimingTest, EveryFittedShiftLeavesAValidTiming)
{
    for (int count = 1; count <= 6; ++count) {
        for (int start = 1; start <= count; ++start) {
            for (int stop = start; stop <= count; ++stop) {
                for (int at = -1; at <= count + 1; ++at) {
                    for (int delta = -count - 1; delta <= 3; ++delta) {
                        const SceneTiming timing{count, start, stop, 24.0};
                        if (const auto shift = timing.fitted(at, delta)) {
                            EXPECT_TRUE(timing.shifted(*shift).isValid())
                                << count << ' ' << start << ' ' << stop << ' ' << at << ' ' << delta;
                        }
                    }
                }
            }
        }
    }
}
