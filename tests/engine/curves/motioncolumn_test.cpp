#include "engine/curves/motioncolumn.h"

#include "core/host/at_timedvaluevisitor.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/folder/scenefile.h"
#include "tests/engine/support/columnedits.h"
#include "tests/engine/support/columnproject.h"

namespace {

using brindle::engine::Column;
using brindle::engine::columnKinds;
using brindle::engine::FolderFailure;
using brindle::engine::JsonFile;
using brindle::engine::Path3dColumn;
using brindle::engine::QuaternionColumn;
using brindle::engine::sceneText;

namespace edit = tu_timedvalue::path3d;

class MotionColumnTest : public ColumnTest {
protected:
    template <typename Kind = Path3dColumn>
    Kind* addPath(const QString& name = "Flight")
    {
        auto* column = new Kind(name);
        EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        return column;
    }
    Path3dColumn* addFlight()
    {
        Path3dColumn* path = addPath();
        EXPECT_TRUE(run(new edit::AddKeyFrameCmd(path, 1, 0, 0, 0)));
        EXPECT_TRUE(run(new edit::AddKeyFrameCmd(path, 20, 10, 5, -2)));
        EXPECT_TRUE(run(new edit::AddKeyFrameCmd(path, 40, 12, -5, 4)));
        EXPECT_TRUE(run(new edit::SetParametersCmd(path, 1, 0.5, -0.25, 0.125)));
        return path;
    }
    static std::array<double, 3> at(const AT_Fnc3dTimedValue& path, double frame)
    {
        std::array<double, 3> value;
        EXPECT_TRUE(path.getValue(frame, value[0], value[1], value[2]));
        return value;
    }
};

TEST_F(MotionColumnTest, ItIsWrittenWithItsPointsAndItsVelocity)
{
    Path3dColumn* path = addFlight();
    run(new edit::SetConstSegFrameCmd(path->velocity(), 20, true));
    run(new tu_timedvalue::fnc2d::SetStepCmd(path->velocity(), 2));
    const QByteArray wanted = R"({
      "name": "Flight",
      "type": "3D_PATH",
      "hold": [1, 1, 2],
      "points": [
        [0, 0, 0, 0, 0, 0],
        [10, 5, -2, 0.5, -0.25, 0.125],
        [12, -5, 4, 0, 0, 0]
      ],
      "velocity": [
        [1, 0],
        [20, 1, "CONSTANT"],
        [40, 2]
      ]
    })";
    EXPECT_NE(sceneText(scene()).indexOf(wanted), -1) << sceneText(scene()).toStdString();
}

TEST_F(MotionColumnTest, DamagedFieldsAreToldWithTheirPlace)
{
    const struct {
        const char* fields;
        const char* reason;
    } rows[] = {
        {R"("hold": [1, 1, 0], "points": [], "velocity": [])", "hold[2] is not a whole number from 1 to"},
        {R"("hold": [1, 1, 1], "points": [[1, 2, 3, 0, 0]], "velocity": [])", "points[0] has no item [5]"},
        {R"("hold": [1, 1, 1], "points": [[1, 2, 3, 0, 0, 1.5]], "velocity": [])", "points[0] is out of range"},
        {R"("hold": [1, 1, 1], "points": [[1, 2, 3, 0, 0, 0, 0]], "velocity": [])", "points[0] has 7 items, not 6"},
        {R"("hold": [1, 1, 1], "points": [], "velocity": [[1, 0], [1, 1]])",
         "velocity[1] is not behind the point ahead of it"},
        {R"("hold": [1, 1, 1], "points": [], "velocity": [[1, 1e12]])", "velocity[0] is out of range"},
        {R"("hold": [1, 1, 1], "points": [], "velocity": [[1, 0, "HELD"]])", "velocity[0][2] is not \"CONSTANT\""},
        {R"("hold": [1, 1, 1], "points": [])", "velocity"},
    };
    for (const auto& [fields, reason] : rows) {
        const JsonFile file("path.json", QByteArray("{") + fields + "}");
        try {
            Path3dColumn("read").read(file.root());
            ADD_FAILURE() << fields;
        } catch (const FolderFailure& failure) {
            EXPECT_TRUE(failure.reason.contains(reason)) << failure.reason.toStdString();
        }
    }
}

TEST_F(MotionColumnTest, ItsVelocityBelongsToIt)
{
    Path3dColumn* path = addFlight();
    TUVeloBasedTimedValue* velocity = path->velocity();
    EXPECT_EQ(velocity->getName(), "Flight Velocity");
    EXPECT_EQ(velocity->sceneCommon(), path->sceneCommon());
    EXPECT_EQ(scene().findTimedValue("Flight Velocity", 0), nullptr);
    EXPECT_FALSE(run(new tu_timedvalue::timedvalue::RenameCmd(velocity, "Speed")));
    EXPECT_FALSE(run(new tu_timedvalue::timedvalue::SetAnonymous(velocity, true)));
    EXPECT_FALSE(drive(*attribute(add("PEG", "Arm"), "angle"), velocity));
    CO_Command* scaled = nullptr;
    velocity->scale(2, 0, &scaled);
    EXPECT_EQ(scaled, nullptr);
    ASSERT_TRUE(run(new tu_timedvalue::timedvalue::RenameCmd(path, "Bird")));
    EXPECT_EQ(velocity->getName(), "Bird Velocity");

    UT_SharedWeakPtrBase held;
    held.assign(velocity);
    undo();
    EXPECT_NE(held.get(), nullptr);
    for (int entries = 0; entries < 10; ++entries)
        undo();
    EXPECT_EQ(held.get(), nullptr) << "it goes with its path";
}

