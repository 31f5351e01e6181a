#include "core/nodes/multiportlist.h"

#include "core/nodes/inport.h"
#include "core/nodes/node.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

class MultiPortListTest : public GraphTest {
protected:
    void SetUp() override
    {
        composite = node("Top/Composite");
        group = addPassage("G");
        before = saved();
    }

    /// One entry of that label, which undo takes back and redo brings again.
    void expectOneEntry(const char* label)
    {
        EXPECT_EQ(labels(), QStringList{label});
        const QByteArray after = saved();
        EXPECT_NE(after, before);
        undo();
        EXPECT_EQ(saved(), before);
        redo();
        EXPECT_EQ(saved(), after);
    }
    void expectUnchanged()
    {
        EXPECT_TRUE(labels().isEmpty());
        EXPECT_EQ(saved(), before);
    }

    MO_Node* composite = nullptr;
    TUGroup* group = nullptr;
    QByteArray before;
};

TEST_F(MultiPortListTest, ANodeThatMakesItsInPortsIsAskedForOneAndTheTypeIsNotLookedAt)
{
    const Obj port = MultiInPortList(composite).create(0, "no type at all");
    ASSERT_TRUE(objectIn<InPort>(port));
    EXPECT_EQ(objectIn<InPort>(port)->getPort(), composite->inPort(0));
    EXPECT_EQ(composite->nInPorts(), 2u);
    expectOneEntry("Add in-port node.");
}

TEST_F(MultiPortListTest, AGroupGetsAnInPortAtThePlace)
{
    MO_Port* old = group->inPort(0);
    const Obj port = MultiInPortList(group).create(0, "peg");
    ASSERT_TRUE(objectIn<InPort>(port));
    EXPECT_EQ(objectIn<InPort>(port)->getPort(), group->inPort(0));
    EXPECT_EQ(group->inPort(0)->typeName(), "PEG");
    EXPECT_EQ(group->inPort(1), old);
    EXPECT_EQ(group->getOutMultiPort()->nOutPorts(), 2u);
    expectOneEntry("Add inport to the node.");
}

TEST_F(MultiPortListTest, AGroupGetsAnOutPort)
{
    const Obj port = MultiPortList(group, false).create(1, "image");
    ASSERT_TRUE(objectIn<OutPort>(port));
    EXPECT_EQ(objectIn<OutPort>(port)->getPort(), group->outPort(1));
    expectOneEntry("Add out-port to the node.");
}

TEST_F(MultiPortListTest, TheInsideNodeOfInPortsGetsAnOutPortAndTheGroupAnInPort)
{
    MO_Node* entry = node("Top/G/Entry");
    const Obj port = MultiPortList(entry, false).create(5, "image");
    ASSERT_TRUE(objectIn<OutPort>(port));
    EXPECT_EQ(objectIn<OutPort>(port)->getPort(), entry->outPort(0));
    EXPECT_EQ(group->nInPorts(), 2u);
    expectOneEntry("Add out-port to the node.");
}

TEST_F(MultiPortListTest, TheInsideNodeOfOutPortsMakesItsInPort)
{
    MO_Node* exit = node("Top/G/Exit");
    const Obj port = MultiInPortList(exit).create(1, QString());
    ASSERT_TRUE(objectIn<InPort>(port));
    EXPECT_EQ(objectIn<InPort>(port)->getPort(), exit->inPort(1));
    EXPECT_EQ(group->nOutPorts(), 2u);
    expectOneEntry("Add in-port node.");
}

TEST_F(MultiPortListTest, APlaceBeyondTheInPortsIsHeldToTheirNumber)
{
    const Obj port = MultiInPortList(group).create(4294967295u, "image");
    EXPECT_EQ(objectIn<InPort>(port)->getIndex(), 1u);
}

TEST_F(MultiPortListTest, TheNumberOfInPortsBoundsThePlaceOfAnOutPortToo)
{
    prepare(new tu_node::AddOutPortCmd(group, 1, MO_Port::createImagePort()));
    const Obj port = MultiPortList(group, false).create(9, "image");
    EXPECT_EQ(objectIn<OutPort>(port)->getIndex(), 1u);
    EXPECT_EQ(group->nOutPorts(), 3u);
}

