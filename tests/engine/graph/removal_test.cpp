#include "engine/graph/removal.h"

#include "core/host/at_attr.h"
#include "core/host/tu_timedvalue.h"
#include "tests/core/support/standinnode.h"
#include "tests/engine/support/memoryproject.h"

namespace {

class RemovalTest : public GraphTest {
protected:
    /// Removes and checks what undo and redo make of it.
    void expectUndoable(const std::set<MO_Node*>& nodes, bool columns = false, bool bridge = false)
    {
        const QString before = dump();
        const qsizetype entries = labels().size();
        ASSERT_TRUE(remove(nodes, columns, bridge));
        EXPECT_EQ(labels().size(), entries + 1);
        EXPECT_EQ(labels().last(), "Delete Nodes");
        const QString after = dump();
        undo();
        EXPECT_EQ(dump(), before);
        redo();
        EXPECT_EQ(dump(), after);
    }
    void expectRefused(const std::set<MO_Node*>& nodes)
    {
        const QString before = dump();
        const QStringList entries = labels();
        EXPECT_FALSE(remove(nodes));
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(labels(), entries);
    }

    /// A new column on an attribute, which is named by its path: "angle", "position.x".
    TUTimedValue* drive(MO_Node* node, const QString& attribute, TUTimedValue* column = nullptr)
    {
        QString first, rest;
        AT_ComplexAttr::splitNames(attribute, first, rest);
        AT_Attr* attr = node->findAttributeByKeyword(rest.isEmpty() ? attribute : first);
        if (!rest.isEmpty()) {
            auto* complex = dynamic_cast<AT_ComplexAttr*>(attr);
            attr = *std::find_if(complex->attrsBegin(), complex->attrsEnd(),
                                 [&](AT_Attr* part) { return part->meta().keyword() == rest; });
        }
        if (!column) {
            column = dynamic_cast<AT_DoubleAttr&>(*attr).createTimedValue();
            EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        }
        EXPECT_TRUE(run(new tu_tv_socket::LinkCmd(attr->socket(), column)));
        return column;
    }
};

} // namespace

TEST_F(RemovalTest, NodesGoWithTheirLinks)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* a = add("READ", "A");
    MO_Node* b = add("READ", "B");
    MO_Node* c = add("READ", "C");
    for (MO_Node* drawing : {a, b, c})
        ASSERT_TRUE(link(peg, drawing));
    run(new tu_node::UnlinkInPortFromOutsideCmd(node("Top/Composite"), 0));
    ASSERT_TRUE(link(b, node("Top/Composite")));
    expectUndoable({b});
    EXPECT_EQ(peg->outPort(0)->nDstPorts(), 2u);
    EXPECT_EQ(node("Top/Composite")->inPort(0)->srcPort(), nullptr);
    expectUndoable({peg});
    EXPECT_EQ(a->inPort(0)->srcPort(), nullptr);
    expectUndoable({a, c, node("Top/Display"), node("Top/Composite")});
    EXPECT_EQ(top()->nSubNodes(), 0u);
}

TEST_F(RemovalTest, AGroupGoesWithItsContentAndNodesInItGoOnce)
{
    TUGroup* outer = addGroup("Outer");
    TUGroup* inner = addGroup("Inner", outer);
    MO_Node* peg = add("PEG", "Peg", inner);
    MO_Node* drawing = add("READ", "Drawing", inner);
    link(peg, drawing);
    MO_Node* beside = add("PEG", "Beside", outer);
    expectUndoable({outer});
    undo();
    expectUndoable({outer, inner, peg, beside});
    EXPECT_EQ(names(top()), QStringList({"Display", "Composite"}));
    undo();
    expectUndoable({inner, peg});
    EXPECT_EQ(names(outer), QStringList({"Beside"}));
    undo();
    expectUndoable({peg, beside});
    EXPECT_EQ(names(inner), QStringList({"Drawing"}));
}

TEST_F(RemovalTest, NodesThatLieDeepInARemovedGroupStayInTheirGroups)
{
    TUGroup* outer = addGroup("Outer");
    TUGroup* middle = addGroup("Middle", outer);
    TUGroup* inner = addGroup("Inner", middle);
    MO_Node* one = add("PEG", "One", inner);
    MO_Node* two = add("PEG", "Two", inner);
    MO_Node* beside = add("PEG", "Beside");
    expectUndoable({outer, one, two, beside});
    EXPECT_EQ(names(inner), QStringList({"One", "Two"}));
    EXPECT_EQ(names(outer), QStringList("Middle"));
    EXPECT_EQ(names(top()), QStringList({"Display", "Composite"}));
}

TEST_F(RemovalTest, NothingIsRemovedWhenOneNodeCantBe)
{
    MO_Node* peg = add("PEG", "Peg");
    MemoryProject other;
    StandInNode standIn(scene().sceneCommon());
    bool flag = true;
    const std::unique_ptr<MO_Node> loose(TUGroup::createNode("PEG", 0, 0, 0, flag, nullptr));
    expectRefused({});
    expectRefused({top()});
    expectRefused({peg, top()});
    expectRefused({peg, other.node("Top/Display")});
    expectRefused({peg, &standIn});
    expectRefused({peg, nullptr});
    expectRefused({peg, loose.get()});
    EXPECT_FALSE(SU_CleanUpCommands::removeNodes(nullptr, {peg}, false));
    remove({peg});
    expectRefused({peg});
}

