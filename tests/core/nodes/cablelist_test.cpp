#include "core/nodes/cablelist.h"

#include "core/nodes/cable.h"
#include "core/nodes/flatcable.h"
#include "core/nodes/inport.h"
#include "core/nodes/node.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

constexpr char cableOutOfRange[] = "Cable index is out of range.";

class CableListTest : public GraphTest {
protected:
    void SetUp() override
    {
        card = add("COLOR_CARD", "Card");
        group = addPassage("G");
        blur = add("BLUR", "Blur");
        inside = node("Top/G/Inside");
        link(card, 0, group, 0);
        link(card, 0, blur, 0);
    }

    OutPort port() const { return {card, card->outPort(0)->id()}; }
    CableList cables() const
    {
        const OutPort source = port();
        return CableList(&source);
    }
    FlatCableList flatCables() const
    {
        const OutPort source = port();
        return FlatCableList(&source);
    }
    static Obj wrapped(MO_Node* node) { return Obj(Node::getWrapped(node)); }
    static MO_Node* endOf(const Obj& handle)
    {
        if (const auto* cable = objectIn<Cable>(handle))
            return cable->getInPort()->node();
        const auto* flat = objectIn<FlatCable>(handle);
        return flat ? objectIn<Node>(flat->getDestinationNode())->getNode() : nullptr;
    }

    MO_Node* card = nullptr;
    TUGroup* group = nullptr;
    MO_Node* blur = nullptr;
    MO_Node* inside = nullptr;
};

TEST_F(CableListTest, DirectCablesComeInTheOrderOfLinking)
{
    const CableList list = cables();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_TRUE(objectIn<Cable>(list.get(0)));
    EXPECT_EQ(endOf(list.get(0)), group);
    EXPECT_EQ(endOf(list.get(1)), blur);
    EXPECT_EQ(objectIn<Cable>(list.get(1))->getOutPort(), card->outPort(0));
    const std::vector<Obj> all = list.list();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(endOf(all[0]), group);
    EXPECT_EQ(endOf(all[1]), blur);
}

TEST_F(CableListTest, FlatCablesLeadBeyondGroups)
{
    const FlatCableList list = flatCables();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_TRUE(objectIn<FlatCable>(list.get(0)));
    EXPECT_EQ(endOf(list.get(0)), inside);
    EXPECT_EQ(endOf(list.get(1)), blur);
    const std::vector<Obj> all = list.list();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(endOf(all[0]), inside);
}

