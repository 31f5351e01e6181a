#include "core/host/dd_dragdrop.h"

#include "core/host/at_attr.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_timedvalue.h"
#include "engine/folder/scenefile.h"
#include "tests/core/support/standinnode.h"
#include "tests/core/support/standins.h"
#include "tests/engine/support/memoryproject.h"

#include <algorithm>
#include <vector>

namespace {

const DD_DropMode newNodes(true, false);

class DragDropTest : public GraphTest {
protected:
    std::string saved() { return brindle::engine::sceneText(scene()).toStdString(); }

    DD_DragObject drag(const std::vector<MO_Node*>& nodes)
    {
        SL_Selection selection(scene().changeManager());
        for (MO_Node* node : nodes)
            SL_SelectionUtil::addToSelection(selection, node);
        DD_SelectionUtil::BuildSelection(
            &scene(), selection, dragged,
            DD_SelectionUtil::CompositionOptions(DD_SelectionUtil::CompositionOptions::DEFAULT));
        dragged.SetFrameRange(1, scene().getNumberOfFrames());
        return DD_System::CreateDragObject(&scene(), dragged, DD_DragMode::WholeNodes);
    }

    bool drop(const DD_DragObject& object, TUGroup* group)
    {
        return DD_System::DropDragObjectNewLayer(&session, &scene(), group, object, newNodes, dropped);
    }

    /// All steps of a move, as one entry.
    std::vector<MO_Node*> move(const std::vector<MO_Node*>& nodes, TUGroup* group)
    {
        const CO_CommandAccumScope scope(&manager(), "Move", nullptr, CO_CommandAccumScope::kDefault);
        const DD_DragObject object = drag(nodes);
        std::set<MO_Node*> leaving;
        dragged.GetFilteredNodes(leaving);
        MO_Node* composite = nullptr;
        EXPECT_TRUE(SU_CleanUpCommands::removeNodes(&scene(), leaving, false));
        EXPECT_TRUE(drop(object, group));
        EXPECT_TRUE(DD_System::FindOrCreateComposite(&scene(), newNodes, group, nullptr, composite));
        EXPECT_TRUE(DD_System::LinkToComposite(&scene(), newNodes, dropped, composite));
        EXPECT_TRUE(DD_System::ReparentNode(&scene(), dropped, group->getOutMultiPort()));
        EXPECT_TRUE(DD_System::UnlinkParentFromComposite(&scene(), newNodes, dropped, composite, nullptr));
        EXPECT_TRUE(DD_System::SetDefaultCamera(&scene(), newNodes, dropped));
        return dropped.Nodes();
    }

    /// Moves, and checks what undo and redo make of it.
    std::vector<MO_Node*> moveUndoably(const std::vector<MO_Node*>& nodes, TUGroup* group)
    {
        const std::string before = saved();
        const QStringList entries = labels();
        std::vector<MO_Node*> moved = move(nodes, group);
        EXPECT_EQ(labels(), entries + QStringList("Move"));
        const std::string after = saved();
        for (int round = 0; round < 3; ++round) {
            undo();
            EXPECT_EQ(saved(), before);
            redo();
            EXPECT_EQ(saved(), after);
        }
        return moved;
    }

    static AT_Attr* attribute(MO_Node* node, const QString& keyword, const QString& member = {})
    {
        AT_Attr* attr = node->findAttributeByKeyword(keyword);
        const auto* complex = dynamic_cast<AT_ComplexAttr*>(attr);
        if (!complex)
            return attr;
        return *std::find_if(complex->attrsBegin(), complex->attrsEnd(),
                             [&](AT_Attr* part) { return part->meta().keyword() == member; });
    }

    TUTimedValue* drive(AT_Attr* attr, TUTimedValue* column = nullptr)
    {
        if (!column) {
            column = dynamic_cast<AT_DoubleAttr&>(*attr).createTimedValue();
            EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        }
        EXPECT_TRUE(run(new tu_tv_socket::LinkCmd(attr->socket(), column)));
        return column;
    }

