#include "engine/curves/motionpath.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>

namespace {

using brindle::engine::CurveEdit;
using brindle::engine::makePositionPiece;
using brindle::engine::makeRotationPiece;
using brindle::engine::MotionPath;
using brindle::engine::PieceMaker;
using brindle::engine::VelocityCurve;
using brindle::engine::VelocityPoint;
using Math::Point3d;

struct Motion {
    explicit Motion(PieceMaker maker = &makePositionPiece) : path(velocity, maker) {}

    Motion& key(double frame, const Point3d& position)
    {
        EXPECT_EQ(path.makeKey(frame, position, log), CurveEdit::Done) << frame;
        return *this;
    }
    void parameters(int index, double tension, double continuity, double bias)
    {
        EXPECT_EQ(path.setParameters(index, tension, continuity, bias, log), CurveEdit::Done);
    }
    void setVelocity(double frame, double value)
    {
        VelocityCurve::Log unused;
        velocity.splice(frame, false, unused);
        EXPECT_NE(velocity.setValue(frame, value, unused), CurveEdit::Refused);
    }
    Point3d at(double frame) const
    {
        Point3d position;
        EXPECT_TRUE(path.valueAt(frame, position));
        return position;
    }
    /// All that there is of it, every bit.
    std::string text() const
    {
        std::string text;
        const auto add = [&text](double number) { text.append(reinterpret_cast<const char*>(&number), sizeof number); };
        for (const auto& point : path.points()) {
            for (const double number :
                 {point.position.x, point.position.y, point.position.z, point.tension, point.continuity, point.bias})
                add(number);
        }
        text += '|';
        velocity.points().forEach([&](const VelocityPoint& point) {
            add(point.frame);
            add(point.value);
            text += point.constSegment ? '1' : '0';
        });
        return text;
    }

    VelocityCurve velocity;
    MotionPath path;
    MotionPath::Log log;
};

double between(const Point3d& one, const Point3d& other)
{
    return (one - other).length();
}

TEST(MotionPathTest, APathWithoutPointsHasNoValue)
{
    const Motion motion;
    Point3d position{1, 2, 3};
    EXPECT_FALSE(motion.path.valueAt(5, position));
    EXPECT_EQ(position, Point3d());
}

TEST(MotionPathTest, ItIsAtItsKeyframesExactlyAndStandsStillOutside)
{
    Motion motion;
    motion.key(1, {0.1, 0.2, 0.3}).key(10, {4, -5, 6}).key(25, {1.0 / 3, 8, 1e-9});
    EXPECT_EQ(motion.at(1), Point3d({0.1, 0.2, 0.3}));
    EXPECT_EQ(motion.at(10), Point3d({4, -5, 6}));
    EXPECT_EQ(motion.at(25), Point3d({1.0 / 3, 8, 1e-9}));
    EXPECT_EQ(motion.at(-7), motion.at(1));
    EXPECT_EQ(motion.at(99), motion.at(25));
}

TEST(MotionPathTest, BetweenTwoKeyframesItGoesStraightAtOneSpeed)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(11, {10, 20, -20});
    for (double frame = 1; frame <= 11; frame += 0.25)
        EXPECT_LT(between(motion.at(frame), {frame - 1, 2 * (frame - 1), -2 * (frame - 1)}), 1e-9) << frame;
}

TEST(MotionPathTest, ItsSpeedIsThatOfItsLengthAndNotOfTheParameter)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(2, {0, 1, 0}).key(3, {20, 0, 0}).key(41, {20, 9, 3}).key(42, {0, 9, 3});
    // One way through all of it, at one speed: only the first and the last point of the velocity are left.
    VelocityCurve::Log unused;
    for (const double frame : {2, 3, 41})
        motion.velocity.erase(frame, unused);
    const double step = motion.path.distance(0, 4) / 41;
    for (double frame = 1; frame < 42; ++frame) {
        double gone = 0; // along many short chords
        for (int part = 0; part < 100; ++part)
            gone += between(motion.at(frame + part / 100.0), motion.at(frame + (part + 1) / 100.0));
        EXPECT_NEAR(gone, step, step * 2e-3) << frame;
    }
}

TEST(MotionPathTest, TheVelocityTellsThePlace)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(11, {10, 0, 0}).key(21, {10, 10, 0});
    motion.setVelocity(6, 1); // at the second control point already
    EXPECT_EQ(motion.at(6), Point3d({10, 0, 0}));
    EXPECT_EQ(motion.at(8.5), Point3d({10, 0, 0})) << "and there up to the keyframe";
    motion.setVelocity(6, 1.5);
    const double half = motion.path.distance(1, 1.5);
    EXPECT_NEAR(half * 2, motion.path.distance(1, 2), 1e-9);
    motion.setVelocity(6, 77);
    EXPECT_EQ(motion.at(6), Point3d({10, 10, 0})) << "beyond the end is the end";
}

