#include "core/nodes/port.h"

#include "core/nodes/groupnode.h"
#include "core/nodes/inport.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

class PortTest : public GraphTest {
protected:
    static const Node* asNode(const Obj& handle) { return objectIn<Node>(handle); }
};

TEST_F(PortTest, AnInPortTellsWhatItIsAndWhereItStands)
{
    MO_Node* cutter = add("CUTTER", "C");
    const InPort port(cutter, cutter->inPort(1)->id());

    EXPECT_EQ(port.getPortId(), cutter->inPort(1)->id());
    EXPECT_EQ(port.getIndex(), 1u);
    EXPECT_EQ(port.getType(), "IMAGE");
    EXPECT_TRUE(port.getIsInport());
    EXPECT_FALSE(port.getIsOutport());
    EXPECT_EQ(port.getNode(), cutter);
    EXPECT_EQ(port.getPort(), cutter->inPort(1));
    EXPECT_EQ(port.findPort(), cutter->inPort(1));
    EXPECT_EQ(asNode(port.getWrappedNode())->getNode(), cutter);
    EXPECT_EQ(port.__str__(), "InPort(Top/C, 1)");
}

TEST_F(PortTest, AnOutPortTellsWhatItIsAndWhereItStands)
{
    MO_Node* peg = add("PEG", "P");
    const OutPort port(peg, peg->outPort(0)->id());

    EXPECT_EQ(port.getIndex(), 0u);
    EXPECT_EQ(port.getType(), "PEG");
    EXPECT_FALSE(port.getIsInport());
    EXPECT_TRUE(port.getIsOutport());
    EXPECT_EQ(port.getPort(), peg->outPort(0));
    EXPECT_EQ(port.__str__(), "OutPort(Top/P, 0)");
}

TEST_F(PortTest, TheTextOfAPlainPortFollowsItsSide)
{
    MO_Node* blur = add("BLUR", "B");
    EXPECT_EQ(Port(blur, 0, true).__str__(), "InPort(Top/B, 0)");
    EXPECT_EQ(Port(blur, 0, false).__str__(), "OutPort(Top/B, 0)");
}

TEST_F(PortTest, PropertiesAreReadByName)
{
    MO_Node* blur = add("BLUR", "B");
    InPort port(blur, 0);
    bool found = false;

    EXPECT_EQ(port.getAttr("id", found), QVariant(0u));
    EXPECT_EQ(port.getAttr("index", found), QVariant(0u));
    EXPECT_EQ(port.getAttr("type", found), QVariant("IMAGE"));
    EXPECT_EQ(port.getAttr("inport", found), QVariant(true));
    EXPECT_EQ(port.getAttr("outport", found), QVariant(false));
    EXPECT_EQ(readAs<Node>(port.getAttr("node", found))->getNode(), blur);
    EXPECT_EQ(readAs<Node>(port.getAttr("node_related", found)), nullptr);
    EXPECT_TRUE(found);
    EXPECT_EQ(readAs<Port>(port.getAttr("port_related", found)), nullptr);
    EXPECT_TRUE(found);
    EXPECT_EQ(failureOf([&] { port.setAttr("index", 3, found); }), "Property is read-only.");
}

TEST_F(PortTest, ACopyIsOfTheSameClassAndPort)
{
    MO_Node* blur = add("BLUR", "B");
    const InPort in(blur, 0);
    const OutPort out(blur, 0);
    const Port plain(blur, 0, false);

    const std::unique_ptr<BaseObject> inCopy(in.copy());
    const std::unique_ptr<BaseObject> outCopy(out.copy());
    const std::unique_ptr<BaseObject> plainCopy(plain.copy());
    ASSERT_TRUE(dynamic_cast<InPort*>(inCopy.get()));
    ASSERT_TRUE(dynamic_cast<OutPort*>(outCopy.get()));
    EXPECT_EQ(dynamic_cast<InPort*>(inCopy.get())->getPort(), blur->inPort(0));
    EXPECT_EQ(dynamic_cast<OutPort*>(outCopy.get())->getPort(), blur->outPort(0));
    EXPECT_EQ(dynamic_cast<Port*>(plainCopy.get())->getPort(), blur->outPort(0));
    EXPECT_EQ(inCopy->getOwnership(), Unowned);
}