TEST_F(MultiPortListTest, APlaceThatTheNodeLacksGivesNothingAndNoError)
{
    TUGroup* wide = addGroup("Wide");
    prepare(new tu_node::AddInPortCmd(wide, 0, MO_Port::createImagePort()));
    before = saved();
    EXPECT_EQ(MultiPortList(wide, false).create(1, "image").get(), nullptr);
    EXPECT_EQ(wide->nOutPorts(), 0u);
    expectUnchanged();
}

TEST_F(MultiPortListTest, ANodeWithFixedPortsGetsNone)
{
    MO_Node* blur = add("BLUR", "B");
    before = saved();
    EXPECT_EQ(MultiInPortList(blur).create(0, "image").get(), nullptr);
    EXPECT_EQ(MultiPortList(blur, false).create("image").get(), nullptr);
    EXPECT_EQ(MultiPortList(composite, false).create(0, "no type").get(), nullptr);
    expectUnchanged();
}

TEST_F(MultiPortListTest, AListWithoutAPlaceAddsAtItsEnd)
{
    const Obj in = MultiInPortList(group).create("image");
    EXPECT_EQ(objectIn<InPort>(in)->getIndex(), 1u);
    const Obj out = MultiPortList(group, false).create("peg");
    EXPECT_EQ(objectIn<OutPort>(out)->getIndex(), 1u);
    EXPECT_EQ(labels(), (QStringList{"Add inport to the node.", "Add out-port to the node."}));
}

TEST_F(MultiPortListTest, TypesAreNamedInAnyCase)
{
    MultiInPortList ports(group);
    const std::pair<const char*, const char*> names[] = {{"image", "IMAGE"}, {"Image", "IMAGE"}, {"peg", "PEG"},
                                                         {"PEG", "PEG"},     {"matrix", "PEG"},  {"Transform", "PEG"}};
    for (const auto& [name, type] : names) {
        SCOPED_TRACE(name);
        EXPECT_EQ(objectIn<InPort>(ports.create(0, name))->getType(), type);
    }
}

TEST_F(MultiPortListTest, AnotherTypeIsRefusedTheEmptyOneIncluded)
{
    constexpr char text[] = "Port creation requires a type -- 'image' or 'peg' is accepted.";
    for (const QString& type : {QString(""), QString("IMAGES"), QString(" image"), QString("audio")}) {
        SCOPED_TRACE(type.toStdString());
        EXPECT_EQ(failureOf([&] { MultiInPortList(group).create(0, type); }), text);
        EXPECT_EQ(failureOf([&] { MultiPortList(group, false).create(type); }), text);
    }
    expectUnchanged();
}

TEST_F(MultiPortListTest, WithoutATypeTheLastPortOfTheSideIsTheModel)
{
    prepare(new tu_node::AddInPortCmd(group, 1, MO_Port::createMatrixPort()));
    EXPECT_EQ(objectIn<InPort>(MultiInPortList(group).create(0))->getType(), "PEG");
    EXPECT_EQ(objectIn<OutPort>(MultiPortList(group, false).create(0))->getType(), "IMAGE");
}

TEST_F(MultiPortListTest, WithoutATypeANodeWithoutImagesGetsAPegPortAndAnEmptyOneAnImagePort)
{
    TUGroup* pegs = addGroup("Pegs");
    EXPECT_EQ(objectIn<InPort>(MultiInPortList(pegs).create(0))->getType(), "IMAGE");
    prepare(new tu_node::AddOutPortCmd(pegs, 0, MO_Port::createMatrixPort()));
    EXPECT_EQ(objectIn<InPort>(MultiInPortList(pegs).create(0))->getType(), "PEG");
    EXPECT_EQ(objectIn<OutPort>(MultiPortList(pegs, false).create(0))->getType(), "PEG");
    EXPECT_EQ(objectIn<OutPort>(MultiPortList(addGroup("E"), false).create())->getType(), "IMAGE");
}

TEST_F(MultiPortListTest, APortIsMadeBeforeOrBehindAnother)
{
    MultiInPortList ports(group);
    const Obj old = ports.get(0);
    const Obj behind = ports.create(old, false, "peg");
    EXPECT_EQ(objectIn<InPort>(behind)->getIndex(), 1u);
    const Obj ahead = ports.create(old, true, "peg");
    EXPECT_EQ(objectIn<InPort>(ahead)->getIndex(), 0u);
    EXPECT_EQ(objectIn<InPort>(old)->getIndex(), 1u);
    EXPECT_EQ(objectIn<InPort>(behind)->getIndex(), 2u);
}