TEST(MotionPathTest, WithoutParametersItIsTheSplineOfCatmullAndRom)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(2, {1, 2, 0}).key(3, {4, 3, 1}).key(4, {5, 0, 2});
    // The middle of the piece by parameter: (-p0 + 9 p1 + 9 p2 - p3) / 16. It lies on the path.
    const Point3d middle{(9 + 36 - 5) / 16.0, (18 + 27) / 16.0, (9 - 2) / 16.0};
    double nearest = 1e9;
    for (int i = 0; i <= 10000; ++i)
        nearest = std::min(nearest, between(motion.at(2 + i / 10000.0), middle));
    EXPECT_LT(nearest, 1e-3);
}

TEST(MotionPathTest, TensionOfOneGoesStraightFromPointToPoint)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(2, {1, 5, 0}).key(3, {7, 3, 1}).key(4, {5, 0, 2});
    motion.parameters(1, 1, 0, 0);
    motion.parameters(2, 1, 0, 0);
    for (double frame = 2; frame <= 3; frame += 0.1) {
        const Point3d position = motion.at(frame);
        EXPECT_NEAR(between(position, {1, 5, 0}) + between(position, {7, 3, 1}), between({1, 5, 0}, {7, 3, 1}), 1e-9);
    }
}

TEST(MotionPathTest, ContinuityMakesACornerAndBiasBendsBehindThePoint)
{
    const auto turnAt = [](const Motion& motion, double frame) {
        const auto before = motion.at(frame) - motion.at(frame - 1e-4);
        const auto after = motion.at(frame + 1e-4) - motion.at(frame);
        return std::acos(std::clamp(before.dot(after) / (before.length() * after.length()), -1.0, 1.0));
    };
    Motion motion;
    motion.key(1, {0, 0, 0}).key(11, {10, 10, 0}).key(21, {20, 0, 0});
    EXPECT_NEAR(turnAt(motion, 11), 0, 1e-2);
    EXPECT_NEAR(motion.at(10).y, motion.at(12).y, 1e-6) << "even on both sides";
    motion.parameters(1, 0, -1, 0);
    EXPECT_NEAR(turnAt(motion, 11), std::numbers::pi / 2, 1e-2) << "along the chords";
    motion.parameters(1, 0, 0, 1);
    EXPECT_NEAR(turnAt(motion, 11), 0, 1e-2);
    EXPECT_GT(motion.at(12).y, 10) << "it goes on beyond the point";
    EXPECT_LT(motion.at(10).y, 10);
}

TEST(MotionPathTest, TwoKeyframesAtOnePlaceAreARest)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(11, {10, 5, 0}).key(21, {10, 5, 0}).key(31, {20, 0, 0});
    for (double frame = 11; frame <= 21; frame += 0.5)
        EXPECT_EQ(motion.at(frame), Point3d({10, 5, 0})) << frame;
}

TEST(MotionPathTest, AKeyframeThatIsMadeLiesOnThePath)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(11, {10, 5, 0}).key(21, {20, 0, 3}).key(31, {20, -10, 0});
    for (const double frame : {5.0, 17.25, 26.0, 0.0, 40.0}) {
        const Point3d before = motion.at(frame);
        EXPECT_EQ(motion.path.addKey(frame, motion.log), CurveEdit::Done);
        EXPECT_LT(between(motion.at(frame), before), 1e-9) << frame;
        EXPECT_GE(motion.path.keyAt(frame), 0);
        EXPECT_EQ(motion.path.addKey(frame, motion.log), CurveEdit::Nothing);
    }
    EXPECT_EQ(motion.path.size(), 9);
    EXPECT_EQ(motion.at(11), Point3d({10, 5, 0})) << "the others are where they were";
    EXPECT_EQ(motion.at(31), Point3d({20, -10, 0}));
    for (int index = 0; index < motion.path.size(); ++index)
        EXPECT_EQ(motion.velocity.points().at(index).value, index) << "in the order of their frames";
}

TEST(MotionPathTest, AKeyframeInARestMovesAlone)
{
    Motion motion;
    motion.key(1, {1, 1, 1}).key(11, {1, 1, 1});
    EXPECT_EQ(motion.path.setKey(6, {9, 9, 9}, motion.log), CurveEdit::Done);
    EXPECT_EQ(motion.at(1), Point3d({1, 1, 1}));
    EXPECT_EQ(motion.at(6), Point3d({9, 9, 9}));
    EXPECT_EQ(motion.at(11), Point3d({1, 1, 1}));
    EXPECT_EQ(motion.path.setKey(0, {5, 0, 0}, motion.log), CurveEdit::Done) << "ahead of all";
    EXPECT_EQ(motion.at(1), Point3d({1, 1, 1}));
    EXPECT_EQ(motion.at(0), Point3d({5, 0, 0}));
}

