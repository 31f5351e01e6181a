#include "engine/curves/velocitycurve.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using brindle::engine::CurveEdit;
using brindle::engine::VelocityCurve;
using brindle::engine::VelocityPoint;

VelocityPoint velocityPoint(double frame, double value, bool constSegment = false)
{
    VelocityPoint point;
    point.frame = frame;
    point.value = value;
    point.constSegment = constSegment;
    return point;
}

VelocityCurve velocityOf(std::initializer_list<VelocityPoint> points)
{
    VelocityCurve curve;
    for (const VelocityPoint& point : points)
        EXPECT_TRUE(curve.put(point));
    return curve;
}

TEST(VelocityCurveTest, BetweenTwoPointsTheVelocityIsConstant)
{
    const VelocityCurve curve = velocityOf({velocityPoint(1, 0), velocityPoint(11, 5)});
    for (double frame = 1; frame <= 11; frame += 0.5)
        EXPECT_NEAR(curve.evaluate(frame), (frame - 1) / 2, 1e-12) << frame;
    EXPECT_EQ(curve.evaluate(-4), 0);
    EXPECT_EQ(curve.evaluate(40), 5);
}

TEST(VelocityCurveTest, TheVelocityHasNoJumpAtAPoint)
{
    const VelocityCurve curve = velocityOf({velocityPoint(1, 0), velocityPoint(11, 5), velocityPoint(15, 30)});
    const double step = 1e-5;
    const double before = (curve.evaluate(11) - curve.evaluate(11 - step)) / step;
    const double after = (curve.evaluate(11 + step) - curve.evaluate(11)) / step;
    EXPECT_NEAR(before, after, 1e-3);
    EXPECT_GT(before, 0.5);
    EXPECT_LT(before, 6.25);
}

TEST(VelocityCurveTest, ItNeverRunsBackBetweenTwoPoints)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> number(-10, 10);
    for (int round = 0; round < 100; ++round) {
        VelocityCurve curve;
        for (int key = 0; key < 6; ++key)
            curve.put(velocityPoint(key * 7 + number(random) / 5, number(random)));
        const auto& points = curve.points();
        for (int at = 0; at + 1 < points.size(); ++at) {
            const bool rises = points.at(at + 1).value >= points.at(at).value;
            const double length = points.at(at + 1).frame - points.at(at).frame;
            double before = points.at(at).value;
            for (int step = 1; step < 50; ++step) {
                const double value = curve.evaluate(points.at(at).frame + length * step / 50);
                EXPECT_TRUE(rises ? value >= before - 1e-12 : value <= before + 1e-12) << round;
                before = value;
            }
        }
    }
}

TEST(VelocityCurveTest, AConstantSegmentStandsStillUpToTheNextPoint)
{
    const VelocityCurve curve = velocityOf({velocityPoint(1, 2, true), velocityPoint(11, 5), velocityPoint(21, 7)});
    EXPECT_EQ(curve.evaluate(10.9), 2);
    EXPECT_EQ(curve.evaluate(11), 5);
    EXPECT_NEAR(curve.evaluate(16), 6, 1e-12) << "the hold before has no part in the velocity behind it";
}

TEST(VelocityCurveTest, APointThatIsMadeHasTheValueOfTheCurve)
{
    VelocityCurve curve = velocityOf({velocityPoint(1, 0), velocityPoint(11, 5)});
    VelocityCurve::Log log;
    EXPECT_EQ(curve.splice(5, false, log), CurveEdit::Done);
    EXPECT_EQ(curve.points().find(5)->value, 2);
    EXPECT_EQ(curve.splice(5, false, log), CurveEdit::Nothing);
    EXPECT_EQ(curve.splice(NAN, false, log), CurveEdit::Refused);
    EXPECT_EQ(curve.move(5, 1, 3, log), CurveEdit::Refused) << "another one stands there";
    EXPECT_EQ(curve.move(5, 6, 3, log), CurveEdit::Done);
    curve.revert(log);
    EXPECT_EQ(curve.points().size(), 2);
}

TEST(VelocityCurveTest, ValuesAtTheEndOfWhatADoubleHolds)
{
    const VelocityCurve curve = velocityOf({velocityPoint(1, -1.5e308), velocityPoint(3, 1.5e308)});
    EXPECT_EQ(curve.evaluate(2), 0);
    EXPECT_TRUE(std::isfinite(curve.evaluate(1.1)));
}

} // namespace
