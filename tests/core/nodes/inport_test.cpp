#include "core/nodes/inport.h"

#include "core/nodes/cable.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/node.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

class InPortTest : public GraphTest {
protected:
    void SetUp() override
    {
        read = add("READ", "Read");
        card = add("COLOR_CARD", "Card");
        blur = add("BLUR", "Blur");
        before = saved();
    }

    InPort in() const { return {blur, blur->inPort(0)->id()}; }
    MO_Port* source() const { return blur->inPort(0)->srcPort(); }
    void expectUnchanged()
    {
        EXPECT_TRUE(labels().isEmpty());
        EXPECT_EQ(saved(), before);
    }

    MO_Node* read = nullptr;
    MO_Node* card = nullptr;
    MO_Node* blur = nullptr;
    QByteArray before;
};

TEST_F(InPortTest, AFreePortHasNoSourceOfAnyKind)
{
    InPort port = in();
    EXPECT_FALSE(port.getLinked());
    EXPECT_EQ(port.getCable().get(), nullptr);
    EXPECT_EQ(port.getCableFlat().get(), nullptr);
    for (const char* name : {"source", "source_node", "source_flat", "source_node_flat"}) {
        SCOPED_TRACE(name);
        bool found = false;
        const QVariant value = port.getAttr(name, found);
        EXPECT_TRUE(found);
        EXPECT_EQ(value.typeId(), QMetaType::Nullptr);
        EXPECT_TRUE(value.isNull());
    }
}

TEST_F(InPortTest, ALinkedPortShowsItsSource)
{
    link(read, 0, blur, 0);
    InPort port = in();
    bool found = false;

    EXPECT_EQ(port.getAttr("linked", found), QVariant(true));
    ASSERT_TRUE(readAs<OutPort>(port.getSrc()));
    EXPECT_EQ(readAs<OutPort>(port.getSrc())->getPort(), read->outPort(0));
    EXPECT_EQ(readAs<Node>(port.getSrcNode())->getNode(), read);
    EXPECT_EQ(readAs<OutPort>(port.getSrcFlat())->getPort(), read->outPort(0));
    EXPECT_EQ(readAs<Node>(port.getSrcNodeFlat())->getNode(), read);
    const QVariant cable = port.getAttr("cable", found);
    ASSERT_TRUE(readAs<Cable>(cable));
    EXPECT_EQ(readAs<Cable>(cable)->getOutPort(), read->outPort(0));
    EXPECT_EQ(readAs<Cable>(cable)->getInPort(), blur->inPort(0));
}

TEST_F(InPortTest, TheFlatSourceLiesBeyondGroups)
{
    TUGroup* group = addPassage("G");
    link(read, 0, group, 0);
    link(group, 0, blur, 0);
    const InPort port = in();

    EXPECT_EQ(readAs<Node>(port.getSrcNode())->getNode(), group);
    EXPECT_EQ(readAs<OutPort>(port.getSrc())->getPort(), group->outPort(0));
    MO_Node* inside = node("Top/G/Inside");
    EXPECT_EQ(readAs<Node>(port.getSrcNodeFlat())->getNode(), inside);
    EXPECT_EQ(readAs<OutPort>(port.getSrcFlat())->getPort(), inside->outPort(0));
    const InPort insidePort(inside, 0);
    EXPECT_EQ(readAs<Node>(insidePort.getSrcNodeFlat())->getNode(), read);
}

TEST_F(InPortTest, AFlatCableThroughAGroupIsADirectCableThatIsNotConnected)
{
    TUGroup* group = addPassage("G");
    link(group, 0, blur, 0);
    const Obj cable = in().getCableFlat();
    ASSERT_TRUE(objectIn<Cable>(cable));
    EXPECT_EQ(failureOf([&] { objectIn<Cable>(cable)->getSource(); }), "These ports are no longer connected.");

    const Obj direct = in().getCable();
    EXPECT_EQ(objectIn<Cable>(direct)->getOutPort(), group->outPort(0));
}

TEST_F(InPortTest, AMattePortSaysSo)
{
    MO_Node* cutter = add("CUTTER", "C");
    EXPECT_TRUE(InPort(cutter, cutter->inPort(0)->id()).getMattePort());
    EXPECT_FALSE(InPort(cutter, cutter->inPort(1)->id()).getMattePort());
}

