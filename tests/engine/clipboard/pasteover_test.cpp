#include "engine/curves/easecolumn.h"
#include "engine/curves/expressioncolumn.h"
#include "engine/curves/motioncolumn.h"
#include "tests/engine/clipboard/clipboardtest.h"

using namespace brindle::engine;

namespace {

using PasteOverTest = ClipboardTest;

} // namespace

TEST_F(PasteOverTest, KeysGoToTheFramesAndTheRestStaysAsItWas)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    animate(from, "angle", {{1, 100}, {5, 200}});
    animate(to, "angle", {{1, 0}, {40, 39}});
    QList<double> before;
    for (int frame = 1; frame <= 60; ++frame)
        before.append(valueOf(to, "angle", frame));
    const DD_DragObject object = copy({from}, 1, 5);
    changes([&] { return pasteOver(object, {to}, DD_DropMode(), 11, 5); });
    EXPECT_EQ(keysOf(to, "angle"), (std::vector<int>{1, 10, 11, 15, 16, 40}));
    for (int frame = 1; frame <= 60; ++frame) {
        const bool isPasted = frame >= 11 && frame <= 15;
        EXPECT_NEAR(valueOf(to, "angle", frame), isPasted ? valueOf(from, "angle", frame - 10) : before[frame - 1],
                    1e-9)
            << frame;
    }
}

TEST_F(PasteOverTest, WithoutForcedEndsOnlyTheKeysThereAre)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    animate(from, "angle", {{3, 100}, {4, 200}});
    animate(to, "angle", {{1, 0}, {12, 5}, {40, 39}});
    DD_DropMode mode;
    mode.forceBeginningEndKeyframe = false;
    changes([&] { return pasteOver(copy({from}, 1, 5), {to}, mode, 11, 5); });
    EXPECT_EQ(keysOf(to, "angle"), (std::vector<int>{1, 13, 14, 40}));
}

TEST_F(PasteOverTest, TheFramesAreThoseOfBothSides)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    animate(from, "angle", {{1, 1}, {20, 20}});
    const DD_DragObject object = copy({from}, 1, 20);
    DD_DropMode mode;
    mode.SetStartFrameSrc(5);
    mode.SetNumFramesSrc(6);
    ASSERT_TRUE(pasteOver(object, {to}, mode, 30, 4));
    EXPECT_NEAR(valueOf(to, "angle", 30), valueOf(from, "angle", 5), 1e-9);
    EXPECT_NEAR(valueOf(to, "angle", 33), valueOf(from, "angle", 8), 1e-9);
    EXPECT_NEAR(valueOf(to, "angle", 60), valueOf(from, "angle", 8), 1e-9);
    ASSERT_TRUE(pasteOver(object, {to}, DD_DropMode(), 55, 60));
    EXPECT_EQ(keysOf(to, "angle").back(), 61) << "what lies beyond the end is left out; the next frame is held";
    refuses([&] { return pasteOver(object, {to}, DD_DropMode(), 61, 5); });
    refuses([&] { return pasteOver(object, {to}, DD_DropMode(), 0, 5); });
    refuses([&] { return pasteOver(object, {to}, DD_DropMode(), 1, 0); });
}

TEST_F(PasteOverTest, NodesAreFoundByNameAndThenByType)
{
    MO_Node* arm = add("PEG", "Arm");
    MO_Node* leg = add("PEG", "Leg");
    attributeAs<AT_DoubleAttr>(arm, "angle").setLocalValue(1);
    attributeAs<AT_DoubleAttr>(leg, "angle").setLocalValue(2);
    const DD_DragObject object = copy({arm, leg});
    TUGroup* group = addGroup("Other");
    MO_Node* otherLeg = add("PEG", "Leg", group);
    MO_Node* tail = add("PEG", "Tail", group);
    MO_Node* read = add("READ", "Arm", group);
    changes([&] { return pasteOver(object, {tail, otherLeg, read}); });
    EXPECT_EQ(valueOf(otherLeg, "angle", 1), 2);
    EXPECT_EQ(valueOf(tail, "angle", 1), 1) << "of those that are left, the first of the type";
    undo();
    DD_DropMode byType;
    byType.setMatchNodeName(false);
    ASSERT_TRUE(pasteOver(object, {otherLeg, tail}, byType));
    EXPECT_EQ(valueOf(otherLeg, "angle", 1), 1);
    EXPECT_EQ(valueOf(tail, "angle", 1), 2);
    refuses([&] { return pasteOver(object, {read}); });
    refuses([&] { return pasteOver(object, {}); });
    ClipboardProject other;
    refuses([&] { return pasteOver(object, {other.add("PEG", "Arm")}); });
}

