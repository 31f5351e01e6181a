#include "engine/graph/portcommands.h"

#include "tests/core/support/standinnode.h"
#include "tests/engine/support/memoryproject.h"

namespace {

class PortCommandsTest : public GraphTest {
protected:
    void expectUndoable(CO_Command* command)
    {
        const QString before = dump();
        ASSERT_TRUE(run(command));
        const QString after = dump();
        undo();
        EXPECT_EQ(dump(), before);
        redo();
        EXPECT_EQ(dump(), after);
    }
    void expectRefused(CO_Command* command)
    {
        const QString before = dump();
        const QStringList entries = labels();
        EXPECT_FALSE(run(command));
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(labels(), entries);
    }
    TUGroup* groupWithMultiPorts()
    {
        TUGroup* group = addGroup("G");
        add("MULTIPORT_IN", {}, group);
        add("MULTIPORT_OUT", {}, group);
        return group;
    }
};

} // namespace

TEST_F(PortCommandsTest, ADynamicNodeTakesPortsAtAPlace)
{
    MO_Node* composite = node("Top/Composite");
    MO_Port* first = composite->inPort(0);
    expectUndoable(new tu_node::AddInPortCmd(composite, 0, MO_Port::createImagePort()));
    expectUndoable(new tu_node::AddInPortCmd(composite, 2, MO_Port::createImagePort()));
    EXPECT_EQ(composite->inPort(1), first);
    EXPECT_EQ(composite->nInPorts(), 3u);
}

TEST_F(PortCommandsTest, APortWhereNoneCanBeIsRefused)
{
    MO_Node* composite = node("Top/Composite");
    MO_Node* peg = add("PEG", "Peg");
    TUGroup* group = groupWithMultiPorts();
    StandInNode standIn;
    expectRefused(new tu_node::AddInPortCmd(peg, 0, MO_Port::createMatrixPort()));
    expectRefused(new tu_node::AddOutPortCmd(peg, 0, MO_Port::createMatrixPort()));
    expectRefused(new tu_node::AddOutPortCmd(composite, 0, MO_Port::createImagePort()));
    expectRefused(new tu_node::AddInPortCmd(composite, 2, MO_Port::createImagePort()));
    expectRefused(new tu_node::AddInPortCmd(composite, 0, MO_Port::createMatrixPort()));
    expectRefused(new tu_node::AddInPortCmd(composite, 0, nullptr));
    expectRefused(new tu_node::AddInPortCmd(composite, 0, std::make_unique<StandInPort>(nullptr, 0)));
    expectRefused(new tu_node::AddInPortCmd(group->getOutMultiPort(), 0, MO_Port::createImagePort()));
    expectRefused(new tu_node::AddOutPortCmd(group->getInMultiPort(), 0, MO_Port::createImagePort()));
    expectRefused(new tu_node::AddInPortCmd(nullptr, 0, MO_Port::createImagePort()));
    expectRefused(new tu_node::AddInPortCmd(&standIn, 0, MO_Port::createImagePort()));
    const std::unique_ptr<TUGroup> loose(TUGroup::create());
    expectRefused(new tu_node::AddInPortCmd(loose.get(), 0, MO_Port::createImagePort()));
}