TEST_F(InPortTest, LinkingIsOneEntryThatIsUndoneAndRedone)
{
    InPort port = in();
    const Obj cable = port.link("Top/Read");

    ASSERT_TRUE(objectIn<Cable>(cable));
    EXPECT_EQ(objectIn<Cable>(cable)->getOutPort(), read->outPort(0));
    EXPECT_EQ(objectIn<Cable>(cable)->getInPort(), blur->inPort(0));
    EXPECT_EQ(source(), read->outPort(0));
    EXPECT_EQ(labels(), QStringList{"Connecting ports."});
    const QByteArray linked = saved();
    undo();
    EXPECT_EQ(source(), nullptr);
    EXPECT_EQ(saved(), before);
    redo();
    EXPECT_EQ(source(), read->outPort(0));
    EXPECT_EQ(saved(), linked);
}

TEST_F(InPortTest, ASourceIsNamedByAPortANodeAPathOrAList)
{
    const OutPort port(card, 0);
    const Obj wrapper(Node::getWrapped(card));
    const QVariant values[] = {asArgument(port),
                               asArgument(*wrapper.get()),
                               QVariant::fromValue(wrapper),
                               "Top/Card",
                               "Card",
                               QVariantList{QString("Card")},
                               QVariantList{asArgument(*wrapper.get()), 0}};
    for (const QVariant& value : values) {
        SCOPED_TRACE(value.typeName());
        in().link(value);
        EXPECT_EQ(source(), card->outPort(0));
        EXPECT_EQ(labels(), QStringList{"Connecting ports."});
        undo();
        ASSERT_EQ(source(), nullptr);
    }
}

TEST_F(InPortTest, ANewSourceTakesThePlaceOfTheOldOneInOneEntry)
{
    link(read, 0, blur, 0);
    in().link("Card");

    EXPECT_EQ(source(), card->outPort(0));
    EXPECT_EQ(read->outPort(0)->nDstPorts(), 0u);
    EXPECT_EQ(labels(), QStringList{"Connecting ports."});
    undo();
    EXPECT_EQ(source(), read->outPort(0));
    redo();
    EXPECT_EQ(source(), card->outPort(0));
}