    StandInSession session;
    DD_Selection dragged;
    DD_Selection dropped;
    TUGroup* body = addGroup("Body");
};

} // namespace

TEST_F(DragDropTest, ASelectionIsFilteredByItsGroups)
{
    TUGroup* arm = addGroup("Arm", body);
    MO_Node* hand = add("READ", "Hand", arm);
    MO_Node* peg = add("PEG", "Peg");
    EXPECT_TRUE(drag({hand, peg, body}).isValid());
    EXPECT_TRUE(dragged.hasNodes());
    EXPECT_EQ(dragged.Nodes(), (std::vector<MO_Node*>{hand, peg, body}));
    EXPECT_EQ(std::vector<MO_Node*>(dragged.NodeBegin(), dragged.NodeEnd()), dragged.Nodes());
    std::set<MO_Node*> filtered{hand};
    dragged.GetFilteredNodes(filtered);
    EXPECT_EQ(filtered, (std::set<MO_Node*>{peg, body}));
}

TEST_F(DragDropTest, WhatCantBeDraggedIsRefused)
{
    MemoryProject other;
    StandInNode standIn(&scene());
    EXPECT_FALSE(drag({}).isValid());
    EXPECT_FALSE(dragged.hasNodes());
    EXPECT_FALSE(drag({top()}).isValid());
    EXPECT_FALSE(drag({body, other.node("Top/Display")}).isValid());
    EXPECT_FALSE(drag({body, &standIn}).isValid());
    EXPECT_TRUE(drag({body}).isValid());
    dragged.SetFrameRange(1, 0);
    EXPECT_FALSE(DD_System::CreateDragObject(&scene(), dragged, DD_DragMode::WholeNodes).isValid());
    dragged.SetFrameRange(1, 1);
    EXPECT_FALSE(DD_System::CreateDragObject(nullptr, dragged, DD_DragMode::WholeNodes).isValid());
}

TEST_F(DragDropTest, WhatCantBeDroppedIsRefusedAndChangesNothing)
{
    MemoryProject other;
    MO_Node* entry = add("MULTIPORT_IN", {}, body);
    MO_Node* peg = add("PEG", "Peg");
    TUGroup* arm = addGroup("Arm");
    add("MULTIPORT_IN", {}, arm);
    const DD_DragObject object = drag({peg, entry});
    ASSERT_TRUE(object.isValid());
    const std::string before = saved();
    const QStringList entries = labels();
    EXPECT_FALSE(drop(object, arm)) << "a second multi-port node";
    EXPECT_FALSE(dropped.hasNodes());
    EXPECT_FALSE(drop(object, nullptr));
    EXPECT_FALSE(drop(object, other.top()));
    EXPECT_FALSE(drop(DD_DragObject(), body));
    EXPECT_FALSE(DD_System::DropDragObjectNewLayer(nullptr, &scene(), top(), object, newNodes, dropped));
    EXPECT_FALSE(DD_System::DropDragObjectNewLayer(&session, nullptr, top(), object, newNodes, dropped));
    EXPECT_FALSE(
        DD_System::DropDragObjectNewLayer(&session, &scene(), top(), object, DD_DropMode(false, false), dropped));
    MO_Node* composite = peg;
    EXPECT_FALSE(DD_System::FindOrCreateComposite(&scene(), newNodes, other.top(), nullptr, composite));
    EXPECT_EQ(composite, nullptr);
    EXPECT_FALSE(DD_System::LinkToComposite(&scene(), newNodes, dropped, other.node("Top/Composite")));
    EXPECT_FALSE(DD_System::UnlinkParentFromComposite(nullptr, newNodes, dropped, nullptr, nullptr));
    EXPECT_FALSE(DD_System::SetDefaultCamera(nullptr, newNodes, dropped));
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(labels(), entries);
    EXPECT_TRUE(drop(object, top()));
}

