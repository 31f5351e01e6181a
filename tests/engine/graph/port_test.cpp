#include "engine/graph/port.h"

#include "tests/engine/support/memoryproject.h"

namespace {

/// A drawing that goes into a group, through a group inside it, and out again to a composite and a display.
class PortTest : public GraphTest {
protected:
    void SetUp() override
    {
        outer = addGroup("Outer");
        add("MULTIPORT_IN", {}, outer);
        add("MULTIPORT_OUT", {}, outer);
        inner = addGroup("Inner", outer);
        add("MULTIPORT_IN", {}, inner);
        add("MULTIPORT_OUT", {}, inner);
        for (TUGroup* group : {outer, inner}) {
            run(new tu_node::AddInPortCmd(group, 0, MO_Port::createImagePort()));
            run(new tu_node::AddOutPortCmd(group, 0, MO_Port::createImagePort()));
        }
        drawing = add("READ", "Drawing");
        composite = node("Top/Composite");
        run(new tu_node::UnlinkInPortFromOutsideCmd(composite, 0));
    }

    void linkThrough()
    {
        ASSERT_TRUE(link(drawing, outer));
        ASSERT_TRUE(link(outer->getOutMultiPort(), inner));
        ASSERT_TRUE(link(inner->getOutMultiPort(), inner->getInMultiPort()));
        ASSERT_TRUE(link(inner, outer->getInMultiPort()));
        ASSERT_TRUE(link(outer, composite));
    }

    std::vector<MO_Port*> realDestinations(const MO_Port* port)
    {
        std::vector<MO_Port*> ports{nullptr};
        port->realDstPorts(ports);
        return ports;
    }

    TUGroup* outer = nullptr;
    TUGroup* inner = nullptr;
    MO_Node* drawing = nullptr;
    MO_Node* composite = nullptr;
};

} // namespace

TEST_F(PortTest, ARealSourceIsFoundThroughGroups)
{
    linkThrough();
    EXPECT_EQ(composite->inPort(0)->srcPort(), outer->outPort(0));
    EXPECT_EQ(composite->inPort(0)->realSrcPort(), drawing->outPort(0));
    EXPECT_EQ(composite->inPort(0)->realSrcNode(), drawing);
    EXPECT_EQ(inner->inPort(0)->realSrcPort(), drawing->outPort(0));
    EXPECT_EQ(inner->getInMultiPort()->inPort(0)->realSrcPort(), drawing->outPort(0));
    EXPECT_EQ(drawing->outPort(0)->realSrcPort(), nullptr) << "an out-port has no source";
}

TEST_F(PortTest, ARealSourceIsMissingWhereTheWayIsCut)
{
    linkThrough();
    run(new tu_node::UnlinkInPortFromOutsideCmd(inner->getInMultiPort(), 0));
    EXPECT_NE(composite->inPort(0)->srcPort(), nullptr);
    EXPECT_EQ(composite->inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(composite->inPort(0)->realSrcNode(), nullptr);
    undo();
    remove({outer->getInMultiPort()});
    EXPECT_EQ(composite->inPort(0)->realSrcPort(), nullptr);
    EXPECT_EQ(realDestinations(drawing->outPort(0)).size(), 0u);
}

TEST_F(PortTest, RealDestinationsAreFoundThroughGroupsInTheOrderOfLinking)
{
    linkThrough();
    MO_Node* blur = add("BLUR", "Blur", inner);
    MO_Node* cutter = add("CUTTER", "Cutter");
    ASSERT_TRUE(link(inner->getOutMultiPort(), blur));
    ASSERT_TRUE(link(drawing, cutter, 0, 1));
    EXPECT_EQ(realDestinations(drawing->outPort(0)),
              (std::vector<MO_Port*>{composite->inPort(0), blur->inPort(0), cutter->inPort(1)}));
    EXPECT_TRUE(realDestinations(composite->inPort(0)).empty());
}

TEST_F(PortTest, APortsIdStaysWhileItsPlaceChanges)
{
    for (unsigned int i = 1; i < 4; ++i)
        run(new tu_node::AddInPortCmd(composite, i, MO_Port::createImagePort()));
    MO_Port* third = composite->inPort(2);
    EXPECT_EQ(third->id(), 2u);
    EXPECT_EQ(composite->inPortId(third), 2);
    run(new tu_node::DeleteInPortCmd(composite, 0));
    EXPECT_EQ(third->id(), 2u);
    EXPECT_EQ(composite->inPortId(third), 1);
    EXPECT_EQ(composite->inPortFromId(2), third);
    EXPECT_EQ(composite->inPortFromId(0), nullptr);
    run(new tu_node::AddInPortCmd(composite, 0, MO_Port::createImagePort()));
    EXPECT_EQ(composite->inPort(0)->id(), 4u) << "no id is given twice";
    undo();
    run(new tu_node::AddInPortCmd(composite, 0, MO_Port::createImagePort()));
    EXPECT_EQ(composite->inPort(0)->id(), 5u);
    EXPECT_EQ(composite->outPortId(third), -1);
    EXPECT_EQ(drawing->inPortId(third), -1);
    EXPECT_EQ(drawing->inPortId(nullptr), -1);
    EXPECT_EQ(composite->outPortFromId(7), nullptr);
}

TEST_F(PortTest, ACloneIsANewPortOfTheSameKind)
{
    MO_Node* cutter = add("CUTTER", "Cutter");
    link(drawing, cutter);
    const auto matte = cutter->inPort(0)->clone();
    EXPECT_EQ(matte->typeName(), "IMAGE");
    EXPECT_TRUE(matte->isMattePort());
    EXPECT_EQ(matte->node(), nullptr);
    EXPECT_EQ(matte->srcPort(), nullptr);
    const auto peg = drawing->inPort(0)->clone();
    EXPECT_EQ(peg->typeName(), "PEG");
    EXPECT_FALSE(peg->isMattePort());
    EXPECT_EQ(MO_Port::createMatrixPort()->typeName(), "PEG");
    EXPECT_EQ(MO_Port::createImagePort()->typeName(), "IMAGE");
}