TEST(MotionPathTest, AControlPointGoesWithItsLastKeyframe)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(11, {10, 5, 0}).key(21, {20, 0, 0});
    motion.setVelocity(31, 1);
    EXPECT_EQ(motion.path.removeKeys({11}, motion.log), CurveEdit::Done);
    EXPECT_EQ(motion.path.size(), 3) << "frame 31 still stands on it";
    EXPECT_EQ(motion.at(31), Point3d({10, 5, 0}));
    EXPECT_EQ(motion.path.removeKeys({31}, motion.log), CurveEdit::Done);
    EXPECT_EQ(motion.path.size(), 2);
    EXPECT_LT(between(motion.at(11), {10, 0, 0}), 1e-9);
    EXPECT_EQ(motion.at(21), Point3d({20, 0, 0}));
}

TEST(MotionPathTest, AControlPointWithoutAKeyframeHasTheTimeAtWhichThePathIsThere)
{
    Motion motion;
    motion.key(1, {0, 0, 0}).key(11, {10, 0, 0}).key(21, {20, 0, 0}).key(31, {30, 0, 0});
    VelocityCurve::Log unused;
    motion.velocity.erase(11, unused);
    EXPECT_EQ(motion.path.keyOf(1), nullptr);
    const double time = motion.path.timeOf(1);
    EXPECT_NEAR(time, 11, 1e-6);
    EXPECT_LT(between(motion.at(time), {10, 0, 0}), 1e-6);
    motion.velocity.erase(31, unused);
    EXPECT_EQ(motion.path.timeOf(3), 21) << "never reached";
    EXPECT_EQ(motion.path.trim(motion.log), CurveEdit::Done);
    EXPECT_EQ(motion.path.size(), 3);
    EXPECT_EQ(motion.path.trim(motion.log), CurveEdit::Nothing);
}

TEST(MotionPathTest, NumbersThatItCannotHaveAreRefused)
{
    Motion motion;
    motion.key(1, {0, 0, 0});
    const std::string before = motion.text();
    EXPECT_EQ(motion.path.move(0, {NAN, 0, 0}, motion.log), CurveEdit::Refused);
    EXPECT_EQ(motion.path.move(1, {0, 0, 0}, motion.log), CurveEdit::Refused);
    EXPECT_EQ(motion.path.setParameters(0, 1.01, 0, 0, motion.log), CurveEdit::Refused);
    EXPECT_EQ(motion.path.setParameters(0, 0, NAN, 0, motion.log), CurveEdit::Refused);
    EXPECT_EQ(motion.path.addKey(INFINITY, motion.log), CurveEdit::Refused);
    EXPECT_EQ(motion.path.remove(-1, motion.log), CurveEdit::Refused);
    EXPECT_EQ(motion.path.makeKey(1, {0, 0, 0}, motion.log), CurveEdit::Refused);
    EXPECT_EQ(motion.text(), before);
}

TEST(MotionPathTest, PlacesFartherApartThanADoubleHoldsAreStillPlaces)
{
    Motion motion;
    motion.key(1, {-1.7e308, 0, 0}).key(11, {1.7e308, 1.7e308, 0}).key(21, {0, 0, 0});
    for (double frame = 1; frame <= 21; ++frame)
        EXPECT_TRUE(std::isfinite(motion.at(frame).x)) << frame;
    EXPECT_EQ(motion.at(11).y, 1.7e308);
}

