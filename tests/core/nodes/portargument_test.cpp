#include "core/nodes/groupnode.h"
#include "core/nodes/inport.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

#include <limits>

using namespace OMC;

namespace {

/// The values that name no in-port, and why.
struct Refusal {
    const char* name;
    QVariant value;
    const char* text;
};

class PortArgumentTest : public GraphTest {
protected:
    void SetUp() override
    {
        source = add("READ", "Source");
        target = add("BLUR", "Target");
    }

    MO_Port* inPort(const QVariant& value, bool create = false)
    {
        error.clear();
        return OutPort(source, 0).QVariantToInPort(value, error, create);
    }
    MO_Port* outPort(const QVariant& value, bool create = false)
    {
        error.clear();
        return InPort(target, 0).QVariantToOutPort(value, error, create);
    }
    static QVariantList listOf(const QVariant& first, const QVariant& second) { return {first, second}; }

    MO_Node* source = nullptr;
    MO_Node* target = nullptr;
    QString error;
};

TEST_F(PortArgumentTest, AnInPortIsNamedByAPortANodeOrAPathWithOrWithoutAnIndex)
{
    const InPort port(target, 0);
    const Obj wrapper(Node::getWrapped(target));
    const QVariant nodeArgument = asArgument(*wrapper.get());
    MO_Port* const expected = target->inPort(0);

    EXPECT_EQ(inPort(asArgument(port)), expected);
    EXPECT_EQ(inPort(nodeArgument), expected);
    EXPECT_EQ(inPort(QVariant::fromValue(wrapper)), expected);
    EXPECT_EQ(inPort("Top/Target"), expected);
    EXPECT_EQ(inPort("Target"), expected);
    EXPECT_EQ(inPort(QVariantList{nodeArgument}), expected);
    EXPECT_EQ(inPort(QVariantList{QString("Top/Target")}), expected);
    EXPECT_EQ(inPort(listOf(nodeArgument, 0)), expected);
    EXPECT_EQ(inPort(listOf(QString("Target"), "0")), expected);
    EXPECT_EQ(inPort(listOf(nodeArgument, -1)), expected);
    EXPECT_TRUE(error.isEmpty());
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(PortArgumentTest, AnOutPortIsNamedInTheSameWays)
{
    const OutPort port(source, 0);
    const Obj wrapper(Node::getWrapped(source));
    MO_Port* const expected = source->outPort(0);

    EXPECT_EQ(outPort(asArgument(port)), expected);
    EXPECT_EQ(outPort(asArgument(*wrapper.get())), expected);
    EXPECT_EQ(outPort("Top/Source"), expected);
    EXPECT_EQ(outPort("Source"), expected);
    EXPECT_EQ(outPort(listOf(QString("Source"), 0)), expected);
    EXPECT_TRUE(error.isEmpty());
}

TEST_F(PortArgumentTest, APathIsAbsoluteOrRelativeToTheNodesOwnGroup)
{
    TUGroup* group = addGroup("G");
    MO_Node* inside = add("BLUR", "Target", group);
    const OutPort outer(source, 0);
    const OutPort inner(add("READ", "R", group), 0);

    EXPECT_EQ(outer.QVariantToInPort("Target", error, false), target->inPort(0));
    EXPECT_EQ(inner.QVariantToInPort("Target", error, false), inside->inPort(0));
    EXPECT_EQ(inner.QVariantToInPort("Top/Target", error, false), target->inPort(0));
    EXPECT_EQ(outer.QVariantToInPort("G/Target", error, false), inside->inPort(0));
}

TEST_F(PortArgumentTest, WhatNamesNoInPortIsRefusedWithItsReason)
{
    const Obj wrapper(Node::getWrapped(target));
    const QVariant nodeArgument = asArgument(*wrapper.get());
    MO_Node* dead = add("BLUR", "Dead");
    const Obj deadNode(Node::getWrapped(dead));
    removeNode(dead);
    const InPort port(target, 0);
    const InPort noPort(target, 99);
    const OutPort wrongSide(source, 0);
    const MultiInPortList other(target);

    const Refusal refusals[] = {
        {"nothing", QVariant(), "No in-port has been specified."},
        {"null", QVariant::fromValue(nullptr), "No in-port has been specified."},
        {"out-port", asArgument(wrongSide), "Expected an in-port, but received an out-port."},
        {"port that never was", asArgument(noPort), "Failed to identify specified port."},
        {"dead node", asArgument(*deadNode.get()), "Unable to find the target node."},
        {"other object", asArgument(other), "Failed to identify specified port."},
        {"empty handle", QVariant::fromValue(Obj()), "Failed to identify specified port."},
        {"unknown path", "Top/Nowhere", "Unable to find the target node."},
        {"empty path", "", "Unable to find the target node."},
        {"number", 0, "Failed to identify specified port."},
        {"true", true, "Failed to identify specified port."},
        {"map", QVariantMap{{"node", "Top/Target"}}, "Failed to identify specified port."},
        {"list of texts", QStringList{"Top/Target"}, "Failed to identify specified port."},
        {"empty list", QVariantList(), "No port or node specified."},
        {"list with a port", listOf(asArgument(port), 0), "Failed to identify specified port."},
        {"list with a number", listOf(1, 0), "Failed to identify specified port."},
        {"list with nothing", listOf(QVariant(), 0), "Failed to identify specified port."},
        {"list with a dead node", listOf(asArgument(*deadNode.get()), 0), "Unable to find the target node."},
        {"list with an unknown path", listOf("Nowhere", "x"), "Unable to find the target node."},
        {"index that is no number", listOf(nodeArgument, "first"), "Unable to find the target index."},
        {"index that is an object", listOf(nodeArgument, nodeArgument), "Unable to find the target index."},
        {"index of no node", listOf(1, "first"), "Unable to find the target index."},
        {"index that no int holds", listOf(nodeArgument, 4294967296LL), "Unable to find the target index."},
        {"index just beyond an int", listOf(nodeArgument, 2147483648LL), "Unable to find the target index."},
        {"index far below an int", listOf(nodeArgument, -4294967296LL), "Unable to find the target index."},
        {"endless index", listOf(nodeArgument, std::numeric_limits<double>::infinity()),
         "Unable to find the target index."},
        {"index that is NaN", listOf(nodeArgument, std::numeric_limits<double>::quiet_NaN()),
         "Unable to find the target index."},
        {"index beyond", listOf(nodeArgument, 1), "There is no port at the provided index on the target node."},
        {"huge index", listOf(nodeArgument, 2147483647), "There is no port at the provided index on the target node."},
        {"node without such a port", "Top/Source", "Failed to identify specified port."},
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        EXPECT_EQ(inPort(refusal.value, true), nullptr);
        EXPECT_EQ(error, refusal.text);
    }
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(PortArgumentTest, WhatNamesNoOutPortIsRefusedWithItsReason)
{
    const Obj wrapper(Node::getWrapped(source));
    const QVariant nodeArgument = asArgument(*wrapper.get());
    const InPort wrongSide(source, 0);
    const OutPort port(source, 0);
    add("PEG", "Peg");
    add("CAMERA", "Camera");

    const Refusal refusals[] = {
        {"nothing", QVariant(), "No out-port has been specified."},
        {"in-port", asArgument(wrongSide), "Expected an out-port, but received an in-port."},
        {"unknown path", "Nowhere", "Unable to find the target node."},
        {"list with a port", listOf(asArgument(port), 0), "Failed to identify specified port."},
        {"empty list", QVariantList(), "No port or node specified."},
        {"index that is no number", listOf(nodeArgument, "x"), "Unable to find the target index."},
        {"index that no int holds", listOf(nodeArgument, 4294967296LL), "Unable to find the target index."},
        {"index beyond", listOf(nodeArgument, 7), "There is no port at the provided index on the target node."},
        {"another type", "Peg", "Failed to identify specified port."},
        {"no out-ports", "Camera", "Failed to identify specified port."},
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        EXPECT_EQ(outPort(refusal.value, true), nullptr);
        EXPECT_EQ(error, refusal.text);
    }
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(PortArgumentTest, APortWhoseNodeIsGoneSaysSo)
{
    MO_Node* dead = add("BLUR", "Dead");
    const InPort port(dead, 0);
    removeNode(dead);
    constexpr char gone[] = "Object is no longer valid.";
    EXPECT_EQ(failureOf([&] { inPort(asArgument(port)); }), gone);
    EXPECT_EQ(failureOf([&] { port.QVariantToOutPort("Source", error, false); }), gone);
}

TEST_F(PortArgumentTest, TheFirstFreeInPortOfTheTypeIsTaken)
{
    MO_Node* cutter = add("CUTTER", "Cutter");
    EXPECT_EQ(inPort("Cutter"), cutter->inPort(0));
    link(source, 0, cutter, 0);
    EXPECT_EQ(inPort("Cutter"), cutter->inPort(1));
    link(source, 0, cutter, 1);
    EXPECT_EQ(inPort("Cutter"), nullptr);
    EXPECT_EQ(error, "Target has no available ports that can be linked. Unlink a port first.");
    EXPECT_EQ(inPort(listOf(QString("Cutter"), 1)), cutter->inPort(1));
}

TEST_F(PortArgumentTest, AnOutPortIsTakenLinkedOrNot)
{
    link(source, 0, add("BLUR", "Other"), 0);
    EXPECT_EQ(outPort("Source"), source->outPort(0));
}

TEST_F(PortArgumentTest, ANodeThatTakesPortsGetsANewInPort)
{
    MO_Node* composite = node("Top/Composite");
    ASSERT_EQ(composite->nInPorts(), 1u);

    MO_Port* made = inPort("Composite", true);

    ASSERT_EQ(composite->nInPorts(), 2u);
    EXPECT_EQ(made, composite->inPort(1));
    EXPECT_EQ(labels(), QStringList{"Add in-port to the node."});
    undo();
    EXPECT_EQ(composite->nInPorts(), 1u);
    redo();
    EXPECT_EQ(composite->inPort(1), made);
}

TEST_F(PortArgumentTest, NoInPortIsMadeWhereAnIndexIsGivenOrNoneIsWanted)
{
    MO_Node* composite = node("Top/Composite");
    EXPECT_EQ(inPort("Composite", false), composite->inPort(0));
    EXPECT_EQ(inPort(listOf(QString("Composite"), 0), true), composite->inPort(0));
    EXPECT_EQ(inPort(listOf(QString("Composite"), 1), true), nullptr);
    EXPECT_EQ(error, "There is no port at the provided index on the target node.");
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(PortArgumentTest, AnInPortThatTheNodeRefusesIsNotMade)
{
    const OutPort peg(add("PEG", "Peg"), 0);
    EXPECT_EQ(peg.QVariantToInPort("Composite", error, true), nullptr);
    EXPECT_EQ(error, "Failed to create a new port on the input node.");
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_EQ(node("Top/Composite")->nInPorts(), 1u);
}

TEST_F(PortArgumentTest, AGroupGetsAnInPortAndTheNodeInsideToFaceIt)
{
    TUGroup* group = addGroup("G");
    MO_Port* made = inPort("G", true);

    ASSERT_EQ(group->nInPorts(), 1u);
    EXPECT_EQ(made, group->inPort(0));
    ASSERT_TRUE(group->getOutMultiPort());
    EXPECT_EQ(group->getOutMultiPort()->nOutPorts(), 1u);
    EXPECT_EQ(labels(), (QStringList{"Add Multi-Port-In", "Add in-port to the node."}));
    undo(2);
    EXPECT_EQ(group->nInPorts(), 0u);
    EXPECT_FALSE(group->getOutMultiPort());
}

TEST_F(PortArgumentTest, AGroupAnswersEveryRequestForAnOutPortWithANewOne)
{
    TUGroup* group = addGroup("G");
    MO_Port* made = outPort("G", false);
    ASSERT_TRUE(made);
    EXPECT_EQ(made, group->outPort(0));
    ASSERT_TRUE(group->getInMultiPort());
    EXPECT_EQ(group->getInMultiPort()->nInPorts(), 1u);
    EXPECT_EQ(labels(), (QStringList{"Add Multi-Port-Out", "Add out-port to the node."}));

    MO_Port* second = outPort(listOf(QString("G"), 0), false);
    ASSERT_TRUE(second);
    EXPECT_NE(second, made);
    EXPECT_EQ(group->nOutPorts(), 2u);
    EXPECT_EQ(second, group->outPort(0));
}

TEST_F(PortArgumentTest, ANewOutPortOfAGroupStandsAtTheNumberOfItsInPorts)
{
    TUGroup* group = addPassage("G");
    MO_Port* made = outPort("G", true);
    ASSERT_TRUE(made);
    EXPECT_EQ(made, group->outPort(1));
    prepare(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
    prepare(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));

    EXPECT_EQ(outPort("G", true), nullptr);
    EXPECT_EQ(error, "Failed to create a new port on the output node.");
    EXPECT_EQ(group->nOutPorts(), 2u);
}

TEST_F(PortArgumentTest, TheInsideNodeOfAGroupGetsANewOutPortUnlessAnIndexIsGiven)
{
    TUGroup* group = addPassage("G");
    MO_Node* entry = node("Top/G/Entry");
    const InPort inside(node("Top/G/Inside"), 0);

    EXPECT_EQ(inside.QVariantToOutPort("Entry", error, false), entry->outPort(0));
    EXPECT_EQ(inside.QVariantToOutPort(listOf(QString("Entry"), 0), error, true), entry->outPort(0));
    EXPECT_TRUE(labels().isEmpty());
    MO_Port* made = inside.QVariantToOutPort("Entry", error, true);
    EXPECT_EQ(made, entry->outPort(0));
    EXPECT_EQ(entry->nOutPorts(), 2u);
    EXPECT_EQ(group->nInPorts(), 2u);
    EXPECT_EQ(labels(), QStringList{"Add out-port to the node."});
}

TEST(PortArgumentOfAStandIn, ANodeWithoutASceneThrows)
{
    StandInNode node;
    node.addIn();
    QString error;
    const InPort port(&node, 0);
    EXPECT_EQ(failureOf([&] { port.QVariantToOutPort("Top", error, true); }), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { port.QVariantToInPort("Top", error, true); }), "An unexpected error occurred.");
    EXPECT_EQ(port.QVariantToInPort(QVariant(), error, true), nullptr);
    EXPECT_EQ(error, "No in-port has been specified.");
}

class StandInArgumentTest : public testing::Test {
protected:
    StandInArgumentTest()
    {
        own.addOut();
        own.addIn();
        target.mode = MO_DynamicPorts;
    }

    StandInSceneCommon scene;
    StandInNode own{&scene};
    StandInNode target{&scene};
    Obj wrapper{Node::getWrapped(&target)};
    QString error;
};

TEST_F(StandInArgumentTest, WithoutACommandManagerNoPortIsMade)
{
    EXPECT_EQ(OutPort(&own, 0).QVariantToInPort(asArgument(*wrapper.get()), error, true), nullptr);
    EXPECT_EQ(error, "An unexpected error occurred.");
    error.clear();
    EXPECT_EQ(InPort(&own, 1).QVariantToOutPort(asArgument(*wrapper.get()), error, true), nullptr);
    EXPECT_EQ(error, "An unexpected error occurred.");
}

TEST_F(StandInArgumentTest, ARefusedPortIsNamedAfterItsSide)
{
    RefusingManager manager;
    scene.commands = &manager;
    EXPECT_EQ(OutPort(&own, 0).QVariantToInPort(asArgument(*wrapper.get()), error, true), nullptr);
    EXPECT_EQ(error, "Failed to create a new port on the input node.");
    EXPECT_EQ(InPort(&own, 1).QVariantToOutPort(asArgument(*wrapper.get()), error, true), nullptr);
    EXPECT_EQ(error, "Failed to create a new port on the output node.");
    EXPECT_EQ(manager.refusedLabels, (QStringList{"Add in-port to the node.", "Add out-port to the node."}));
}

TEST_F(StandInArgumentTest, APortThatDoesNotAppearWhereItWasPutIsAFailure)
{
    SelectiveManager manager;
    scene.commands = &manager;
    EXPECT_EQ(OutPort(&own, 0).QVariantToInPort(asArgument(*wrapper.get()), error, true), nullptr);
    EXPECT_EQ(error, "Failed to create a new port on the input node.");
}

TEST_F(StandInArgumentTest, TypesAreComparedLetterForLetter)
{
    target.mode = MO_FixedPorts;
    target.addIn()->type = "image";
    EXPECT_EQ(OutPort(&own, 0).QVariantToInPort(asArgument(*wrapper.get()), error, true), nullptr);
    EXPECT_EQ(error, "Failed to identify specified port.");
    target.ins[0].reset();
    MO_Port* fitting = target.addIn();
    EXPECT_EQ(OutPort(&own, 0).QVariantToInPort(asArgument(*wrapper.get()), error, true), fitting);
}

} // namespace