TEST_F(RemovalTest, AGroupKeepsItsPortsWithoutItsMultiPortNode)
{
    TUGroup* group = addGroup("G");
    MO_Node* multiIn = add("MULTIPORT_IN", {}, group);
    MO_Node* blur = add("BLUR", "Blur", group);
    MO_Node* drawing = add("READ", "Drawing");
    run(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    ASSERT_TRUE(link(drawing, group));
    ASSERT_TRUE(link(multiIn, blur));
    expectUndoable({multiIn});
    EXPECT_EQ(group->inPort(0)->srcPort(), drawing->outPort(0));
    EXPECT_EQ(blur->inPort(0)->srcPort(), nullptr);
    MO_Node* next = add("MULTIPORT_IN", {}, group);
    EXPECT_EQ(next->nOutPorts(), 1u);
    undo(2);
    EXPECT_EQ(group->getOutMultiPort(), multiIn);
    EXPECT_EQ(blur->inPort(0)->realSrcPort(), drawing->outPort(0));
}

TEST_F(RemovalTest, TheGapIsBridgedWhenAsked)
{
    MO_Node* shoulder = add("PEG", "Shoulder");
    MO_Node* elbow = add("PEG", "Elbow");
    MO_Node* wrist = add("PEG", "Wrist");
    MO_Node* hand = add("READ", "Hand");
    MO_Node* finger = add("READ", "Finger");
    link(shoulder, elbow);
    link(elbow, wrist);
    link(wrist, hand);
    link(wrist, finger);
    expectUndoable({elbow, wrist}, false, true);
    EXPECT_EQ(hand->inPort(0)->srcPort(), shoulder->outPort(0));
    EXPECT_EQ(finger->inPort(0)->srcPort(), shoulder->outPort(0));
    undo();
    expectUndoable({elbow, wrist});
    EXPECT_EQ(hand->inPort(0)->srcPort(), nullptr);
}

TEST_F(RemovalTest, AGapBetweenDifferentKindsIsNotBridged)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* drawing = add("READ", "Drawing");
    MO_Node* blur = add("BLUR", "Blur");
    link(peg, drawing);
    link(drawing, blur);
    expectUndoable({drawing}, false, true);
    EXPECT_EQ(blur->inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(peg->outPort(0)->nDstPorts(), 0u);
}

TEST_F(RemovalTest, AttributesOfRemovedNodesLetGoOfTheirColumns)
{
    TUGroup* group = addGroup("G");
    MO_Node* peg = add("PEG", "Peg", group);
    MO_Node* other = add("PEG", "Other");
    TUTimedValue* shared = drive(peg, "angle");
    drive(other, "angle", shared);
    TUTimedValue* own = drive(peg, "position.x");
    ASSERT_EQ(shared->getNumLinks(), 2u);
    ASSERT_EQ(own->getNumLinks(), 1u);
    expectUndoable({group});
    EXPECT_EQ(shared->linkedNodes(), std::vector<MO_Node*>{other});
    EXPECT_EQ(own->getNumLinks(), 0u);
    EXPECT_EQ(scene().timedValueCount(), 2);
    undo();
    EXPECT_EQ(shared->linkedNodes(), (std::vector<MO_Node*>{peg, other}));
}

TEST_F(RemovalTest, ColumnsThatOnlyRemovedNodesWereLinkedToGoWhenAsked)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* other = add("PEG", "Other");
    TUTimedValue* shared = drive(peg, "angle");
    drive(other, "angle", shared);
    TUTimedValue* own = drive(peg, "position.x");
    drive(peg, "position.y", own);
    UT_SharedWeakPtrBase pointer;
    pointer.assign(own);
    expectUndoable({peg}, true);
    EXPECT_EQ(scene().timedValueCount(), 1);
    EXPECT_EQ(pointer.get(), nullptr);
    undo();
    EXPECT_EQ(scene().timedValueCount(), 2);
    EXPECT_EQ(pointer.get(), nullptr) << "gone for ever for those who held it";
    expectUndoable({peg, other}, true);
    EXPECT_EQ(scene().timedValueCount(), 0);
}

TEST_F(RemovalTest, TheShortFormTakesTheFlagAlone)
{
    MO_Node* peg = add("PEG", "Peg");
    drive(peg, "angle");
    ASSERT_TRUE(SU_CleanUpCommands::removeNodes(&scene(), {peg}, true));
    EXPECT_EQ(scene().timedValueCount(), 0);
}

TEST_F(RemovalTest, ManyNodesAreRemovedAtOnce)
{
    const CO_CommandAccumScope scope(&manager(), "Many", nullptr, CO_CommandAccumScope::kDefault);
    MO_Node* hub = add("PEG", "Hub");
    std::set<MO_Node*> all{hub};
    for (int i = 0; i < 10'000; ++i) {
        MO_Node* drawing = add("READ", "Drawing");
        link(hub, drawing);
        all.insert(drawing);
    }
    ASSERT_TRUE(remove(all));
    EXPECT_EQ(names(top()), QStringList({"Display", "Composite"}));
}
