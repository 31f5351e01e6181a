#include "engine/curves/easecurve.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using brindle::engine::CurveEdit;
using brindle::engine::EaseCurve;
using brindle::engine::EasePoint;

EasePoint easePoint(double frame, double value, double easeIn, double slopeIn, double easeOut, double slopeOut)
{
    EasePoint point;
    point.frame = frame;
    point.value = value;
    point.easeIn = easeIn;
    point.slopeIn = slopeIn;
    point.easeOut = easeOut;
    point.slopeOut = slopeOut;
    return point;
}

EaseCurve curveOf(std::initializer_list<EasePoint> points)
{
    EaseCurve curve;
    for (const EasePoint& point : points)
        EXPECT_TRUE(curve.put(point));
    return curve;
}

TEST(EaseCurveTest, WithoutEasesTheWayIsStraight)
{
    const EaseCurve curve = curveOf({easePoint(1, 10, 0, 0, 0, 0), easePoint(11, 30, 0, 0, 0, 0)});
    for (double frame = 1; frame <= 11; frame += 0.5)
        EXPECT_NEAR(curve.evaluate(frame), 10 + 2 * (frame - 1), 1e-12) << frame;
    EXPECT_EQ(curve.evaluate(0), 10);
    EXPECT_EQ(curve.evaluate(12), 30);
}

TEST(EaseCurveTest, AnEaseLeavesAndComesInAlongItsSlope)
{
    const EaseCurve curve = curveOf({easePoint(0, 0, 0, 0, 4, 0), easePoint(10, 100, 5, 3, 0, 0)});
    const double step = 1e-5;
    EXPECT_NEAR((curve.evaluate(step) - curve.evaluate(0)) / step, 0, 1e-3) << "it starts from rest";
    EXPECT_NEAR((curve.evaluate(10) - curve.evaluate(10 - step)) / step, 3, 1e-3);
    EXPECT_LT(curve.evaluate(2), 20) << "a straight way would be there by then";
}

TEST(EaseCurveTest, AFlatEaseOfBothSidesIsTheSameForthAndBack)
{
    const EaseCurve curve = curveOf({easePoint(0, 0, 0, 0, 10, 0), easePoint(20, 1, 10, 0, 0, 0)});
    for (double frame = 0; frame <= 10; ++frame)
        EXPECT_NEAR(curve.evaluate(frame) + curve.evaluate(20 - frame), 1, 1e-12) << frame;
    EXPECT_NEAR(curve.evaluate(10), 0.5, 1e-12);
}

TEST(EaseCurveTest, EasesThatReachTooFarNeverRunBack)
{
    const EaseCurve curve = curveOf({easePoint(0, 0, 0, 0, 500, 0), easePoint(10, 1, 800, 0, 0, 0)});
    double before = 0;
    for (double frame = 0; frame <= 10; frame += 0.01) {
        const double value = curve.evaluate(frame);
        EXPECT_GE(value, before - 1e-12) << frame;
        before = value;
    }
    EXPECT_EQ(curve.points().first().easeOut, 500) << "the ease itself is kept";
}

TEST(EaseCurveTest, AKeyWithinASegmentKeepsTheShape)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> number(-3, 3);
    for (int round = 0; round < 200; ++round) {
        EaseCurve curve =
            curveOf({easePoint(0, number(random), 0, 0, std::abs(number(random)) * 3.5, number(random)),
                     easePoint(12, number(random), std::abs(number(random)) * 3.5, number(random), 0, 0)});
        const EaseCurve before = curve;
        EaseCurve::Log log;
        EXPECT_EQ(curve.splice(6 + number(random), false, log), CurveEdit::Done);
        EXPECT_EQ(curve.points().size(), 3);
        for (double frame = -1; frame <= 13; frame += 0.25)
            EXPECT_NEAR(curve.evaluate(frame), before.evaluate(frame), 1e-7) << round << " at " << frame;
        curve.revert(log);
        EXPECT_EQ(curve.points().size(), 2);
        EXPECT_EQ(curve.evaluate(5.5), before.evaluate(5.5));
    }
}

TEST(EaseCurveTest, AKeyBehindTheLastOneGoesOnFlat)
{
    EaseCurve curve = curveOf({easePoint(1, 4, 0, 0, 2, 7)});
    EaseCurve::Log log;
    curve.splice(10, false, log);
    for (double frame = 1; frame <= 10; ++frame)
        EXPECT_EQ(curve.evaluate(frame), 4) << frame;
    EXPECT_EQ(curve.points().first().easeOut, 3);
    EXPECT_EQ(curve.points().last().easeIn, 3);
}

TEST(EaseCurveTest, AnEaseUnderNothingIsNone)
{
    EaseCurve curve = curveOf({easePoint(1, 4, 1, 0, 2, 7)});
    EaseCurve::Log log;
    EXPECT_EQ(curve.setEaseIn(1, -3, log), CurveEdit::Done);
    EXPECT_EQ(curve.points().first().easeIn, 0);
    EXPECT_EQ(curve.setEaseIn(1, NAN, log), CurveEdit::Refused);
    EXPECT_EQ(curve.setEaseOut(1, INFINITY, log), CurveEdit::Refused);
    EXPECT_EQ(curve.setSlopeOut(2, 1, log), CurveEdit::Refused) << "no point stands there";
    EXPECT_EQ(curve.setContinuity(1, 2, log), CurveEdit::Refused) << "there is no smooth ease";
}

} // namespace