TEST_F(PasteOverTest, GroupsGoTogetherByTheNamesInThem)
{
    const auto character = [this](const QString& name, double angle) {
        TUGroup* group = addGroup(name);
        attributeAs<AT_DoubleAttr>(add("PEG", "Arm", addGroup("Body", group)), "angle").setLocalValue(angle);
        attributeAs<AT_DoubleAttr>(add("PEG", "Head", group), "angle").setLocalValue(-angle);
        return group;
    };
    TUGroup* hero = character("Hero", 10);
    TUGroup* villain = character("Villain", 70);
    changes([&] { return pasteOver(copy({hero}), {villain}); });
    EXPECT_EQ(valueOf(node("Top/Villain/Body/Arm"), "angle", 1), 10);
    EXPECT_EQ(valueOf(node("Top/Villain/Head"), "angle", 1), -10);
    undo();
    using Options = DD_SelectionUtil::CompositionOptions;
    refuses([&] { return pasteOver(copy({hero}), {villain}, DD_DropMode(), 1, 60, Options(false, true, true)); });
}

TEST_F(PasteOverTest, KindsOfNodesCanBeLeftOut)
{
    using Options = DD_SelectionUtil::CompositionOptions;
    MO_Node* blur = add("BLUR", "Blur");
    MO_Node* mix = add("COMPOSITE", "Mix");
    const DD_DragObject effect = copy({blur});
    const DD_DragObject composite = copy({mix});
    const auto pastes = [&](const DD_DragObject& object, MO_Node* target, const Options& options) {
        return pasteOver(object, {target}, DD_DropMode(), 1, 60, options);
    };
    EXPECT_TRUE(pastes(effect, blur, Options(false, true, false)));
    EXPECT_FALSE(pastes(effect, blur, Options(true, false, true)));
    EXPECT_TRUE(pastes(composite, mix, Options(false, false, true)));
    EXPECT_FALSE(pastes(composite, mix, Options(true, true, false)));
}

TEST_F(PasteOverTest, FlagsChooseWhatIsPasted)
{
    struct Row {
        const char* path;
        bool DD_DropMode::*flag;
    };
    const Row rows[] = {{"position.x", &DD_DropMode::addRemoveMotionKeyframe},
                        {"angle", &DD_DropMode::addRemoveAngleKeyframe},
                        {"rotation.y", &DD_DropMode::addRemoveAngleKeyframe},
                        {"skew", &DD_DropMode::addRemoveSkewKeyframe},
                        {"scale.x", &DD_DropMode::addRemoveScalingKeyframe}};
    MO_Node* from = add("PEG", "From");
    for (const Row& row : rows)
        animate(from, row.path, {{1, 5}, {2, 6}});
    const DD_DragObject object = copy({from});
    for (const Row& off : rows) {
        MO_Node* to = add("PEG", "To");
        DD_DropMode mode;
        mode.*off.flag = false;
        ASSERT_TRUE(pasteOver(object, {to}, mode));
        for (const Row& row : rows)
            EXPECT_EQ(attribute(to, row.path)->socket()->isLinked(), row.flag != off.flag) << row.path;
    }
}

