#include "core/host/at_dynamicattr.h"
#include "engine/curves/easecolumn.h"
#include "engine/curves/expressioncolumn.h"
#include "engine/curves/motioncolumn.h"
#include "engine/session/scenetiming.h"
#include "tests/engine/clipboard/clipboardtest.h"

using namespace brindle::engine;

namespace {

using NewNodesTest = ClipboardTest;

} // namespace

TEST_F(NewNodesTest, NodesComeWithAllThatIsTheirs)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* card = add("COLOR_CARD", "Card");
    MO_Node* hand = add("READ", "Hand");
    MO_Node* mix = add("COMPOSITE", "Mix");
    MO_Node* stays = add("READ", "Stays");
    for (MO_Node* drawing : {hand, stays})
        ASSERT_TRUE(link(peg, drawing));
    ASSERT_TRUE(run(new tu_node::AddInPortCmd(mix, 1, MO_Port::createImagePort())));
    ASSERT_TRUE(link(hand, mix));
    ASSERT_TRUE(link(card, mix, 0, 1));
    run(new tu_node::SetXYZCmd(peg, 10, -20, 30));
    run(new tu_node::EnabledNodeCmd(hand, false));
    run(new tu_node::SetNodeColorCmd(peg, Qt::red));
    attributeAs<AT_DoubleAttr>(peg, "angle").setLocalValue(45);
    run(new tu_node::CreateAttrCmd(peg, AT_AttrMeta("meta", {}, 13), "DYNAMIC_GROUP", false));
    auto* group = dynamic_cast<AT_DynGroupAttr*>(attribute(peg, "meta"));
    run(new Attr::DynGroup::CreateAttrCmd(group, AT_AttrMeta("artist", {}, 13), "STRING", false));
    attributeAs<AT_StringAttr>(peg, "meta.artist").setLocalValue("Ada");

    Nodes pasted;
    changes([&] {
        pasted = pasteNew(copy({mix, peg, hand, card}));
        return !pasted.empty();
    });
    ASSERT_EQ(pasted.size(), 4u);
    EXPECT_EQ(names(top()).mid(7), QStringList({"Mix_1", "Peg_1", "Hand_1", "Card_1"}));
    const MO_Node* newPeg = pasted[1];
    EXPECT_EQ(newPeg->z(), 30);
    EXPECT_EQ(newPeg->getNodeColor(), QColor(Qt::red));
    EXPECT_EQ(valueOf(newPeg, "angle", 1), 45);
    EXPECT_EQ(attributeAs<AT_StringAttr>(newPeg, "meta.artist").localValue(), "Ada");
    EXPECT_FALSE(pasted[2]->isEnabled());
    EXPECT_EQ(pasted[2]->inPort(0)->srcPort(), newPeg->outPort(0));
    EXPECT_EQ(newPeg->outPort(0)->nDstPorts(), 1u) << "what stayed is not linked";
    EXPECT_EQ(pasted[0]->inPort(0)->srcPort()->node(), pasted[2]);
    EXPECT_EQ(pasted[0]->inPort(1)->srcPort()->node(), pasted[3]);
    EXPECT_EQ(pasted[0]->outPort(0)->nDstPorts(), 0u);
}

TEST_F(NewNodesTest, GroupsComeWithTheirContentAndBackdrops)
{
    TUGroup* arm = addGroup("Arm");
    MO_Node* entry = add("MULTIPORT_IN", {}, arm);
    MO_Node* hand = add("PEG", "Hand", addGroup("Inner", arm));
    run(new tu_node::AddInPortCmd(arm, 0, MO_Port::createMatrixPort()));
    MO_Node* blur = add("PEG", "Sleeve", arm);
    ASSERT_TRUE(link(entry, blur));
    auto backdrop = std::make_shared<MO_Backdrop>(arm, &scene());
    ASSERT_TRUE(run(new tu_backdrop::AddBackdropCmd(arm, backdrop)));
    animate(hand, "angle", {{1, 0}, {10, 90}});
    TUGroup* into = addGroup("Into");

    Nodes pasted;
    changes([&] {
        pasted = pasteNew(copy({arm, hand}), DD_DropMode(), into);
        return !pasted.empty();
    });
    ASSERT_EQ(pasted.size(), 1u) << "what is in a selected group comes with it";
    EXPECT_EQ(pasted[0], node("Top/Into/Arm"));
    EXPECT_EQ(names(pasted[0]->group()), names(arm));
    EXPECT_EQ(node("Top/Into/Arm/Sleeve")->inPort(0)->srcPort()->node(), node("Top/Into/Arm/Multi-Port-In"));
    EXPECT_EQ(valueOf(node("Top/Into/Arm/Inner/Hand"), "angle", 10), 90);
    ASSERT_EQ(pasted[0]->group()->backdrops().size(), 1u);
    EXPECT_TRUE(run(new tu_backdrop::SetPropertiesCmd(pasted[0]->group()->backdrops()[0].get(), {})));
    EXPECT_EQ(pasted[0]->group()->backdrops()[0]->sceneCommon(), &scene());
}

