#include "engine/curves/beziersegment.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using brindle::engine::BezierSegment;
using brindle::engine::CurvePoint;

CurvePoint point(double frame, double value, double leftX, double leftY, double rightX, double rightY)
{
    CurvePoint point;
    point.frame = frame;
    point.value = point.anchor = value;
    point.leftX = leftX;
    point.leftY = leftY;
    point.rightX = rightX;
    point.rightY = rightY;
    return point;
}

/// The value by de Casteljau's construction alone, in a wider number, at the parameter that halving leads to.
double expectedAt(const CurvePoint& from, const CurvePoint& to, double frame)
{
    using Wide = long double;
    const auto construct = [](Wide one, Wide two, Wide three, Wide four, Wide t) {
        const auto between = [t](Wide a, Wide b) { return (1 - t) * a + t * b; };
        const Wide left = between(one, two);
        const Wide top = between(two, three);
        const Wide right = between(three, four);
        return between(between(left, top), between(top, right));
    };
    Wide low = 0;
    Wide high = 1;
    for (int step = 0; step < 80; ++step) {
        const Wide middle = (low + high) / 2;
        (construct(from.frame, from.rightX, to.leftX, to.frame, middle) < frame ? low : high) = middle;
    }
    return static_cast<double>(
        construct(from.value, from.rightHandleY(), to.leftHandleY(), to.value, (low + high) / 2));
}

TEST(BezierSegment, AgreesWithTheConstructionInAWiderNumberOnRandomCurves)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> part(0, 1);
    std::uniform_real_distribution<double> value(-10, 10);
    int compared = 0;
    for (int round = 0; round < 10000; ++round) {
        const double start = std::floor(part(random) * 100);
        const double length = 1 + std::floor(part(random) * 50);
        // Away from vertical tangents, where a last bit of x is many bits of y in any implementation.
        const double a = 0.95 * part(random);
        const double c = 0.95 * part(random);
        const auto from = point(start, value(random), 0, 0, start + a * length, value(random));
        const auto to = point(start + length, value(random), start + length - c * length, value(random), 0, 0);
        const BezierSegment segment(from, to);
        for (int i = 0; i < 4; ++i) {
            const double frame = start + length * (0.01 + 0.98 * part(random));
            const double expected = expectedAt(from, to, frame);
            ASSERT_NEAR(segment.valueAt(frame), expected, 1e-9) << round << " at " << frame;
            ++compared;
        }
    }
    EXPECT_EQ(compared, 40000);
}

TEST(BezierSegment, HandlesBeyondTheSegmentAreDrawnBackIntoIt)
{
    const auto from = point(10, 1, 10, 1, 500, 7);
    const auto to = point(20, 2, -500, -3, 20, 2);
    const auto heldFrom = point(10, 1, 10, 1, 20, 7);
    const auto heldTo = point(20, 2, 10, -3, 20, 2);
    for (const double frame : {10.5, 12., 14.9, 15.1, 18., 19.75})
        EXPECT_NEAR(BezierSegment(from, to).valueAt(frame), expectedAt(heldFrom, heldTo, frame), 1e-6) << frame;
}

TEST(BezierSegment, HandlesBehindTheirPointsCountAsAtThem)
{
    const auto from = point(10, 1, 10, 1, 3, 1);
    const auto to = point(20, 2, 28, 2, 20, 2);
    for (const double frame : {10.5, 12., 15., 18., 19.75})
        EXPECT_NEAR(BezierSegment(from, to).valueAt(frame), 1 + (frame - 10) / 10, 1e-14) << frame;
}

TEST(BezierSegment, WithoutHandlesItIsAStraightLine)
{
    const BezierSegment segment(point(1, 0, 1, 0, 1, 0), point(11, 10, 11, 10, 11, 10));
    for (double frame = 1.125; frame < 11; frame += 0.125)
        EXPECT_NEAR(segment.valueAt(frame), frame - 1, 1e-14);
}

TEST(BezierSegment, IsExactlyFlatBetweenEqualValues)
{
    const BezierSegment segment(point(1, 0.1, 1, 0.1, 4, 0.1), point(11, 0.1, 8, 0.1, 11, 0.1));
    for (double frame = 1.1; frame < 11; frame += 0.1)
        EXPECT_EQ(segment.valueAt(frame), 0.1);
}

TEST(BezierSegment, ADegenerateOneHasFiniteValuesBetweenItsOwn)
{
    constexpr double most = std::numeric_limits<double>::max();
    const struct {
        const char* name;
        CurvePoint from, to;
        double frame;
    } rows[] = {
        {"both handles at the far ends", point(0, 0, 0, 0, 10, 0), point(10, 1, 0, 1, 10, 1), 5},
        {"one step of a double long", point(1, 0, 1, 0, 1, 0),
         point(std::nextafter(std::nextafter(1, 2), 2), 1, 1, 1, 1, 1), std::nextafter(1, 2)},
        {"as long as frames go", point(-1e9, 0, 0, 0, -1e9, 0), point(1e9, 1, 1e9, 1, 1e9, 1), 0},
        {"the largest values", point(0, -most, 0, 0, 3, most), point(10, most, 7, -most, 10, most), 2},
        {"the same largest value", point(0, most, 0, most, 3, most), point(10, most, 7, most, 10, most), 4},
        {"handles without bounds", point(0, 0, 0, 0, most, 0), point(10, 1, -most, 1, 10, 1), 5},
    };
    for (const auto& row : rows) {
        const double value = BezierSegment(row.from, row.to).valueAt(row.frame);
        EXPECT_TRUE(std::isfinite(value)) << row.name;
        const auto parts = BezierSegment(row.from, row.to).split(row.frame);
        EXPECT_EQ(parts.middle.y, value) << row.name;
    }
}

TEST(BezierSegment, BothPartsOfASplitKeepTheShape)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> part(0, 1);
    std::uniform_real_distribution<double> value(-10, 10);
    for (int round = 0; round < 10000; ++round) {
        // Handles all over the segment: also those that pass each other, up to a = c = 1.
        const auto from = point(0, value(random), 0, 0, 8 * part(random), value(random));
        const auto to = point(8, value(random), 8 * part(random), value(random), 0, 0);
        const BezierSegment whole(from, to);
        const double frame = 0.1 + 7.8 * part(random);
        const auto parts = whole.split(frame);

        auto first = from;
        first.setRightHandle(parts.fromRight.x, parts.fromRight.y);
        auto last = to;
        last.setLeftHandle(parts.toLeft.x, parts.toLeft.y);
        const auto middle = point(frame, parts.middle.y, parts.left.x, parts.left.y, parts.right.x, parts.right.y);
        const BezierSegment left(first, middle);
        const BezierSegment right(middle, last);
        for (double at = 0.25; at < 8; at += 0.25) {
            const double slope = std::abs(whole.valueAt(at + 1e-6) - whole.valueAt(at - 1e-6)) / 2e-6;
            if (slope > 1e4 || at == frame) // next to vertical
                continue;
            ASSERT_NEAR((at < frame ? left : right).valueAt(at), whole.valueAt(at), 1e-9) << round << " at " << at;
        }
    }
}

} // namespace
