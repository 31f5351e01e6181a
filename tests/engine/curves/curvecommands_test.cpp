#include "tests/engine/support/columnproject.h"

#include "tests/support/numbers.h"

#include <random>

namespace {

using namespace tu_timedvalue::bezier;
using namespace tu_timedvalue::fnc2d;

/// A column of an engine that is not this one.
class ForeignColumn final : public TUBezierTimedValue {
public:
    timedValueType type() const override { return kBezier; }
    QString getName() const override { return "foreign"; }
    QString getDisplayName() const override { return "foreign"; }
    bool isAnonymous() const override { return false; }
    SC_SceneCommon* sceneCommon() const override { return nullptr; }
    void accept(AT_TimedValueVisitor&) override {}
    void getValueForXsheet(double, int, QString*, bool&, bool&, bool&, bool&) const override {}
    int setValuesFromXsheet(double, int, const QString&, int) override { return 1; }
    unsigned int getNumLinks() const override { return 0; }
    AT_Attr* linkedAttr(unsigned int) const override { return nullptr; }
    std::vector<MO_Node*> linkedNodes() const override { return {}; }
    void scale(double, int, CO_Command** command) override { *command = nullptr; }
    bool takesValues() const override { return true; }
    CO_Command* spliceCommand(double, bool) override { return nullptr; }
    std::unique_ptr<TUCellMemo> remember(double) override { return nullptr; }
    void endModif(double) override {}
    double evaluate(double) const override { return 0; }
    TUFnc2DPoint curvePoint(int) const override { return {}; }
    bool isConstantAt(double) const override { return false; }
    int pointCount() const override { return 0; }
    bool isKey(double) const override { return false; }
    std::vector<int> keyframes() const override { return {}; }
    CO_Command* createKeyframes(const std::vector<double>&, std::vector<double>&) override { return nullptr; }
    void removeKeyframes(double, double, CO_Command** command) override { *command = nullptr; }
    bool addControlPoint(double) override { return false; }
    int start() const override { return 1; }
    int stop() const override { return 1; }
    int step() const override { return 1; }
    void adjustColumn(double, double, CO_BaseOrCommand&) override {}
    BezierCtrlPt point(int) const override { return {}; }
    bool pointAt(double, BezierCtrlPt&) const override { return false; }
    bool pointBefore(double, BezierCtrlPt&) const override { return false; }
    bool pointAfter(double, BezierCtrlPt&) const override { return false; }
};

class CurveCommandsTest : public ColumnTest {
protected:
    void SetUp() override
    {
        for (const double frame : {1., 10., 20.})
            column->setValueAt(frame, frame * 2, false);
        before = state();
    }
    BezierCtrlPt at(double frame) const
    {
        BezierCtrlPt point;
        EXPECT_TRUE(column->pointAt(frame, point)) << frame;
        return point;
    }

