#include "core/columns/keyframeablecolumn.h"

#include "core/columns/beziercontrolpoint.h"
#include "core/columns/controlpointlist.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standincurve.h"

#include <limits>

using namespace OMC;

class KeyframeableColumnTest : public AnimationTest {
protected:
    /// The text that a call writes to standard output.
    template <typename Call>
    static std::string outputOf(Call call)
    {
        testing::internal::CaptureStdout();
        call();
        return testing::internal::GetCapturedStdout();
    }

    std::vector<int> frames() const
    {
        const QList<int> list = column.keyframeList();
        return std::vector<int>(list.begin(), list.end());
    }

    static QList<double> framesOf(const QVariant& points)
    {
        QList<double> frames;
        for (const QVariant& point : points.toList())
            frames.append(readAs<ControlPoint>(point)->getFrame());
        return frames;
    }

    TUBezierTimedValue* curve = animate("position.x", {{1, 0.1}, {20, 7}});
    BezierColumn column{curve};
};

TEST_F(KeyframeableColumnTest, FramesAreReadFromNumbersAndListsOfAnyDepth)
{
    const struct {
        QVariant value;
        QList<double> frames;
        int errors;
    } rows[] = {
        {5, {5}, 0},
        {2.5, {2.5}, 0},
        {"7", {7}, 0},
        {QVariantList{5, 6}, {5, 6}, 0},
        {QVariantList{QVariantList{1, 2}, 3}, {1, 2, 3}, 0},
        {QVariantList{QVariantList{QVariantList{QVariantList{1}}}, QVariantList(), 2}, {1, 2}, 0},
        {QVariantList{3, 3}, {3, 3}, 0},
        {QVariantList(), {}, 0},
        {"abc", {}, 1},
        {QVariant(), {}, 1},
        {QVariantList{1, "a", QVariantList{"b", 2}}, {1, 2}, 2},
        {QStringList{"1", "x", "2"}, {1, 2}, 1},
        {QVariantList{QStringList{"4"}, 5}, {4, 5}, 0},
    };
    for (const auto& row : rows) {
        QList<double> frames;
        QList<QString> errors;
        KeyframeableColumn::keyframelistFromVariant(row.value, frames, errors);
        EXPECT_EQ(frames, row.frames);
        EXPECT_EQ(errors, QList<QString>(row.errors, "Invalid argument: "));
    }
}

TEST_F(KeyframeableColumnTest, ListsWithinListsMayLieDeep)
{
    QVariant nested = 5;
    for (int depth = 0; depth < 5000; ++depth)
        nested = QVariantList{nested};
    EXPECT_FALSE(column.keyframeExists(nested));
    column.keyframeCreate(nested);
    EXPECT_TRUE(column.keyframeExists(nested));
}

TEST_F(KeyframeableColumnTest, OneFrameGivesOneControlPoint)
{
    for (const QVariant& frame : {QVariant(5), QVariant(QVariantList{5})}) {
        const QByteArray before = saved();
        QVariant point;
        EXPECT_EQ(outputOf([&] { point = column.keyframeCreate(frame); }), "FRAME: 5.000000\n");
        ASSERT_TRUE(readAs<BezierControlPoint>(point));
        EXPECT_EQ(readAs<BezierControlPoint>(point)->getFrame(), 5);
        EXPECT_EQ(frames(), std::vector<int>({1, 5, 20}));
        EXPECT_EQ(labels(), QStringList("Setting 1 keyframes."));
        expectUndoable(before);
        undo();
    }
}

TEST_F(KeyframeableColumnTest, SeveralFramesGiveAListOfControlPoints)
{
    const QByteArray before = saved();
    QVariant points;
    EXPECT_EQ(outputOf([&] {
                  points = column.keyframeCreate(QVariantList{QVariantList{5, 6}, 7});
              }),
              "FRAME: 5.000000\nFRAME: 6.000000\nFRAME: 7.000000\n");
    EXPECT_EQ(framesOf(points), QList<double>({5, 6, 7}));
    EXPECT_EQ(labels(), QStringList("Setting a keyframe."));
    expectUndoable(before);
}