TEST_F(MotionColumnTest, FramesThatGoTakeTheirKeyframesAndControlPoints)
{
    Path3dColumn* path = addFlight();
    const QString before = state();
    scene().setNumberOfFrames(15, -10, false, true); // 16 to 25
    EXPECT_EQ(path->keyframes(), (std::vector<int>{1, 30}));
    EXPECT_EQ(path->pathSize(), 2);
    EXPECT_TRUE(undoesTo(before));
    undo();
    scene().setNumberOfFrames(15, 5, false, true);
    EXPECT_EQ(path->keyframes(), (std::vector<int>{1, 25, 45}));
    undo();
    const auto cleared = Column::of(path)->clearFramesCommand(19, 1);
    ASSERT_TRUE(cleared);
    EXPECT_EQ(cleared->execute(), CO_Command::kOk);
    EXPECT_EQ(path->keyframes(), (std::vector<int>{1, 40}));
    EXPECT_EQ(Column::of(path)->clearFramesCommand(19, 1), nullptr);
}

TEST_F(MotionColumnTest, TheExposureSheetHasASubColumnForEachCoordinate)
{
    Path3dColumn* path = addFlight();
    const auto cell = [path](double frame, int subColumn) {
        QString text;
        bool isKey, isHeld, isBlank, isLocked;
        path->getValueForXsheet(frame, subColumn, &text, isKey, isHeld, isBlank, isLocked);
        return text;
    };
    EXPECT_EQ(cell(20, 1), "10");
    EXPECT_EQ(cell(20, 2), "5");
    EXPECT_EQ(cell(20, 3), "-2");
    EXPECT_EQ(cell(20, 4), "");
    const QString before = state();
    EXPECT_EQ(path->setValuesFromXsheet(20, 1, "7.5", 2), 0);
    EXPECT_EQ(at(*path, 20), (std::array<double, 3>{10, 7.5, -2}));
    EXPECT_TRUE(undoesTo(before));
    EXPECT_NE(path->setValuesFromXsheet(20, 1, "up", 2), 0);
    EXPECT_NE(path->setValuesFromXsheet(20, 1, "1", 4), 0);
    EXPECT_EQ(path->setValuesFromXsheet(20, 1, "", 1), 0);
    EXPECT_EQ(path->keyframes(), (std::vector<int>{1, 40}));
}

TEST_F(MotionColumnTest, ScalingTakesAllCoordinatesOrOne)
{
    Path3dColumn* path = addFlight();
    const auto scaled = [&](int second) {
        CO_Command* command = nullptr;
        path->scale(2, second, &command);
        EXPECT_TRUE(command && run(command));
        const auto value = at(*path, 20);
        undo();
        return value;
    };
    EXPECT_EQ(scaled(0), (std::array<double, 3>{20, 10, -4}));
    EXPECT_EQ(scaled(1), (std::array<double, 3>{20, 5, -2}));
    EXPECT_EQ(scaled(3), (std::array<double, 3>{10, 5, -4}));
}

TEST_F(MotionColumnTest, TheHoldIsThatOfTheVelocity)
{
    Path3dColumn* path = addFlight();
    run(new tu_timedvalue::fnc2d::SetStopCmd(path->velocity(), 40));
    run(new edit::Path3DVeloCmd(path, new tu_timedvalue::fnc2d::SetStepCmd(path->velocity(), 4)));
    EXPECT_EQ(at(*path, 7), at(*path, 5));
    EXPECT_NE(at(*path, 9), at(*path, 5));
    EXPECT_EQ(edit::Path3DVeloCmd(path, nullptr).execute(), CO_Command::kFail);
}

TEST_F(MotionColumnTest, WhatAttributesWriteIsRememberedAndBroughtBack)
{
    Path3dColumn* path = addFlight();
    brindle::engine::PositionValues& values = *Column::of(path)->positions();
    const QString before = state();
    const auto memo = path->remember(30);
    EXPECT_TRUE(path->addControlPoint(30));
    EXPECT_TRUE(values.setPositionAt(30, {1, 2, 3}, true));
    EXPECT_EQ(at(*path, 35), (std::array<double, 3>{1, 2, 3})) << "held up to the next keyframe";
    EXPECT_FALSE(values.setPositionAt(30, {1, NAN, 3}, false));
    EXPECT_FALSE(values.setPositionAt(INFINITY, {1, 2, 3}, false));
    memo->restore();
    EXPECT_EQ(state(), before);
    memo->restore();
    EXPECT_EQ(state(), before);
}