TEST_F(PasteOverTest, ValuesCanBeMovedToWhatWasThere)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    animate(from, "angle", {{1, 100}, {5, 140}});
    animate(to, "angle", {{1, 7}});
    auto& pathFrom = addSequence<Path3dColumn>("From");
    auto& pathTo = addSequence<Path3dColumn>("To");
    ASSERT_TRUE(drive(*attribute(from, "position"), &pathFrom));
    ASSERT_TRUE(drive(*attribute(to, "position"), &pathTo));
    ASSERT_TRUE(run(pathFrom.setPositionCommand(1, {1, 2, 3}).release()));
    ASSERT_TRUE(run(pathFrom.setPositionCommand(5, {3, 2, 3}).release()));
    ASSERT_TRUE(run(pathTo.setPositionCommand(1, {10, 10, 10}).release()));
    DD_DropMode mode;
    mode.offsetKeyframes = true;
    changes([&] { return pasteOver(copy({from}, 1, 5), {to}, mode, 10, 5); });
    EXPECT_NEAR(valueOf(to, "angle", 10), 7, 1e-9);
    EXPECT_NEAR(valueOf(to, "angle", 14), 47, 1e-9);
    const auto& position = attributeAs<AT_Position3dAttr>(to, "position");
    EXPECT_NEAR(position.value(10).x, 10, 1e-9);
    EXPECT_NEAR(position.value(14).x, 12, 1e-9);
    EXPECT_NEAR(position.value(20).x, 10, 1e-9) << "behind it, what was there";
}

TEST_F(PasteOverTest, RoomIsMadeAsTheModesSay)
{
    struct Row {
        DD_DropMode::WriteMode write;
        DD_DropMode::DeleteMode remove;
        std::vector<int> keys;
    };
    const Row rows[] = {
        {DD_DropMode::kOverwriteKeys, DD_DropMode::kDeleteNothing, {1, 11, 12, 20}},
        {DD_DropMode::kInsert, DD_DropMode::kDeleteNothing, {1, 11, 12, 13, 22}},
        {DD_DropMode::kWriteNothing, DD_DropMode::kDeleteNothing, {1, 11, 20}},
        {DD_DropMode::kOverwriteKeys, DD_DropMode::kEmpty, {1, 11, 12, 20}},
        {DD_DropMode::kOverwriteKeys, DD_DropMode::kRemove, {1, 11, 12, 18}},
        {DD_DropMode::kInsert, DD_DropMode::kRemove, {1, 11, 12, 20}},
    };
    MO_Node* from = add("PEG", "From");
    animate(from, "angle", {{1, 100}, {2, 140}});
    const DD_DragObject object = copy({from}, 1, 2);
    for (const Row& row : rows) {
        MO_Node* to = add("PEG", "To");
        animate(to, "angle", {{1, 0}, {11, 10}, {20, 19}});
        DD_DropMode mode;
        mode.writeMode = row.write;
        mode.deleteMode = row.remove;
        mode.forceBeginningEndKeyframe = false;
        ASSERT_TRUE(pasteOver(object, {to}, mode, 11, 2));
        EXPECT_EQ(keysOf(to, "angle"), row.keys) << row.write << ' ' << row.remove;
        const std::string after = saved();
        undo();
        EXPECT_EQ(keysOf(to, "angle"), (std::vector<int>{1, 11, 20}));
        redo();
        EXPECT_EQ(saved(), after);
    }
}

TEST_F(PasteOverTest, ColumnsOfOtherKindsTakeTheValuesAtTheKeys)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    animate(from, "angle", {{1, 100}, {3, 140}});
    auto& ease = addSequence<EaseColumn>("Ease");
    ASSERT_TRUE(drive(*attribute(to, "angle"), &ease));
    ASSERT_TRUE(run(ease.setValueCommand(1, 1).release()));
    changes([&] { return pasteOver(copy({from}, 1, 3), {to}, DD_DropMode(), 10, 3); });
    EXPECT_EQ(keysOf(to, "angle"), (std::vector<int>{1, 9, 10, 12, 13}));
    EXPECT_EQ(valueOf(to, "angle", 12), 140);
    EXPECT_EQ(valueOf(to, "angle", 13), 1);
}