TEST_F(MultiPortListTest, TheNeighbourOfAnOutPortIsLookedForAmongTheInPorts)
{
    prepare(new tu_node::AddOutPortCmd(group, 1, MO_Port::createMatrixPort()));
    MultiPortList ports(group, false);
    const Obj first(new OutPort(group, group->outPort(0)->id()));
    ASSERT_EQ(group->outPort(0)->id(), group->inPort(0)->id());
    EXPECT_EQ(objectIn<OutPort>(ports.create(first, false, "image"))->getIndex(), 1u);

    const Obj last(new OutPort(group, group->outPort(2)->id()));
    ASSERT_EQ(group->inPortFromId(group->outPort(2)->id()), nullptr);
    EXPECT_EQ(failureOf([&] { ports.create(last, true, "image"); }), "Unable to find the port provided.");
}

TEST_F(MultiPortListTest, ANeighbourThatIsNoPortIsRefused)
{
    MultiInPortList ports(group);
    EXPECT_EQ(failureOf([&] { ports.create(Obj(), true, "image"); }), "Port object is not valid.");
    EXPECT_EQ(failureOf([&] { ports.create(Obj(Node::getWrapped(group)), true, "image"); }),
              "Port object is not valid.");
    EXPECT_EQ(failureOf([&] { ports.create(Obj(new InPort(group, 77)), true, "image"); }),
              "Unable to find the port provided.");
    EXPECT_EQ(failureOf([&] { ports.create(Obj(new InPort(nullptr, 0)), true, "image"); }), objectGone);
    expectUnchanged();
}

TEST_F(MultiPortListTest, RemovingAnInPortCutsItsLinksAndTakesItAway)
{
    link(add("COLOR_CARD", "Card"), 0, group, 0);
    before = saved();
    MultiInPortList(group).remove(0u);
    EXPECT_EQ(group->nInPorts(), 0u);
    EXPECT_EQ(node("Top/G/Entry")->nOutPorts(), 0u);
    expectOneEntry("Remove in-port node.");
}

TEST_F(MultiPortListTest, RemovingAnOutPortCutsItsLinksAndTakesItAway)
{
    link(group, 0, add("BLUR", "B"), 0);
    before = saved();
    MultiPortList(group, false).remove(0u);
    EXPECT_EQ(group->nOutPorts(), 0u);
    expectOneEntry("Remove out-port node.");
}

TEST_F(MultiPortListTest, APortIsRemovedByItsWrapper)
{
    MultiInPortList ports(group);
    ports.create(1, "peg");
    manager().clearHistory();
    before = saved();
    const Obj first = ports.get(0);
    const Obj second = ports.get(1);
    ports.remove(first);
    EXPECT_EQ(group->nInPorts(), 1u);
    EXPECT_EQ(objectIn<InPort>(second)->getIndex(), 0u);
    EXPECT_EQ(failureOf([&] { objectIn<InPort>(first)->getIndex(); }), objectGone);
    expectOneEntry("Remove in-port node.");
    MultiPortList(group, false).remove(Obj(new OutPort(group, group->outPort(0)->id())));
    EXPECT_EQ(group->nOutPorts(), 0u);
}

TEST_F(MultiPortListTest, APlaceWithoutAPortCantBeRemoved)
{
    for (const unsigned int index : {1u, 4294967295u}) {
        EXPECT_EQ(failureOf([&] { MultiInPortList(group).remove(index); }), "No in port available at given index.");
        EXPECT_EQ(failureOf([&] { MultiPortList(group, false).remove(index); }),
                  "No out port available at given index.");
    }
    expectUnchanged();
}

TEST_F(MultiPortListTest, WhatIsNoPortOfTheSideCantBeRemoved)
{
    MultiInPortList ins(group);
    MultiPortList outs(group, false);
    const Obj in = ins.get(0);
    const Obj out = outs.get(0);
    EXPECT_EQ(failureOf([&] { ins.remove(Obj()); }), "Invalid port-type specified for removal.");
    EXPECT_EQ(failureOf([&] { ins.remove(Obj(Node::getWrapped(group))); }), "Invalid port-type specified for removal.");
    EXPECT_EQ(failureOf([&] { ins.remove(out); }), "Cannot remove a out-port from and in-port list.");
    EXPECT_EQ(failureOf([&] { outs.remove(in); }), "Cannot remove an in-port from and out-port list.");
    EXPECT_EQ(failureOf([&] { ins.remove(Obj(new InPort(nullptr, 0))); }), objectGone);
    EXPECT_EQ(failureOf([&] { ins.remove(Obj(new InPort(group, 77))); }), "Unable to find the port.");
    expectUnchanged();
}

