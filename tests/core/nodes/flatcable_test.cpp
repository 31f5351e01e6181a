#include "core/nodes/flatcable.h"

#include "core/nodes/inport.h"
#include "core/nodes/node.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

/// Card feeds, through the group G, the node Inside.
class FlatCableTest : public GraphTest {
protected:
    void SetUp() override
    {
        card = add("COLOR_CARD", "Card");
        group = addPassage("G");
        inside = node("Top/G/Inside");
        link(card, 0, group, 0);
    }

    FlatCable cable() const
    {
        const OutPort source(card, card->outPort(0)->id());
        const InPort destination(inside, inside->inPort(0)->id());
        return {&source, &destination};
    }

    MO_Node* card = nullptr;
    TUGroup* group = nullptr;
    MO_Node* inside = nullptr;
};

TEST_F(FlatCableTest, ItIsAReadOnlyViewOfTheRealConnection)
{
    FlatCable flat = cable();
    bool found = false;
    EXPECT_EQ(readAs<OutPort>(flat.getAttr("source", found))->getPort(), card->outPort(0));
    EXPECT_EQ(readAs<Node>(flat.getAttr("source_node", found))->getNode(), card);
    EXPECT_EQ(readAs<InPort>(flat.getAttr("destination", found))->getPort(), inside->inPort(0));
    EXPECT_EQ(readAs<Node>(flat.getAttr("destination_node", found))->getNode(), inside);
    EXPECT_EQ(flat.__str__(), "Cable(Top/Card, 0, Top/G/Inside, 0)");
    for (const char* name : {"source", "source_node", "destination", "destination_node"})
        EXPECT_EQ(failureOf([&] { flat.setAttr(name, "Card", found); }), "Property is read-only.");
}

TEST_F(FlatCableTest, AConnectionThatIsCutAnywhereSaysSo)
{
    const FlatCable flat = cable();
    InPort(group, group->inPort(0)->id()).unlink();
    EXPECT_EQ(failureOf([&] { flat.getSource(); }), portsApart);
    EXPECT_EQ(failureOf([&] { flat.getSourceNode(); }), portsApart);
    EXPECT_EQ(failureOf([&] { flat.getDestination(); }), portsApart);
    EXPECT_EQ(failureOf([&] { flat.getDestinationNode(); }), portsApart);
    EXPECT_EQ(failureOf([&] { flat.__str__(); }), portsApart);
    undo();
    EXPECT_EQ(failureOf([&] { flat.getSource(); }), "no exception");
    removeNode(card);
    EXPECT_EQ(failureOf([&] { flat.getSource(); }), objectGone);
    EXPECT_EQ(failureOf([&] { flat.__str__(); }), objectGone);
}

TEST_F(FlatCableTest, WithoutBothEndsItIsInvalid)
{
    const OutPort source(card, 0);
    const OutPort none(card, 99);
    const InPort destination(inside, 0);
    EXPECT_EQ(failureOf([&] { FlatCable(nullptr, nullptr).getSource(); }), objectGone);
    EXPECT_EQ(failureOf([&] { FlatCable(&source, nullptr).getSource(); }), objectGone);
    EXPECT_EQ(failureOf([&] { FlatCable(nullptr, &destination).__str__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { FlatCable(&none, &destination).getSource(); }), objectGone);
}

TEST_F(FlatCableTest, ItDestroysItsPortsOnce)
{
    const qint64 alive = BaseObject::liveObjects();
    {
        const FlatCable flat = cable();
        const Obj copy(flat.copy());
        const Obj clone = copy;
        EXPECT_EQ(BaseObject::liveObjects(), alive + 9);
        EXPECT_EQ(objectIn<FlatCable>(clone)->__str__(), flat.__str__());
    }
    EXPECT_EQ(BaseObject::liveObjects(), alive);
}

TEST(FlatCableOfAStandIn, APortOnNoNodeHasTheSentenceOfTheSourceAtBothEnds)
{
    StandInNode from;
    StandInNode to;
    StandInPort* out = from.addOut();
    StandInPort* in = to.addIn();
    in->realSource = out;
    const OutPort source(&from, 0);
    const InPort destination(&to, 0);
    const FlatCable flat(&source, &destination);
    out->lost = true;
    in->lost = true;
    EXPECT_EQ(failureOf([&] { flat.getSourceNode(); }), "Unable to find the source node.");
    EXPECT_EQ(failureOf([&] { flat.getDestinationNode(); }), "Unable to find the source node.");
}

} // namespace