TEST_F(NewNodesTest, AMultiPortNodeStaysWithItsGroup)
{
    TUGroup* arm = addGroup("Arm");
    MO_Node* entry = add("MULTIPORT_IN", {}, arm);
    MO_Node* peg = add("PEG", "Peg", arm);
    run(new tu_node::AddInPortCmd(arm, 0, MO_Port::createMatrixPort()));
    ASSERT_TRUE(link(entry, peg));
    EXPECT_FALSE(copy({entry}).isValid());
    const Nodes pasted = pasteNew(copy({entry, peg}), DD_DropMode(), arm);
    ASSERT_EQ(pasted.size(), 1u);
    EXPECT_EQ(pasted[0]->inPort(0)->srcPort(), nullptr);
}

TEST_F(NewNodesTest, ACopyOutlivesItsSource)
{
    MO_Node* hand = addRead("Hand", {"1", "2"});
    animate(hand, "opacity", {{1, 0}, {20, 100}});
    DD_DragObject object;
    {
        ClipboardProject other;
        MO_Node* arm = other.addRead("Arm", {"a", "b"});
        other.animate(arm, "angle", {{1, 0}, {10, 90}}, "Swing");
        object = other.copy({arm});
        other.remove({arm}, true);
        other.manager().clearHistory();
    }
    changes([&] { return !pasteNew(object).empty(); });
    MO_Node* arm = node("Top/Arm");
    ASSERT_TRUE(arm);
    EXPECT_EQ(shown(arm, 3), "a b b");
    EXPECT_EQ(content("Arm", "b"), "picture b of Arm");
    EXPECT_EQ(valueOf(arm, "angle", 10), 90);
    const DD_DragObject own = copy({hand});
    remove({hand}, true);
    ASSERT_EQ(pasteNew(own).size(), 1u);
    EXPECT_EQ(shown(node("Top/Hand"), 2), "1 2");
}

TEST_F(NewNodesTest, WhatCantBeCopiedIsRefused)
{
    MO_Node* peg = add("PEG", "Peg");
    ClipboardProject other;
    EXPECT_FALSE(copy({}).isValid());
    EXPECT_FALSE(copy({top()}).isValid());
    EXPECT_FALSE(copy({peg, other.add("PEG", "Peg")}).isValid()) << "nodes of another scene";
    EXPECT_FALSE(copy({peg}, 61, 5).isValid());
    EXPECT_FALSE(copy({peg}, -1, 5).isValid());
    EXPECT_FALSE(copy({peg}, 1, -5).isValid());
    EXPECT_EQ(copy({peg}, 50, 100).numFrames(), 11) << "up to the end";
    EXPECT_EQ(copy({peg}, 0, 0).numFrames(), 60);
    EXPECT_FALSE(DD_SystemExternalAPI::CreateDragObjectFromSelection(nullptr, nullptr, false, false).isValid());
}

TEST_F(NewNodesTest, WhatCantBePastedIsRefused)
{
    const DD_DragObject object = copy({add("PEG", "Peg")});
    ClipboardProject other;
    refuses([&] { return !pasteNew(DD_DragObject()).empty(); });
    refuses([&] { return !pasteNew(object, DD_DropMode(), other.top()).empty(); });
    refuses([&] { return !pasteNew(object, DD_DropMode(false)).empty(); });
    TUGroup* gone = addGroup("Gone");
    remove({gone});
    refuses([&] { return !pasteNew(object, DD_DropMode(), gone).empty(); });
    DD_DropMode mode;
    mode.SetStartFrameSrc(61);
    refuses([&] { return !pasteNew(object, mode).empty(); });
}

