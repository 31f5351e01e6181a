#include "engine/geometry2d/curveshape.h"

#include "tests/engine/geometry2d/randomcurves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using curves::curve;

TEST(CurveShape, TheBoxHoldsTheCurveAndTouchesItOnAllSides)
{
    curves::RandomCurves random(11);
    for (int round = 0; round < 10000; ++round) {
        const GR_Bezier2d made = random.curve();
        const Math::Box2d box = made.GetBoxRef();
        Math::Box2d sampled;
        for (int i = 0; i <= 64; ++i) {
            const Math::Point2d place = curves::reference(made, i / 64.0);
            sampled.AddClosed(place);
            ASSERT_GE(place.x, box.minX() - 1e-12) << round;
            ASSERT_LE(place.x, box.maxX() + 1e-12) << round;
            ASSERT_GE(place.y, box.minY() - 1e-12) << round;
            ASSERT_LE(place.y, box.maxY() + 1e-12) << round;
        }
        // Between samples the curve leaves their box by less than the square of the step times its second derivative.
        constexpr double most = 6 * 4 * 100 / 8.0 / (64 * 64);
        ASSERT_LT(sampled.minX() - box.minX(), most) << round;
        ASSERT_LT(sampled.minY() - box.minY(), most) << round;
        ASSERT_LT(box.maxX() - sampled.maxX(), most) << round;
        ASSERT_LT(box.maxY() - sampled.maxY(), most) << round;
    }
}

TEST(CurveShape, LengthsAgreeWithADenseReference)
{
    curves::RandomCurves random(12);
    for (int round = 0; round < 10000; ++round) {
        const GR_Bezier2d made = random.curve();
        const double length = made.GetLength();
        // The reference is the coarser of both at sharp turns, and gets more places.
        double difference = 1;
        for (int places = 256; places <= 1 << 18 && difference > 1e-6; places *= 8)
            difference = std::abs(length - curves::referenceLength(made, places));
        ASSERT_LT(difference, 1e-6) << round;
    }
}

TEST(CurveShape, LengthsOfKnownCurves)
{
    EXPECT_EQ(curve({{3, 3}}).GetLength(), 0);
    EXPECT_EQ(curve({{0, 0}, {3, 4}}).GetLength(), 5);
    EXPECT_EQ(curve({{1, 1}, {1, 1}, {1, 1}, {1, 1}}).GetLength(), 0);
    // There and back: y = 2t(1-t)h has its top at h/2.
    EXPECT_NEAR(curve({{0, 0}, {0, 8}, {0, 0}}).GetLength(), 8, 1e-8);
    // A parabola y = x^2 from 0 to 1.
    EXPECT_NEAR(curve({{0, 0}, {0.5, 0}, {1, 1}}).GetLength(), std::sqrt(5) / 2 + std::asinh(2) / 4, 1e-9);
    EXPECT_NEAR(curve({{0, 0}, {0.5e300, 0}, {1e300, 1e300}}).GetLength() / 1e300, std::sqrt(5) / 2 + std::asinh(2) / 4,
                1e-9);
    EXPECT_NEAR(curve({{0, 0}, {0.5e-300, 0}, {1e-300, 1e-300}}).GetLength() / 1e-300,
                std::sqrt(5) / 2 + std::asinh(2) / 4, 1e-9);
}