TEST_F(PortCommandsTest, AGroupsPortComesAndGoesOnBothSides)
{
    TUGroup* group = groupWithMultiPorts();
    MO_Node* multiIn = group->getOutMultiPort();
    MO_Node* multiOut = group->getInMultiPort();
    expectUndoable(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    expectUndoable(new tu_node::AddInPortCmd(group, 0, MO_Port::createMatrixPort()));
    EXPECT_EQ(multiIn->nOutPorts(), 2u);
    EXPECT_EQ(multiIn->outPort(0)->typeName(), "PEG");
    EXPECT_EQ(multiIn->outPort(1)->typeName(), "IMAGE");
    expectUndoable(new tu_node::AddOutPortCmd(multiIn, 1, MO_Port::createMatrixPort()));
    EXPECT_EQ(group->nInPorts(), 3u);
    EXPECT_EQ(group->inPort(1)->typeName(), "PEG");
    expectUndoable(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
    EXPECT_EQ(multiOut->nInPorts(), 1u);
    expectUndoable(new tu_node::AddInPortCmd(multiOut, 1, MO_Port::createMatrixPort()));
    EXPECT_EQ(group->nOutPorts(), 2u);
    expectUndoable(new tu_node::DeleteInPortCmd(group, 1));
    EXPECT_EQ(multiIn->nOutPorts(), 2u);
    expectUndoable(new tu_node::DeleteOutPortCmd(multiIn, 0));
    EXPECT_EQ(group->nInPorts(), 1u);
    expectUndoable(new tu_node::DeleteInPortCmd(multiOut, 0));
    EXPECT_EQ(group->nOutPorts(), 1u);
    expectUndoable(new tu_node::DeleteOutPortCmd(group, 0));
    EXPECT_EQ(multiOut->nInPorts(), 0u);
}

TEST_F(PortCommandsTest, AMultiPortNodeThatComesLaterShowsThePortsThatAreThere)
{
    TUGroup* group = addGroup("G");
    run(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    run(new tu_node::AddInPortCmd(group, 1, MO_Port::createMatrixPort()));
    run(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
    MO_Node* multiIn = add("MULTIPORT_IN", {}, group);
    MO_Node* multiOut = add("MULTIPORT_OUT", {}, group);
    ASSERT_EQ(multiIn->nOutPorts(), 2u);
    EXPECT_EQ(multiIn->outPort(1)->typeName(), "PEG");
    EXPECT_EQ(multiOut->nInPorts(), 1u);
    const QString after = dump();
    undo(2);
    redo(2);
    EXPECT_EQ(dump(), after);
}

TEST_F(PortCommandsTest, ALinkedPortIsNotTakenAway)
{
    MO_Node* composite = node("Top/Composite");
    MO_Node* drawing = add("READ", "Drawing");
    ASSERT_TRUE(link(drawing, composite));
    expectRefused(new tu_node::DeleteInPortCmd(composite, 0));
    TUGroup* group = groupWithMultiPorts();
    run(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
    MO_Node* cutter = add("CUTTER", "Cutter");
    ASSERT_TRUE(link(group, cutter));
    expectRefused(new tu_node::DeleteOutPortCmd(group, 0));
    run(new tu_node::UnlinkInPortFromOutsideCmd(composite, 0));
    expectUndoable(new tu_node::DeleteInPortCmd(composite, 0));
    EXPECT_EQ(composite->nInPorts(), 0u);
    expectRefused(new tu_node::DeleteInPortCmd(composite, 0));
    expectRefused(new tu_node::DeleteInPortCmd(drawing, 0));
    expectRefused(new tu_node::DeleteOutPortCmd(drawing, 0));
    expectRefused(new tu_node::DeleteInPortCmd(nullptr, 0));
}

TEST_F(PortCommandsTest, TheLinksOfTheFacingPortAreCutWithAGroupsPort)
{
    TUGroup* group = groupWithMultiPorts();
    run(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    MO_Node* blur = add("BLUR", "Blur", group);
    MO_Node* other = add("BLUR", "Other", group);
    ASSERT_TRUE(link(group->getOutMultiPort(), blur));
    ASSERT_TRUE(link(group->getOutMultiPort(), other));
    expectUndoable(new tu_node::DeleteInPortCmd(group, 0));
    EXPECT_EQ(blur->inPort(0)->srcPort(), nullptr);
    undo();
    EXPECT_EQ(other->inPort(0)->srcPort(), group->getOutMultiPort()->outPort(0));
}

TEST_F(PortCommandsTest, ANodeMakesItsOwnInPorts)
{
    MO_Node* composite = node("Top/Composite");
    TUGroup* group = groupWithMultiPorts();
    run(new tu_node::AddOutPortCmd(group, 0, MO_Port::createMatrixPort()));
    expectUndoable(MO_AutoInPortsModule::castTo(composite)->addInPortCommand(1));
    EXPECT_EQ(composite->inPort(1)->typeName(), "IMAGE");
    expectUndoable(MO_AutoInPortsModule::castTo(group->getInMultiPort())->addInPortCommand(0));
    EXPECT_EQ(group->nOutPorts(), 2u);
    EXPECT_EQ(group->outPort(0)->typeName(), "PEG") << "of the kind of the last one";
    expectRefused(MO_AutoInPortsModule::castTo(composite)->addInPortCommand(9));
}