    brindle::engine::BezierColumn* column = addColumn("curve");
    QString before;
};

TEST_F(CurveCommandsTest, ASpliceMakesAKeyOnTheCurve)
{
    const double value = column->evaluate(15);
    ASSERT_TRUE(run(new SpliceCmd(column, 15, true)));
    EXPECT_EQ(at(15).value, value);
    EXPECT_FALSE(at(15).constSegment);
    EXPECT_TRUE(undoesTo(before));
    undo();
    ASSERT_TRUE(run(new SpliceCmd(column, 15, true, true)));
    EXPECT_TRUE(at(15).constSegment);
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(CurveCommandsTest, ASpliceOnAKeyOrWithoutAKeyDoesNothing)
{
    EXPECT_EQ(SpliceCmd(column, 10, true, true).execute(), CO_Command::kNoop);
    EXPECT_EQ(SpliceCmd(column, 15, false).execute(), CO_Command::kNoop);
    EXPECT_EQ(state(), before);
}

TEST_F(CurveCommandsTest, APointIsRemoved)
{
    ASSERT_TRUE(run(new RemovePointCmd(column, 10)));
    EXPECT_FALSE(column->isKey(10));
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(CurveCommandsTest, APointIsMovedWhileItsHandlesStay)
{
    const BezierCtrlPt old = at(10);
    ASSERT_TRUE(run(new SetPointCmd2(column, 10, 11, 5)));
    EXPECT_EQ(at(11).value, 5);
    EXPECT_EQ(at(11).leftX, old.leftX);
    EXPECT_EQ(at(11).leftY, old.leftY);
    EXPECT_EQ(at(11).rightX, old.rightX);
    EXPECT_EQ(at(11).rightY, old.rightY);
    EXPECT_EQ(at(11).identity, old.identity);
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(CurveCommandsTest, HandlesReadBackAsTheyWereSet)
{
    ASSERT_TRUE(run(new SetLeftHandleGlobalCmd(column, 10, 3.1, 0.1)));
    EXPECT_EQ(at(10).leftX, 3.1);
    EXPECT_EQ(at(10).leftY, 0.1);
    EXPECT_TRUE(undoesTo(before));
    const QString left = state();
    ASSERT_TRUE(run(new SetRightHandleGlobalCmd(column, 10, 12.3, 1e-17)));
    EXPECT_EQ(at(10).rightX, 12.3);
    EXPECT_EQ(at(10).rightY, 1e-17);
    EXPECT_EQ(at(10).leftY, 0.1);
    EXPECT_TRUE(undoesTo(left));
}

TEST_F(CurveCommandsTest, SegmentsAndContinuityAreSet)
{
    ASSERT_TRUE(run(new SetConstSegCmd(column, 10, true)));
    EXPECT_TRUE(at(10).constSegment);
    EXPECT_TRUE(undoesTo(before));
    const QString held = state();
    ASSERT_TRUE(run(new SetContinuityCmd(column, 10, 2, 0)));
    EXPECT_EQ(at(10).continuity, 2);
    EXPECT_TRUE(undoesTo(held));
}

TEST_F(CurveCommandsTest, HoldValuesAreSet)
{
    ASSERT_TRUE(run(new SetStartCmd(column, 2)));
    ASSERT_TRUE(run(new SetStopCmd(column, 30)));
    ASSERT_TRUE(run(new SetStepCmd(column, 4)));
    EXPECT_EQ(column->start(), 2);
    EXPECT_EQ(column->stop(), 30);
    EXPECT_EQ(column->step(), 4);
    const QString held = state();
    undo(3);
    EXPECT_EQ(state(), before);
    redo(3);
    EXPECT_EQ(state(), held);
}

TEST_F(CurveCommandsTest, WhatCannotBeIsRefusedAndLeavesNoTrace)
{
    const int entries = manager().historySize();
    const std::vector<CO_Command*> commands = {
        new SpliceCmd(column, nan, true),
        new RemovePointCmd(column, 5),
        new SetPointCmd2(column, 5, 6, 1),
        new SetPointCmd2(column, 10, 20, 1),
        new SetPointCmd2(column, 10, nan, 1),
        new SetPointCmd2(column, 10, 11, nan),
        new SetLeftHandleGlobalCmd(column, 5, 1, 1),
        new SetLeftHandleGlobalCmd(column, 10, nan, 1),
        new SetRightHandleGlobalCmd(column, 5, 1, 1),
        new SetRightHandleGlobalCmd(column, 10, 1, nan),
        new SetConstSegCmd(column, 5, true),
        new SetContinuityCmd(column, 5, 1, 0),
        new SetContinuityCmd(column, 10, 3, 0),
        new SetStartCmd(column, 0),
        new SetStopCmd(column, 0),
        new SetStepCmd(column, -1),
    };
    for (std::size_t index = 0; index < commands.size(); ++index)
        EXPECT_FALSE(run(commands[index])) << index;
    EXPECT_EQ(state(), before);
    EXPECT_EQ(manager().historySize(), entries);
}

TEST_F(CurveCommandsTest, ColumnsOfAnotherEngineAreRefused)
{
    ForeignColumn foreign;
    for (TUBezierTimedValue* stranger :
         {static_cast<TUBezierTimedValue*>(&foreign), static_cast<TUBezierTimedValue*>(nullptr)}) {
        EXPECT_FALSE(run(new SpliceCmd(stranger, 5, true)));
        EXPECT_FALSE(run(new RemovePointCmd(stranger, 5)));
        EXPECT_FALSE(run(new SetPointCmd2(stranger, 5, 5, 5)));
        EXPECT_FALSE(run(new SetLeftHandleGlobalCmd(stranger, 5, 5, 5)));
        EXPECT_FALSE(run(new SetRightHandleGlobalCmd(stranger, 5, 5, 5)));
        EXPECT_FALSE(run(new SetConstSegCmd(stranger, 5, true)));
        EXPECT_FALSE(run(new SetContinuityCmd(stranger, 5, 0, 0)));
        EXPECT_FALSE(run(new SetStartCmd(stranger, 5)));
        EXPECT_FALSE(run(new tu_timedvalue::timedvalue::RenameCmd(stranger, "x")));
        EXPECT_FALSE(run(new tu_timedvalue::timedvalue::SetAnonymous(stranger, true)));
        EXPECT_FALSE(drive(*attribute(add("PEG"), "angle"), stranger));
    }
}

/// Programs of random edits of columns, links and attributes, checked bit by bit at each step of undoing and redoing.
class ColumnPrograms : public testing::TestWithParam<unsigned int>, public ColumnProject {
protected:
    CO_Command* change()
    {
        const double frame = static_cast<double>(m_random() % 60) / 2;
        brindle::engine::BezierColumn* column = columns[m_random() % columns.size()];
        AT_Attr* attr = attributes[m_random() % attributes.size()];
        CO_Command* made = nullptr;
        switch (m_random() % 20) {
        case 0:
        case 1:
        case 2:
            return new SpliceCmd(column, frame, true, m_random() % 4 == 0);
        case 3:
            return new RemovePointCmd(column, frame);
        case 4:
            return new SetPointCmd2(column, frame, static_cast<double>(m_random() % 60) / 2, number());
        case 5:
            return new SetLeftHandleGlobalCmd(column, frame, number(), number());
        case 6:
            return new SetRightHandleGlobalCmd(column, frame, number(), number());
        case 7:
            return new SetConstSegCmd(column, frame, m_random() % 2);
        case 8:
            return new SetContinuityCmd(column, frame, static_cast<int>(m_random() % 4), 0);
        case 9:
            return new SetStepCmd(column, static_cast<int>(m_random() % 4));
        case 10:
            column->scale(number() / 10, 0, &made);
            return made;
        case 11:
            return column->createKeyframes({frame + m_random() % 5, frame, frame + 2}, m_refused);
        case 12:
            column->removeKeyframes(frame, frame + m_random() % 9, &made);
            return made;
        case 13:
        case 14:
            return new tu_tv_socket::LinkCmd(attr->socket(), column);
        case 15:
            return new tu_tv_socket::UnlinkCmd(attr->socket(), 0);
        case 16:
            return new tu_timedvalue::timedvalue::RenameCmd(column, QString::number(m_random() % 6));
        case 17:
            return new tu_timedvalue::timedvalue::SetAnonymous(column, m_random() % 2);
        default:
            return attr->setTextCommand(frame, QString::number(static_cast<int>(m_random() % 3)));
        }
    }

    void step()
    {
        switch (m_random() % 12) {
        case 0:
            scene().setNumberOfFrames(static_cast<int>(m_random() % 50), static_cast<int>(m_random() % 9) - 4, false,
                                      true);
            break;
        case 1:
            column(columns.size())
                ->setValuesFromXsheet(static_cast<double>(m_random() % 30), 1 + static_cast<int>(m_random() % 3),
                                      m_random() % 3 ? QString::number(number()) : QString(), 1);
            break;
        default:
            if (CO_Command* command = change())
                run(command);
        }
    }

    brindle::engine::BezierColumn* column(std::size_t count) { return columns[m_random() % count]; }
    double number() { return std::uniform_real_distribution<double>(-30, 60)(m_random); }

    std::vector<double> m_refused;
    std::mt19937 m_random{GetParam()};
    std::vector<brindle::engine::BezierColumn*> columns = {addColumn("a"), addColumn("b"), addColumn("c")};
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* drawing = add("READ", "Drawing");
    MO_Node* card = add("COLOR_CARD", "Card");
    std::vector<AT_Attr*> attributes = {
        attribute(peg, "angle"),       attribute(peg, "position.x"),  attribute(drawing, "visible"),
        attribute(drawing, "opacity"), attribute(card, "colour.red"), attribute(card, "colour.alpha"),
    };
};

TEST_P(ColumnPrograms, UndoingAndRedoingRestoreEveryBit)
{
    manager().setHistoryMaxSize(100000);
    const int before = manager().executedHistorySize();
    std::vector<QString> states = {state()};
    for (int i = 0; i < 200; ++i) {
        if (m_random() % 5 == 0) {
            CO_CommandAccumScope scope(&manager(), "Several", nullptr, CO_CommandAccumScope::kDefault);
            for (int part = 0; part < 4; ++part)
                step();
            if (m_random() % 3 == 0)
                scope.cancel();
        } else {
            step();
        }
        if (manager().executedHistorySize() - before == static_cast<int>(states.size()))
            states.push_back(state());
        ASSERT_EQ(manager().executedHistorySize() - before + 1, static_cast<int>(states.size()));
        ASSERT_EQ(state(), states.back()) << "what failed or was cancelled left a trace";
    }
    for (std::size_t i = states.size() - 1; i > 0; --i) {
        undo();
        ASSERT_EQ(state(), states[i - 1]) << i;
    }
    for (std::size_t i = 1; i < states.size(); ++i) {
        redo();
        ASSERT_EQ(state(), states[i]) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ColumnPrograms, testing::Range(1u, 21u));

} // namespace
