#include "engine/graph/links.h"

#include "engine/graph/node.h"
#include "tests/core/support/standinnode.h"
#include "tests/engine/support/memoryproject.h"

#include <algorithm>
#include <random>

namespace {

class LinkCommandsTest : public GraphTest {
protected:
    std::vector<MO_Node*> pegs(int count)
    {
        std::vector<MO_Node*> nodes;
        for (int i = 0; i < count; ++i)
            nodes.push_back(add("PEG", QStringLiteral("P%1").arg(i)));
        return nodes;
    }
    void expectRefused(CO_Command* command)
    {
        const QString before = dump();
        const QStringList entries = labels();
        EXPECT_FALSE(run(command));
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(labels(), entries);
    }
};

} // namespace

TEST_F(LinkCommandsTest, ALinkIsMadeUndoneAndMadeAgain)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* drawing = add("READ", "Drawing");
    const QString before = dump();
    ASSERT_TRUE(link(peg, drawing));
    EXPECT_EQ(drawing->inPort(0)->srcPort(), peg->outPort(0));
    ASSERT_EQ(peg->outPort(0)->nDstPorts(), 1u);
    EXPECT_EQ(*peg->outPort(0)->dstPortsBegin(), drawing->inPort(0));
    const QString after = dump();
    undo();
    EXPECT_EQ(dump(), before);
    redo();
    EXPECT_EQ(dump(), after);
}

TEST_F(LinkCommandsTest, ALinkThatCantStandIsRefused)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* other = add("PEG", "Other");
    MO_Node* drawing = add("READ", "Drawing");
    TUGroup* group = addGroup("G");
    MO_Node* inside = add("PEG", "Inside", group);
    StandInNode standIn;
    standIn.addIn();
    standIn.addOut();
    ASSERT_TRUE(link(peg, drawing));

    expectRefused(new tu_node::LinkCmd(drawing, 0, other, 0));               // has a source
    expectRefused(new tu_node::LinkCmd(node("Top/Display"), 0, drawing, 0)); // has one, too
    expectRefused(new tu_node::LinkCmd(other, 0, drawing, 0));               // types differ
    expectRefused(new tu_node::LinkCmd(other, 1, peg, 0));                   // no such in-port
    expectRefused(new tu_node::LinkCmd(other, 0, peg, 1));                   // no such out-port
    expectRefused(new tu_node::LinkCmd(peg, 0, peg, 0));                     // itself
    expectRefused(new tu_node::LinkCmd(inside, 0, peg, 0));                  // another group
    expectRefused(new tu_node::LinkCmd(nullptr, 0, peg, 0));
    expectRefused(new tu_node::LinkCmd(peg, 0, nullptr, 0));
    expectRefused(new tu_node::LinkCmd(&standIn, 0, peg, 0));
    expectRefused(new tu_node::LinkCmd(other, 0, &standIn, 0));

    bool flag = true;
    const std::unique_ptr<MO_Node> loose(TUGroup::createNode("PEG", 0, 0, 0, flag, nullptr));
    expectRefused(new tu_node::LinkCmd(loose.get(), 0, peg, 0));
    expectRefused(new tu_node::LinkCmd(peg, 0, loose.get(), 0));
    remove({other});
    expectRefused(new tu_node::LinkCmd(peg, 0, other, 0));
}

TEST_F(LinkCommandsTest, PortsTellWhetherALinkCouldStand)
{
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* other = add("PEG", "Other");
    MO_Node* drawing = add("READ", "Drawing");
    EXPECT_TRUE(peg->outPort(0)->isLinkable(other->inPort(0)));
    EXPECT_TRUE(other->inPort(0)->isLinkable(peg->outPort(0)));
    EXPECT_FALSE(peg->inPort(0)->isLinkable(other->inPort(0)));
    EXPECT_FALSE(peg->outPort(0)->isLinkable(other->outPort(0)));
    EXPECT_FALSE(peg->outPort(0)->isLinkable(peg->inPort(0)));
    EXPECT_FALSE(drawing->outPort(0)->isLinkable(peg->inPort(0)));
    EXPECT_FALSE(peg->outPort(0)->isLinkable(nullptr));
    StandInPort standIn(peg, 0);
    EXPECT_FALSE(peg->outPort(0)->isLinkable(&standIn));
    link(peg, other);
    EXPECT_FALSE(other->outPort(0)->isLinkable(peg->inPort(0))) << "a circle";
    EXPECT_TRUE(peg->outPort(0)->isLinkable(other->inPort(0))) << "a source that is there doesn't count";
    const auto free = MO_Port::createImagePort();
    EXPECT_FALSE(free->isLinkable(drawing->outPort(0)));
}

TEST_F(LinkCommandsTest, NoLinkClosesACircle)
{
    const auto nodes = pegs(5);
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i)
        ASSERT_TRUE(link(nodes[i], nodes[i + 1]));
    for (const MO_Node* from : nodes)
        expectRefused(new tu_node::LinkCmd(nodes[0], 0, const_cast<MO_Node*>(from), 0));
}

