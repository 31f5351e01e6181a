#include "tests/core/support/standinnode.h"
#include "tests/engine/support/memoryproject.h"

namespace {

class NodeCommandsTest : public GraphTest {
protected:
    /// Executes, undoes and does again, and compares what the scene is at each step.
    void expectUndoable(CO_Command* command)
    {
        const QString before = dump();
        const qsizetype entries = labels().size();
        ASSERT_TRUE(run(command, "The change"));
        const QString after = dump();
        EXPECT_EQ(labels().size(), entries + 1);
        EXPECT_EQ(labels().last(), "The change");
        undo();
        EXPECT_EQ(dump(), before);
        redo();
        EXPECT_EQ(dump(), after);
    }

    void expectRefused(CO_Command* command)
    {
        const QString before = dump();
        const QStringList entries = labels();
        EXPECT_FALSE(run(command, "The change"));
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(labels(), entries);
    }

    std::unique_ptr<MO_Node> loosePeg()
    {
        bool flag = true;
        return std::unique_ptr<MO_Node>(TUGroup::createNode("PEG", 0, 0, 0, flag, nullptr));
    }

    StandInNode standIn;
};

} // namespace

TEST_F(NodeCommandsTest, APositionIsSetInThePlaneOrInSpace)
{
    MO_Node* peg = add("PEG", "Peg");
    expectUndoable(new tu_node::SetXYZCmd(peg, 1, -2, 3));
    expectUndoable(new tu_node::SetXYCmd(peg, 4, 5));
    EXPECT_EQ(peg->x(), 4);
    EXPECT_EQ(peg->y(), 5);
    EXPECT_EQ(peg->z(), 3);
    expectUndoable(new tu_node::SetXYCmd(peg, 4, 5));
}

TEST_F(NodeCommandsTest, ANodeIsSwitchedOffAndOn)
{
    MO_Node* peg = add("PEG", "Peg");
    expectUndoable(new tu_node::EnabledNodeCmd(peg, false));
    EXPECT_FALSE(peg->isEnabled());
    expectUndoable(new tu_node::EnabledNodeCmd(peg, false));
    expectUndoable(new tu_node::EnabledNodeCmd(peg, true));
    EXPECT_TRUE(peg->isEnabled());
    expectUndoable(new tu_node::EnabledNodeCmd(addGroup("G"), false));
}

TEST_F(NodeCommandsTest, ANodeIsRenamed)
{
    TUGroup* group = addGroup("G");
    MO_Node* peg = add("PEG", "Peg", group);
    expectUndoable(new tu_node::SetInstanceNameCmd(peg, "Arm"));
    EXPECT_EQ(node("Top/G/Arm"), peg);
    EXPECT_EQ(node("Top/G/Peg"), nullptr);
    expectUndoable(new tu_node::SetInstanceNameCmd(group, "H"));
    EXPECT_EQ(peg->qualifiedName(), "Top/H/Arm");
    expectUndoable(new tu_node::SetInstanceNameCmd(peg, "Arm"));
}

TEST_F(NodeCommandsTest, ANameThatIsTakenOrNotValidIsRefused)
{
    MO_Node* peg = add("PEG", "Peg");
    add("PEG", "Arm");
    for (const char* name : {"Arm", "", " Arm", "a/b", "a\nb"})
        expectRefused(new tu_node::SetInstanceNameCmd(peg, name));
    expectRefused(new tu_node::SetInstanceNameCmd(top(), "Bottom"));
}

TEST_F(NodeCommandsTest, NodesThatAreInNoSceneAreRefused)
{
    const std::unique_ptr<MO_Node> loose = loosePeg();
    loose->setScene(scene().sceneCommon());
    MO_Node* removed = add("PEG", "Removed");
    remove({removed});
    for (MO_Node* refused : {loose.get(), removed, static_cast<MO_Node*>(&standIn), static_cast<MO_Node*>(nullptr)}) {
        expectRefused(new tu_node::SetXYCmd(refused, 1, 2));
        expectRefused(new tu_node::SetXYZCmd(refused, 1, 2, 3));
        expectRefused(new tu_node::EnabledNodeCmd(refused, false));
        expectRefused(new tu_node::SetInstanceNameCmd(refused, "Name"));
    }
    EXPECT_TRUE(removed->isEnabled());
}

