#include "engine/graph/subnodes.h"

#include "tests/engine/support/memoryproject.h"

namespace {
class SubNodesTest : public GraphTest {};
} // namespace

TEST_F(SubNodesTest, SubNodesKeepTheOrderOfAdding)
{
    TUGroup* group = addGroup("G");
    add("PEG", "c", group);
    add("PEG", "a", group);
    add("PEG", "b", group);
    EXPECT_EQ(names(group), QStringList({"c", "a", "b"}));
    EXPECT_EQ(group->nSubNodes(), 3u);
    EXPECT_EQ(group->subNode(1u)->instanceName(), "a");
    EXPECT_EQ(group->subNode(3u), nullptr);
    EXPECT_EQ(group->subNode(QString("b")), group->subNode(2u));
    EXPECT_EQ(group->subNode(QString("x")), nullptr);
}

TEST_F(SubNodesTest, ATakenNameGetsTheLowestFreeNumberBehindIt)
{
    for (int i = 0; i < 4; ++i)
        add("PEG", "Arm");
    add("PEG", "Arm_2");
    add("PEG", "Leg_1");
    add("PEG", "Leg");
    add("PEG", "Leg");
    EXPECT_EQ(names(top()).mid(2), QStringList({"Arm", "Arm_1", "Arm_2", "Arm_3", "Arm_2_1", "Leg_1", "Leg", "Leg_2"}));
}

TEST_F(SubNodesTest, ANumberThatBecameFreeIsTakenAgain)
{
    for (int i = 0; i < 5; ++i)
        add("PEG", "Arm");
    remove({node("Top/Arm_2"), node("Top/Arm_3")});
    EXPECT_EQ(add("PEG", "Arm")->instanceName(), "Arm_2");
    run(new tu_node::SetInstanceNameCmd(node("Top/Arm_1"), "Hand"));
    EXPECT_EQ(add("PEG", "Arm")->instanceName(), "Arm_1");
    EXPECT_EQ(add("PEG", "Arm")->instanceName(), "Arm_3");
    undo(3);
    EXPECT_EQ(node("Top/Arm_1")->typeName(), "PEG") << "renamed back";
    EXPECT_EQ(add("PEG", "Arm")->instanceName(), "Arm_3") << "Arm_2 is there and Arm_1 again";
}

TEST_F(SubNodesTest, ANumberWrittenInAnotherWayIsPartOfTheName)
{
    add("PEG", "Arm");
    for (const char* name : {"Arm_01", "Arm_ 1", "Arm_+1", "Arm_1x", "Arm_0", "Arm_99999999999"})
        EXPECT_EQ(add("PEG", name)->instanceName(), name);
    EXPECT_EQ(add("PEG", "Arm")->instanceName(), "Arm_1");
    EXPECT_EQ(add("PEG", "Arm")->instanceName(), "Arm_2");
    remove({node("Top/Arm_01"), node("Top/Arm_ 1"), node("Top/Arm_+1")});
    EXPECT_EQ(add("PEG", "Arm")->instanceName(), "Arm_3");
}

TEST_F(SubNodesTest, NodesThatAreTakenOutComeBackToTheirPlaces)
{
    TUGroup* group = addGroup("G");
    std::set<MO_Node*> every;
    std::set<MO_Node*> some;
    for (int i = 0; i < 12; ++i) {
        MO_Node* node = add("PEG", QString::number(i), group);
        every.insert(node);
        if (i % 5 == 1 || i == 0 || i == 11)
            some.insert(node);
    }
    const QStringList before = names(group);
    for (const auto& nodes : {some, every}) {
        ASSERT_TRUE(remove(nodes));
        const QStringList without = names(group);
        EXPECT_EQ(without.size(), 12 - static_cast<qsizetype>(nodes.size()));
        undo();
        EXPECT_EQ(names(group), before);
        for (const QString& name : before)
            EXPECT_EQ(group->subNode(name)->instanceName(), name);
        redo();
        EXPECT_EQ(names(group), without);
        undo();
    }
}

TEST_F(SubNodesTest, ManyNodesOfOneNameAreNumberedInOrder)
{
    for (int i = 0; i < 20'000; ++i)
        add("PEG", "Peg");
    EXPECT_EQ(top()->subNode(static_cast<unsigned int>(20'001))->instanceName(), "Peg_19999");
}
