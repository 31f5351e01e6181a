#include "core/nodes/outport.h"

#include "core/nodes/cable.h"
#include "core/nodes/cablelist.h"
#include "core/nodes/flatcable.h"
#include "core/nodes/inport.h"
#include "core/nodes/node.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

class OutPortTest : public GraphTest {
protected:
    void SetUp() override
    {
        card = add("COLOR_CARD", "Card");
        first = add("BLUR", "First");
        cutter = add("CUTTER", "Cutter");
        last = add("BLUR", "Last");
    }

    /// Card feeds First, both in-ports of Cutter, and Last, in this order.
    void linkAll()
    {
        link(card, 0, first, 0);
        link(card, 0, cutter, 0);
        link(card, 0, cutter, 1);
        link(card, 0, last, 0);
    }

    OutPort out() const { return {card, card->outPort(0)->id()}; }
    std::vector<MO_Port*> destinations() const
    {
        return {card->outPort(0)->dstPortsBegin(), card->outPort(0)->dstPortsEnd()};
    }
    template <typename T>
    static std::vector<const T*> listed(const QVariantList& list)
    {
        std::vector<const T*> objects;
        for (const QVariant& value : list)
            objects.push_back(readAs<T>(value));
        return objects;
    }

    MO_Node* card = nullptr;
    MO_Node* first = nullptr;
    MO_Node* cutter = nullptr;
    MO_Node* last = nullptr;
};