TEST_F(DragDropTest, ADragObjectCanBeDroppedAgainAndAfterItsNodesWent)
{
    MO_Node* peg = add("PEG", "Peg");
    dynamic_cast<AT_DoubleAttr&>(*attribute(peg, "angle")).setLocalValue(45);
    const DD_DragObject object = drag({peg});
    remove({peg});
    manager().clearHistory();
    const DD_DragObject copy = object;
    ASSERT_TRUE(drop(object, body));
    ASSERT_TRUE(drop(copy, body));
    EXPECT_EQ(names(body), QStringList({"Peg", "Peg_1"}));
    EXPECT_EQ(dynamic_cast<AT_DoubleAttr&>(*attribute(node("Top/Body/Peg_1"), "angle")).localValue(), 45);
    undo(2);
    EXPECT_TRUE(names(body).isEmpty());
}

TEST_F(DragDropTest, AMovedNodeIsANewOneOfTheSameKind)
{
    MO_Node* drawing = add("READ", "Drawing");
    add("READ", "Drawing", body);
    run(new tu_node::SetXYZCmd(drawing, 10, -20, 30));
    run(new tu_node::EnabledNodeCmd(drawing, false));
    dynamic_cast<AT_DoubleAttr&>(*attribute(drawing, "opacity")).setLocalValue(12.5);
    dynamic_cast<AT_BoolAttr&>(*attribute(drawing, "visible")).setLocalValue(false);
    run(attribute(drawing, "drawing", "element")->setTextCommand(1, "walk"));
    UT_SharedWeakPtrBase pointer;
    pointer.assign(drawing);
    const std::vector<MO_Node*> moved = moveUndoably({drawing}, body);
    ASSERT_EQ(moved.size(), 1u);
    MO_Node* now = moved.front();
    EXPECT_NE(now, drawing);
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(now, node("Top/Body/Drawing_1"));
    EXPECT_EQ(now->typeName(), "READ");
    EXPECT_EQ(now->x(), 10);
    EXPECT_EQ(now->y(), -20);
    EXPECT_EQ(now->z(), 30);
    EXPECT_FALSE(now->isEnabled());
    EXPECT_EQ(dynamic_cast<AT_DoubleAttr&>(*attribute(now, "opacity")).localValue(), 12.5);
    EXPECT_FALSE(dynamic_cast<AT_BoolAttr&>(*attribute(now, "visible")).localValue());
    EXPECT_EQ(attribute(now, "drawing", "element")->textAt(1), "walk");
    EXPECT_EQ(names(top()), QStringList({"Display", "Composite", "Body"}));
}

TEST_F(DragDropTest, OptionsAndWholeNumbersMoveAlong)
{
    MO_Node* composite = add("COMPOSITE", "Blend");
    MO_Node* card = add("COLOR_CARD", "Card");
    ASSERT_TRUE(run(attribute(composite, "mode")->setTextCommand(1, "SCREEN")));
    dynamic_cast<AT_IntAttr&>(*attribute(card, "colour", "green")).setLocalValue(17);
    const std::vector<MO_Node*> moved = moveUndoably({composite, card}, body);
    EXPECT_EQ(attribute(moved[0], "mode")->textAt(1), "SCREEN");
    EXPECT_EQ(dynamic_cast<AT_IntAttr&>(*attribute(moved[1], "colour", "green")).localValue(), 17);
}

TEST_F(DragDropTest, DynamicPortsKeepTheirIds)
{
    MO_Node* blend = add("COMPOSITE", "Blend");
    for (const unsigned int place : {1u, 2u})
        ASSERT_TRUE(run(new tu_node::AddInPortCmd(blend, place, MO_Port::createImagePort())));
    ASSERT_TRUE(run(new tu_node::DeleteInPortCmd(blend, 0)));
    const std::vector<MO_Node*> moved = moveUndoably({blend}, body);
    ASSERT_EQ(moved[0]->nInPorts(), 2u);
    EXPECT_EQ(moved[0]->inPort(0)->id(), 1u);
    EXPECT_EQ(moved[0]->inPort(1)->id(), 2u);
    EXPECT_EQ(moved[0]->nOutPorts(), 1u);
}