TEST_F(NewNodesTest, ColumnsAreCopiedOnceAndKeepTheOrderOfTheirLinks)
{
    MO_Node* a = add("PEG", "A");
    MO_Node* b = add("PEG", "B");
    TUTimedValue* shared = animate(a, "angle", {{1, 1}, {5, 5}});
    ASSERT_TRUE(drive(*attribute(b, "angle"), shared));
    ASSERT_TRUE(drive(*attribute(a, "skew"), shared));
    animate(a, "position.x", {{1, 2}}, "Walk");
    ASSERT_EQ(shared->getName(), "ATV-0001");
    const Nodes pasted = pasteNew(copy({b, a}));
    TUTimedValue* copied = attribute(pasted[0], "angle")->socket()->linkedTimedValue();
    EXPECT_EQ(copied->linkedAttr(0), attribute(pasted[1], "angle"));
    EXPECT_EQ(copied->linkedAttr(1), attribute(pasted[0], "angle"));
    EXPECT_EQ(copied->linkedAttr(2), attribute(pasted[1], "skew"));
    EXPECT_TRUE(copied->isAnonymous());
    EXPECT_EQ(copied->getName(), "ATV-0002");
    EXPECT_TRUE(scene().findTimedValue("Walk_1", 0));
    EXPECT_EQ(scene().timedValueCount(), 4);

    ClipboardProject other;
    other.pasteNew(copy({a}));
    EXPECT_TRUE(other.scene().findTimedValue("Walk", 0));
    DD_DropMode preserving;
    preserving.tvPreserveName = true;
    other.manager().unexecute(1);
    other.pasteNew(copy({a}), preserving);
    EXPECT_TRUE(other.scene().findTimedValue("ATV-0001", 0));
}

TEST_F(NewNodesTest, AFormulaReadsTheCopiesOfWhatItRead)
{
    MO_Node* peg = add("PEG", "Peg");
    animate(peg, "skew", {{1, 3}}, "Wave \"1\"");
    auto& deep = addSequence<ExpressionColumn>("Deep");
    auto& formula = addSequence<ExpressionColumn>("Formula");
    ASSERT_TRUE(run(new tu_timedvalue::expr::SetExprCmd(&deep, R"(value("Wave \"1\"") * 2)")));
    ASSERT_TRUE(run(new tu_timedvalue::expr::SetExprCmd(&formula, R"(value("Deep", frame + 1) + 1)")));
    ASSERT_TRUE(drive(*attribute(peg, "angle"), &formula));
    const Nodes pasted = pasteNew(copy({peg}));
    EXPECT_EQ(valueOf(pasted[0], "angle", 1), 7);
    ASSERT_TRUE(scene().findTimedValue("Deep_1", 0)) << "it comes along, though it drives nothing";
    auto& copied = dynamic_cast<ExpressionColumn&>(*scene().findTimedValue("Formula_1", 0));
    EXPECT_EQ(copied.expression(), R"(value("Deep_1", frame + 1) + 1)");
    auto& copiedDeep = dynamic_cast<ExpressionColumn&>(*scene().findTimedValue("Deep_1", 0));
    EXPECT_EQ(copiedDeep.expression(), R"(value("Wave \"1\"_1") * 2)");
}

namespace {

/// The numbers of two curves at some frames.
QStringList valuesOf(const MO_Node* node, int first, int count)
{
    QStringList values;
    for (int frame = first; frame < first + count; ++frame)
        values.append(QStringLiteral("%1 %2")
                          .arg(ClipboardTest::valueOf(node, "angle", frame), 0, 'f', 6)
                          .arg(ClipboardTest::valueOf(node, "skew", frame), 0, 'f', 6));
    return values;
}

double placeOf(const MO_Node* node, int frame)
{
    return ClipboardTest::attributeAs<AT_Position3dAttr>(node, "position").value(frame).x;
}

} // namespace

TEST_F(NewNodesTest, ARangeHoldsTheValuesAtItsEnds)
{
    MO_Node* peg = add("PEG", "Peg");
    animate(peg, "angle", {{1, 0}, {20, 100}, {40, -50}});
    auto& ease = addSequence<EaseColumn>("Ease");
    auto& path = addSequence<Path3dColumn>("Path");
    ASSERT_TRUE(drive(*attribute(peg, "skew"), &ease));
    ASSERT_TRUE(drive(*attribute(peg, "position"), &path));
    for (const auto& [frame, value] : {std::pair(2, 1.), {25, 9.}, {50, 4.}}) {
        ASSERT_TRUE(run(ease.setValueCommand(frame, value).release()));
        ASSERT_TRUE(run(path.setPositionCommand(frame, {value, 0, 0}).release()));
    }
    const DD_DragObject object = copy({peg}, 10, 21);
    EXPECT_EQ(object.numFrames(), 21);
    const MO_Node* pasted = pasteNew(object).front();
    EXPECT_EQ(valuesOf(pasted, 1, 21), valuesOf(peg, 10, 21));
    EXPECT_NEAR(placeOf(pasted, 1), placeOf(peg, 10), 1e-9);
    EXPECT_NEAR(placeOf(pasted, 16), placeOf(peg, 25), 1e-9);
    EXPECT_NEAR(placeOf(pasted, 21), placeOf(peg, 30), 1e-9);
    EXPECT_EQ(keysOf(pasted, "angle"), (std::vector<int>{1, 11, 21}));
    EXPECT_EQ(keysOf(pasted, "skew"), (std::vector<int>{1, 16, 21}));
    EXPECT_EQ(valueOf(pasted, "angle", 60), valueOf(peg, "angle", 30)) << "it holds behind the range";
}

