#include "engine/curves/frameshift.h"

#include <gtest/gtest.h>

#include <limits>

TEST(FrameShiftTest, AStretchIsCarriedAlong)
{
    constexpr int most = std::numeric_limits<int>::max();
    struct {
        const char* what;
        brindle::engine::FrameShift shift;
        int first, last;
        bool stays;
        int firstAfter, lastAfter;
    } const stretches[] = {
        {"frames come in ahead", {4, 10}, 5, 8, true, 15, 18},
        {"frames come in within", {5, 10}, 5, 8, true, 5, 18},
        {"frames come in behind", {8, 10}, 5, 8, true, 5, 8},
        {"frames go ahead", {0, -4}, 5, 8, true, 1, 4},
        {"the beginning goes", {3, -3}, 5, 8, true, 4, 5},
        {"frames within go", {5, -2}, 5, 8, true, 5, 6},
        {"the end goes", {6, -10}, 5, 8, true, 5, 6},
        {"frames go behind", {8, -10}, 5, 8, true, 5, 8},
        {"all of it goes", {4, -4}, 5, 8, false, 5, 4},
        {"a single frame goes", {4, -1}, 5, 5, false, 5, 4},
        {"a single frame moves", {3, -1}, 5, 5, true, 4, 4},
        {"nothing happens", {3, 0}, 5, 8, true, 5, 8},
        {"beyond all numbers", {0, 10}, 5, most, true, 15, most},
    };
    for (const auto& [what, shift, first, last, stays, firstAfter, lastAfter] : stretches) {
        int carriedFirst = first;
        int carriedLast = last;
        EXPECT_EQ(shift.carry(carriedFirst, carriedLast), stays) << what;
        EXPECT_EQ(carriedFirst, firstAfter) << what;
        EXPECT_EQ(carriedLast, lastAfter) << what;
    }
}