TEST_F(PasteOverTest, AFormulaGivesWayOrStays)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    animate(from, "angle", {{1, 100}});
    auto& formula = addSequence<ExpressionColumn>("Formula");
    ASSERT_TRUE(run(new tu_timedvalue::expr::SetExprCmd(&formula, "frame")));
    ASSERT_TRUE(drive(*attribute(to, "angle"), &formula));
    DD_DropMode mode;
    mode.replaceExpressionColumns = false;
    ASSERT_TRUE(pasteOver(copy({from}), {to}, mode));
    EXPECT_EQ(valueOf(to, "angle", 5), 5);
    changes([&] { return pasteOver(copy({from}), {to}); });
    EXPECT_EQ(valueOf(to, "angle", 5), 100);
    EXPECT_TRUE(scene().findTimedValue("Formula", 0));
}

TEST_F(PasteOverTest, ANewColumnCanTakeThePlaceOfTheOneThereIs)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    MO_Node* same = add("PEG", "Same");
    TUTimedValue* shared = animate(from, "angle", {{1, 100}, {2, 200}});
    ASSERT_TRUE(drive(*attribute(from, "skew"), shared));
    TUTimedValue* present = animate(to, "angle", {{1, 0}, {9, 9}});
    ASSERT_TRUE(drive(*attribute(same, "angle"), present));
    DD_DropMode mode;
    mode.createNewColumn = true;
    changes([&] { return pasteOver(copy({from}, 1, 2), {to}, mode, 5, 2); });
    TUTimedValue* made = attribute(to, "angle")->socket()->linkedTimedValue();
    EXPECT_NE(made, present);
    EXPECT_EQ(made, attribute(to, "skew")->socket()->linkedTimedValue()) << "what was one column is one again";
    EXPECT_EQ(keysOf(to, "angle"), (std::vector<int>{5, 6}));
    EXPECT_EQ(keysOf(same, "angle"), (std::vector<int>{1, 9}));
}

TEST_F(PasteOverTest, LocalValuesGoAlongWhereEverythingDoes)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    attributeAs<AT_DoubleAttr>(from, "angle").setLocalValue(30);
    attributeAs<AT_DoubleAttr>(from, "pivot.x").setLocalValue(2);
    animate(to, "skew", {{1, 8}, {60, 8}});
    DD_DropMode mode;
    mode.fullTransfer = false;
    ASSERT_TRUE(pasteOver(copy({from}), {to}, mode));
    EXPECT_EQ(valueOf(to, "angle", 1), 0);
    changes([&] { return pasteOver(copy({from}, 1, 10), {to}, DD_DropMode(), 11, 10); });
    EXPECT_EQ(valueOf(to, "angle", 1), 30);
    EXPECT_EQ(valueOf(to, "pivot.x", 1), 2);
    EXPECT_EQ(valueOf(to, "skew", 10), 8);
    EXPECT_EQ(valueOf(to, "skew", 15), 0) << "a column gets it on the frames";
    EXPECT_EQ(valueOf(to, "skew", 21), 8);
}

namespace {

/// What becomes of the target's element, and what it shows.
struct DrawingRow {
    DD_DropMode::DrawingMode mode;
    QStringList names;
    QByteArray first;  ///< The content of its drawing "1".
    QByteArray second; ///< The content of the file of version 2 of that drawing.
    QString shown;
};

} // namespace