TEST_F(DragDropTest, ColumnsStayLinkedAtTheirPlaces)
{
    MO_Node* first = add("PEG", "First");
    MO_Node* second = add("PEG", "Second");
    TUTimedValue* shared = drive(attribute(first, "angle"));
    drive(attribute(second, "angle"), shared);
    TUTimedValue* own = drive(attribute(first, "position", "x"));
    const std::vector<MO_Node*> moved = moveUndoably({first}, body);
    EXPECT_EQ(shared->linkedNodes(), (std::vector<MO_Node*>{moved[0], second}));
    EXPECT_EQ(shared->getDisplayName(), "First: angle");
    EXPECT_EQ(own->linkedAttr(0), attribute(moved[0], "position", "x"));
    EXPECT_EQ(scene().timedValueCount(), 2);
    undo();
    EXPECT_EQ(shared->linkedNodes(), (std::vector<MO_Node*>{first, second}));
}

TEST_F(DragDropTest, ACopyIsLinkedBehindTheOriginal)
{
    MO_Node* peg = add("PEG", "Peg");
    TUTimedValue* column = drive(attribute(peg, "angle"));
    const DD_DragObject object = drag({peg});
    const std::string before = saved();
    ASSERT_TRUE(drop(object, body));
    EXPECT_EQ(column->linkedNodes(), (std::vector<MO_Node*>{peg, dropped.Nodes().front()}));
    const std::string after = saved();
    undo();
    EXPECT_EQ(saved(), before);
    redo();
    EXPECT_EQ(saved(), after);
}

TEST_F(DragDropTest, AColumnThatWentIsNotLinked)
{
    MO_Node* peg = add("PEG", "Peg");
    drive(attribute(peg, "angle"));
    const DD_DragObject object = drag({peg});
    remove({peg}, true);
    ASSERT_TRUE(drop(object, body));
    EXPECT_FALSE(attribute(dropped.Nodes().front(), "angle")->socket()->isLinked());
}

TEST_F(DragDropTest, AGroupMovesWithAllThatIsInIt)
{
    TUGroup* arm = addGroup("Arm");
    MO_Node* entry = add("MULTIPORT_IN", {}, arm);
    MO_Node* exit = add("MULTIPORT_OUT", {}, arm);
    TUGroup* inner = addGroup("Inner", arm);
    MO_Node* peg = add("PEG", "Peg", inner);
    MO_Node* hand = add("READ", "Hand", inner);
    MO_Node* blur = add("BLUR", "Blur", arm);
    run(new tu_node::AddInPortCmd(arm, 0, MO_Port::createImagePort()));
    run(new tu_node::AddInPortCmd(arm, 0, MO_Port::createMatrixPort()));
    run(new tu_node::AddOutPortCmd(arm, 0, MO_Port::createImagePort()));
    ASSERT_TRUE(link(peg, hand));
    ASSERT_TRUE(link(entry, blur, 1, 0));
    ASSERT_TRUE(link(blur, exit));
    TUTimedValue* column = drive(attribute(peg, "angle"));
    UT_SharedWeakPtrBase pointer;
    pointer.assign(hand);

    const std::vector<MO_Node*> moved = moveUndoably({arm}, body);
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(moved.front(), node("Top/Body/Arm"));
    EXPECT_EQ(names(moved.front()->group()), names(arm));
    MO_Node* newBlur = node("Top/Body/Arm/Blur");
    EXPECT_EQ(newBlur->inPort(0)->srcPort(), node("Top/Body/Arm/Multi-Port-In")->outPort(1));
    EXPECT_EQ(newBlur->outPort(0)->nDstPorts(), 1u);
    EXPECT_EQ(node("Top/Body/Arm/Inner/Hand")->inPort(0)->srcPort(), node("Top/Body/Arm/Inner/Peg")->outPort(0));
    EXPECT_EQ(column->linkedNodes(), std::vector<MO_Node*>{node("Top/Body/Arm/Inner/Peg")});
    ASSERT_EQ(moved.front()->nInPorts(), 2u);
    EXPECT_EQ(moved.front()->inPort(0)->typeName(), "PEG");
    EXPECT_EQ(moved.front()->inPort(0)->id(), 1u);
}