TEST(MotionPathTest, EditsAreTakenBackToTheLastBit)
{
    for (unsigned int seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> number(-20, 20);
        const auto below = [&random](unsigned int count) { return static_cast<int>(random() % count); };
        Motion motion(seed % 2 ? &makeRotationPiece : &makePositionPiece);
        std::vector<std::string> states{motion.text()};
        std::vector<MotionPath::Log> logs;
        for (int step = 0; step < 60; ++step) {
            MotionPath::Log log;
            const double frame = below(3) ? below(40) : number(random);
            const Point3d position{number(random), number(random), below(3) ? 0 : number(random)};
            CurveEdit edit = CurveEdit::Nothing;
            switch (below(11)) {
            case 0:
                edit = motion.path.addKey(frame, log);
                break;
            case 1:
            case 2:
                edit = motion.path.setKey(frame, position, log);
                break;
            case 3:
                edit = motion.path.remove(below(8), log);
                break;
            case 4:
                edit = motion.path.removeKeys(motion.path.keyFrames(frame, frame + 6), log);
                break;
            case 5:
                edit = motion.path.trim(log);
                break;
            case 6:
                edit = motion.path.shift(below(30), below(9) - 4, log);
                break;
            case 7:
                edit = motion.path.scale(number(random), below(4), log);
                break;
            case 8:
                edit = motion.path.clear(frame, frame + 3, log);
                break;
            case 9:
                log.push_back({brindle::engine::MotionChange::Velocity});
                motion.velocity.splice(frame, below(4) == 0, log.back().velocity);
                motion.velocity.setValue(frame, below(2) ? number(random) / 4 : below(6), log.back().velocity);
                break;
            default:
                edit = motion.path.setParameters(below(6), number(random) / 20, 0.5, -1, log);
            }
            if (edit == CurveEdit::Refused)
                motion.path.revert(log);
            for (const double probe : {-3.0, 4.5, 11.0, 37.25}) {
                Point3d at;
                motion.path.valueAt(probe, at);
                ASSERT_TRUE(std::isfinite(at.x) && std::isfinite(at.y) && std::isfinite(at.z));
            }
            logs.push_back(std::move(log));
            states.push_back(motion.text());
        }
        while (!logs.empty()) {
            states.pop_back();
            motion.path.revert(logs.back());
            logs.pop_back();
            ASSERT_EQ(motion.text(), states.back()) << "seed " << seed << " step " << logs.size();
        }
    }
}

// Rotations.

TEST(RotationPathTest, BetweenTwoKeyframesItTurnsAboutOneAxisAtOneSpeed)
{
    Motion motion(&makeRotationPiece);
    motion.key(1, {0, 0, 0}).key(11, {0, 0, 120});
    for (double frame = 1; frame <= 11; frame += 0.5)
        EXPECT_LT(between(motion.at(frame), {0, 0, 12 * (frame - 1)}), 1e-6) << frame;
    EXPECT_NEAR(motion.path.distance(0, 1), 120, 1e-9) << "lengths are angles";
}

TEST(RotationPathTest, ItTakesTheShorterWayRound)
{
    Motion motion(&makeRotationPiece);
    motion.key(1, {0, 0, 10}).key(11, {0, 0, 350});
    EXPECT_NEAR(motion.at(6).z, 0, 1e-6);
    EXPECT_EQ(motion.at(11).z, 350) << "a keyframe has the angles that it was given";
    EXPECT_NEAR(motion.path.distance(0, 1), 20, 1e-9);
}

TEST(RotationPathTest, AHalfTurnAboutAnotherAxisIsAQuarterAfterHalfTheTime)
{
    Motion motion(&makeRotationPiece);
    motion.key(1, {90, 0, 0}).key(3, {0, 0, 90});
    // The product of both quaternions is a turn of 120 degrees about a diagonal; halfway it is 60.
    EXPECT_NEAR(motion.path.distance(0, 1), 120, 1e-9);
    Motion half(&makeRotationPiece);
    half.key(1, {90, 0, 0}).key(2, motion.at(2));
    EXPECT_NEAR(half.path.distance(0, 1), 60, 1e-5);
}

TEST(RotationPathTest, ThroughSeveralKeyframesItsAngularVelocityHasNoJump)
{
    Motion motion(&makeRotationPiece);
    motion.key(1, {0, 0, 0}).key(11, {40, 20, 0}).key(21, {60, 80, 10}).key(31, {0, 30, -70});
    const auto turned = [](const Point3d& from, const Point3d& to) {
        Motion turn(&makeRotationPiece);
        turn.key(1, from).key(2, to);
        return turn.path.distance(0, 1);
    };
    for (const double frame : {11.0, 21.0}) {
        const double step = 1e-3;
        const double before = turned(motion.at(frame - step), motion.at(frame)) / step;
        const double after = turned(motion.at(frame), motion.at(frame + step)) / step;
        EXPECT_NEAR(before, after, 0.02 * before) << frame;
        EXPECT_NEAR(turned(motion.at(frame - step), motion.at(frame + step)) / step, before + after, 0.02 * before)
            << "nor has its axis";
    }
}

TEST(RotationPathTest, WhereYIsARightAngleTheRotationIsStillTheSame)
{
    Motion motion(&makeRotationPiece);
    motion.key(1, {30, 90, 0}).key(11, {30, 90, 0}).key(21, {50, -90, 20});
    for (double frame = 1; frame <= 21; ++frame) {
        const Point3d angles = motion.at(frame);
        EXPECT_TRUE(std::isfinite(angles.x) && std::abs(angles.y) <= 90 + 1e-9 && std::isfinite(angles.z)) << frame;
    }
    EXPECT_EQ(motion.at(5), Point3d({30, 90, 0}));
}

} // namespace
