#include "engine/curves/beziercolumn.h"

#include "tests/engine/support/columnproject.h"
#include "tests/support/numbers.h"

#include <numeric>
#include <random>

namespace {

class BezierColumnTest : public ColumnTest {
protected:
    void key(double frame, double value) { ASSERT_TRUE(column->setValueAt(frame, value, false)); }
    BezierCtrlPt at(double frame) const
    {
        BezierCtrlPt point;
        EXPECT_TRUE(column->pointAt(frame, point)) << frame;
        return point;
    }
    QString cell(double frame) const
    {
        QString text;
        bool flags[4];
        column->getValueForXsheet(frame, 1, &text, flags[0], flags[1], flags[2], flags[3]);
        return text;
    }

    brindle::engine::BezierColumn* column = addColumn("curve");
};

TEST_F(BezierColumnTest, SaysWhatItIs)
{
    class Kind final : public AT_TimedValueVisitor {
    public:
        using AT_TimedValueVisitor::visit;
        void visit(TUBezierTimedValue&) override { isBezier = true; }
        bool isBezier = false;
    } kind;
    column->accept(kind);
    EXPECT_TRUE(kind.isBezier);
    EXPECT_EQ(column->type(), TUTimedValue::kBezier);
    EXPECT_EQ(column->getName(), "curve");
    EXPECT_EQ(column->sceneCommon(), scene().sceneCommon());
    EXPECT_EQ(column->start(), 1);
    EXPECT_EQ(column->stop(), 1);
    EXPECT_EQ(column->step(), 1);
}

TEST_F(BezierColumnTest, PointsAreFoundByPlaceAndFrame)
{
    for (const double frame : {10., 1., 5.5})
        key(frame, frame);
    EXPECT_EQ(column->pointCount(), 3);
    EXPECT_EQ(column->point(1).frame, 5.5);
    BezierCtrlPt point;
    EXPECT_FALSE(column->pointAt(5, point));
    EXPECT_FALSE(column->pointBefore(0.5, point));
    EXPECT_TRUE(column->pointBefore(5.5, point));
    EXPECT_EQ(point.frame, 5.5);
    EXPECT_TRUE(column->pointAfter(5.5, point));
    EXPECT_EQ(point.frame, 10);
    EXPECT_FALSE(column->pointAfter(10, point));
    EXPECT_TRUE(column->isKey(5.5));
    EXPECT_FALSE(column->isKey(5));
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 5, 10}));
}

TEST_F(BezierColumnTest, WhatIsRememberedComesBackToTheLastBit)
{
    std::mt19937 random(31);
    std::uniform_real_distribution<double> number(-30, 60);
    for (int round = 0; round < 300; ++round) {
        brindle::engine::BezierColumn curve("c");
        const int count = static_cast<int>(random() % 6);
        for (int i = 0; i < count; ++i) {
            BezierCtrlPt point;
            point.frame = i * 7;
            point.value = number(random);
            point.leftX = point.frame - std::abs(number(random));
            point.leftY = number(random);
            point.rightX = point.frame + std::abs(number(random));
            point.rightY = number(random);
            point.constSegment = random() % 4 == 0;
            ASSERT_TRUE(curve.putPoint(point));
        }
        const QString before = curveDump(curve);
        std::vector<std::unique_ptr<TUCellMemo>> memos;
        for (int i = 0; i < 8; ++i) {
            const double frame = i % 3 == 0 ? 7 * (i / 3) : number(random);
            memos.push_back(curve.remember(frame));
            curve.addControlPoint(frame);
            curve.setValueAt(frame, number(random), random() % 2);
        }
        for (; !memos.empty(); memos.pop_back()) {
            memos.back()->restore();
            const QString once = curveDump(curve);
            memos.back()->restore();
            ASSERT_EQ(curveDump(curve), once);
        }
        ASSERT_EQ(curveDump(curve), before);
    }
}

