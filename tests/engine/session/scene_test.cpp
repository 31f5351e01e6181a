#include "engine/session/scene.h"

#include "core/host/at_attr.h"
#include "core/host/tu_timedvalue.h"
#include "tests/engine/support/memoryproject.h"

#include <cmath>
#include <limits>

namespace {

struct Frames {
    int count, start, stop;
    bool operator==(const Frames&) const = default;
};

class SceneTest : public GraphTest {
protected:
    Frames frames() { return {scene().getNumberOfFrames(), scene().getStartFrame(), scene().getStopFrame()}; }
    void change(int at, int delta) { scene().setNumberOfFrames(at, delta, true, true); }
};

void PrintTo(const Frames& frames, std::ostream* out)
{
    *out << frames.count << " from " << frames.start << " to " << frames.stop;
}

} // namespace

TEST_F(SceneTest, ANewSceneHasSixtyFramesADisplayAndAComposite)
{
    EXPECT_EQ(scene().name(), "Scene-1");
    EXPECT_EQ(frames(), (Frames{60, 1, 60}));
    EXPECT_EQ(scene().frameRate().fps(), 24.0);
    EXPECT_EQ(names(top()), QStringList({"Display", "Composite"}));
    EXPECT_EQ(node("Top/Display")->inPort(0)->srcPort(), node("Top/Composite")->outPort(0));
    EXPECT_EQ(node("Top/Composite")->nInPorts(), 1u);
    EXPECT_EQ(manager().historySize(), 0);
    EXPECT_FALSE(manager().isDirty());
    EXPECT_EQ(scene().timedValues(), static_cast<SC_TimedValueListInterface*>(&scene()));
    EXPECT_EQ(scene().projectCommon(), project().projectCommon());
}

TEST_F(SceneTest, FramesAreInsertedAndRemovedUndoably)
{
    struct {
        int at, delta;
        Frames after;
    } const changes[] = {
        {60, 10, {70, 1, 70}}, {0, 5, {65, 1, 65}},    {30, 1, {61, 1, 61}}, {60, -10, {50, 1, 50}},
        {0, -59, {1, 1, 1}},   {50, -10, {50, 1, 50}}, {60, -59, {1, 1, 1}},
    };
    for (const auto& [at, delta, after] : changes) {
        change(at, delta);
        EXPECT_EQ(frames(), after) << at << ' ' << delta;
        EXPECT_EQ(labels(), QStringList("Set Number of Frames"));
        undo();
        EXPECT_EQ(frames(), (Frames{60, 1, 60}));
        redo();
        EXPECT_EQ(frames(), after);
        undo();
        manager().clearHistory();
    }
}