TEST_F(DragDropTest, LinksBetweenMovedNodesAreRestored)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* a = add("READ", "A");
    MO_Node* b = add("READ", "B");
    MO_Node* stays = add("READ", "Stays");
    for (MO_Node* drawing : {b, stays, a})
        ASSERT_TRUE(link(peg, drawing));
    const std::vector<MO_Node*> moved = moveUndoably({a, peg, b}, body);
    ASSERT_EQ(moved.size(), 3u);
    EXPECT_EQ(names(body), QStringList({"A", "Peg", "B"}));
    ASSERT_EQ(moved[1]->outPort(0)->nDstPorts(), 2u);
    EXPECT_EQ(moved[1]->outPort(0)->dstPortsBegin()[0], moved[2]->inPort(0)) << "in the order of linking";
    EXPECT_EQ(moved[1]->outPort(0)->dstPortsBegin()[1], moved[0]->inPort(0));
    EXPECT_EQ(stays->inPort(0)->srcPort(), nullptr);
}

TEST_F(DragDropTest, NodesOfSeveralGroupsAndOneNameAreNumbered)
{
    TUGroup* arm = addGroup("Arm");
    MO_Node* one = add("PEG", "Peg");
    MO_Node* two = add("PEG", "Peg", arm);
    MO_Node* three = add("PEG", "Peg", body);
    moveUndoably({two, one, three}, body);
    EXPECT_EQ(names(body), QStringList({"Peg", "Peg_1", "Peg_2"}));
    EXPECT_TRUE(names(arm).isEmpty());
}

TEST_F(DragDropTest, InItsOwnGroupANodeKeepsItsNameAndLinks)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* a = add("READ", "A");
    MO_Node* b = add("READ", "B");
    MO_Node* composite = node("Top/Composite");
    for (MO_Node* drawing : {a, b})
        ASSERT_TRUE(link(peg, drawing));
    ASSERT_TRUE(link(b, composite));
    const std::vector<MO_Node*> moved = moveUndoably({b}, top());
    EXPECT_EQ(moved.front(), node("Top/B"));
    EXPECT_EQ(moved.front()->inPort(0)->srcPort(), peg->outPort(0));
    EXPECT_EQ(composite->inPort(0)->srcPort(), moved.front()->outPort(0));
    EXPECT_EQ(composite->nInPorts(), 1u);
    const std::vector<MO_Node*> parent = moveUndoably({peg}, top());
    EXPECT_EQ(a->inPort(0)->srcPort(), parent.front()->outPort(0));
    EXPECT_EQ(parent.front()->outPort(0)->dstPortsBegin()[0], a->inPort(0));
}

TEST_F(DragDropTest, AMovedMultiPortNodeShowsThePortsOfItsNewGroup)
{
    TUGroup* arm = addGroup("Arm");
    MO_Node* exit = add("MULTIPORT_OUT", "Exit", arm);
    run(new tu_node::AddOutPortCmd(arm, 0, MO_Port::createImagePort()));
    ASSERT_EQ(exit->nInPorts(), 1u);
    run(new tu_node::AddOutPortCmd(body, 0, MO_Port::createImagePort()));
    run(new tu_node::AddOutPortCmd(body, 0, MO_Port::createImagePort()));
    const std::vector<MO_Node*> moved = moveUndoably({exit}, body);
    EXPECT_EQ(body->getInMultiPort(), moved.front());
    EXPECT_EQ(moved.front()->nInPorts(), 2u);
    EXPECT_EQ(arm->getInMultiPort(), nullptr);
    EXPECT_EQ(arm->nOutPorts(), 1u);
}

namespace {

/// Body shows a composite: Body (Entry with a peg port, Cel, Mix (Cel) -> Exit).
class ShownGroupTest : public DragDropTest {
protected:
    ShownGroupTest()
    {
        run(new tu_node::AddOutPortCmd(body, 0, MO_Port::createImagePort()));
        run(new tu_node::AddInPortCmd(body, 0, MO_Port::createImagePort()));
        run(new tu_node::AddInPortCmd(body, 1, MO_Port::createMatrixPort()));
        EXPECT_TRUE(link(add("READ", "Cel", body), mix));
        EXPECT_TRUE(link(mix, exit));
    }