TEST_F(BezierColumnTest, APointThatIsRememberedStaysTheOneThatItIs)
{
    key(1, 0);
    key(20, 10);
    const auto memo = column->remember(20);
    const auto identity = at(20).identity;
    key(20, -3);
    memo->restore();
    EXPECT_EQ(at(20).value, 10);
    EXPECT_EQ(at(20).identity, identity);
}

TEST_F(BezierColumnTest, APointIsPutAsItIsGiven)
{
    key(5, 1);
    BezierCtrlPt point = at(5);
    const auto identity = point.identity;
    point.value = 0.1;
    point.leftX = 0.3;
    point.leftY = 1e300;
    point.rightX = 77.7;
    point.rightY = -0.7;
    point.constSegment = true;
    point.continuity = 2;
    point.identity = 12345;
    ASSERT_TRUE(column->putPoint(point));
    const BezierCtrlPt there = at(5);
    EXPECT_EQ(there.value, 0.1);
    EXPECT_EQ(there.leftX, 0.3);
    EXPECT_EQ(there.leftY, 1e300);
    EXPECT_EQ(there.rightX, 77.7);
    EXPECT_EQ(there.rightY, -0.7);
    EXPECT_TRUE(there.constSegment);
    EXPECT_EQ(there.continuity, 2);
    EXPECT_EQ(there.identity, identity);

    point.frame = infinity;
    EXPECT_FALSE(column->putPoint(point));
    point.frame = 5;
    point.rightY = nan;
    EXPECT_FALSE(column->putPoint(point));
    point.rightY = 0;
    point.continuity = 3;
    EXPECT_FALSE(column->putPoint(point));
    EXPECT_EQ(at(5).rightY, -0.7);
}

TEST_F(BezierColumnTest, ValuesThatAreNotNumbersAndFramesOutOfBoundsAreRefused)
{
    key(1, 1);
    const QString before = curveDump(*column);
    for (const double bad : {nan, infinity, -infinity}) {
        EXPECT_FALSE(column->setValueAt(5, bad, false));
        EXPECT_FALSE(column->setValueAt(bad, 5, false));
        EXPECT_FALSE(column->addControlPoint(bad));
    }
    EXPECT_FALSE(column->addControlPoint(2e9));
    EXPECT_EQ(curveDump(*column), before);
}

TEST_F(BezierColumnTest, HeldFramesShowTheValueOfTheStepThatTheyLieIn)
{
    key(1, 0);
    key(101, 100);
    const double three = column->evaluate(3);
    column->setStart(3);
    column->setStop(20);
    column->setStep(5);
    EXPECT_EQ(column->evaluate(7.9), three);
    EXPECT_NE(column->evaluate(8), three);
    EXPECT_EQ(column->evaluate(12), column->evaluate(8));
    EXPECT_EQ(column->evaluate(20), column->evaluate(18));
    EXPECT_NE(column->evaluate(21), column->evaluate(20));
    EXPECT_EQ(column->evaluate(1), 0);
}

TEST_F(BezierColumnTest, CellsShowTheShortestTextOfTheValue)
{
    EXPECT_EQ(cell(1), "");
    key(1, 0.1);
    key(11, -0.0);
    EXPECT_EQ(cell(1), "0.1");
    EXPECT_EQ(cell(11), "0");
    column->setValueAt(11, 1e21, false);
    EXPECT_EQ(cell(11), "1e+21");
}

TEST_F(BezierColumnTest, CellsTellHowTheyLook)
{
    QString text;
    bool isKey, isHeld, isBlank, isLocked;
    column->getValueForXsheet(1, 1, &text, isKey, isHeld, isBlank, isLocked);
    EXPECT_TRUE(isBlank);
    key(1, 5);
    column->setValueAt(1, 5, true);
    column->getValueForXsheet(1, 1, &text, isKey, isHeld, isBlank, isLocked);
    EXPECT_TRUE(isKey);
    EXPECT_FALSE(isBlank);
    column->getValueForXsheet(2, 1, nullptr, isKey, isHeld, isBlank, isLocked);
    EXPECT_FALSE(isKey);
    EXPECT_TRUE(isHeld);
    EXPECT_FALSE(isLocked);
}