TEST_F(SceneTest, AChangeThatTheSceneCantTakeIsLeftOut)
{
    constexpr int most = std::numeric_limits<int>::max();
    const std::pair<int, int> changes[] = {
        {60, 0},  {-1, 5},  {61, 5},       {60, -60},  {0, -60},        {55, -6},
        {-1, -1}, {61, -1}, {60, 999'941}, {60, most}, {60, -most - 1}, {most, most},
    };
    for (const auto& [at, delta] : changes) {
        change(at, delta);
        EXPECT_EQ(frames(), (Frames{60, 1, 60})) << at << ' ' << delta;
    }
    EXPECT_EQ(manager().historySize(), 0);
    change(60, 999'940);
    EXPECT_EQ(frames(), (Frames{1'000'000, 1, 1'000'000}));
}

TEST_F(SceneTest, TheRangeIsHeldWithinTheFramesAndFollowsTheEnd)
{
    scene().setStopFrame(50);
    scene().setStartFrame(40);
    change(60, 10);
    EXPECT_EQ(frames(), (Frames{70, 40, 50}));
    change(70, -25);
    EXPECT_EQ(frames(), (Frames{45, 40, 45}));
    change(45, -30);
    EXPECT_EQ(frames(), (Frames{15, 15, 15}));
    undo(3);
    EXPECT_EQ(frames(), (Frames{60, 40, 50}));
    redo(3);
    EXPECT_EQ(frames(), (Frames{15, 15, 15}));
}

TEST_F(SceneTest, TheRangeIsSetUndoably)
{
    EXPECT_TRUE(scene().setStartFrame(10));
    EXPECT_TRUE(scene().setStopFrame(20));
    EXPECT_EQ(labels(), QStringList({"Set Start Frame", "Set Stop Frame"}));
    EXPECT_EQ(frames(), (Frames{60, 10, 20}));
    for (const int frame : {0, -1, 21, 61, std::numeric_limits<int>::min()})
        EXPECT_FALSE(scene().setStartFrame(frame)) << frame;
    for (const int frame : {0, 9, 61, std::numeric_limits<int>::max()})
        EXPECT_FALSE(scene().setStopFrame(frame)) << frame;
    EXPECT_EQ(frames(), (Frames{60, 10, 20}));
    EXPECT_EQ(labels().size(), 2);
    undo(2);
    EXPECT_EQ(frames(), (Frames{60, 1, 60}));
    redo(2);
    EXPECT_EQ(frames(), (Frames{60, 10, 20}));
}

TEST_F(SceneTest, TheFrameRateIsAPositiveFiniteNumber)
{
    SC_SceneCommon* common = scene().sceneCommon();
    EXPECT_TRUE(run(new SC_SceneCmds::SetFrameRateCmd(common, UT_FrameRate(29.97)), "Set Frame Rate"));
    EXPECT_EQ(scene().frameRate().fps(), 29.97);
    undo();
    EXPECT_EQ(scene().frameRate().fps(), 24.0);
    redo();
    EXPECT_EQ(scene().frameRate().fps(), 29.97);
    for (const double rate : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(run(new SC_SceneCmds::SetFrameRateCmd(common, UT_FrameRate(rate)))) << rate;
    EXPECT_FALSE(run(new SC_SceneCmds::SetFrameRateCmd(nullptr, UT_FrameRate(12))));
    EXPECT_EQ(scene().frameRate().fps(), 29.97);
    EXPECT_EQ(labels(), QStringList("Set Frame Rate"));
}

namespace {

class SceneColumnTest : public SceneTest {
protected:
    TUBezierTimedValue* newColumn()
    {
        MO_Node* display = node("Top/Peg") ? node("Top/Peg") : add("PEG", "Peg");
        auto* angle = dynamic_cast<AT_DoubleAttr*>(display->findAttributeByKeyword("angle"));
        return dynamic_cast<TUBezierTimedValue*>(angle->createTimedValue());
    }
    QStringList columns()
    {
        QStringList names;
        for (auto column = scene().timedValuesBegin(); column != scene().timedValuesEnd(); ++column)
            names.append((*column)->getName());
        return names;
    }
    bool addColumn(TUTimedValue* column, int position = -1, int viewPosition = -1)
    {
        return run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, position, viewPosition));
    }
};

} // namespace

TEST_F(SceneColumnTest, ColumnsAreAddedAtAPlaceUndoably)
{
    TUTimedValue* first = newColumn();
    ASSERT_TRUE(addColumn(first));
    TUTimedValue* second = newColumn();
    ASSERT_TRUE(addColumn(second));
    TUTimedValue* between = newColumn();
    ASSERT_TRUE(addColumn(between, 1));
    TUTimedValue* ahead = newColumn();
    ASSERT_TRUE(addColumn(ahead, -1, 0));
    const QStringList all{ahead->getName(), first->getName(), between->getName(), second->getName()};
    EXPECT_EQ(columns(), all);
    EXPECT_EQ(scene().findTimedValue(between->getName(), 0), between);
    EXPECT_EQ(between->sceneCommon(), scene().sceneCommon());

    UT_SharedWeakPtrBase pointer;
    pointer.assign(between);
    undo(4);
    EXPECT_TRUE(columns().isEmpty());
    EXPECT_EQ(pointer.get(), nullptr);
    redo(4);
    EXPECT_EQ(columns(), all);
    EXPECT_EQ(pointer.get(), nullptr);
}

TEST_F(SceneColumnTest, AColumnThatCantBeAddedIsRefused)
{
    TUTimedValue* column = newColumn();
    ASSERT_TRUE(addColumn(column));
    const int entries = manager().historySize();
    EXPECT_FALSE(addColumn(column)) << "it is in the scene";
    EXPECT_FALSE(addColumn(nullptr));
    EXPECT_FALSE(addColumn(newColumn(), 7));
    EXPECT_FALSE(run(new SC_SceneCmds::AddTimedValueCmd(nullptr, newColumn(), -1, -1)));
    EXPECT_EQ(manager().historySize(), entries);
    EXPECT_EQ(scene().timedValueCount(), 1);
}

TEST_F(SceneColumnTest, KeysMoveWithTheFramesThatComeAndGo)
{
    TUBezierTimedValue* column = newColumn();
    ASSERT_TRUE(addColumn(column));
    for (const double frame : {1.0, 10.0, 20.0, 30.0}) {
        std::vector<double> refused;
        ASSERT_TRUE(run(column->createKeyframes({frame}, refused)));
    }
    ASSERT_EQ(column->keyframes(), (std::vector<int>{1, 10, 20, 30}));
    change(9, 5);
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 15, 25, 35}));
    change(14, -10);
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 15, 25})) << "the key that lay there went, too";
    undo();
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 15, 25, 35}));
    undo();
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 10, 20, 30}));
    redo(2);
    EXPECT_EQ(column->keyframes(), (std::vector<int>{1, 15, 25}));
}
