#include "engine/curves/curve.h"

#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using brindle::engine::Curve;
using brindle::engine::CurveLog;
using brindle::engine::CurvePoint;
using Edit = brindle::engine::Curve::Edit;

/// The points without their identities.
std::vector<CurvePoint> content(const Curve& curve)
{
    std::vector<CurvePoint> points;
    curve.points().forEach([&](CurvePoint point) {
        point.identity = 0;
        points.push_back(point);
    });
    return points;
}

CurvePoint at(const Curve& curve, double frame)
{
    const CurvePoint* found = curve.points().find(frame);
    EXPECT_NE(found, nullptr) << frame;
    return found ? *found : CurvePoint();
}

class CurveTest : public testing::Test {
protected:
    void key(double frame, double value)
    {
        ASSERT_EQ(curve.splice(frame, false, log), Edit::Done);
        curve.setValue(frame, value, log);
    }

    Curve curve;
    CurveLog log;
};

TEST_F(CurveTest, WithoutPointsItIsZero)
{
    EXPECT_EQ(curve.evaluate(5), 0);
}

TEST_F(CurveTest, TheFirstPointHasItsHandlesAtItself)
{
    key(5, 2);
    const CurvePoint point = at(curve, 5);
    EXPECT_EQ(point.leftX, 5);
    EXPECT_EQ(point.rightX, 5);
    EXPECT_EQ(point.leftHandleY(), 2);
    EXPECT_EQ(point.rightHandleY(), 2);
    EXPECT_EQ(point.continuity, 0);
    EXPECT_EQ(curve.evaluate(-100), 2);
    EXPECT_EQ(curve.evaluate(100), 2);
}

TEST_F(CurveTest, APointBehindTheLastGoesOnFlatWithHandlesAtAThirdOfTheGap)
{
    key(1, 5);
    ASSERT_EQ(curve.splice(10, false, log), Edit::Done);
    EXPECT_EQ(at(curve, 1).rightX, 4);
    EXPECT_EQ(at(curve, 1).rightHandleY(), 5);
    EXPECT_EQ(at(curve, 10).leftX, 7);
    EXPECT_EQ(at(curve, 10).rightX, 10);
    EXPECT_EQ(at(curve, 10).value, 5);
}

TEST_F(CurveTest, APointAheadOfTheFirstGoesOnFlatWithHandlesAtAThirdOfTheGap)
{
    key(10, 5);
    ASSERT_EQ(curve.splice(1, false, log), Edit::Done);
    EXPECT_EQ(at(curve, 1).rightX, 4);
    EXPECT_EQ(at(curve, 1).leftX, 1);
    EXPECT_EQ(at(curve, 10).leftX, 7);
    EXPECT_EQ(curve.evaluate(5), 5);
}

TEST_F(CurveTest, HandlesMoveWithTheValueOfTheirPoint)
{
    key(1, 5);
    key(10, 5);
    curve.setLeftHandle(10, 8, 6, log);
    curve.setValue(10, 25, log);
    EXPECT_EQ(at(curve, 10).leftHandleY(), 26);
    EXPECT_EQ(at(curve, 10).rightHandleY(), 25);
}

TEST_F(CurveTest, AValueThatIsSetBackLeavesEveryBitOfTheHandles)
{
    key(1, 0.1);
    curve.setLeftHandle(1, 0.7, 1.0 / 3, log);
    curve.setRightHandle(1, 1.3, -2.0 / 7, log);
    const auto before = content(curve);
    for (const double value : {1e17, -3.3, 1e-300, 1e300, 0.1})
        curve.setValue(1, value, log);
    EXPECT_EQ(content(curve), before);
}

TEST_F(CurveTest, AConstantSegmentHoldsItsValueUpToTheNextPoint)
{
    key(1, 5);
    key(10, 20);
    curve.setConstSegment(1, true, log);
    EXPECT_EQ(curve.evaluate(9.999), 5);
    EXPECT_EQ(curve.evaluate(10), 20);
    ASSERT_EQ(curve.splice(4, false, log), Edit::Done);
    EXPECT_TRUE(at(curve, 4).constSegment) << "both parts hold";
    EXPECT_EQ(curve.evaluate(9.999), 5);
    EXPECT_LE(at(curve, 1).rightX, 4);
}

TEST_F(CurveTest, ASpliceWhereAPointStandsDoesNothing)
{
    key(1, 5);
    const auto logged = log.size();
    EXPECT_EQ(curve.splice(1, true, log), Edit::Nothing);
    EXPECT_EQ(log.size(), logged);
}