TEST_F(BezierColumnTest, TypedNumbersMakeKeysUndoably)
{
    key(1, 5);
    const QString before = state();
    EXPECT_EQ(column->setValuesFromXsheet(10, 3, " 2.5 ", 1), 0);
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 10, 11, 12}));
    EXPECT_EQ(column->evaluate(11), 2.5);
    EXPECT_EQ(labels().last(), "Set Cells");
    EXPECT_TRUE(undoesTo(before));

    const QString written = state();
    EXPECT_EQ(column->setValuesFromXsheet(11, 1, "", 1), 0);
    EXPECT_FALSE(column->isKey(11));
    EXPECT_EQ(labels().last(), "Clear Cells");
    EXPECT_TRUE(undoesTo(written));
}

TEST_F(BezierColumnTest, TextsThatAreNoNumbersAreRefusedAndChangeNothing)
{
    key(1, 5);
    const QString before = state();
    const int entries = manager().historySize();
    for (const char* text : {"abc", "1,5", "nan", "inf", "-inf", "1e999", "1 2", "0x"})
        EXPECT_NE(column->setValuesFromXsheet(1, 1, text, 1), 0) << text;
    EXPECT_NE(column->setValuesFromXsheet(nan, 1, "1", 1), 0);
    EXPECT_NE(column->setValuesFromXsheet(1, 0, "1", 1), 0);
    EXPECT_NE(column->setValuesFromXsheet(1, 2000000000, "1", 1), 0);
    EXPECT_EQ(column->setValuesFromXsheet(5, 1, "", 1), 0) << "no key to take away";
    EXPECT_EQ(state(), before);
    EXPECT_EQ(manager().historySize(), entries);
    brindle::engine::BezierColumn outside("outside");
    EXPECT_NE(outside.setValuesFromXsheet(1, 1, "1", 1), 0) << "nowhere to undo it";
}

TEST_F(BezierColumnTest, ScalingIsAboutZeroAndTakesTheHandlesAlong)
{
    key(1, 3);
    key(10, -4);
    const QString before = state();
    CO_Command* command = nullptr;
    column->scale(2, 0, &command);
    ASSERT_TRUE(run(command));
    EXPECT_EQ(at(1).value, 6);
    EXPECT_EQ(at(1).rightY, 6);
    EXPECT_EQ(at(10).value, -8);
    EXPECT_EQ(at(10).leftY, -8) << "flat at 3, carried down by 7, then doubled";
    EXPECT_TRUE(undoesTo(before));

    column->scale(nan, 0, &command);
    EXPECT_EQ(command, nullptr);
    column->scale(1e308, 0, &command);
    EXPECT_FALSE(run(command)) << "values that a double doesn't hold";
}

TEST_F(BezierColumnTest, KeyframesAreMadeOnTheCurveAndThoseThatStandStay)
{
    key(1, 0);
    key(10, 9);
    const double five = column->evaluate(5);
    const QString before = state();
    std::vector<double> refused;
    ASSERT_TRUE(run(column->createKeyframes({5, 2, 1, 4, 3, 4}, refused)));
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 2, 3, 4, 5, 10}));
    EXPECT_NEAR(column->evaluate(5), five, 1e-12);
    EXPECT_TRUE(undoesTo(before));

    for (const std::vector<double>& frames : {std::vector<double>{10}, std::vector<double>{}}) {
        const std::unique_ptr<CO_Command> command(column->createKeyframes(frames, refused));
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(command->execute(), CO_Command::kNoop);
    }
    EXPECT_TRUE(refused.empty());
    EXPECT_EQ(column->createKeyframes({7, infinity, 8, 1e10}, refused), nullptr);
    EXPECT_EQ(refused, (std::vector<double>{infinity, 1e10}));
    EXPECT_EQ(column->createKeyframes({nan}, refused), nullptr);
    EXPECT_TRUE(std::isnan(refused.back()));
}