    MO_Node* entry = add("MULTIPORT_IN", "Entry", body);
    MO_Node* exit = add("MULTIPORT_OUT", "Exit", body);
    MO_Node* mix = add("COMPOSITE", "Mix", body);
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* drawing = add("READ", "Drawing");
};

} // namespace

TEST_F(ShownGroupTest, AnImageThatWasUsedIsUsedByTheCompositeThere)
{
    ASSERT_TRUE(link(drawing, node("Top/Composite")));
    const std::vector<MO_Node*> moved = moveUndoably({drawing}, body);
    ASSERT_EQ(mix->nInPorts(), 2u);
    EXPECT_EQ(mix->inPort(1)->srcPort(), moved.front()->outPort(0));
    EXPECT_EQ(moved.front()->outPort(0)->nDstPorts(), 1u);
}

TEST_F(ShownGroupTest, AFreePortOfTheCompositeIsUsedFirst)
{
    ASSERT_TRUE(run(new tu_node::AddInPortCmd(mix, 0, MO_Port::createImagePort())));
    ASSERT_TRUE(link(drawing, node("Top/Composite")));
    const std::vector<MO_Node*> moved = moveUndoably({drawing}, body);
    EXPECT_EQ(mix->nInPorts(), 2u);
    EXPECT_EQ(mix->inPort(0)->srcPort(), moved.front()->outPort(0));
}

TEST_F(ShownGroupTest, OnlyTheEndOfAMovedChainIsLinked)
{
    MO_Node* blur = add("BLUR", "Blur");
    MO_Node* loose = add("READ", "Loose");
    ASSERT_TRUE(link(drawing, blur));
    ASSERT_TRUE(link(blur, node("Top/Composite")));
    const std::vector<MO_Node*> moved = moveUndoably({drawing, blur, loose}, body);
    EXPECT_EQ(mix->nInPorts(), 2u);
    EXPECT_EQ(mix->inPort(1)->srcPort(), moved[1]->outPort(0));
    EXPECT_EQ(moved[0]->outPort(0)->nDstPorts(), 1u);
    EXPECT_EQ(moved[2]->outPort(0)->nDstPorts(), 0u) << "nothing used it";
}

TEST_F(ShownGroupTest, ANodeThatHadAParentHangsOnTheGroups)
{
    MO_Node* loose = add("READ", "Loose");
    ASSERT_TRUE(link(peg, drawing));
    const std::vector<MO_Node*> moved = moveUndoably({drawing, loose}, body);
    EXPECT_EQ(moved[0]->inPort(0)->srcPort(), entry->outPort(1));
    EXPECT_EQ(moved[1]->inPort(0)->srcPort(), nullptr);
}

TEST_F(ShownGroupTest, AParentThatMovesAlongStaysTheParent)
{
    ASSERT_TRUE(link(peg, drawing));
    const std::vector<MO_Node*> moved = moveUndoably({drawing, peg}, body);
    EXPECT_EQ(moved[0]->inPort(0)->srcPort(), moved[1]->outPort(0));
    EXPECT_EQ(moved[1]->inPort(0)->srcPort(), nullptr);
}