TEST_F(CableListTest, APlaceBeyondTheEndsIsOutOfRange)
{
    for (const int index : {2, -1, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(failureOf([&] { cables().get(index); }), cableOutOfRange);
        EXPECT_EQ(failureOf([&] { flatCables().get(index); }), cableOutOfRange);
    }
    const OutPort lonely(blur, 0);
    EXPECT_EQ(failureOf([&] { CableList(&lonely).get(0); }), cableOutOfRange);
    EXPECT_EQ(failureOf([&] { FlatCableList(&lonely).get(0); }), cableOutOfRange);
}

TEST_F(CableListTest, ATextIsAPlaceOrNothing)
{
    EXPECT_EQ(endOf(cables()("1")), blur);
    EXPECT_EQ(endOf(flatCables()("1")), blur);
    EXPECT_EQ(cables()("Blur").get(), nullptr);
    EXPECT_EQ(flatCables()("").get(), nullptr);
    EXPECT_EQ(failureOf([&] { cables()("2"); }), cableOutOfRange);
    EXPECT_EQ(failureOf([&] { flatCables()("-1"); }), cableOutOfRange);
}

TEST_F(CableListTest, CablesCantBeSet)
{
    CableList direct = cables();
    FlatCableList flat = flatCables();
    EXPECT_EQ(failureOf([&] { direct.set(0, Obj()); }), "Cable lists cannot be set.");
    EXPECT_EQ(failureOf([&] { flat.set(0, Obj()); }), "Flat Cable lists cannot be set.");
}

TEST_F(CableListTest, TheTextHasThePathAndThePlaceOfThePort)
{
    EXPECT_EQ(cables().__str__(), "CableList(Top/Card, 0)");
    EXPECT_EQ(flatCables().__str__(), "FlatCableList(Top/Card, 0)");
}

TEST_F(CableListTest, AListContainsTheNodesAndPortsThatItsCablesLeadTo)
{
    const CableList direct = cables();
    const FlatCableList flat = flatCables();
    EXPECT_TRUE(direct.contains(wrapped(group)));
    EXPECT_FALSE(direct.contains(wrapped(inside)));
    EXPECT_FALSE(flat.contains(wrapped(group)));
    EXPECT_TRUE(flat.contains(wrapped(inside)));
    EXPECT_TRUE(flat.contains(wrapped(blur)));
    EXPECT_FALSE(direct.contains(wrapped(card)));

    const Obj groupIn(new InPort(group, group->inPort(0)->id()));
    const Obj insideIn(new InPort(inside, 0));
    EXPECT_TRUE(direct.contains(groupIn));
    EXPECT_FALSE(direct.contains(insideIn));
    EXPECT_FALSE(flat.contains(groupIn));
    EXPECT_TRUE(flat.contains(insideIn));
    EXPECT_FALSE(direct.contains(Obj(new OutPort(card, 0))));
}

TEST_F(CableListTest, WhatIsGoneIsNotContainedAndAnotherObjectIsRefused)
{
    const Obj node = wrapped(blur);
    const Obj in(new InPort(blur, 0));
    const Obj none(new InPort(group, 99));
    removeNode(blur);
    for (const Obj* object : {&node, &in, &none}) {
        EXPECT_FALSE(cables().contains(*object));
        EXPECT_FALSE(flatCables().contains(*object));
    }
    constexpr char text[] = "Cable lists can only check for existing nodes or ports.";
    for (const Obj& object : {Obj(), Obj(new CableList(cables()))}) {
        EXPECT_EQ(failureOf([&] { cables().contains(object); }), text);
        EXPECT_EQ(failureOf([&] { flatCables().contains(object); }), text);
    }
}

TEST_F(CableListTest, ALoopVisitsEachCableOnce)
{
    const Obj direct = cables().__iter__();
    auto* loop = objectIn<CableList>(direct);
    std::vector<MO_Node*> visited;
    for (; !loop->__atend__(); ++*loop)
        visited.push_back(endOf(loop->__iterItem__()));
    EXPECT_EQ(visited, (std::vector<MO_Node*>{group, blur}));

    const Obj flat = flatCables().__iter__();
    auto* flatLoop = objectIn<FlatCableList>(flat);
    visited.clear();
    for (; !flatLoop->__atend__(); ++*flatLoop)
        visited.push_back(endOf(flatLoop->__iterItem__()));
    EXPECT_EQ(visited, (std::vector<MO_Node*>{inside, blur}));
}

TEST_F(CableListTest, TheCursorStaysWithinTheListAndACopyKeepsIt)
{
    CableList direct = cables();
    FlatCableList flat = flatCables();
    --direct;
    --flat;
    EXPECT_EQ(endOf(direct.__iterItem__()), group);
    EXPECT_EQ(endOf(flat.__iterItem__()), inside);
    for (int step = 0; step < 5; ++step) {
        ++direct;
        ++flat;
    }
    EXPECT_TRUE(direct.__atend__());
    EXPECT_TRUE(flat.__atend__());
    EXPECT_EQ(failureOf([&] { direct.__iterItem__(); }), cableOutOfRange);
    --direct;
    --flat;
    const std::unique_ptr<BaseObject> copy(direct.copy());
    const std::unique_ptr<BaseObject> flatCopy(flat.copy());
    EXPECT_EQ(endOf(dynamic_cast<CableList*>(copy.get())->__iterItem__()), blur);
    EXPECT_EQ(endOf(dynamic_cast<FlatCableList*>(flatCopy.get())->__iterItem__()), blur);
    EXPECT_EQ(endOf(objectIn<CableList>(direct.__iter__())->__iterItem__()), group);
    EXPECT_EQ(endOf(objectIn<FlatCableList>(flat.__iter__())->__iterItem__()), inside);
}

TEST_F(CableListTest, ALoopOverDirectCablesSeesTheListShrink)
{
    const Obj iterator = cables().__iter__();
    auto* loop = objectIn<CableList>(iterator);
    int visited = 0;
    for (; !loop->__atend__(); ++*loop) {
        objectIn<Cable>(loop->__iterItem__())->unlink();
        ++visited;
    }
    EXPECT_EQ(visited, 1);
    EXPECT_EQ(card->outPort(0)->nDstPorts(), 1u);
}

TEST_F(CableListTest, ALoopOverFlatCablesThatCutsThemVisitsAllOfThem)
{
    const Obj iterator = flatCables().__iter__();
    auto* loop = objectIn<FlatCableList>(iterator);
    std::vector<MO_Node*> visited;
    for (; !loop->__atend__(); ++*loop) {
        const Obj cable = loop->__iterItem__();
        visited.push_back(endOf(cable));
        const Obj destination = objectIn<FlatCable>(cable)->getDestination();
        objectIn<InPort>(destination)->unlink();
    }
    EXPECT_EQ(visited, (std::vector<MO_Node*>{inside, blur}));
    EXPECT_EQ(flatCables().size(), 0u);
    EXPECT_EQ(loop->size(), 2u);
    EXPECT_EQ(loop->list().size(), 2u);
}

TEST_F(CableListTest, ACopyOfALoopSeesTheSameCables)
{
    const Obj iterator = flatCables().__iter__();
    const Obj copy = iterator;
    InPort(blur, 0).unlink();
    EXPECT_EQ(flatCables().size(), 1u);
    EXPECT_EQ(objectIn<FlatCableList>(copy)->size(), 2u);
}

TEST_F(CableListTest, WhatGoesDuringALoopIsAFailureAtItsPlaceOnly)
{
    const Obj iterator = flatCables().__iter__();
    auto* loop = objectIn<FlatCableList>(iterator);
    removeNode(group);
    EXPECT_EQ(failureOf([&] { loop->__iterItem__(); }), "An unexpected error has occurred.");
    EXPECT_EQ(failureOf([&] { loop->list(); }), "An unexpected error has occurred.");
    EXPECT_TRUE(loop->contains(wrapped(blur)));
    ++*loop;
    EXPECT_EQ(endOf(loop->__iterItem__()), blur);
    ++*loop;
    EXPECT_TRUE(loop->__atend__());
}

TEST_F(CableListTest, AListOfADeadPortSaysSo)
{
    CableList direct = cables();
    FlatCableList flat = flatCables();
    const Obj iterator = flat.__iter__();
    auto* loop = objectIn<FlatCableList>(iterator);
    removeNode(card);
    EXPECT_EQ(failureOf([&] { direct.size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { direct.get(0); }), objectGone);
    EXPECT_EQ(failureOf([&] { direct.list(); }), objectGone);
    EXPECT_EQ(failureOf([&] { direct.contains(wrapped(blur)); }), objectGone);
    EXPECT_EQ(failureOf([&] { direct.__str__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { direct.__atend__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { ++direct; }), objectGone);
    EXPECT_EQ(failureOf([&] { flat.size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { flat.get(0); }), objectGone);
    EXPECT_EQ(failureOf([&] { flat.list(); }), objectGone);
    EXPECT_EQ(failureOf([&] { flat.contains(wrapped(blur)); }), objectGone);
    EXPECT_EQ(failureOf([&] { flat.__str__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { flat.__iter__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { --flat; }), objectGone);
    EXPECT_EQ(failureOf([&] { loop->__atend__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { loop->__iterItem__(); }), objectGone);
}

TEST_F(CableListTest, AListWithoutAPortIsInvalid)
{
    EXPECT_EQ(failureOf([&] { CableList(nullptr).size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { FlatCableList(nullptr).size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { FlatCableList(nullptr).__iter__(); }), objectGone);
    const OutPort none(card, 99);
    EXPECT_EQ(failureOf([&] { CableList(&none).size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { FlatCableList(&none).size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { FlatCableList(&none).__iter__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { CableList(&none).__str__(); }), "Unable to find the port.");
}

TEST_F(CableListTest, ListsDestroyTheirPortsOnce)
{
    const qint64 alive = BaseObject::liveObjects();
    {
        const Obj direct(new CableList(cables()));
        const Obj directCopy = direct;
        const Obj loop = flatCables().__iter__();
        const Obj loopCopy = loop;
        objectIn<FlatCableList>(loopCopy)->list();
    }
    EXPECT_EQ(BaseObject::liveObjects(), alive);
}

TEST(CableListOfAStandIn, ARealDestinationOnNoNodeIsAFailure)
{
    StandInNode from;
    StandInNode to;
    StandInPort* out = from.addOut();
    StandInPort* in = to.addIn();
    out->realDestinations = {in};
    const OutPort port(&from, 0);
    const FlatCableList list(&port);
    EXPECT_TRUE(objectIn<FlatCable>(list.get(0)));
    in->lost = true;
    EXPECT_EQ(failureOf([&] { list.get(0); }), "An unexpected error has occurred.");
}

} // namespace