TEST_F(CurveTest, SplicesAnywhereKeepTheShape)
{
    std::mt19937 random(23);
    std::uniform_real_distribution<double> value(-10, 10);
    for (int round = 0; round < 200; ++round) {
        Curve original;
        for (int frame = 1; frame <= 41; frame += 10) {
            original.splice(frame, false, log);
            original.setValue(frame, value(random), log);
            original.setLeftHandle(frame, frame - std::abs(value(random)), value(random), log);
            original.setRightHandle(frame, frame + std::abs(value(random)), value(random), log);
            original.setConstSegment(frame, random() % 5 == 0, log);
        }
        Curve spliced = original;
        for (int i = 0; i < 30; ++i)
            spliced.splice(static_cast<double>(random() % 600) / 10 - 5, false, log);
        for (double frame = -6.03; frame < 60; frame += 0.25) {
            const double slope = std::abs(original.evaluate(frame + 1e-6) - original.evaluate(frame - 1e-6)) / 2e-6;
            if (slope < 1e4) {
                ASSERT_NEAR(spliced.evaluate(frame), original.evaluate(frame), 1e-9) << round << " at " << frame;
            }
        }
    }
}

TEST_F(CurveTest, NumbersThatAreNotFiniteAreRefusedAndChangeNothing)
{
    key(1, 5);
    key(10, 6);
    log.clear();
    const auto before = content(curve);
    for (const double bad : {nan, infinity, -infinity}) {
        EXPECT_EQ(curve.splice(bad, false, log), Edit::Refused);
        EXPECT_EQ(curve.erase(bad, log), Edit::Refused);
        EXPECT_EQ(curve.setValue(1, bad, log), Edit::Refused);
        EXPECT_EQ(curve.move(1, bad, 5, log), Edit::Refused);
        EXPECT_EQ(curve.move(1, 2, bad, log), Edit::Refused);
        EXPECT_EQ(curve.setLeftHandle(1, bad, 5, log), Edit::Refused);
        EXPECT_EQ(curve.setRightHandle(1, 5, bad, log), Edit::Refused);
        EXPECT_EQ(curve.scale(bad, log), Edit::Refused);
        CurvePoint point = at(curve, 1);
        point.leftY = bad;
        EXPECT_FALSE(curve.put(point));
        EXPECT_EQ(curve.evaluate(nan), curve.evaluate(nan)) << "no NaN comes out";
    }
    EXPECT_EQ(curve.splice(1.1e9, false, log), Edit::Refused) << "no frame lies there";
    EXPECT_EQ(curve.scale(1e308, log), Edit::Refused) << "beyond what a double holds";
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(content(curve), before);
}

TEST_F(CurveTest, EditsOfAPointThatIsNotThereAreRefused)
{
    key(1, 5);
    log.clear();
    EXPECT_EQ(curve.erase(2, log), Edit::Refused);
    EXPECT_EQ(curve.setValue(2, 1, log), Edit::Refused);
    EXPECT_EQ(curve.move(2, 3, 1, log), Edit::Refused);
    EXPECT_EQ(curve.setLeftHandle(2, 1, 1, log), Edit::Refused);
    EXPECT_EQ(curve.setRightHandle(2, 3, 1, log), Edit::Refused);
    EXPECT_EQ(curve.setConstSegment(2, true, log), Edit::Refused);
    EXPECT_EQ(curve.setContinuity(2, 1, log), Edit::Refused);
    EXPECT_EQ(curve.setContinuity(1, 3, log), Edit::Refused);
    EXPECT_EQ(curve.setContinuity(1, -1, log), Edit::Refused);
    EXPECT_TRUE(log.empty());
}

TEST_F(CurveTest, AMovedPointKeepsItsHandlesInPlaceAndWithinItsNeighbours)
{
    key(1, 0);
    key(10, 5);
    key(20, 0);
    curve.setLeftHandle(10, 4, 7, log);
    curve.setRightHandle(10, 16, 8, log);
    const auto identity = at(curve, 10).identity;
    ASSERT_EQ(curve.move(10, 12, 50, log), Edit::Done);
    EXPECT_EQ(curve.points().find(10), nullptr);
    const CurvePoint moved = at(curve, 12);
    EXPECT_EQ(moved.identity, identity);
    EXPECT_EQ(moved.leftX, 4);
    EXPECT_EQ(moved.leftHandleY(), 7);
    EXPECT_EQ(moved.rightX, 16);
    EXPECT_EQ(moved.rightHandleY(), 8);

    ASSERT_EQ(curve.move(12, 30, 50, log), Edit::Done);
    EXPECT_EQ(at(curve, 30).leftX, 20) << "held by the point that it passed";
    EXPECT_EQ(at(curve, 30).rightX, 30) << "never behind the point";
    EXPECT_EQ(curve.move(30, 20, 1, log), Edit::Refused) << "a point stands there";
}

