#include "core/nodes/cable.h"

#include "core/nodes/inport.h"
#include "core/nodes/node.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

class CableTest : public GraphTest {
protected:
    void SetUp() override
    {
        card = add("COLOR_CARD", "Card");
        other = add("COLOR_CARD", "Other");
        blur = add("BLUR", "Blur");
        free = add("BLUR", "Free");
        cutter = add("CUTTER", "Cutter");
        peg = add("PEG", "Peg");
        link(card, 0, blur, 0);
        before = saved();
    }

    Cable cable() const { return between(card, blur); }
    static Cable between(MO_Node* from, MO_Node* to)
    {
        const OutPort source(from, from->outPort(0)->id());
        const InPort destination(to, to->inPort(0)->id());
        return {&source, &destination};
    }
    static Obj wrapped(MO_Node* node) { return Obj(Node::getWrapped(node)); }
    static MO_Node* nodeIn(const QVariant& value)
    {
        const auto* node = readAs<Node>(value);
        return node ? node->getNode() : nullptr;
    }
    MO_Port* source() const { return blur->inPort(0)->srcPort(); }

    void expectUnchanged()
    {
        EXPECT_TRUE(labels().isEmpty());
        EXPECT_EQ(saved(), before);
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

    MO_Node* card = nullptr;
    MO_Node* other = nullptr;
    MO_Node* blur = nullptr;
    MO_Node* free = nullptr;
    MO_Node* cutter = nullptr;
    MO_Node* peg = nullptr;
    QByteArray before;
};

TEST_F(CableTest, ACableShowsBothOfItsEnds)
{
    Cable link = cable();
    bool found = false;

    EXPECT_EQ(link.getOutPort(), card->outPort(0));
    EXPECT_EQ(link.getInPort(), blur->inPort(0));
    EXPECT_EQ(readAs<OutPort>(link.getAttr("source", found))->getPort(), card->outPort(0));
    EXPECT_EQ(readAs<InPort>(link.getAttr("destination", found))->getPort(), blur->inPort(0));
    EXPECT_EQ(nodeIn(link.getAttr("source_node", found)), card);
    EXPECT_EQ(nodeIn(link.getAttr("destination_node", found)), blur);
    EXPECT_EQ(nodeIn(link.getAttr("source_flat_node", found)), card);
    EXPECT_EQ(readAs<OutPort>(link.getAttr("source_flat", found))->getPort(), card->outPort(0));
}

TEST_F(CableTest, TheTextHasThePathsAndThePortIds)
{
    MO_Node* composite = node("Top/Composite");
    prepare(MO_AutoInPortsModule::castTo(composite)->addInPortCommand(0));
    link(card, 0, composite, 0);
    const unsigned int id = composite->inPort(0)->id();
    ASSERT_EQ(id, 1u);
    const OutPort from(card, 0);
    const InPort to(composite, id);
    EXPECT_EQ(Cable(&from, &to).__str__(), "Cable(Top/Card, 0, Top/Composite, 1)");
}

TEST_F(CableTest, APortThatACableGivesOutlivesTheCable)
{
    QVariant port;
    {
        const Cable link = cable();
        port = link.getSource();
    }
    EXPECT_EQ(readAs<OutPort>(port)->getPort(), card->outPort(0));
}

TEST_F(CableTest, CablesDestroyTheirPortsOnce)
{
    const qint64 alive = BaseObject::liveObjects();
    {
        const Cable link = cable();
        EXPECT_EQ(BaseObject::liveObjects(), alive + 3);
        const Obj copy(link.copy());
        const Obj clone = copy;
        EXPECT_EQ(BaseObject::liveObjects(), alive + 9);
        EXPECT_EQ(objectIn<Cable>(clone)->getInPort(), blur->inPort(0));
    }
    EXPECT_EQ(BaseObject::liveObjects(), alive);
}

TEST_F(CableTest, SettingAnEndKeepsTheNumberOfPorts)
{
    Cable link = cable();
    const qint64 alive = BaseObject::liveObjects();
    link.setSource("Other");
    link.setSourceNode("Card");
    link.setDestination("Free");
    link.insert(wrapped(cutter));
    EXPECT_EQ(BaseObject::liveObjects(), alive);
}

TEST_F(CableTest, ACableWithoutAnEndIsInvalid)
{
    const OutPort source(card, 0);
    const InPort destination(blur, 0);
    const Cable cables[] = {Cable(nullptr, nullptr), Cable(&source, nullptr), Cable(nullptr, &destination)};
    for (const Cable& link : cables) {
        const std::unique_ptr<BaseObject> copy(link.copy());
        EXPECT_EQ(failureOf([&] { link.getSource(); }), objectGone);
        EXPECT_EQ(failureOf([&] { copy->__str__(); }), objectGone);
    }
}

TEST_F(CableTest, PortsThatNeverWereOrAreGoneMakeACableInvalid)
{
    const OutPort none(card, 99);
    const InPort destination(blur, 0);
    EXPECT_EQ(failureOf([&] { Cable(&none, &destination).getSource(); }), objectGone);

    Cable link = cable();
    removeNode(blur);
    EXPECT_EQ(failureOf([&] { link.getSource(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.getSourceNode(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.getDestination(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.getDestinationNode(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.getSourceFlat(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.getSourceFlatNode(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.getInPort(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.getOutPort(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.setSource("Other"); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.setSourceNode("Other"); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.setDestination("Free"); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.insert(wrapped(free)); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.unlink(); }), objectGone);
    EXPECT_EQ(failureOf([&] { link.__str__(); }), objectGone);
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(CableTest, UnlinkCutsTheLinkAndTheCableSaysSo)
{
    Cable link = cable();
    link.unlink();
    EXPECT_EQ(source(), nullptr);
    EXPECT_EQ(failureOf([&] { link.getSource(); }), portsApart);
    EXPECT_EQ(failureOf([&] { link.__str__(); }), portsApart);
    EXPECT_EQ(failureOf([&] { link.unlink(); }), portsApart);
    EXPECT_EQ(failureOf([&] { link.setSource("Card"); }), portsApart);
    expectOneEntry("Unlink Port");
    undo();
    EXPECT_EQ(link.getOutPort(), card->outPort(0));
}

TEST_F(CableTest, ANewSourceTakesTheCableAlong)
{
    Cable link = cable();
    bool found = false;
    link.setAttr("source", "Other", found);
    EXPECT_EQ(source(), other->outPort(0));
    EXPECT_EQ(link.getOutPort(), other->outPort(0));
    expectOneEntry("Connecting ports.");
}

TEST_F(CableTest, ANewSourceNodeTakesTheCableAlong)
{
    Cable link = cable();
    bool found = false;
    link.setAttr("source_node", asArgument(*wrapped(other).get()), found);
    EXPECT_EQ(source(), other->outPort(0));
    EXPECT_EQ(link.getOutPort(), other->outPort(0));
    expectOneEntry("Changing the cable's source node.");
}

TEST_F(CableTest, WritingTheDestinationNodeChangesTheSource)
{
    Cable link = cable();
    bool found = false;
    link.setAttr("destination_node", "Other", found);
    EXPECT_TRUE(found);
    EXPECT_EQ(source(), other->outPort(0));
    EXPECT_EQ(link.getInPort(), blur->inPort(0));
    expectOneEntry("Changing the cable's source node.");
}

TEST_F(CableTest, ANewDestinationTakesTheCableAlong)
{
    Cable link = cable();
    bool found = false;
    link.setAttr("destination", "Free", found);
    EXPECT_EQ(source(), nullptr);
    EXPECT_EQ(free->inPort(0)->srcPort(), card->outPort(0));
    EXPECT_EQ(link.getInPort(), free->inPort(0));
    expectOneEntry("Changing the cable's destination node.");
}

TEST_F(CableTest, NullAndFalseAreNoEndOfACable)
{
    Cable link = cable();
    for (const QVariant& value : {QVariant(), QVariant::fromValue(nullptr), QVariant(false)}) {
        EXPECT_EQ(failureOf([&] { link.setSource(value); }), "Failed to set the cable's source.");
        EXPECT_EQ(failureOf([&] { link.setSourceNode(value); }), "Failed to change the source node.");
    }
    EXPECT_EQ(failureOf([&] { link.setDestination(QVariant()); }), "No in-port has been specified.");
    EXPECT_EQ(failureOf([&] { link.setDestination(false); }), "Failed to identify specified port.");
    EXPECT_EQ(link.getOutPort(), card->outPort(0));
    expectUnchanged();
}

TEST_F(CableTest, AnEndThatCantBeLinkedLeavesTheCableAsItWas)
{
    Cable link = cable();
    EXPECT_EQ(failureOf([&] { link.setSource("Nowhere"); }), "Unable to find the target node.");
    EXPECT_EQ(failureOf([&] { link.setSource("Peg"); }), "Failed to identify specified port.");
    EXPECT_EQ(failureOf([&] { link.setSourceNode("Nowhere"); }), "Unable to find the target node.");
    EXPECT_EQ(failureOf([&] { link.setSourceNode(asArgument(OutPort(peg, 0))); }),
              "The ports are unable to be linked.");
    EXPECT_EQ(failureOf([&] { link.setDestination("Peg"); }), "Failed to identify specified port.");
    EXPECT_EQ(failureOf([&] { link.setDestination("Card"); }), "Failed to identify specified port.");
    EXPECT_EQ(link.getOutPort(), card->outPort(0));
    EXPECT_EQ(link.getInPort(), blur->inPort(0));
    expectUnchanged();
}

TEST_F(CableTest, ANodeIsPutIntoTheCable)
{
    Cable link = cable();
    const Obj front = link.insert(wrapped(free));

    ASSERT_TRUE(objectIn<Cable>(front));
    EXPECT_EQ(objectIn<Cable>(front)->getOutPort(), card->outPort(0));
    EXPECT_EQ(objectIn<Cable>(front)->getInPort(), free->inPort(0));
    EXPECT_EQ(source(), free->outPort(0));
    EXPECT_EQ(failureOf([&] { link.getSource(); }), portsApart);
    expectOneEntry("Inserting a node.");
}

TEST_F(CableTest, AnInsertedGroupGetsItsPorts)
{
    TUGroup* group = addGroup("G");
    before = saved();
    Cable link = cable();
    // The new out-port is put at the number of in-ports, which is 1 by then: a group without out-ports has no such
    // place.
    EXPECT_EQ(failureOf([&] { link.insert(wrapped(group)); }), "Failed to create a new port on the output node.");
    EXPECT_EQ(group->nInPorts(), 0u);
    EXPECT_EQ(link.getInPort(), blur->inPort(0));
    expectUnchanged();

    prepare(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
    before = saved();
    link.insert(wrapped(group));
    EXPECT_EQ(group->inPort(0)->srcPort(), card->outPort(0));
    EXPECT_EQ(source(), group->outPort(1));
    expectOneEntry("Inserting a node.");
}

TEST_F(CableTest, TheInPortOfAnInsertedNodeIsGivenByItsPlaceOrAsAPort)
{
    const InPort port(cutter, cutter->inPort(1)->id());
    for (const QVariant& value : {QVariant(1), asArgument(port)}) {
        SCOPED_TRACE(value.typeName());
        Cable link = cable();
        const Obj front = link.insert(wrapped(cutter), value);
        EXPECT_EQ(objectIn<Cable>(front)->getInPort(), cutter->inPort(1));
        EXPECT_EQ(source(), cutter->outPort(0));
        EXPECT_EQ(labels(), QStringList{"Inserting a node."});
        undo();
        EXPECT_EQ(saved(), before);
        manager().clearHistory();
    }
}

TEST_F(CableTest, OneNumberServesBothSidesOfAnInsertedNode)
{
    TUGroup* group = addGroup("G");
    for (const unsigned int place : {0u, 1u}) {
        prepare(new tu_node::AddInPortCmd(group, place, MO_Port::createImagePort()));
        prepare(new tu_node::AddOutPortCmd(group, place, MO_Port::createImagePort()));
    }
    before = saved();
    Cable link = cable();
    const Obj front = link.insert(wrapped(group), 1, 0);
    EXPECT_EQ(objectIn<Cable>(front)->getInPort(), group->inPort(1));
    EXPECT_EQ(source(), group->outPort(1));
    expectOneEntry("Inserting a node.");
}

TEST_F(CableTest, AThirdArgumentOfAnyKindCountsAsPresent)
{
    for (const QVariant& present : {QVariant(7), QVariant("text"), QVariant(false)}) {
        Cable link = cable();
        link.insert(wrapped(free), 0, present);
        EXPECT_EQ(source(), free->outPort(0));
        undo();
        manager().clearHistory();
    }
}

TEST_F(CableTest, AnInsertThatFailsLeavesTheGraphAsItWas)
{
    MO_Node* dead = add("BLUR", "Dead");
    const Obj deadNode = wrapped(dead);
    removeNode(dead);
    const InPort port(free, 0);
    const OutPort out(free, 0);
    link(other, 0, cutter, 0);
    link(other, 0, cutter, 1);
    MO_Node* camera = add("CAMERA", "Camera");
    MO_Node* behind = add("CUTTER", "Behind");
    link(blur, 0, behind, 0);
    before = saved();

    const struct {
        const char* name;
        Obj node;
        QVariant inPort;
        QVariant outPort;
        const char* text;
    } failures[] = {
        {"nothing", Obj(), {}, {}, "Invalid node specififed."},
        {"a port", Obj(new InPort(free, 0)), {}, {}, "Invalid node specififed."},
        {"a dead node", deadNode, {}, {}, "An unexpected error occurred."},
        {"place beyond", wrapped(free), 1, {}, "Unable to determine the inport."},
        {"negative place", wrapped(free), -1, {}, "Unable to determine the inport."},
        {"text", wrapped(free), "0", {}, "Unable to determine the inport."},
        {"an out-port", wrapped(free), asArgument(out), {}, "Unable to determine the inport."},
        {"an in-port for both", wrapped(free), asArgument(port), 0, "Unable to determine the outport."},
        {"only the out-port", wrapped(free), {}, 0, "Unable to determine the outport."},
        {"no such out-port", wrapped(cutter), 1, 0, "Unable to determine the outport."},
        {"all taken",
         wrapped(cutter),
         {},
         {},
         "Target has no available ports that can be linked. Unlink a port first."},
        {"another type", wrapped(peg), {}, {}, "Failed to identify specified port."},
        {"no out-ports", wrapped(camera), {}, {}, "Failed to identify specified port."},
        {"another type by place", wrapped(peg), 0, {}, "The ports are unable to be linked."},
        {"its source", wrapped(card), {}, {}, "Failed to identify specified port."},
        {"its destination", wrapped(blur), {}, {}, "Unable to connect a node to itself."},
        {"a node behind it", wrapped(behind), 1, {}, "The ports are unable to be linked."},
    };
    for (const auto& failure : failures) {
        SCOPED_TRACE(failure.name);
        Cable link = cable();
        EXPECT_EQ(failureOf([&] { link.insert(failure.node, failure.inPort, failure.outPort); }), failure.text);
        EXPECT_EQ(link.getOutPort(), card->outPort(0));
        EXPECT_EQ(link.getInPort(), blur->inPort(0));
        expectUnchanged();
    }
}

TEST_F(CableTest, TheFlatSourceOfADirectCableLiesBeyondGroups)
{
    TUGroup* group = addPassage("G");
    link(group, 0, free, 0);
    const Cable direct = between(group, free);
    MO_Node* inside = node("Top/G/Inside");
    EXPECT_EQ(nodeIn(direct.getSourceNode()), group);
    EXPECT_EQ(objectIn<Node>(direct.getSourceFlatNode())->getNode(), inside);
    EXPECT_EQ(objectIn<OutPort>(direct.getSourceFlat())->getPort(), inside->outPort(0));
}

TEST_F(CableTest, ADirectCableOfAGroupThatLeadsNowhereHasNoFlatSource)
{
    TUGroup* group = addGroup("G");
    prepare(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
    link(group, 0, free, 0);
    const Cable direct = between(group, free);
    EXPECT_EQ(failureOf([&] { direct.getSourceFlatNode(); }), "Unable to find the flat source node.");
    EXPECT_EQ(failureOf([&] { direct.getSourceFlat(); }), "Unable to find the flat source port.");
}

class StandInCableTest : public testing::Test {
protected:
    StandInCableTest()
    {
        out = from.addOut();
        in = to.addIn();
        in->source = in->realSource = out;
        scene.commands = &manager;
    }

    Cable cable() const
    {
        const OutPort source(const_cast<StandInNode*>(&from), out->id());
        const InPort destination(const_cast<StandInNode*>(&to), in->id());
        return {&source, &destination};
    }

    SelectiveManager manager;
    StandInSceneCommon scene;
    StandInNode from{&scene};
    StandInNode to{&scene};
    StandInPort* out = nullptr;
    StandInPort* in = nullptr;
};

TEST_F(StandInCableTest, APortOnNoNodeHasTheSentenceOfTheSourceAtBothEnds)
{
    const Cable link = cable();
    out->lost = true;
    in->lost = true;
    EXPECT_EQ(failureOf([&] { link.getSourceNode(); }), "Unable to find the source node.");
    EXPECT_EQ(failureOf([&] { link.getDestinationNode(); }), "Unable to find the source node.");
}

TEST_F(StandInCableTest, WithoutASceneOrAManagerNoEndCanBeSet)
{
    Cable link = cable();
    const Obj node(Node::getWrapped(&from));
    scene.commands = nullptr;
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(failureOf([&] { link.setSource("A"); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { link.setSourceNode("A"); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { link.setDestination("A"); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { link.insert(node); }), "An unexpected error occurred.");
        to.scene = nullptr;
        from.scene = nullptr;
    }
}

TEST_F(StandInCableTest, ACutThatIsRefusedCancelsTheWhole)
{
    Cable link = cable();
    StandInNode middle(&scene);
    const Obj node(Node::getWrapped(&middle));
    manager.refused = {"Unlink Port"};
    EXPECT_EQ(failureOf([&] { link.unlink(); }), "Failed to disconnect the port.");
    EXPECT_EQ(failureOf([&] { link.setDestination("A"); }), "Failed to disconnect the port.");
    EXPECT_EQ(failureOf([&] { link.insert(node); }), "Failed to disconnect the port.");
    EXPECT_EQ(manager.cancelledScopes, 2);
    EXPECT_EQ(manager.openScopes, 0);
}

} // namespace