TEST_F(InPortTest, LinkingToTheSourceThatFeedsThePortAlreadyMakesNoEntry)
{
    link(read, 0, blur, 0);
    const Obj cable = in().link("Read");
    ASSERT_TRUE(objectIn<Cable>(cable));
    EXPECT_EQ(objectIn<Cable>(cable)->getOutPort(), read->outPort(0));
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(InPortTest, NullAndFalseLeaveTheLinkInPlaceWithoutAnError)
{
    link(read, 0, blur, 0);
    InPort port = in();
    for (const QVariant& value : {QVariant(), QVariant::fromValue(nullptr), QVariant(false)}) {
        EXPECT_EQ(port.link(value).get(), nullptr);
        bool found = false;
        port.setAttr("source", value, found);
        EXPECT_TRUE(found);
        port.setAttr("source_node", value, found);
        EXPECT_TRUE(found);
    }
    EXPECT_EQ(source(), read->outPort(0));
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(InPortTest, ADeadPortTakesNullFromLinkAndSourceNodeButNotFromSource)
{
    InPort port = in();
    removeNode(blur);
    EXPECT_EQ(failureOf([&] { port.link(QVariant()); }), "no exception");
    EXPECT_EQ(failureOf([&] { port.setSrcNode(false); }), "no exception");
    EXPECT_EQ(failureOf([&] { port.setSrc(QVariant()); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.link("Read"); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.setSrcNode("Read"); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.unlink(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getLinked(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getMattePort(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getCable(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getCableFlat(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getSrc(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getSrcNode(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getSrcFlat(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getSrcNodeFlat(); }), objectGone);
}

TEST_F(InPortTest, SourceAndSourceNodeLinkLikeLink)
{
    bool found = false;
    InPort port = in();
    port.setAttr("source", "Read", found);
    EXPECT_EQ(source(), read->outPort(0));
    port.setAttr("source_node", "Card", found);
    EXPECT_EQ(source(), card->outPort(0));
    EXPECT_EQ(labels(), (QStringList{"Connecting ports.", "Connecting ports."}));
}

TEST_F(InPortTest, AFailedLinkChangesNothingAndLeavesNoEntry)
{
    link(card, 0, blur, 0);
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* after = add("BLUR", "After");
    link(blur, 0, after, 0);
    const QByteArray content = savedContent();
    const OutPort pegOut(peg, 0);
    const OutPort ownOut(blur, 0);
    const InPort wrongSide(read, 0);
    MO_Node* removed = add("BLUR", "Removed");
    const OutPort deadOut(removed, 0);
    removeNode(removed);
    ASSERT_EQ(savedContent(), content);
    before = saved();

    const struct {
        const char* name;
        QVariant value;
        const char* text;
    } failures[] = {
        {"nowhere", "Nowhere", "Unable to find the target node."},
        {"itself", "Blur", "Unable to connect a node to itself."},
        {"its own out-port", asArgument(ownOut), "Unable to connect a node to itself."},
        {"an in-port", asArgument(wrongSide), "Expected an out-port, but received an in-port."},
        {"another type", asArgument(pegOut), "The ports are unable to be linked."},
        {"a circle", "After", "The ports are unable to be linked."},
        {"true", true, "Failed to identify specified port."},
        {"a dead port", asArgument(deadOut), objectGone},
    };
    for (const auto& failure : failures) {
        SCOPED_TRACE(failure.name);
        EXPECT_EQ(failureOf([&] { in().link(failure.value); }), failure.text);
        EXPECT_EQ(source(), card->outPort(0));
        expectUnchanged();
    }
}

TEST_F(InPortTest, LinkingToAGroupAddsAPortToItAndToTheNodeInside)
{
    TUGroup* group = addGroup("G");
    before = saved();
    in().link("G");

    ASSERT_EQ(group->nOutPorts(), 1u);
    EXPECT_EQ(source(), group->outPort(0));
    ASSERT_TRUE(group->getInMultiPort());
    EXPECT_EQ(group->getInMultiPort()->nInPorts(), 1u);
    EXPECT_EQ(labels(), QStringList{"Connecting ports."});
    undo();
    EXPECT_EQ(group->nOutPorts(), 0u);
    EXPECT_FALSE(group->getInMultiPort());
    EXPECT_EQ(saved(), before);
    redo();
    EXPECT_EQ(source(), group->outPort(0));
}

TEST_F(InPortTest, AGroupThatCanPlaceNoNewOutPortIsLeftAsItWas)
{
    TUGroup* group = addGroup("G");
    prepare(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    before = saved();
    EXPECT_EQ(failureOf([&] { in().link("G"); }), "Failed to create a new port on the output node.");
    EXPECT_FALSE(group->getInMultiPort());
    expectUnchanged();
}

TEST_F(InPortTest, ALinkThatFailsTakesTheNewPortOfTheGroupAway)
{
    TUGroup* group = addGroup("G");
    before = saved();
    const InPort none(blur, 99);
    EXPECT_EQ(failureOf([&] { InPort(none).link("Read"); }), "Failed to identify specified port.");
    EXPECT_EQ(failureOf([&] { InPort(none).link(asArgument(OutPort(read, 0))); }), "Unable to find this port.");

    prepare(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    prepare(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
    link(blur, 0, group, 0);
    before = saved();
    EXPECT_EQ(failureOf([&] { in().link("G"); }), "The ports are unable to be linked.");
    EXPECT_EQ(group->nOutPorts(), 1u);
    expectUnchanged();
}

TEST_F(InPortTest, UnlinkCutsTheLink)
{
    link(read, 0, blur, 0);
    in().unlink();
    EXPECT_EQ(source(), nullptr);
    EXPECT_EQ(labels(), QStringList{"Unlink Port"});
    undo();
    EXPECT_EQ(source(), read->outPort(0));
    redo();
    EXPECT_EQ(source(), nullptr);
}

TEST_F(InPortTest, UnlinkingAFreePortGoesToTheEngineAllTheSame)
{
    in().unlink();
    EXPECT_EQ(source(), nullptr);
    EXPECT_EQ(labels(), QStringList{"Unlink Port"});
    undo();
    EXPECT_EQ(saved(), before);
}

TEST_F(InPortTest, APortThatNeverWasFailsWithTheTextOfEachRead)
{
    InPort port(blur, 99);
    EXPECT_EQ(failureOf([&] { port.getSrc(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.getSrcFlat(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.getSrcNode(); }), "Unable to find the node.");
    EXPECT_EQ(failureOf([&] { port.getSrcNodeFlat(); }), "Unable to find the node.");
    EXPECT_EQ(failureOf([&] { port.getCable(); }), "Invalid port.");
    EXPECT_EQ(failureOf([&] { port.getCableFlat(); }), "Invalid port.");
    EXPECT_EQ(failureOf([&] { port.getLinked(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.getMattePort(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.unlink(); }), "An unexpected error has occurred.");
    expectUnchanged();
}

class StandInLinkTest : public testing::Test {
protected:
    StandInLinkTest() { scene.commands = &manager; }

    std::string linkFailure()
    {
        return failureOf([&] { InPort(&own, in->id()).link(asArgument(target)); });
    }
    std::string outFailure()
    {
        return failureOf([&] { OutPort(&other, out->id()).link(asArgument(wrapper)); });
    }

    SelectiveManager manager;
    StandInSceneCommon scene;
    StandInNode own{&scene};
    StandInNode other{&scene};
    StandInPort* in = own.addIn();
    StandInPort* out = other.addOut();
    OutPort target{&other, out->id()};
    InPort wrapper{&own, in->id()};
};

TEST_F(StandInLinkTest, WithoutASceneOrAManagerNothingIsLinkedOrCut)
{
    scene.commands = nullptr;
    EXPECT_EQ(linkFailure(), "An unexpected error occurred.");
    EXPECT_EQ(outFailure(), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { wrapper.unlink(); }), "An unexpected error occurred.");
    own.scene = nullptr;
    EXPECT_EQ(linkFailure(), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { wrapper.unlink(); }), "An unexpected error occurred.");
}

TEST_F(StandInLinkTest, EachStepThatIsRefusedCancelsTheWhole)
{
    StandInNode third(&scene);
    in->source = third.addOut();
    const QStringList steps{"Unlinking in-port node.", "Linking nodes."};

    manager.refused = {steps[0]};
    EXPECT_EQ(linkFailure(), "In-port node must be unlinked first.");
    EXPECT_EQ(outFailure(), "In-port node must be unlinked first.");
    EXPECT_EQ(manager.cancelledScopes, 2);

    manager.refused = {steps[1]};
    manager.labels.clear();
    EXPECT_EQ(linkFailure(), "Failed to link nodes.");
    EXPECT_EQ(manager.labels, steps);
    EXPECT_EQ(outFailure(), "Failed to link nodes.");
    EXPECT_EQ(manager.cancelledScopes, 4);

    manager.refused.clear();
    in->linkable = false;
    EXPECT_EQ(linkFailure(), "The ports are unable to be linked.");
    out->linkable = false;
    EXPECT_EQ(outFailure(), "The ports are unable to be linked.");
    EXPECT_EQ(manager.cancelledScopes, 6);
    EXPECT_EQ(manager.openScopes, 0);
}

TEST_F(StandInLinkTest, TheInPortIsAskedWhetherTheLinkCanStand)
{
    out->linkable = false;
    EXPECT_EQ(linkFailure(), "no exception");
    EXPECT_EQ(outFailure(), "no exception");
    EXPECT_EQ(manager.cancelledScopes, 0);
}

TEST_F(StandInLinkTest, ATargetThatIsOnNoNodeIsRefused)
{
    out->lost = true;
    EXPECT_EQ(linkFailure(), "Unable to find the target port or node.");
    out->lost = false;
    in->lost = true;
    EXPECT_EQ(outFailure(), "Unable to find the target port or node.");
    EXPECT_EQ(manager.cancelledScopes, 2);
}

TEST_F(StandInLinkTest, AnInPortWithoutAPlaceIsRefused)
{
    own.placesKnown = false;
    EXPECT_EQ(linkFailure(), "An unexpected error has occurred.");
    EXPECT_EQ(outFailure(), "An unexpected error has occurred.");
    EXPECT_EQ(failureOf([&] { wrapper.unlink(); }), "An unexpected error has occurred.");
    EXPECT_EQ(manager.openScopes, 0);
    EXPECT_TRUE(manager.labels.isEmpty());
}

TEST_F(StandInLinkTest, ARefusedUnlinkSaysSo)
{
    manager.refused = {"Unlink Port"};
    EXPECT_EQ(failureOf([&] { wrapper.unlink(); }), "Failed to disconnect the port.");
    EXPECT_EQ(manager.refusedLabels, QStringList{"Unlink Port"});
}

} // namespace