TEST_F(KeyframeableColumnTest, EachFrameIsPrintedWithSixDigitsAlsoWhereNoKeyCanStand)
{
    const QVariantList frames = {-3.5, -0.0, 1.0 / 3, 12345678.9, 1e20};
    EXPECT_EQ(outputOf([&] { EXPECT_THROW(column.keyframeCreate(frames), Exception); }),
              "FRAME: -3.500000\nFRAME: -0.000000\nFRAME: 0.333333\nFRAME: 12345678.900000\n"
              "FRAME: 100000000000000000000.000000\n");
    const std::string longest =
        outputOf([&] { EXPECT_THROW(column.keyframeCreate(-std::numeric_limits<double>::max()), Exception); });
    EXPECT_EQ(longest.size(), std::string("FRAME: -.000000\n").size() + 309);
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(KeyframeableColumnTest, NoFramesAreAnEntryToo)
{
    const QVariant points = column.keyframeCreate(QVariantList());
    EXPECT_EQ(points.typeId(), QMetaType::QVariantList);
    EXPECT_TRUE(points.toList().isEmpty());
    EXPECT_EQ(labels(), QStringList("Setting 0 keyframes."));
}

TEST_F(KeyframeableColumnTest, FramesThatCannotBeReadAreToldTogether)
{
    for (const auto& call : std::initializer_list<std::function<void(const QVariant&)>>{
             [&](const QVariant& value) { column.keyframeCreate(value); },
             [&](const QVariant& value) { column.keyframeRemove(value); },
             [&](const QVariant& value) { column.keyframeExists(value); }}) {
        expectRefused([&] { call("abc"); }, "Invalid argument: ");
        expectRefused([&] { call(QVariantList{5, "a", QVariant()}); }, "Invalid argument: \nInvalid argument: ");
        expectRefused([&] { call(QVariantList{5, qQNaN()}); }, "Invalid argument at index 0.");
        expectRefused([&] { call("inf"); }, "Invalid argument at index 0.");
    }
}

TEST_F(KeyframeableColumnTest, FramesThatTheColumnRefusesAreToldTogether)
{
    expectRefused(
        [&] {
            column.keyframeCreate(QVariantList{5, 1e12, -1e300});
        },
        "Failed to set keyframe at frame 2147483647\nFailed to set keyframe at frame -2147483647");
}

TEST_F(KeyframeableColumnTest, KeyframesAreRemovedAndOtherFramesPassedOver)
{
    const QByteArray before = saved();
    const QByteArray content = savedContent();
    column.keyframeRemove(QVariantList{1, 2, 20});
    EXPECT_TRUE(frames().empty());
    EXPECT_EQ(labels(), QStringList("Removing a keyframe."));
    expectUndoable(before);
    undo();
    column.keyframeRemove(1);
    EXPECT_EQ(frames(), std::vector<int>({20}));
    EXPECT_EQ(labels(), QStringList("Removing 1 keyframes."));
    expectUndoable(before);
    undo();
    column.keyframeRemove(5);
    EXPECT_EQ(labels(), QStringList("Removing 1 keyframes."));
    EXPECT_EQ(savedContent(), content);
}

TEST_F(KeyframeableColumnTest, KeyframesAreFound)
{
    EXPECT_TRUE(column.keyframeExists(1));
    EXPECT_FALSE(column.keyframeExists(2));
    EXPECT_TRUE(column.keyframeExists(QVariantList{2, 20}));
    EXPECT_FALSE(column.keyframeExists(QVariantList()));
    EXPECT_FALSE(column.keyframeExists(1.5));
    EXPECT_EQ(column.numberOfPoints(), 2);
}

TEST_F(KeyframeableColumnTest, KeyframesAreClearedOverARange)
{
    animate("position.x", {{8, 3}, {9, 3}, {10, 3}});
    const struct {
        int start, end;
        std::vector<int> left;
    } rows[] = {
        {3, 9, {1, 10, 20}}, {9, 3, {1, 10, 20}}, {10, 0, {1, 8, 9}},
        {10, -7, {1, 8, 9}}, {1, 60, {}},         {61, 0, {1, 8, 9, 10, 20}},
    };
    for (const auto& [start, end, left] : rows) {
        const QByteArray before = saved();
        column.keyframeClear(start, end);
        EXPECT_EQ(frames(), left) << start;
        EXPECT_EQ(labels(), left.size() == 5 ? QStringList() : QStringList(QString()));
        if (left.size() < 5) {
            expectUndoable(before);
            undo();
        }
        manager().clearHistory();
    }
    scene()->setNumberOfFrames(8, -52, true, true);
    animate("position.x", {{8, 3}, {9, 3}, {10, 3}});
    column.keyframeClear(10, 0);
    EXPECT_EQ(frames(), std::vector<int>({1}));
}

TEST_F(KeyframeableColumnTest, HoldValuesAreSet)
{
    const QByteArray before = saved();
    column.setHoldStartFrame(3);
    column.setHoldStopFrame(9);
    column.setHoldStep(2);
    EXPECT_EQ(column.getHoldStartFrame(), 3);
    EXPECT_EQ(column.getHoldStopFrame(), 9);
    EXPECT_EQ(column.getHoldStep(), 2);
    EXPECT_EQ(labels(), QStringList({"Set Start Frame for Hold", "Set Stop Frame for Hold", "Set Step for Hold"}));
    undo(3);
    EXPECT_EQ(saved(), before);
    redo(3);
    EXPECT_EQ(column.getHoldStep(), 2);
}

TEST_F(KeyframeableColumnTest, AHoldValueThatTheColumnRefusesIsLeft)
{
    expectRefused([&] { column.setHoldStep(-1); }, "no exception");
    expectRefused([&] { column.setHoldStep(std::numeric_limits<int>::min()); }, "no exception");
}

TEST_F(KeyframeableColumnTest, PropertiesAreServedByNameInTheirOrder)
{
    bool native = false;
    bool filter = false;
    const std::vector<std::string> names{"objectName", "name",         "display_name",       "type",
                                         "anonymous",  "linked_nodes", "linked_attributes",  "hold_start",
                                         "hold_stop",  "hold_step",    "control_point_size", "control_points"};
    EXPECT_EQ(column.getDir(native, filter), names);
    bool found = false;
    EXPECT_EQ(column.getAttr("control_point_size", found), 2);
    EXPECT_EQ(readAs<ControlPointList>(column.getAttr("control_points", found))->size(), 2u);
    column.setAttr("hold_step", "3", found);
    EXPECT_EQ(curve->step(), 3);
}

TEST_F(KeyframeableColumnTest, AnotherFunctionOfTimeHasTheGeneralClass)
{
    StandInCurve function(sceneCommon());
    const Obj handle(Column::getWrapped(&function));
    auto* general = objectIn<KeyframeableColumn>(handle);
    ASSERT_TRUE(general);
    EXPECT_EQ(general->__str__(), "KeyframeableColumn(Stand-in)");
    EXPECT_TRUE(objectIn<KeyframeableColumn>(Obj(general->copy())));
    const std::string unexpected = "An unexpected error occurred.";
    EXPECT_EQ(failureOf([&] { general->getHoldStartFrame(); }), unexpected);
    EXPECT_EQ(failureOf([&] { general->setHoldStep(2); }), unexpected);
    EXPECT_EQ(failureOf([&] { general->numberOfPoints(); }), unexpected);
    EXPECT_EQ(failureOf([&] {
                  general->keyframeCreate(QVariantList{5, 6.9});
              }),
              "Failed to set keyframe at frame 5\nFailed to set keyframe at frame 6");
    EXPECT_EQ(failureOf([&] { general->keyframeRemove(5); }), "Failed to remove keyframe at: 5");
    general->keyframeClear(1, 5);
    EXPECT_TRUE(labels().isEmpty());
    function.commands = StandInCurve::Failing;
    EXPECT_EQ(failureOf([&] { general->keyframeCreate(5); }), "Failed to set 1 keyframes.");
    EXPECT_EQ(failureOf([&] { general->keyframeCreate(QVariantList{5, 6}); }), "Failed to set a keyframe.");
    EXPECT_EQ(failureOf([&] { general->keyframeRemove(5); }), "Failed to remove 1 keyframes.");
    EXPECT_EQ(failureOf([&] { general->keyframeRemove(QVariantList{5, 6}); }), "Failed to remove a keyframe.");
    EXPECT_EQ(failureOf([&] { general->keyframeClear(1, 5); }), "Failed to clear keyfames on the column.");
    function.commands = StandInCurve::Working;
    EXPECT_EQ(general->keyframeCreate(5), QVariant(QVariantList()));
    function.scene = nullptr;
    for (const auto& call : std::initializer_list<std::function<void()>>{[&] { general->keyframeCreate(5); },
                                                                         [&] { general->keyframeRemove(5); },
                                                                         [&] { general->keyframeClear(1, 5); }})
        EXPECT_EQ(failureOf(call), unexpected);
}

TEST_F(KeyframeableColumnTest, APathWithoutAVelocitySaysSo)
{
    StandInPath path(curve->sceneCommon());
    KeyframeableColumn column(&path);
    const std::initializer_list<std::function<void()>> calls{
        [&] { column.getHoldStartFrame(); },  [&] { column.getHoldStopFrame(); },  [&] { column.getHoldStep(); },
        [&] { column.setHoldStartFrame(2); }, [&] { column.setHoldStopFrame(2); }, [&] { column.setHoldStep(2); },
        [&] { column.numberOfPoints(); }};
    for (const auto& call : calls)
        EXPECT_EQ(failureOf(call), "No velocity column set");
    EXPECT_TRUE(labels().isEmpty());
    const Obj points = column.getControlPoints();
    EXPECT_EQ(objectIn<ControlPointList>(points)->size(), 0u);
    EXPECT_TRUE(objectIn<ControlPointList>(points)->list().empty());
}