TEST_F(NodeCommandsTest, ANewNodeIsAddedBehindTheOthers)
{
    auto peg = loosePeg();
    MO_Node* added = peg.get();
    added->setInstanceName("Arm");
    expectUndoable(new tu_node::AddSubNodeCmd(top(), peg.release()));
    EXPECT_EQ(added->sceneCommon(), scene().sceneCommon());
    EXPECT_EQ(added->parentGroup(), top());
    EXPECT_EQ(names(top()).last(), "Arm");
}

TEST_F(NodeCommandsTest, ANodeWithoutANameGetsItsTypesName)
{
    EXPECT_EQ(add("READ")->instanceName(), "Drawing");
    EXPECT_EQ(add("READ")->instanceName(), "Drawing_1");
    EXPECT_EQ(add("GROUP")->instanceName(), "Group");
    undo(3);
    redo(3);
    EXPECT_EQ(names(top()), QStringList({"Display", "Composite", "Drawing", "Drawing_1", "Group"}));
}

TEST_F(NodeCommandsTest, AddingIsRefusedWithoutAGroupOfTheSceneOrANewNode)
{
    expectRefused(new tu_node::AddSubNodeCmd(nullptr, loosePeg().release()));
    expectRefused(new tu_node::AddSubNodeCmd(top(), nullptr));
    expectRefused(new tu_node::AddSubNodeCmd(top(), new StandInNode));
    expectRefused(new tu_node::AddSubNodeCmd(top(), node("Top/Display")));
    expectRefused(new tu_node::AddSubNodeCmd(top(), top()));
    const std::unique_ptr<TUGroup> loose(TUGroup::create());
    expectRefused(new tu_node::AddSubNodeCmd(loose.get(), loosePeg().release()));
    EXPECT_EQ(node("Top/Display")->parentGroup(), top());
}

TEST_F(NodeCommandsTest, ANodeOfAnotherSceneIsRefused)
{
    MemoryProject other;
    auto peg = loosePeg();
    peg->setScene(other.scene().sceneCommon());
    expectRefused(new tu_node::AddSubNodeCmd(top(), peg.release()));
}

TEST_F(NodeCommandsTest, AGroupTakesOneMultiPortNodeOfEachKind)
{
    TUGroup* group = addGroup("G");
    ASSERT_TRUE(add("MULTIPORT_IN", {}, group));
    ASSERT_TRUE(add("MULTIPORT_OUT", {}, group));
    EXPECT_EQ(names(group), QStringList({"Multi-Port-In", "Multi-Port-Out"}));
    EXPECT_EQ(group->getOutMultiPort(), group->subNode(0u));
    EXPECT_EQ(group->getInMultiPort(), group->subNode(1u));
    EXPECT_EQ(add("MULTIPORT_IN", {}, group), nullptr);
    EXPECT_EQ(add("MULTIPORT_OUT", {}, group), nullptr);
    remove({group->getOutMultiPort()});
    EXPECT_EQ(group->getOutMultiPort(), nullptr);
    undo();
    EXPECT_EQ(group->getOutMultiPort(), group->subNode(0u));
    undo(2);
    EXPECT_EQ(group->getInMultiPort(), nullptr);
    EXPECT_EQ(group->getOutMultiPort(), nullptr);
}

TEST_F(NodeCommandsTest, ANodeInAGroupIsNamedOnlyByTheCommand)
{
    MO_Node* peg = add("PEG", "Peg");
    EXPECT_FALSE(peg->setInstanceName("Arm"));
    EXPECT_EQ(peg->instanceName(), "Peg");
    const auto loose = loosePeg();
    EXPECT_FALSE(loose->setInstanceName("a/b"));
    EXPECT_FALSE(loose->setInstanceName(""));
    EXPECT_TRUE(loose->setInstanceName("Arm"));
    EXPECT_EQ(loose->instanceName(), "Arm");
    EXPECT_EQ(loose->qualifiedName(), "Arm");
}
