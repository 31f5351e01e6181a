#include "core/host/dd_deletesequence.h"

#include "tests/engine/support/columnproject.h"

#include <limits>
#include <random>

namespace {

class DeleteSequenceTest : public ColumnTest {
protected:
    std::unique_ptr<CO_Command> command(int at, int count)
    {
        DD_DropMode mode(1);
        mode.SetStartDeleteFrame(at);
        mode.SetNumFramesSrc(count);
        DD_DeleteSequenceVisitor visitor(mode);
        visitor.visit(scene());
        return visitor.takeCommand();
    }

    brindle::engine::BezierColumn* keyed(const QString& name, const std::vector<double>& frames)
    {
        brindle::engine::BezierColumn* column = addColumn(name);
        for (const double frame : frames)
            run(column->setValueCommand(frame, 10.0 * frame).release());
        manager().clearHistory();
        return column;
    }

    /// As a script removes frames: what lies on them first, then the frames.
    void removeInTwoSteps(int at, int count)
    {
        CO_CommandAccumScope scope(&manager(), "Remove Frames", nullptr, CO_CommandAccumScope::kDefault);
        if (auto clearing = command(at, count))
            manager().execute(clearing.release(), QString());
        scene().setNumberOfFrames(at, -count, true, true);
    }
};

} // namespace

TEST_F(DeleteSequenceTest, KeysOnTheStretchGoAndAllOthersStay)
{
    brindle::engine::BezierColumn* column = keyed("A", {1, 9.5, 10, 12, 14.5, 15, 30});
    brindle::engine::BezierColumn* empty = keyed("B", {});
    const QString before = state();
    ASSERT_TRUE(run(command(9, 5).release()));
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 9, 15, 30}));
    EXPECT_TRUE(empty->keyframes().empty());
    EXPECT_EQ(scene().getNumberOfFrames(), 60);
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(DeleteSequenceTest, WhereNothingLiesThereIsNoCommand)
{
    keyed("A", {1, 30});
    EXPECT_FALSE(command(9, 5));
    EXPECT_FALSE(command(30, 30));
    EXPECT_TRUE(command(29, 1));
}

TEST_F(DeleteSequenceTest, AStretchThatTheSceneCantLoseGivesNoCommand)
{
    keyed("A", {1, 30, 60});
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    const std::pair<int, int> stretches[] = {{0, 0},  {0, -1},   {0, 60},    {0, least}, {-1, 5}, {50, 11},
                                             {61, 1}, {0, most}, {most, 10}, {least, 5}, {60, 60}};
    for (const auto& [at, count] : stretches)
        EXPECT_FALSE(command(at, count)) << at << ' ' << count;
}

TEST_F(DeleteSequenceTest, AtTheEndTheLastFramesAreMeant)
{
    brindle::engine::BezierColumn* column = keyed("A", {1, 50, 51, 60});
    ASSERT_TRUE(run(command(60, 10).release()));
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 50}));
}

TEST_F(DeleteSequenceTest, AVisitForgetsTheOneBefore)
{
    keyed("A", {10});
    DD_DropMode mode(1);
    mode.SetNumFramesSrc(20);
    DD_DeleteSequenceVisitor visitor(mode);
    visitor.visit(scene());
    MemoryProject other;
    visitor.visit(other.scene());
    EXPECT_FALSE(visitor.takeCommand());
    visitor.visit(scene());
    EXPECT_TRUE(visitor.takeCommand());
    EXPECT_FALSE(visitor.takeCommand());
}

TEST_F(DeleteSequenceTest, BothStepsTogetherRemoveOnce)
{
    brindle::engine::BezierColumn* column = keyed("A", {1, 10, 12, 15, 20, 30});
    const QString before = state();
    removeInTwoSteps(9, 5);
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 10, 15, 25}));
    EXPECT_EQ(column->evaluate(10), 150.0);
    EXPECT_EQ(scene().getNumberOfFrames(), 55);
    EXPECT_EQ(labels(), QStringList("Remove Frames"));
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(DeleteSequenceTest, BothStepsTogetherLeaveWhatShorteningLeaves)
{
    std::mt19937 random(11);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); };
    for (int round = 0; round < 300; ++round) {
        auto* column = new brindle::engine::BezierColumn(QStringLiteral("Column-%1").arg(round));
        ASSERT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        for (int keys = below(8); keys > 0; --keys) {
            const double frame = 1.0 + below(240) / 4.0;
            run(column->setValueCommand(frame, below(100)).release());
            run(new tu_timedvalue::bezier::SetRightHandleGlobalCmd(column, frame, frame + below(40), below(100)));
            run(new tu_timedvalue::bezier::SetLeftHandleGlobalCmd(column, frame, frame - below(40), below(100)));
            run(new tu_timedvalue::bezier::SetConstSegCmd(column, frame, below(4) == 0));
        }
        run(new tu_timedvalue::fnc2d::SetStartCmd(column, 1 + below(40)));
        run(new tu_timedvalue::fnc2d::SetStopCmd(column, 1 + below(60)));
        run(new tu_timedvalue::fnc2d::SetStepCmd(column, 1 + below(3)));
        const QString before = state();
        const int at = below(64);
        const int count = 1 + below(20);
        const bool fits = scene().timing().fitted(at, -count).has_value();
        removeInTwoSteps(at, count);
        const QString both = state();
        if (fits)
            undo();
        ASSERT_EQ(state(), before);
        scene().setNumberOfFrames(at, -count, true, true);
        EXPECT_EQ(state(), both) << at << ' ' << count;
        EXPECT_EQ(both != before, fits);
        if (fits)
            undo();
        ASSERT_EQ(state(), before);
    }
}