TEST_F(MotionColumnTest, AThreeColumnConversionAgreesAtEveryFrame)
{
    scene().setNumberOfFrames(60, 240, false, true);
    std::mt19937 random(11);
    for (int round = 0; round < 12; ++round) {
        const bool isRotation = round % 4 == 3;
        AT_Fnc3dTimedValue* path =
            isRotation ? static_cast<AT_Fnc3dTimedValue*>(addPath<QuaternionColumn>("P" + QString::number(round)))
                       : addPath("P" + QString::number(round));
        for (int edits = 0; edits < 25; ++edits) {
            if (auto command = randomEdit(*path, random))
                run(command.release());
        }
        for (int key = 0; key < 6; ++key) {
            const auto number = [&] { return static_cast<double>(random() % 4000) / 100 - 20; };
            run(new edit::AddKeyFrameCmd(path, 10 + key * 37 + round, number(), number(), number()));
        }
        run(new edit::AddKeyFrameCmd(path, -4.5, 1, 2, 3));
        run(new edit::AddKeyFrameCmd(path, scene().getNumberOfFrames() + 20, 3, 2, 1));
        for (const auto mode : {AT_Fnc3dConverter::TransformMatrix, AT_Fnc3dConverter::BezierFitter}) {
            const auto columns = AT_Fnc3dConverter::convertToSeparate(*path, mode);
            for (int frame = -10; frame <= scene().getNumberOfFrames() + 30; ++frame) {
                const auto value = at(*path, frame);
                for (std::size_t axis = 0; axis < 3; ++axis)
                    ASSERT_NEAR(columns[axis]->evaluate(frame), value[axis],
                                mode == AT_Fnc3dConverter::TransformMatrix ? 0 : 0.005 + 1e-9 * std::abs(value[axis]))
                        << round << " at " << frame;
            }
            for (const auto* column : columns)
                delete column;
        }
    }
}

TEST_F(MotionColumnTest, AConversionHasNamesThatNothingHas)
{
    Path3dColumn* path = addFlight();
    addColumn("Flight Y");
    const auto columns = AT_Fnc3dConverter::convertToSeparate(*path, AT_Fnc3dConverter::BezierFitter);
    EXPECT_EQ(columns[0]->getName(), "Flight X");
    EXPECT_EQ(columns[1]->getName(), "Flight Y 1");
    EXPECT_LT(columns[0]->pointCount(), 12);
    for (const auto* column : columns)
        delete column;
    const Path3dColumn empty("empty");
    for (const auto* column : AT_Fnc3dConverter::convertToSeparate(empty, AT_Fnc3dConverter::TransformMatrix)) {
        EXPECT_EQ(column->pointCount(), 1);
        delete column;
    }
}

TEST_F(MotionColumnTest, CommandsOnColumnsOfNoEngineFail)
{
    EXPECT_EQ(edit::MoveCtrlPtCmd(nullptr, 0, 1, 2, 3).execute(), CO_Command::kFail);
    EXPECT_EQ(edit::SetConstSegFrameCmd(nullptr, 1, true).execute(), CO_Command::kFail);
    EXPECT_EQ(tu_timedvalue::ease::SetEaseInCmd(nullptr, 1, 2).execute(), CO_Command::kFail);
    EXPECT_EQ(tu_timedvalue::velobased::SpliceCmd(nullptr, 1, true).execute(), CO_Command::kFail);
}

/// Random edits of a column of each kind, undone and redone step by step.
class EachKindTest : public ColumnTest, public testing::WithParamInterface<unsigned int> {};

TEST_P(EachKindTest, EveryEditIsTakenBackToTheLastBit)
{
    std::mt19937 random(GetParam());
    for (const auto* kind : columnKinds()) {
        TUTimedValue* column = Column::asTimedValue(kind->make(QString("C") + kind->word, false)).release();
        ASSERT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        manager().clearHistory();
        std::vector<QString> states{state()};
        for (int step = 0; step < 60; ++step) {
            auto command = randomEdit(*column, random);
            if (!command || !run(command.release())) {
                ASSERT_EQ(state(), states.back()) << kind->word << " step " << step;
                continue;
            }
            if (static_cast<std::size_t>(manager().executedHistorySize()) == states.size())
                states.push_back(state());
            ASSERT_EQ(state(), states.back());
        }
        const std::size_t last = states.size() - 1;
        for (int round = 0; round < 2; ++round) {
            for (std::size_t place = last; place > 0; --place) {
                undo();
                ASSERT_EQ(state(), states[place - 1]) << kind->word << " undone " << place;
            }
            for (std::size_t place = 1; place <= last; ++place) {
                redo();
                ASSERT_EQ(state(), states[place]) << kind->word << " redone " << place;
            }
        }
        const auto copy = Column::of(column)->copy("copy", false);
        EXPECT_EQ(copy->kind().type, kind->type);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EachKindTest, testing::Range(0U, 12U));

} // namespace