TEST_F(LinkCommandsTest, CirclesAreFoundThroughManyInPorts)
{
    MO_Node* a = add("COMPOSITE", "A");
    MO_Node* b = add("COMPOSITE", "B");
    MO_Node* c = add("COMPOSITE", "C");
    for (MO_Node* composite : {a, b, c}) {
        for (unsigned int i = 1; i < 4; ++i)
            run(new tu_node::AddInPortCmd(composite, i, MO_Port::createImagePort()));
    }
    ASSERT_TRUE(link(a, b, 0, 3));
    ASSERT_TRUE(link(a, c, 0, 0));
    ASSERT_TRUE(link(b, c, 0, 2));
    expectRefused(new tu_node::LinkCmd(a, 1, c, 0));
    expectRefused(new tu_node::LinkCmd(a, 1, b, 0));
    EXPECT_TRUE(link(a, c, 0, 3)) << "two links to one node are no circle";
}

TEST_F(LinkCommandsTest, CirclesAreFoundBehindEveryDestination)
{
    MO_Node* end = add("COMPOSITE", "End");
    for (unsigned int i = 1; i < 10; ++i) {
        run(new tu_node::AddInPortCmd(end, i, MO_Port::createImagePort()));
        ASSERT_TRUE(link(add("COLOR_CARD"), end, 0, i - 1));
    }
    MO_Node* begin = add("BLUR", "Begin");
    ASSERT_TRUE(link(begin, add("BLUR")));
    ASSERT_TRUE(link(begin, end, 0, 9));
    expectRefused(new tu_node::LinkCmd(begin, 0, end, 0));
}

TEST_F(LinkCommandsTest, ChainsAreLinkedQuicklyInAnyOrder)
{
    const CO_CommandAccumScope scope(&manager(), "Chains", nullptr, CO_CommandAccumScope::kDefault);
    constexpr std::size_t count = 10'000;
    std::vector<std::size_t> forwards(count - 1), backwards, shuffled;
    for (std::size_t i = 0; i < forwards.size(); ++i)
        forwards[i] = i;
    backwards.assign(forwards.rbegin(), forwards.rend());
    shuffled = forwards;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(7));
    for (const auto& order : {forwards, backwards, shuffled}) {
        const auto nodes = pegs(count);
        for (const std::size_t i : order)
            ASSERT_TRUE(link(nodes[i], nodes[i + 1]));
        EXPECT_FALSE(link(nodes.back(), nodes.front()));
    }
}

TEST_F(LinkCommandsTest, CuttingAnInPortsLinkKeepsTheOrderOfTheOthersOverUndo)
{
    const auto nodes = pegs(6);
    for (std::size_t i = 1; i < nodes.size(); ++i)
        link(nodes[0], nodes[i]);
    const QString before = dump();
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        ASSERT_TRUE(run(new tu_node::UnlinkInPortFromOutsideCmd(nodes[i], 0)));
        EXPECT_EQ(nodes[i]->inPort(0)->srcPort(), nullptr);
        EXPECT_EQ(nodes[0]->outPort(0)->nDstPorts(), 4u);
        undo();
        EXPECT_EQ(dump(), before);
    }
}

TEST_F(LinkCommandsTest, CuttingAnOutPortCutsAllItsLinks)
{
    const auto nodes = pegs(4);
    for (std::size_t i = 1; i < nodes.size(); ++i)
        link(nodes[0], nodes[i]);
    const QString before = dump();
    ASSERT_TRUE(run(new tu_node::UnlinkOutPortFromOutsideCmd(nodes[0], 0)));
    const QString after = dump();
    EXPECT_EQ(nodes[0]->outPort(0)->nDstPorts(), 0u);
    EXPECT_EQ(nodes[2]->inPort(0)->srcPort(), nullptr);
    undo();
    EXPECT_EQ(dump(), before);
    redo();
    EXPECT_EQ(dump(), after);
}

TEST_F(LinkCommandsTest, CuttingWithoutALinkDoesNothingAndWithoutAPortFails)
{
    MO_Node* peg = add("PEG", "Peg");
    const QString before = dump();
    EXPECT_TRUE(run(new tu_node::UnlinkInPortFromOutsideCmd(peg, 0)));
    EXPECT_TRUE(run(new tu_node::UnlinkOutPortFromOutsideCmd(peg, 0)));
    EXPECT_EQ(dump(), before);
    undo(2);
    EXPECT_EQ(dump(), before);
    expectRefused(new tu_node::UnlinkInPortFromOutsideCmd(peg, 1));
    expectRefused(new tu_node::UnlinkOutPortFromOutsideCmd(peg, 1));
    expectRefused(new tu_node::UnlinkInPortFromOutsideCmd(nullptr, 0));
    StandInNode standIn;
    standIn.addOut();
    expectRefused(new tu_node::UnlinkOutPortFromOutsideCmd(&standIn, 0));
}