TEST(CurveShape, SegmentsAreWhatNeverLeavesTheLineBetweenItsEnds)
{
    struct Row {
        const char* name;
        GR_Bezier2d made;
        bool segment;
    };
    const Row rows[] = {
        {"point", curve({{1, 2}}), true},
        {"line", curve({{0, 0}, {3, 4}}), true},
        {"line of no length", curve({{1, 1}, {1, 1}}), true},
        {"cubic on a line", curve({{0, 0}, {1, 1}, {2, 2}, {3, 3}}), true},
        {"cubic on a line at thirds that round", curve({{0, 0}, {0.1 / 3, 0.7 / 3}, {0.2 / 3, 1.4 / 3}, {0.1, 0.7}}),
         true},
        {"no handles", curve({{0, 0}, {0, 0}, {3, 1}, {3, 1}}), true},
        {"handle beyond the end", curve({{0, 0}, {1, 0}, {5, 0}, {3, 0}}), false},
        {"there and back", curve({{0, 0}, {5, 0}, {0, 0}}), false},
        {"bent", curve({{0, 0}, {1, 1}, {2, 0}}), false},
        {"hardly bent", curve({{0, 0}, {1, 1e-6}, {2, 0}}), false},
        {"huge", curve({{0, 0}, {1e300, 1e300}, {1.7e308, 1.7e308}}), true},
        {"tiny", curve({{0, 0}, {1e-310, 1e-311}, {2e-310, 0}}), false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.made.IsSegment(), row.segment) << row.name;
}

TEST(CurveShape, CharacteristicsOfKnownCurves)
{
    struct Row {
        const char* name;
        GR_Bezier2d made;
        int characteristic;
    };
    const Row rows[] = {
        {"point", curve({{1, 2}}), 0},
        {"line", curve({{0, 0}, {3, 4}}), 0},
        {"parabola", curve({{0, 0}, {1, 1}, {2, 0}}), 0},
        {"parabola there and back", curve({{0, 0}, {1, 0}, {0, 0}}), 0},
        {"arch", curve({{0, 0}, {0, 1}, {1, 1}, {1, 0}}), 0},
        {"raised parabola", curve({{0, 0}, {2, 2}, {4, 2}, {6, 0}}), 0},
        {"on one line", curve({{0, 0}, {5, 5}, {-2, -2}, {1, 1}}), 0},
        {"wave", curve({{0, 0}, {1, 2}, {2, -2}, {3, 0}}), 1},
        {"two inflections", curve({{0, 0}, {0.9, 1}, {0.1, 1.1}, {1, 0.1}}), 2},
        {"cusp", curve({{0, 0}, {1, 1}, {0, 1}, {1, 0}}), 3},
        {"cusp, far from the origin", curve({{1000, 1000}, {1001, 1001}, {1000, 1001}, {1001, 1000}}), 3},
        {"cusp, huge", curve({{0, 0}, {1e300, 1e300}, {0, 1e300}, {1e300, 0}}), 3},
        {"loop", curve({{0, 0}, {3, 2}, {-2, 2}, {1, 0}}), 0},
        {"inflection at the start alone", curve({{0, 0}, {1, 0}, {2, 0}, {3, 1}}), 0},
        {"one point", curve({{2, 2}, {2, 2}, {2, 2}, {2, 2}}), 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.made.GetCurveCharacteristic(), row.characteristic) << row.name;
}

TEST(CurveShape, InflectionsAreWhereTheCurveBendsTheOtherWay)
{
    curves::RandomCurves random(13);
    int counts[3] = {};
    for (int round = 0; round < 1000; ++round) {
        const GR_Bezier2d made = random.curve(3);
        const GR_Bezier2d slopes = made.GetDerivative();
        const GR_Bezier2d bends = slopes.GetDerivative();
        int changes = 0;
        bool left = false;
        double smallest = 1e300;
        for (int i = 0; i <= 2000; ++i) {
            const Math::Point2d slope = curves::reference(slopes, i / 2000.0);
            const Math::Point2d bend = curves::reference(bends, i / 2000.0);
            const double cross = slope.x * bend.y - slope.y * bend.x;
            smallest = std::min(smallest, std::abs(cross));
            changes += i > 0 && (cross > 0) != left ? 1 : 0;
            left = cross > 0;
        }
        const int found = made.GetCurveCharacteristic();
        // Two inflections within one step of the samples are seen by the exact computation alone.
        if (!(found == 2 && changes == 0 && smallest < 1)) {
            ASSERT_EQ(found, changes) << round;
        }
        ++counts[changes];
    }
    for (const int count : counts)
        EXPECT_GT(count, 50);
}

TEST(CurveShape, AreasOfSectorsSumUpToTheArea)
{
    curves::RandomCurves random(14);
    for (int round = 0; round < 300; ++round) {
        const GR_Bezier2d made = random.curve(3);
        const Math::Point2d centre = random.point();
        double expected = 0;
        constexpr int places = 2000;
        for (int i = 0; i < places; ++i) {
            const Math::Vector2d from = curves::reference(made, i / double{places}) - centre;
            const Math::Vector2d to = curves::reference(made, (i + 1) / double{places}) - centre;
            expected += from.cross(to) / 2;
        }
        EXPECT_NEAR(brindle::engine::sectorArea(brindle::engine::planeCurve(made), centre), expected, 0.02);
    }
}

} // namespace