TEST_F(BezierColumnTest, ASpliceIsAKeyThatLeavesTheCurve)
{
    key(1, 0);
    key(10, 5);
    const double four = column->evaluate(4);
    const QString before = state();
    ASSERT_TRUE(run(column->spliceCommand(4, false)));
    EXPECT_EQ(at(4).value, four);
    EXPECT_FALSE(at(4).constSegment);
    EXPECT_TRUE(undoesTo(before));
    ASSERT_TRUE(run(column->spliceCommand(6, true)));
    EXPECT_TRUE(at(6).constSegment);
    EXPECT_EQ(column->spliceCommand(4, false), nullptr) << "a key stands there";
}

TEST_F(BezierColumnTest, ACurveSaysWhatItsPointsAreApartFromTheirHandles)
{
    key(1, 0);
    column->setValueAt(10, 5, true);
    EXPECT_EQ(column->curvePoint(1).frame, 10);
    EXPECT_EQ(column->curvePoint(1).value, 5);
    EXPECT_TRUE(column->curvePoint(1).constSegment);
    EXPECT_FALSE(column->curvePoint(0).constSegment);
    EXPECT_FALSE(column->isConstantAt(0)) << "ahead of the first point";
    EXPECT_FALSE(column->isConstantAt(9));
    EXPECT_TRUE(column->isConstantAt(10));
    EXPECT_TRUE(column->isConstantAt(11));
    EXPECT_TRUE(column->takesValues());
}

TEST_F(BezierColumnTest, ACopyHasTheSameCurveAndNoLinks)
{
    key(1, 0);
    column->setValueAt(10, 5, true);
    column->setStep(3);
    column->setStop(9);
    const auto made = column->copy("other", true);
    const auto& copy = dynamic_cast<const brindle::engine::BezierColumn&>(*made);
    EXPECT_EQ(curveDump(copy), curveDump(*column));
    EXPECT_EQ(copy.getName(), "other");
    EXPECT_TRUE(copy.isAnonymous());
    EXPECT_EQ(copy.sceneCommon(), nullptr);
    EXPECT_EQ(copy.getNumLinks(), 0u);
    key(1, 7);
    EXPECT_EQ(copy.evaluate(1), 0);
}

TEST_F(BezierColumnTest, KeyframesOfARangeAreRemoved)
{
    for (const double frame : {1., 4.5, 5., 6., 10.})
        key(frame, frame);
    const QString before = state();
    CO_Command* command = nullptr;
    column->removeKeyframes(4, 6, &command);
    ASSERT_TRUE(run(command));
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 10}));
    EXPECT_TRUE(undoesTo(before));
    for (const auto& [first, last] : {std::pair(2., 9.), std::pair(9., 2.), std::pair(nan, nan), std::pair(11., 99.)}) {
        column->removeKeyframes(first, last, &command);
        EXPECT_EQ(command, nullptr) << first << " to " << last;
    }
}

TEST_F(BezierColumnTest, AValueSetBehindTheLastKeyTakesThatKeyAlong)
{
    key(1, 0);
    key(10, 5);
    const QString before = state();
    auto* commands = new CO_OrCommand(true);
    column->adjustColumn(20, 8, *commands);
    EXPECT_EQ(commands->size(), 1);
    ASSERT_TRUE(run(commands));
    EXPECT_EQ(at(10).value, 8);
    EXPECT_EQ(at(1).value, 0);
    EXPECT_TRUE(undoesTo(before));

    CO_OrCommand none(true);
    column->adjustColumn(10, 8, none);
    column->adjustColumn(5, 8, none);
    brindle::engine::BezierColumn("empty").adjustColumn(5, 8, none);
    EXPECT_EQ(none.size(), 0);
}