TEST_F(CurveTest, HandlesAreHeldWithinTheNeighbours)
{
    key(1, 0);
    key(10, 5);
    key(20, 0);
    curve.setLeftHandle(10, -7, 1, log);
    EXPECT_EQ(at(curve, 10).leftX, 1);
    curve.setLeftHandle(10, 15, 1, log);
    EXPECT_EQ(at(curve, 10).leftX, 10);
    curve.setRightHandle(10, 99, 1, log);
    EXPECT_EQ(at(curve, 10).rightX, 20);
    curve.setLeftHandle(1, -99, 1, log);
    EXPECT_EQ(at(curve, 1).leftX, -99) << "nothing stands there";
}

TEST_F(CurveTest, FramesThatComeInMoveWhatLiesBehindThem)
{
    for (const double frame : {1., 5., 5.5, 6., 10.})
        key(frame, frame);
    const CurvePoint before = at(curve, 6);
    ASSERT_EQ(curve.shift(5, 3, log), Edit::Done);
    std::vector<double> frames;
    curve.points().forEach([&](const CurvePoint& point) { frames.push_back(point.frame); });
    EXPECT_EQ(frames, (std::vector<double>{1, 5, 5.5, 9, 13}));
    EXPECT_EQ(at(curve, 9).leftX, before.leftX + 3);
    EXPECT_EQ(at(curve, 9).rightX, before.rightX + 3);
    EXPECT_EQ(at(curve, 9).identity, before.identity);
    EXPECT_EQ(at(curve, 9).value, 6);
}

TEST_F(CurveTest, FramesThatGoTakeTheirPointsAlong)
{
    for (const double frame : {1., 5., 6., 7.5, 8., 10.})
        key(frame, frame);
    ASSERT_EQ(curve.shift(5, -2, log), Edit::Done);
    std::vector<double> frames;
    curve.points().forEach([&](const CurvePoint& point) { frames.push_back(point.frame); });
    EXPECT_EQ(frames, (std::vector<double>{1, 5, 6, 8}));
    EXPECT_EQ(at(curve, 6).value, 8);
    EXPECT_EQ(curve.shift(100, 5, log), Edit::Nothing);
}

TEST_F(CurveTest, TwoPointsThatAShiftBringsTogetherBecomeOneAndComeBack)
{
    key(0.1, 1);
    key(std::nextafter(0.1, 1), 2);
    log.clear();
    const auto before = content(curve);
    ASSERT_EQ(curve.shift(-1, 100000000, log), Edit::Done);
    EXPECT_EQ(curve.points().size(), 1);
    curve.revert(log);
    EXPECT_EQ(content(curve), before);
}

TEST_F(CurveTest, RandomEditsAreTakenBackToEveryBit)
{
    std::mt19937 random(99);
    std::uniform_real_distribution<double> number(-20, 40);
    for (int round = 0; round < 60; ++round) {
        Curve edited;
        std::vector<CurveLog> logs;
        std::vector<std::vector<CurvePoint>> states;
        for (int step = 0; step < 150; ++step) {
            states.push_back(content(edited));
            CurveLog edit;
            const double frame = static_cast<double>(random() % 40) / 2;
            switch (random() % 11) {
            case 0:
            case 1:
            case 2:
                edited.splice(frame, random() % 6 == 0, edit);
                break;
            case 3:
                edited.erase(frame, edit);
                break;
            case 4:
                edited.move(frame, static_cast<double>(random() % 40) / 2, number(random), edit);
                break;
            case 5:
                edited.setValue(frame, number(random), edit);
                break;
            case 6:
                edited.setLeftHandle(frame, number(random), number(random), edit);
                break;
            case 7:
                edited.setRightHandle(frame, number(random), number(random), edit);
                break;
            case 8:
                edited.setConstSegment(frame, random() % 2, edit);
                break;
            case 9:
                edited.scale(number(random) / 7, edit);
                break;
            default:
                edited.shift(static_cast<int>(random() % 20), static_cast<int>(random() % 9) - 4, edit);
                break;
            }
            logs.push_back(edit);

            std::set<unsigned long long> identities;
            double last = -infinity;
            edited.points().forEach([&](const CurvePoint& point) {
                EXPECT_GT(point.frame, last);
                last = point.frame;
                EXPECT_TRUE(identities.insert(point.identity).second);
            });
        }
        while (!logs.empty()) {
            edited.revert(logs.back());
            ASSERT_EQ(content(edited), states.back()) << "round " << round << " step " << logs.size();
            logs.pop_back();
            states.pop_back();
        }
    }
}

TEST_F(CurveTest, APointThatComesBackIsAnotherOne)
{
    key(5, 1);
    const auto identity = at(curve, 5).identity;
    log.clear();
    curve.erase(5, log);
    curve.revert(log);
    EXPECT_NE(at(curve, 5).identity, identity);
}

} // namespace