TEST_F(PasteOverTest, EachDrawingModeDoesWhatItsWordSays)
{
    const QByteArray own = "picture 1 of To";
    const QByteArray pasted = "picture 1 of From";
    const DrawingRow rows[] = {
        {DD_DropMode::kAlwaysCreateAndVersion, {"1", "9", "2"}, own, pasted, "9 1 2 9"},
        {DD_DropMode::kAlwaysCreate, {"1", "9", "1_1", "2"}, own, {}, "9 1_1 2 9"},
        {DD_DropMode::kOverwrite, {"1", "9", "2"}, pasted, {}, "9 1 2 9"},
        {DD_DropMode::kNeverCreate, {"1", "9"}, own, {}, "9 1 - 9"},
        {DD_DropMode::kShare, {"1", "9", "2"}, own, {}, "9 1 2 9"},
        {DD_DropMode::kOnlyCreateIfMissing, {"1", "9", "2"}, own, {}, "9 1 2 9"},
        {DD_DropMode::kOnlyCreateIfMissingAndMerge, {"1", "9", "2"}, own, {}, "9 1 2 9"},
        {DD_DropMode::kReplaceExisting, {"1", "9", "2"}, pasted, {}, "9 1 2 9"},
    };
    const DD_DragObject object = copy({addRead("From", {"1", "2"})}, 1, 2);
    MO_Node* to = addRead("To", {"1", "9"});
    auto& column = dynamic_cast<TUSeqTimedValue&>(*scene().findTimedValue("To", 0));
    expose(column, 1, {"9", "9", "9", "9"});
    for (const DrawingRow& row : rows) {
        DD_DropMode mode;
        mode.setDrawingMode(row.mode);
        mode.setExposureMode(false, true);
        changes([&] { return pasteOver(object, {to}, mode, 2, 2); });
        EXPECT_EQ(drawingNames("To"), row.names) << row.mode;
        const Drawing& drawing = *element("To").drawings().named("1");
        EXPECT_EQ(drawing.content(EM_DefaultLayerId, 1)->bytes(), row.first) << row.mode;
        const auto second = drawing.content(EM_DefaultLayerId, 2);
        EXPECT_EQ(second ? second->bytes() : QByteArray(), row.second) << row.mode;
        EXPECT_EQ(shown(to, 4), row.shown) << row.mode;
        undo();
    }
}

TEST_F(PasteOverTest, SharingShowsTheElementOfTheSource)
{
    MO_Node* from = addRead("From", {"1", "2"});
    MO_Node* to = add("READ", "To");
    auto& column = addSequence<DrawingColumn>("To");
    ASSERT_TRUE(drive(*attribute(to, "drawing.element"), &column));
    DD_DropMode mode;
    mode.setDrawingMode(DD_DropMode::kShare);
    changes([&] { return pasteOver(copy({from}), {to}, mode); });
    EXPECT_EQ(column.elementId(), element("From").id());
    EXPECT_EQ(shown(to, 2), "1 2");
    EXPECT_EQ(elementNames(), QStringList("From"));
}

TEST_F(PasteOverTest, MergingAddsTheLayersThatADrawingLacks)
{
    const DD_DragObject object = [&] {
        MO_Node* from = addRead("From", {"1"});
        Element& own = element("From");
        own.addLayer({4, "Line"});
        own.drawings().named("1")->setContent(4, 1, elements().contents().fromBytes("line"));
        return copy({from});
    }();
    MO_Node* to = addRead("To", {"1"});
    DD_DropMode mode;
    mode.setDrawingMode(DD_DropMode::kOnlyCreateIfMissingAndMerge);
    changes([&] { return pasteOver(object, {to}, mode); });
    EXPECT_EQ(content("To", "1"), "picture 1 of To");
    ASSERT_TRUE(element("To").findLayer("Line"));
    const auto line = element("To").drawings().named("1")->content(element("To").findLayer("Line")->id);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->bytes(), "line");
}

TEST_F(PasteOverTest, ExposuresHoldOnAndGiveWayAsTheModeSays)
{
    struct Row {
        bool extends;
        bool substitutes;
        QString shown;
    };
    const Row rows[] = {
        {true, true, "- 5 1 2 2 - -"},
        {false, true, "- 5 1 2 5 - -"},
        {true, false, "- 5 5 5 5 - -"},
        {false, false, "- 5 5 5 5 - -"},
    };
    const DD_DragObject object = copy({addRead("From", {"1", "2"})}, 1, 2);
    for (const Row& row : rows) {
        MO_Node* to = addRead("To" + QString::number(elements().elements().size()), {"5"});
        auto& column = dynamic_cast<TUSeqTimedValue&>(*attribute(to, "drawing.element")->socket()->linkedTimedValue());
        expose(column, 1, {"", "5", "5", "5", "5", ""});
        DD_DropMode mode;
        mode.setExposureMode(row.extends, row.substitutes);
        changes([&] { return pasteOver(object, {to}, mode, 3, 2); });
        EXPECT_EQ(shown(to, 7), row.shown) << row.extends << row.substitutes;
    }
    MO_Node* empty = addRead("Empty", {"5"});
    auto& column = dynamic_cast<TUSeqTimedValue&>(*scene().findTimedValue("Empty", 0));
    expose(column, 1, {"5", "", "5", ""});
    DD_DropMode mode;
    mode.setExposureMode(false, false);
    ASSERT_TRUE(pasteOver(object, {empty}, mode, 2, 2));
    EXPECT_EQ(shown(empty, 4), "5 1 5 -") << "only what shows nothing gets a drawing";
}