TEST_F(BezierColumnTest, FramesOfTheSceneComeAndGoWithTheirKeys)
{
    for (const double frame : {1., 5., 6., 7.5, 8., 30.})
        key(frame, frame);
    const QString before = state();
    scene().setNumberOfFrames(5, 10, false, true);
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 5, 16, 17, 18, 40}));
    EXPECT_TRUE(undoesTo(before));
    undo();
    scene().setNumberOfFrames(5, -2, false, true);
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 5, 6, 28}));
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(BezierColumnTest, TheFramesThatAreHeldMoveAlong)
{
    struct Hold {
        int start, stop, step;
        bool operator==(const Hold&) const = default;
    };
    struct {
        Hold before;
        int at, delta;
        Hold after;
    } const moves[] = {
        {{10, 30, 2}, 5, 10, {20, 40, 2}}, {{10, 30, 2}, 20, 10, {10, 40, 2}}, {{10, 30, 2}, 30, 10, {10, 30, 2}},
        {{10, 30, 2}, 0, -5, {5, 25, 2}},  {{10, 30, 2}, 5, -10, {6, 20, 2}},  {{10, 30, 2}, 25, -10, {10, 25, 2}},
        {{10, 30, 2}, 5, -30, {5, 5, 2}},  {{1, 30, 2}, 0, -40, {1, 1, 2}},    {{10, 30, 1}, 5, 10, {10, 30, 1}},
        {{30, 10, 2}, 5, 10, {30, 10, 2}},
    };
    for (const auto& [hold, at, delta, after] : moves) {
        ASSERT_TRUE(column->setStart(hold.start) && column->setStop(hold.stop) && column->setStep(hold.step));
        const QString before = state();
        scene().setNumberOfFrames(at, delta, false, true);
        EXPECT_EQ((Hold{column->start(), column->stop(), column->step()}), after) << at << ' ' << delta;
        EXPECT_TRUE(undoesTo(before));
        undo();
    }
}

TEST_F(BezierColumnTest, KeysOnAStretchAreClearedAndTheOthersStay)
{
    for (const double frame : {1., 5., 5.5, 6., 9.75, 10., 30.})
        key(frame, frame);
    EXPECT_EQ(column->clearFramesCommand(10, 19), nullptr);
    EXPECT_EQ(column->clearFramesCommand(30, 1'000'000), nullptr);
    const QString before = state();
    ASSERT_TRUE(run(column->clearFramesCommand(5, 4).release()));
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 5, 5, 10, 30}));
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(BezierColumnTest, SwitchesGetKeysThatHold)
{
    MO_Node* drawing = add("READ", "Drawing");
    ASSERT_TRUE(drive(*attribute(drawing, "visible"), column));
    key(1, 1);
    key(10, 0);
    EXPECT_TRUE(at(1).constSegment);
    EXPECT_EQ(column->evaluate(9.5), 1);
    ASSERT_TRUE(drive(*attribute(drawing, "angle"), column));
    key(20, 0);
    EXPECT_FALSE(at(20).constSegment);
}

TEST_F(BezierColumnTest, AHundredThousandKeysInAnyOrderAreMadeAndTakenBackQuickly)
{
    std::vector<int> frames(100000);
    std::iota(frames.begin(), frames.end(), 1);
    std::shuffle(frames.begin(), frames.end(), std::mt19937(17));
    const QString before = curveDump(*column);
    CO_AndCommand commands;
    for (const int frame : frames)
        commands.add(new tu_timedvalue::bezier::SpliceCmd(column, frame, true));
    ASSERT_EQ(commands.execute(), CO_Command::kOk);
    EXPECT_EQ(column->pointCount(), 100000);
    double sum = 0;
    for (int i = 0; i < 100000; ++i)
        sum += column->evaluate(i + 0.5);
    EXPECT_EQ(sum, 0);
    commands.unexecute();
    EXPECT_EQ(curveDump(*column), before);
}

} // namespace