TEST_F(ShownGroupTest, ARenamedNodeGetsNoLinksThatItDidNotHave)
{
    MO_Node* loose = add("READ", "Loose", body);
    const std::vector<MO_Node*> moved = moveUndoably({loose, node("Top/Body/Cel")}, body);
    EXPECT_EQ(moved[0]->outPort(0)->nDstPorts(), 0u);
    EXPECT_EQ(moved[0]->inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(mix->nInPorts(), 1u);
    EXPECT_EQ(mix->inPort(0)->srcPort(), moved[1]->outPort(0));
}

TEST_F(ShownGroupTest, WithoutACompositeOrAPegPortNothingIsLinked)
{
    TUGroup* plain = addGroup("Plain");
    add("MULTIPORT_IN", {}, plain);
    add("MULTIPORT_OUT", {}, plain);
    run(new tu_node::AddOutPortCmd(plain, 0, MO_Port::createImagePort()));
    ASSERT_TRUE(link(peg, drawing));
    ASSERT_TRUE(link(drawing, node("Top/Composite")));
    const std::vector<MO_Node*> moved = moveUndoably({drawing}, plain);
    EXPECT_EQ(moved[0]->inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(moved[0]->outPort(0)->nDstPorts(), 0u);
}

TEST_F(DragDropTest, DeepAndWideGroupsMoveWithoutAStackOfTheirDepth)
{
    {
        const CO_CommandAccumScope scope(&manager(), "Set up", nullptr, CO_CommandAccumScope::kDefault);
        TUGroup* group = addGroup("Deep");
        for (int i = 0; i < 10'000; ++i)
            group = addGroup("G", group);
        MO_Node* hub = add("PEG", "Hub");
        for (int i = 0; i < 10'000; ++i)
            link(hub, add("READ", "Drawing"));
    }
    std::vector<MO_Node*> nodes(top()->subNodesBegin(), top()->subNodesEnd());
    nodes.erase(std::find(nodes.begin(), nodes.end(), body));
    EXPECT_EQ(move(nodes, body).size(), nodes.size());
    EXPECT_EQ(top()->nSubNodes(), 1u);
    EXPECT_EQ(node("Top/Body/Hub")->outPort(0)->nDstPorts(), 10'000u);
    undo();
    EXPECT_EQ(top()->nSubNodes(), nodes.size() + 1);
}

TEST_F(DragDropTest, TheDefaultCameraStaysTheDefaultOneWhereItMoves)
{
    TUGroup* group = addGroup("Group");
    MO_Node* camera = add("CAMERA", "Camera");
    add("CAMERA", "Other");
    ASSERT_TRUE(run(new SC_SceneCmds::SetDefaultCameraCmd(&scene(), dynamic_cast<TUCameraModule*>(camera))));
    const std::vector<MO_Node*> moved = moveUndoably({node("Top/Other"), camera}, group);
    ASSERT_EQ(moved.size(), 2u);
    EXPECT_EQ(moved[1]->qualifiedName(), "Top/Group/Camera");
    EXPECT_EQ(static_cast<MO_Node*>(scene().camera(false)), moved[1]);
    moveUndoably({group}, addGroup("Outer"));
    ASSERT_TRUE(scene().camera(false));
    EXPECT_EQ(scene().camera(false)->qualifiedName(), "Top/Outer/Group/Camera") << "also within a group that moves";
}

TEST_F(DragDropTest, TheDefaultDisplayStaysTheDefaultOneWhereItMoves)
{
    TUGroup* group = addGroup("Group");
    add("DISPLAY", "Other");
    moveUndoably({node("Top/Other"), node("Top/Display")}, group);
    ASSERT_TRUE(scene().defaultDisplay());
    EXPECT_EQ(scene().defaultDisplay()->qualifiedName(), "Top/Group/Display");
}

TEST_F(DragDropTest, ACopyOfTheDefaultCameraIsTheDefaultOneOnlyWhereTheModeSaysSo)
{
    MO_Node* camera = add("CAMERA", "Camera");
    ASSERT_TRUE(run(new SC_SceneCmds::SetDefaultCameraCmd(&scene(), dynamic_cast<TUCameraModule*>(camera))));
    const DD_DragObject object = drag({camera});
    ASSERT_TRUE(drop(object, top()));
    EXPECT_TRUE(DD_System::SetDefaultCamera(&scene(), newNodes, dropped));
    EXPECT_EQ(static_cast<MO_Node*>(scene().camera(false)), camera);
    EXPECT_TRUE(DD_System::SetDefaultCamera(&scene(), DD_DropMode(true, true), dropped));
    ASSERT_EQ(dropped.Nodes().size(), 1u);
    EXPECT_EQ(static_cast<MO_Node*>(scene().camera(false)), dropped.Nodes().front());
    undo();
    EXPECT_EQ(static_cast<MO_Node*>(scene().camera(false)), camera);
}