TEST_F(NewNodesTest, AllFramesTakeAlsoWhatLiesBeyondTheScene)
{
    MO_Node* peg = add("PEG", "Peg");
    animate(peg, "angle", {{-4, 1}, {10.5, 3}, {100, 7}});
    const std::vector<int> keys = keysOf(peg, "angle");
    EXPECT_EQ(keysOf(pasteNew(copy({peg})).front(), "angle"), keys);
}

TEST_F(NewNodesTest, AModeChoosesTheFrames)
{
    MO_Node* read = addRead("Hand", {"1", "2", "3", "4"});
    animate(read, "angle", {{1, 0}, {4, 30}});
    DD_DropMode mode;
    mode.SetStartFrameSrc(2);
    mode.SetNumFramesSrc(2);
    const MO_Node* pasted = pasteNew(copy({read}), mode).front();
    EXPECT_EQ(shown(pasted, 4), "2 3 - -");
    EXPECT_EQ(valueOf(pasted, "angle", 1), valueOf(read, "angle", 2));
    EXPECT_EQ(valueOf(pasted, "angle", 2), valueOf(read, "angle", 3));
    EXPECT_EQ(drawingNames("Hand_1"), QStringList({"1", "2", "3", "4"}));
    mode.fullTransfer = false;
    pasteNew(copy({read}), mode);
    EXPECT_EQ(drawingNames("Hand_2"), QStringList({"2", "3"})) << "only what is shown";
}

TEST_F(NewNodesTest, EachDrawingModeGivesNewNodesTheirElement)
{
    struct Row {
        DD_DropMode::DrawingMode mode;
        QString element; ///< That the pasted node shows, in the same project.
        QString shown;
    };
    const Row rows[] = {
        {DD_DropMode::kAlwaysCreateAndVersion, "Hand_1", "1 2"},
        {DD_DropMode::kAlwaysCreate, "Hand_1", "1 2"},
        {DD_DropMode::kOverwrite, "Hand_1", "1 2"},
        {DD_DropMode::kNeverCreate, "Hand", "- 2"},
        {DD_DropMode::kShare, "Hand", "1 2"},
        {DD_DropMode::kOnlyCreateIfMissing, "Hand_1", "1 2"},
        {DD_DropMode::kOnlyCreateIfMissingAndMerge, "Hand_1", "1 2"},
        {DD_DropMode::kReplaceExisting, "Hand_1", "1 2"},
    };
    MO_Node* read = addRead("Hand", {"1", "2"});
    const DD_DragObject object = copy({read});
    const int id = element("Hand").id();
    ASSERT_TRUE(run(new EM_Commands::DeleteDrawingCmd(&elements(), id, elements().getDrawingId(id, "1", false))));
    for (const Row& row : rows) {
        DD_DropMode mode;
        mode.setDrawingMode(row.mode);
        Nodes pasted;
        changes([&] {
            pasted = pasteNew(object, mode);
            return !pasted.empty();
        });
        const auto& drawing = attributeAs<AT_DrawingAttr>(pasted.front(), "drawing");
        EXPECT_EQ(drawing.getElementName(), row.element) << row.mode;
        EXPECT_EQ(shown(pasted.front(), 2), row.shown) << row.mode;
        if (row.element == "Hand_1") {
            EXPECT_EQ(content("Hand_1", "1"), "picture 1 of Hand");
        }
        undo();
    }
    ClipboardProject other;
    DD_DropMode mode;
    mode.setDrawingMode(DD_DropMode::kShare);
    ASSERT_FALSE(other.pasteNew(object, mode).empty());
    EXPECT_EQ(other.elementNames(), QStringList("Hand")) << "another project has nothing to share";
    mode.setDrawingMode(DD_DropMode::kNeverCreate);
    other.undo();
    ASSERT_FALSE(other.pasteNew(object, mode).empty());
    EXPECT_TRUE(other.elementNames().isEmpty());
    EXPECT_EQ(shown(other.node("Top/Hand"), 2), "- -");
}