TEST_F(MultiPortListTest, APortOfAnotherNodeStandsForItsPlace)
{
    MO_Node* cutter = add("CUTTER", "C");
    before = saved();
    MultiInPortList ports(group);
    EXPECT_EQ(failureOf([&] { ports.remove(Obj(new InPort(cutter, cutter->inPort(1)->id()))); }),
              "Failed to remove in-port from the node.");
    expectUnchanged();
    ports.remove(Obj(new InPort(cutter, cutter->inPort(0)->id())));
    EXPECT_EQ(group->nInPorts(), 0u);
    EXPECT_EQ(cutter->nInPorts(), 2u);
}

TEST_F(MultiPortListTest, APortThatTheNodeKeepsIsNotRemoved)
{
    MO_Node* blur = add("BLUR", "B");
    link(add("COLOR_CARD", "Card"), 0, blur, 0);
    before = saved();
    EXPECT_EQ(failureOf([&] { MultiInPortList(blur).remove(0u); }), "Failed to remove in-port from the node.");
    EXPECT_EQ(failureOf([&] { MultiPortList(blur, false).remove(0u); }), "Failed to remove in-port from the node.");
    EXPECT_TRUE(blur->inPort(0)->srcPort());
    expectUnchanged();
}

TEST_F(MultiPortListTest, AListOfADeadNodeSaysSo)
{
    MultiInPortList ports(group);
    const Obj port = ports.get(0);
    removeNode(group);
    EXPECT_EQ(failureOf([&] { ports.create(0, "image"); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.create("image"); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.create(port, true, "image"); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.remove(0u); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.remove(port); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.getMattePort(); }), objectGone);
}

class StandInPortListTest : public testing::Test {
protected:
    StandInPortListTest()
    {
        node.addIn();
        node.addOut();
        node.mode = MO_DynamicPorts;
    }

    StandInSceneCommon scene;
    StandInNode node{&scene};
};

TEST_F(StandInPortListTest, WithoutASceneOrAManagerPortsNeitherComeNorGo)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(failureOf([&] { MultiInPortList(&node).create(0, "image"); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { MultiInPortList(&node).remove(0u); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { MultiPortList(&node, false).remove(0u); }), "An unexpected error occurred.");
        node.scene = nullptr;
    }
}

TEST_F(StandInPortListTest, ARefusedPortIsEmptyAndARefusedRemovalAFailure)
{
    RefusingManager manager;
    scene.commands = &manager;
    EXPECT_EQ(MultiInPortList(&node).create(0, "image").get(), nullptr);
    EXPECT_EQ(MultiPortList(&node, false).create(0, "image").get(), nullptr);
    EXPECT_EQ(failureOf([&] { MultiInPortList(&node).remove(0u); }), "Failed to remove in-port from the node.");
    EXPECT_EQ(failureOf([&] { MultiPortList(&node, false).remove(0u); }), "Failed to remove in-port from the node.");
    EXPECT_EQ(manager.refusedLabels, (QStringList{"Add inport to the node.", "Add out-port to the node.",
                                                  "Remove in-port node.", "Remove out-port node."}));
}

TEST_F(StandInPortListTest, APortThatDoesNotAppearIsEmpty)
{
    SelectiveManager manager;
    scene.commands = &manager;
    EXPECT_EQ(MultiInPortList(&node).create(1, "image").get(), nullptr);
    EXPECT_EQ(manager.labels, QStringList{"Add inport to the node."});
}

TEST_F(StandInPortListTest, ANodeThatShouldMakeItsInPortsAndCantIsAFailure)
{
    SelectiveManager manager;
    scene.commands = &manager;
    node.mode = MO_DynamicInPorts;
    EXPECT_EQ(failureOf([&] { MultiInPortList(&node).create(0, "image"); }), "An unexpected error occurred.");
    EXPECT_TRUE(manager.labels.isEmpty());
}

} // namespace