TEST_F(OutPortTest, APortThatFeedsNothingHasEmptyLists)
{
    OutPort port = out();
    bool found = false;
    for (const char* name : {"destinations", "destination_nodes", "destinations_flat", "destination_nodes_flat"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(port.getAttr(name, found), QVariant(QVariantList()));
    }
}

TEST_F(OutPortTest, DestinationsComeInTheOrderOfLinkingAndANodeAsOftenAsItIsFed)
{
    linkAll();
    const QVariantList ports = out().getDst().toList();
    std::vector<MO_Port*> found;
    for (const InPort* port : listed<InPort>(ports))
        found.push_back(port->getPort());
    EXPECT_EQ(found, destinations());

    const QVariantList nodes = out().getDstNodes().toList();
    std::vector<MO_Node*> foundNodes;
    for (const Node* node : listed<Node>(nodes))
        foundNodes.push_back(node->getNode());
    EXPECT_EQ(foundNodes, (std::vector<MO_Node*>{first, cutter, cutter, last}));
}

TEST_F(OutPortTest, FlatDestinationsLieBeyondGroups)
{
    TUGroup* group = addPassage("G");
    link(card, 0, group, 0);
    link(card, 0, last, 0);
    MO_Node* inside = node("Top/G/Inside");

    const QVariantList direct = out().getDstNodes().toList();
    EXPECT_EQ(readAs<Node>(direct.at(0))->getNode(), group);
    const QVariantList flat = out().getDstFlat().toList();
    ASSERT_EQ(flat.size(), 2);
    EXPECT_EQ(readAs<InPort>(flat.at(0))->getPort(), inside->inPort(0));
    const QVariantList nodes = out().getDstNodesFlat().toList();
    EXPECT_EQ(readAs<Node>(nodes.at(0))->getNode(), inside);
    EXPECT_EQ(readAs<Node>(nodes.at(1))->getNode(), last);
}

TEST_F(OutPortTest, CablesAreListsOnThePort)
{
    linkAll();
    OutPort port = out();
    bool found = false;
    const QVariant cables = port.getAttr("cables", found);
    ASSERT_TRUE(readAs<CableList>(cables));
    EXPECT_EQ(readAs<CableList>(cables)->size(), 4u);
    const QVariant flat = port.getAttr("cables_flat", found);
    ASSERT_TRUE(readAs<FlatCableList>(flat));
    EXPECT_EQ(readAs<FlatCableList>(flat)->size(), 4u);
}

TEST_F(OutPortTest, LinkingIsOneEntryThatIsUndoneAndRedone)
{
    const QByteArray before = saved();
    const Obj cable = out().link("Top/Last");
    ASSERT_TRUE(objectIn<Cable>(cable));
    EXPECT_EQ(objectIn<Cable>(cable)->getOutPort(), card->outPort(0));
    EXPECT_EQ(objectIn<Cable>(cable)->getInPort(), last->inPort(0));
    EXPECT_EQ(labels(), QStringList{"Connecting ports."});
    const QByteArray linked = saved();
    undo();
    EXPECT_EQ(saved(), before);
    redo();
    EXPECT_EQ(saved(), linked);
}

TEST_F(OutPortTest, ANodeGivesItsFirstFreeInPortOfTheType)
{
    link(first, 0, cutter, 0);
    const Obj wrapper(Node::getWrapped(cutter));
    out().link(asArgument(*wrapper.get()));
    EXPECT_EQ(cutter->inPort(1)->srcPort(), card->outPort(0));
    EXPECT_EQ(cutter->inPort(0)->srcPort(), first->outPort(0));
}

TEST_F(OutPortTest, ANamedInPortChangesItsSource)
{
    link(first, 0, last, 0);
    out().link(QVariantList{QString("Last"), 0});
    EXPECT_EQ(last->inPort(0)->srcPort(), card->outPort(0));
    EXPECT_EQ(labels(), QStringList{"Connecting ports."});
    undo();
    EXPECT_EQ(last->inPort(0)->srcPort(), first->outPort(0));
}

TEST_F(OutPortTest, LinkingToAnInPortThatItFeedsMakesNoEntry)
{
    link(card, 0, last, 0);
    const Obj cable = out().link(asArgument(InPort(last, 0)));
    EXPECT_TRUE(objectIn<Cable>(cable));
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(OutPortTest, AFailedLinkChangesNothingAndLeavesNoEntry)
{
    link(first, 0, cutter, 0);
    link(first, 0, cutter, 1);
    MO_Node* peg = add("PEG", "Peg");
    const InPort pegIn(peg, 0);
    const InPort own(first, 0);
    const QByteArray before = saved();

    const struct {
        const char* name;
        QVariant value;
        const char* text;
    } failures[] = {
        {"null", QVariant(), "No in-port has been specified."},
        {"false", false, "Failed to identify specified port."},
        {"all taken", "Cutter", "Target has no available ports that can be linked. Unlink a port first."},
        {"beyond the ports", QVariantList{QString("Cutter"), 2},
         "There is no port at the provided index on the target node."},
        {"itself", "First", "Unable to connect a node to itself."},
        {"another type", asArgument(pegIn), "The ports are unable to be linked."},
    };
    for (const auto& failure : failures) {
        SCOPED_TRACE(failure.name);
        EXPECT_EQ(failureOf([&] { OutPort(first, 0).link(failure.value); }), failure.text);
        EXPECT_TRUE(labels().isEmpty());
        EXPECT_EQ(saved(), before);
    }
    EXPECT_EQ(failureOf([&] { OutPort(card, 99).link(asArgument(own)); }), "Unable to find this port.");
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(OutPortTest, LinkingToAGroupOrACompositeAddsAnInPort)
{
    TUGroup* group = addGroup("G");
    out().link("G");
    ASSERT_EQ(group->nInPorts(), 1u);
    EXPECT_EQ(group->inPort(0)->srcPort(), card->outPort(0));
    EXPECT_EQ(group->getOutMultiPort()->nOutPorts(), 1u);
    EXPECT_EQ(labels(), QStringList{"Connecting ports."});

    MO_Node* composite = node("Top/Composite");
    out().link("Composite");
    EXPECT_EQ(composite->nInPorts(), 2u);
    EXPECT_EQ(composite->inPort(1)->srcPort(), card->outPort(0));
    undo(2);
    EXPECT_EQ(composite->nInPorts(), 1u);
    EXPECT_EQ(group->nInPorts(), 0u);
}

TEST_F(OutPortTest, UnlinkingAnInPortCutsItsLink)
{
    linkAll();
    const InPort port(cutter, cutter->inPort(0)->id());
    out().unlink(asArgument(port));
    EXPECT_EQ(destinations(), (std::vector<MO_Port*>{first->inPort(0), cutter->inPort(1), last->inPort(0)}));
    EXPECT_EQ(labels(), QStringList{"Unlink Port"});
    undo();
    EXPECT_EQ(destinations().size(), 4u);
    EXPECT_EQ(destinations()[1], cutter->inPort(0));
}

TEST_F(OutPortTest, UnlinkingAnInPortThatIsReachedThroughAGroupCutsItsDirectLink)
{
    TUGroup* group = addPassage("G");
    link(card, 0, group, 0);
    MO_Node* inside = node("Top/G/Inside");
    out().unlink(asArgument(InPort(inside, 0)));
    EXPECT_EQ(inside->inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(group->inPort(0)->srcPort(), card->outPort(0));
}

TEST_F(OutPortTest, UnlinkingANodeCutsAllLinksToItInOneEntry)
{
    linkAll();
    const Obj wrapper(Node::getWrapped(cutter));
    out().unlink(asArgument(*wrapper.get()));
    EXPECT_EQ(destinations(), (std::vector<MO_Port*>{first->inPort(0), last->inPort(0)}));
    EXPECT_EQ(labels(), QStringList{"Unlinking ports."});
    undo();
    EXPECT_EQ(destinations(),
              (std::vector<MO_Port*>{first->inPort(0), cutter->inPort(0), cutter->inPort(1), last->inPort(0)}));
    redo();
    EXPECT_EQ(destinations().size(), 2u);
}

TEST_F(OutPortTest, UnlinkingANodeThatIsNotFedDoesNothing)
{
    link(card, 0, first, 0);
    const Obj other(Node::getWrapped(last));
    EXPECT_EQ(failureOf([&] { out().unlink(asArgument(*other.get())); }), "no exception");
    removeNode(last);
    EXPECT_EQ(failureOf([&] { out().unlink(asArgument(*other.get())); }), "no exception");
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_EQ(destinations().size(), 1u);
}

TEST_F(OutPortTest, UnlinkingACableLeavesTheLinkInPlace)
{
    linkAll();
    const Obj cable = InPort(first, 0).getCable();
    out().unlink(asArgument(*cable.get()));
    EXPECT_EQ(destinations().size(), 4u);
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_EQ(objectIn<Cable>(cable)->getInPort(), first->inPort(0));
}

TEST_F(OutPortTest, LinksAreCutByTheirPlaceInTheList)
{
    linkAll();
    out().unlink(1);
    EXPECT_EQ(destinations(), (std::vector<MO_Port*>{first->inPort(0), cutter->inPort(1), last->inPort(0)}));
    EXPECT_EQ(labels(), QStringList{"Unlink Port"});
}

TEST_F(OutPortTest, LinksAreCutByTheNameOrThePathOfTheirNodes)
{
    for (const char* text : {"Cutter", "Top/Cutter"}) {
        SCOPED_TRACE(text);
        linkAll();
        out().unlink(text);
        EXPECT_EQ(destinations(), (std::vector<MO_Port*>{first->inPort(0), last->inPort(0)}));
        EXPECT_EQ(labels(), QStringList{"Disconnecting ports."});
        undo();
        EXPECT_EQ(destinations().size(), 4u);
        out().unlink(QStringList{"First", "Top/Cutter", "Last"});
        EXPECT_TRUE(destinations().empty());
        EXPECT_EQ(labels(), QStringList{"Disconnecting ports."});
        manager().clearHistory();
    }
}

TEST_F(OutPortTest, WhatNamesNoLinkIsRefusedAndChangesNothing)
{
    link(card, 0, first, 0);
    link(cutter, 0, last, 0);
    const InPort foreign(last, 0);
    const InPort free(cutter, 0);
    const InPort none(first, 99);
    const OutPort side(cutter, 0);
    const Obj foreignCable = InPort(last, 0).getCable();
    const OutPort source(card, 0);
    const FlatCable flat(&source, &free);
    const QByteArray before = saved();

    const struct {
        const char* name;
        QVariant value;
        const char* text;
    } failures[] = {
        {"in-port of another", asArgument(foreign), "The provided port is not connected to this one."},
        {"free in-port", asArgument(free), "The provided port is not connected to this one."},
        {"in-port that never was", asArgument(none), "Invalid port argument."},
        {"cable of another", asArgument(*foreignCable.get()), "Cable is not attached to this port."},
        {"out-port", asArgument(side), "Unable to find the cable to disconnect."},
        {"flat cable", asArgument(flat), "Unable to find the cable to disconnect."},
        {"negative place", -1, "Invalid link index supplied."},
        {"place beyond", 1, "Cable index is out of range."},
        {"huge place", 2147483647, "Cable index is out of range."},
        {"unknown name", "Nobody", "Unable to find node to unlink."},
        {"name in another case", "first", "Unable to find node to unlink."},
        {"empty name", "", "Unable to find node to unlink."},
        {"no names", QStringList(), "Unable to find node to unlink."},
        {"unknown names", QStringList{"Nobody", "Last"}, "Unable to find node to unlink."},
        {"nothing", QVariant(), "Unable to find the cable to disconnect."},
        {"true", true, "Unable to find the cable to disconnect."},
        {"great number", 4294967296LL, "Unable to find the cable to disconnect."},
        {"fraction", 0.0, "Unable to find the cable to disconnect."},
        {"list", QVariantList{0}, "Unable to find the cable to disconnect."},
    };
    for (const auto& failure : failures) {
        SCOPED_TRACE(failure.name);
        EXPECT_EQ(failureOf([&] { out().unlink(failure.value); }), failure.text);
        EXPECT_TRUE(labels().isEmpty());
        EXPECT_EQ(saved(), before);
    }
}

TEST_F(OutPortTest, ADeadPortFailsWhateverItIsAsked)
{
    OutPort port = out();
    removeNode(card);
    EXPECT_EQ(failureOf([&] { port.link("First"); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.link(QVariant()); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.unlink(0); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getDst(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getDstNodes(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getDstFlat(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getDstNodesFlat(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getCables(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getCablesFlat(); }), objectGone);
}

TEST_F(OutPortTest, APortThatNeverWasHasNoDestinations)
{
    OutPort port(card, 99);
    EXPECT_EQ(failureOf([&] { port.getDst(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.getDstNodes(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.getDstFlat(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.getDstNodesFlat(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.unlink(0); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.unlink("First"); }), "Unable to find the port.");
    EXPECT_TRUE(labels().isEmpty());
}

class StandInOutPortTest : public testing::Test {
protected:
    StandInOutPortTest()
    {
        out = own.addOut();
        for (StandInNode* node : {&first, &second}) {
            StandInPort* in = node->addIn();
            in->source = out;
            out->destinations.push_back(in);
        }
        scene.commands = &manager;
    }

    SelectiveManager manager;
    StandInSceneCommon scene;
    StandInNode own{&scene};
    StandInNode first{&scene};
    StandInNode second{&scene};
    StandInPort* out = nullptr;
};

TEST_F(StandInOutPortTest, WithoutASceneOrAManagerNothingIsCut)
{
    scene.commands = nullptr;
    EXPECT_EQ(failureOf([&] { OutPort(&own, 0).unlink(0); }), "An unexpected error occurred.");
    own.scene = nullptr;
    EXPECT_EQ(failureOf([&] { OutPort(&own, 0).unlink(0); }), "An unexpected error occurred.");
}

TEST_F(StandInOutPortTest, ADestinationOnNoNodeCantBeCutByItsPlace)
{
    first.ins[0]->lost = true;
    EXPECT_EQ(failureOf([&] { OutPort(&own, 0).unlink(0); }), "Unable to find the destination node.");
}

TEST_F(StandInOutPortTest, ACutThatIsRefusedCancelsTheWhole)
{
    manager.refused = {"Unlink Port"};
    const Obj node(Node::getWrapped(&first));
    EXPECT_EQ(failureOf([&] { OutPort(&own, 0).unlink(asArgument(*node.get())); }), "Failed to disconnect the port.");
    EXPECT_EQ(failureOf([&] { OutPort(&own, 0).unlink("StandIn"); }), "Failed to disconnect the port.");
    EXPECT_EQ(manager.cancelledScopes, 2);
    EXPECT_EQ(manager.openScopes, 0);
    EXPECT_EQ(failureOf([&] { OutPort(&own, 0).unlink(0); }), "Failed to disconnect the port.");
    EXPECT_EQ(manager.cancelledScopes, 2);
}

} // namespace