TEST_F(NewNodesTest, DrawingsCanBeShownThroughTimingsOrElements)
{
    MO_Node* read = addRead("Hand", {"1", "2"});
    DD_DropMode mode;
    mode.setElementMode(DD_DropMode::kAllThroughTiming);
    Nodes timed;
    changes([&] {
        timed = pasteNew(copy({read}), mode);
        return !timed.empty();
    });
    EXPECT_FALSE(attributeAs<AT_DrawingAttr>(timed[0], "drawing").getElementMode());
    EXPECT_EQ(shown(timed[0], 2), "1 2");
    EXPECT_EQ(attributeAs<AT_DrawingAttr>(timed[0], "drawing").getElementName(), "Hand_1");
    mode.setElementMode(DD_DropMode::kAllAsElements);
    const Nodes again = pasteNew(copy(timed), mode);
    EXPECT_TRUE(attributeAs<AT_DrawingAttr>(again[0], "drawing").getElementMode());
    EXPECT_EQ(shown(again[0], 2), "1 2");
    EXPECT_EQ(attributeAs<AT_DrawingAttr>(again[0], "drawing").getElementName(), "Hand_1_1");
}

TEST_F(NewNodesTest, AnElementThatANodeNamesComesAlong)
{
    addRead("Hand", {"1"});
    MO_Node* read = add("READ", "Named");
    ASSERT_TRUE(run(attribute(read, "drawing.element")->setTextCommand(1, "Hand")));
    const Nodes pasted = pasteNew(copy({read}));
    EXPECT_EQ(attribute(pasted[0], "drawing.element")->textAt(1), "Hand_1");
    EXPECT_EQ(content("Hand_1", "1"), "picture 1 of Hand");
}

TEST_F(NewNodesTest, TheSceneGrowsWhereTheModeSaysSo)
{
    ClipboardProject longer;
    longer.scene().setNumberOfFrames(60, 40, false, false);
    MO_Node* peg = longer.add("PEG", "Peg");
    longer.animate(peg, "angle", {{1, 0}, {100, 99}});
    const DD_DragObject object = longer.copy({peg});
    ASSERT_FALSE(pasteNew(object).empty());
    EXPECT_EQ(scene().getNumberOfFrames(), 60);
    DD_DropMode mode;
    mode.extendScene = true;
    changes([&] { return !pasteNew(object, mode).empty(); });
    EXPECT_EQ(scene().getNumberOfFrames(), 100);
    EXPECT_EQ(scene().getStopFrame(), 100);
    EXPECT_EQ(keysOf(node("Top/Peg_1"), "angle"), (std::vector<int>{1, 100})) << "what was pasted stays at its frames";
}

TEST_F(NewNodesTest, APasteThatFailsAtItsLastStepLeavesNothing)
{
    MO_Node* read = addRead("Hand", {"1"});
    MO_Node* camera = add("CAMERA", "Camera");
    ASSERT_TRUE(run(new SC_SceneCmds::SetDefaultCameraCmd(&scene(), dynamic_cast<TUCameraModule*>(camera))));
    const DD_DragObject object = copy({read, camera});
    DD_DropMode mode;
    mode.extendScene = true;
    const int tooLate = brindle::engine::SceneTiming::maxCount;
    refuses([&] { return pasteOver(object, {read}, mode, tooLate, 60); });
    EXPECT_FALSE(pasteOver(object, {read}, mode, 61, 0));
    EXPECT_TRUE(pasteOver(object, {read}, mode, 61, 60));
    EXPECT_EQ(scene().getNumberOfFrames(), 120);
}

TEST_F(NewNodesTest, DeepAndWideContentIsCopiedWithoutAStackOfItsDepth)
{
    {
        const CO_CommandAccumScope scope(&manager(), "Set up", nullptr, CO_CommandAccumScope::kDefault);
        TUGroup* group = addGroup("Deep");
        for (int i = 0; i < 10'000; ++i)
            group = addGroup("G", group);
        MO_Node* hub = add("PEG", "Hub");
        for (int i = 0; i < 5'000; ++i)
            link(hub, add("READ", "Drawing"));
    }
    const DD_DragObject object = copy(Nodes(top()->subNodesBegin(), top()->subNodesEnd()));
    const Nodes pasted = pasteNew(object);
    EXPECT_EQ(pasted.size(), 5'004u);
    EXPECT_EQ(node("Top/Hub_1")->outPort(0)->nDstPorts(), 5'000u);
    EXPECT_TRUE(pasteOver(object, pasted));
    undo(2);
    EXPECT_FALSE(node("Top/Hub_1"));
}