TEST_F(PortTest, APortOfARemovedNodeSaysSoForEver)
{
    MO_Node* blur = add("BLUR", "B");
    const InPort port(blur, 0);
    const OutPort out(blur, 0);
    SU_CleanUpCommands::removeNodes(scene(), {blur}, false);

    const auto expectGone = [&] {
        EXPECT_EQ(failureOf([&] { port.getPortId(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getIndex(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getType(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getNode(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getPort(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getWrappedNode(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getIsInport(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getIsOutport(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.getRelatedNode(); }), objectGone);
        EXPECT_EQ(failureOf([&] { out.getRelatedPort(); }), objectGone);
        EXPECT_EQ(failureOf([&] { port.__str__(); }), objectGone);
        EXPECT_EQ(port.findPort(), nullptr);
    };
    expectGone();
    undo();
    ASSERT_TRUE(node("Top/B"));
    expectGone();
    close();
    expectGone();
}

TEST_F(PortTest, APortWithoutANodeFailsAtItsFirstUse)
{
    const InPort port(nullptr, 0);
    EXPECT_EQ(failureOf([&] { port.getPortId(); }), objectGone);
    EXPECT_EQ(failureOf([&] { port.getPort(); }), objectGone);
    EXPECT_EQ(port.findPort(), nullptr);
}

TEST_F(PortTest, AnIdThatTheNodeNeverHadLeadsToNoPort)
{
    MO_Node* blur = add("BLUR", "B");
    const InPort port(blur, 4294967295u);

    EXPECT_EQ(port.getPortId(), 4294967295u);
    EXPECT_EQ(port.getPort(), nullptr);
    EXPECT_EQ(failureOf([&] { port.getType(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.getIndex(); }), "Unable to find the port.");
    EXPECT_EQ(failureOf([&] { port.__str__(); }), "Unable to find the port.");
}

TEST_F(PortTest, APortKeepsItsIdWhenOneAheadOfItGoes)
{
    MO_Node* composite = node("Top/Composite");
    MultiInPortList ports(composite);
    ports.create(1, QString());
    ports.create(2, QString());
    const InPort first(composite, composite->inPort(0)->id());
    const InPort last(composite, composite->inPort(2)->id());
    const unsigned int id = last.getPortId();
    MO_Port* port = last.getPort();

    ports.remove(0u);

    EXPECT_EQ(last.getPortId(), id);
    EXPECT_EQ(last.getPort(), port);
    EXPECT_EQ(last.getIndex(), 1u);
    EXPECT_EQ(failureOf([&] { first.getIndex(); }), objectGone);
    EXPECT_EQ(failureOf([&] { first.getType(); }), objectGone);
    EXPECT_EQ(first.findPort(), nullptr);
}

TEST(PortOfAStandIn, AnIdThatLeadsToAnotherPortMakesTheWrapperInvalid)
{
    StandInNode node;
    node.addIn();
    const InPort port(&node, 0);
    EXPECT_EQ(port.getPort(), node.inPort(0));

    node.ins[0] = std::make_unique<StandInPort>(&node, 0);
    EXPECT_EQ(failureOf([&] { port.getPort(); }), objectGone);
    EXPECT_EQ(port.findPort(), nullptr);
}

TEST(PortOfAStandIn, AnIndexNeedsANodeAndAPlace)
{
    StandInNode node;
    StandInPort* engine = node.addIn();
    const InPort port(&node, engine->id());

    engine->lost = true;
    EXPECT_EQ(failureOf([&] { port.getIndex(); }), "Unable to find the node.");
    engine->lost = false;
    node.placesKnown = false;
    EXPECT_EQ(failureOf([&] { port.getIndex(); }), "Unable to find the port on the node.");
}

TEST_F(PortTest, ThePlaceOfAPortIsLookedForOnItsSideOnly)
{
    MO_Node* cutter = add("CUTTER", "C");
    EXPECT_EQ(Port::inPortIdxFromPort(cutter->inPort(1)), 1);
    EXPECT_EQ(Port::outPortIdxFromPort(cutter->outPort(0)), 0);
    EXPECT_EQ(Port::inPortIdxFromPort(cutter->outPort(0)), -1);
    EXPECT_EQ(Port::outPortIdxFromPort(cutter->inPort(0)), -1);
    EXPECT_EQ(Port::inPortIdxFromPort(nullptr), -1);
    EXPECT_EQ(Port::outPortIdxFromPort(MO_Port::createImagePort().get()), -1);
}

TEST_F(PortTest, PortsOfAGroupFaceTheNodesInsideAndBack)
{
    TUGroup* group = addPassage("G");
    const InPort in(group, group->inPort(0)->id());
    const OutPort out(group, group->outPort(0)->id());
    MO_Node* entry = node("Top/G/Entry");
    MO_Node* exit = node("Top/G/Exit");

    const Obj inside = in.getRelatedPort();
    ASSERT_TRUE(objectIn<OutPort>(inside));
    EXPECT_EQ(objectIn<OutPort>(inside)->getPort(), entry->outPort(0));
    EXPECT_EQ(asNode(in.getRelatedNode())->getNode(), entry);

    const Obj back = objectIn<OutPort>(inside)->getRelatedPort();
    ASSERT_TRUE(objectIn<InPort>(back));
    EXPECT_EQ(objectIn<InPort>(back)->getPort(), group->inPort(0));

    const Obj outside = out.getRelatedPort();
    ASSERT_TRUE(objectIn<InPort>(outside));
    EXPECT_EQ(objectIn<InPort>(outside)->getPort(), exit->inPort(0));
    const InPort exitPort(exit, exit->inPort(0)->id());
    EXPECT_TRUE(dynamic_cast<const GroupNode*>(asNode(exitPort.getRelatedNode())));
    EXPECT_EQ(asNode(exitPort.getRelatedNode())->getNode(), group);
    const Obj facing = exitPort.getRelatedPort();
    ASSERT_TRUE(objectIn<OutPort>(facing));
    EXPECT_EQ(objectIn<OutPort>(facing)->getPort(), group->outPort(0));

    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(PortTest, AnOutPortHasNoRelatedNode)
{
    TUGroup* group = addPassage("G");
    EXPECT_EQ(OutPort(group, group->outPort(0)->id()).getRelatedNode().get(), nullptr);
    MO_Node* entry = node("Top/G/Entry");
    EXPECT_EQ(OutPort(entry, entry->outPort(0)->id()).getRelatedNode().get(), nullptr);
}

TEST_F(PortTest, AwayFromAGroupsBorderNothingIsRelated)
{
    MO_Node* blur = add("BLUR", "B");
    EXPECT_EQ(InPort(blur, 0).getRelatedNode().get(), nullptr);
    EXPECT_EQ(InPort(blur, 0).getRelatedPort().get(), nullptr);
    EXPECT_EQ(OutPort(blur, 0).getRelatedPort().get(), nullptr);
}

TEST_F(PortTest, AGroupWithoutAnInsideNodeGetsOneWhenItsPortsAreAskedForIt)
{
    TUGroup* group = addGroup("G");
    prepare(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    prepare(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
    ASSERT_FALSE(group->getOutMultiPort());

    const Obj facing = InPort(group, group->inPort(0)->id()).getRelatedNode();
    ASSERT_TRUE(asNode(facing));
    EXPECT_EQ(asNode(facing)->getNode(), group->getOutMultiPort());
    EXPECT_EQ(labels(), QStringList{"Add Multi-Port-In"});
    undo();
    EXPECT_FALSE(group->getOutMultiPort());
}

TEST_F(PortTest, AGroupWithoutAnInsideNodeGetsOneWhenItsPortsAreAskedForTheirFaces)
{
    TUGroup* group = addGroup("G");
    prepare(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    prepare(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));

    const Obj inside = InPort(group, group->inPort(0)->id()).getRelatedPort();
    ASSERT_TRUE(objectIn<OutPort>(inside));
    EXPECT_EQ(objectIn<OutPort>(inside)->getPort(), group->getOutMultiPort()->outPort(0));
    const Obj outside = OutPort(group, group->outPort(0)->id()).getRelatedPort();
    ASSERT_TRUE(objectIn<InPort>(outside));
    EXPECT_EQ(objectIn<InPort>(outside)->getPort(), group->getInMultiPort()->inPort(0));
    EXPECT_EQ(labels(), (QStringList{"Add Multi-Port-In", "Add Multi-Port-Out"}));
    undo(2);
    EXPECT_FALSE(group->getOutMultiPort());
    EXPECT_FALSE(group->getInMultiPort());
}

TEST_F(PortTest, APortThatNeverWasHasNoFace)
{
    TUGroup* group = addPassage("G");
    constexpr char text[] = "Multiport-in node doesn't have a corresponding port.";
    EXPECT_EQ(failureOf([&] { InPort(group, 99).getRelatedPort(); }), text);
    EXPECT_EQ(failureOf([&] { OutPort(group, 99).getRelatedPort(); }), text);
    constexpr char unexpected[] = "An unexpected error has occurred.";
    EXPECT_EQ(failureOf([&] { OutPort(node("Top/G/Entry"), 99).getRelatedPort(); }), unexpected);
    EXPECT_EQ(failureOf([&] { InPort(node("Top/G/Exit"), 99).getRelatedPort(); }), unexpected);

    TUGroup* empty = addGroup("Empty");
    EXPECT_EQ(failureOf([&] { InPort(empty, 99).getRelatedPort(); }), "Port index is out of range.");
    EXPECT_EQ(failureOf([&] { OutPort(empty, 99).getRelatedPort(); }), "Port index is out of range.");
}

TEST_F(PortTest, AnInsideNodeThatIsInNoGroupIsUnexpected)
{
    const std::unique_ptr<MO_Node> exit(TUMultiPortOut::create());
    const std::unique_ptr<MO_Node> entry(TUMultiPortIn::create());
    constexpr char unexpected[] = "An unexpected error has occurred.";
    EXPECT_EQ(failureOf([&] { InPort(exit.get(), 0).getRelatedNode(); }), unexpected);
    EXPECT_EQ(failureOf([&] { InPort(exit.get(), 0).getRelatedPort(); }), unexpected);
    EXPECT_EQ(failureOf([&] { OutPort(entry.get(), 0).getRelatedPort(); }), unexpected);
}

} // namespace