TEST_F(PasteOverTest, DrawingsOrPivotsOrNeither)
{
    MO_Node* from = addRead("From", {"1", "2"});
    attributeAs<AT_DoubleAttr>(from, "pivot.y").setLocalValue(3);
    attributeAs<AT_DoubleAttr>(from, "opacity").setLocalValue(40);
    MO_Node* to = addRead("To", {"5"});
    DD_DropMode mode;
    mode.exposureAdd = false;
    mode.updatePivot = true;
    changes([&] { return pasteOver(copy({from}), {to}, mode); });
    EXPECT_EQ(shown(to, 2), "5 5");
    EXPECT_EQ(valueOf(to, "pivot.y", 1), 3);
    EXPECT_EQ(valueOf(to, "opacity", 1), 100);
    mode.updatePivot = false;
    ASSERT_TRUE(pasteOver(copy({from}), {to}, mode));
    EXPECT_EQ(shown(to, 2), "5 5");
    EXPECT_EQ(valueOf(to, "opacity", 1), 40);
}

TEST_F(PasteOverTest, ANodeWithoutDrawingsGetsAnElement)
{
    const DD_DragObject object = copy({addRead("From", {"1", "2", "3"})}, 1, 2);
    MO_Node* to = add("READ", "To");
    changes([&] { return pasteOver(object, {to}, DD_DropMode(), 4, 2); });
    EXPECT_EQ(shown(to, 6), "- - - 1 2 -");
    EXPECT_EQ(elementNames(), QStringList({"From", "From_1"}));
    EXPECT_EQ(content("From_1", "2"), "picture 2 of From");
}

TEST_F(PasteOverTest, TimingsAreWrittenOverTimings)
{
    const auto timed = [this](const QString& name, const QStringList& drawings) {
        MO_Node* read = addRead(name, drawings);
        auto& column = addSequence<TimingColumn>(name + " timing");
        EXPECT_TRUE(drive(*attribute(read, "drawing.timing"), &column));
        attributeAs<AT_BoolAttr>(read, "drawing.element_mode").setLocalValue(false);
        expose(column, 1, drawings);
        return read;
    };
    MO_Node* from = timed("From", {"a", "b"});
    MO_Node* to = timed("To", {"c"});
    DD_DropMode mode;
    mode.setExposureMode(false, true);
    changes([&] { return pasteOver(copy({from}, 1, 2), {to}, mode, 3, 2); });
    EXPECT_EQ(shown(to, 5), "c c a b c");
    EXPECT_EQ(drawingNames("To"), QStringList({"c", "a", "b"}));
}

TEST_F(PasteOverTest, OnlyChosenColumnsArePastedOver)
{
    MO_Node* from = add("PEG", "From");
    MO_Node* to = add("PEG", "To");
    for (const char* path : {"angle", "skew"}) {
        animate(from, path, {{1, 50}});
        animate(to, path, {{1, 0}});
    }
    SL_Selection selection(nullptr);
    SL_SelectionUtil::addToSelection(selection, to);
    SL_SelectionUtil::addToSelection(selection, attribute(to, "skew")->socket()->linkedTimedValue());
    SL_Selection pasted(nullptr);
    ASSERT_TRUE(DD_SystemExternalAPI::PasteIntoScene(nullptr, &scene(), selection, copy({from}), DD_DropMode(),
                                                     DD_SelectionUtil::CompositionOptions::DEFAULT, &pasted, 1, 60));
    EXPECT_EQ(valueOf(to, "angle", 1), 0);
    EXPECT_EQ(valueOf(to, "skew", 1), 50);
    EXPECT_EQ(SL_SelectionUtil::getNodes(pasted), Nodes{to});
}
