#include "core/nodes/portlist.h"

#include "core/nodes/inport.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/outport.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

using namespace OMC;

namespace {

constexpr char portOutOfRange[] = "Port index is out of range.";

class PortListTest : public GraphTest {
protected:
    void SetUp() override { cutter = add("CUTTER", "Cutter"); }

    MO_Node* cutter = nullptr;
};

TEST_F(PortListTest, AListHasThePortsOfItsSide)
{
    const InPortList ins(cutter);
    const PortList outs(cutter, false);

    ASSERT_EQ(ins.size(), 2u);
    EXPECT_EQ(outs.size(), 1u);
    const Obj in = ins.get(1);
    ASSERT_TRUE(objectIn<InPort>(in));
    EXPECT_EQ(objectIn<InPort>(in)->getPort(), cutter->inPort(1));
    const Obj out = outs.get(0);
    ASSERT_TRUE(objectIn<OutPort>(out));
    EXPECT_EQ(objectIn<OutPort>(out)->getPort(), cutter->outPort(0));
    EXPECT_EQ(ins.__str__(), "InPorts(Top/Cutter)[2]");
    EXPECT_EQ(outs.__str__(), "OutPorts(Top/Cutter)[1]");
}

TEST_F(PortListTest, APlaceBeyondTheEndsIsOutOfRange)
{
    const InPortList ports(cutter);
    for (const int index : {2, -1, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(failureOf([&] { ports.get(index); }), portOutOfRange);
    }
}

TEST_F(PortListTest, ATextIsAPlaceOrNothing)
{
    const InPortList ports(cutter);
    EXPECT_EQ(objectIn<InPort>(ports("1"))->getPort(), cutter->inPort(1));
    EXPECT_EQ(ports("one").get(), nullptr);
    EXPECT_EQ(ports("").get(), nullptr);
    EXPECT_EQ(ports("0x1").get(), nullptr);
    EXPECT_EQ(failureOf([&] { ports("2"); }), portOutOfRange);
    EXPECT_EQ(failureOf([&] { ports("-1"); }), portOutOfRange);
}

TEST_F(PortListTest, PortsCantBeSet)
{
    InPortList ports(cutter);
    EXPECT_EQ(failureOf([&] { ports.set(0, Obj()); }), "Port lists cannot be set.");
    EXPECT_EQ(failureOf([&] { ports.get(QString("0")); }), "Unable to retrieve item in container.");
}

TEST_F(PortListTest, OnlyTheListsOfPortsThatComeAndGoAreDynamic)
{
    InPortList fixed(cutter);
    MultiInPortList dynamic(node("Top/Composite"));
    bool found = false;
    EXPECT_EQ(fixed.getAttr("dynamic", found), QVariant(false));
    EXPECT_EQ(PortList(cutter, false).getDynamic(), false);
    EXPECT_EQ(dynamic.getAttr("dynamic", found), QVariant(true));
    EXPECT_EQ(MultiPortList(cutter, false).getDynamic(), true);
}

TEST_F(PortListTest, AListGivesAllPorts)
{
    const std::vector<Obj> ports = InPortList(cutter).list();
    ASSERT_EQ(ports.size(), 2u);
    EXPECT_EQ(objectIn<InPort>(ports[0])->getPort(), cutter->inPort(0));
    EXPECT_EQ(objectIn<InPort>(ports[1])->getPort(), cutter->inPort(1));
}

TEST(PortListOfAStandIn, APlaceWithoutAPortIsEmptyInTheListAndOutOfRangeAlone)
{
    StandInNode node;
    node.addIn();
    node.addIn();
    node.ins[0].reset();
    const InPortList ports(&node);

    const std::vector<Obj> all = ports.list();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].get(), nullptr);
    EXPECT_TRUE(objectIn<InPort>(all[1]));
    EXPECT_EQ(failureOf([&] { ports.get(0); }), portOutOfRange);
    EXPECT_EQ(ports.getMattePort().get(), nullptr);
}

TEST_F(PortListTest, ALoopVisitsEachPortOnce)
{
    const InPortList ports(cutter);
    const Obj iterator = ports.__iter__();
    auto* loop = objectIn<InPortList>(iterator);
    ASSERT_TRUE(loop);
    std::vector<MO_Port*> visited;
    for (; !loop->__atend__(); ++*loop)
        visited.push_back(objectIn<InPort>(loop->__iterItem__())->getPort());
    EXPECT_EQ(visited, (std::vector<MO_Port*>{cutter->inPort(0), cutter->inPort(1)}));
}

TEST_F(PortListTest, TheCursorStaysWithinTheList)
{
    InPortList ports(cutter);
    --ports;
    EXPECT_EQ(objectIn<InPort>(ports.__iterItem__())->getIndex(), 0u);
    for (int step = 0; step < 5; ++step)
        ++ports;
    EXPECT_TRUE(ports.__atend__());
    EXPECT_EQ(failureOf([&] { ports.__iterItem__(); }), portOutOfRange);
    --ports;
    EXPECT_FALSE(ports.__atend__());
    EXPECT_EQ(objectIn<InPort>(ports.__iterItem__())->getIndex(), 1u);
}

TEST_F(PortListTest, ACopyKeepsTheCursorAndTheClassAndALoopStartsAnew)
{
    const struct {
        const char* name;
        std::unique_ptr<PortList> list;
        const QMetaObject* meta;
    } lists[] = {
        {"PortList", std::make_unique<PortList>(cutter, true), &PortList::staticMetaObject},
        {"InPortList", std::make_unique<InPortList>(cutter), &InPortList::staticMetaObject},
        {"MultiPortList", std::make_unique<MultiPortList>(cutter, true), &MultiPortList::staticMetaObject},
        {"MultiInPortList", std::make_unique<MultiInPortList>(cutter), &MultiInPortList::staticMetaObject},
    };
    for (const auto& [name, list, meta] : lists) {
        SCOPED_TRACE(name);
        ++*list;
        const std::unique_ptr<BaseObject> copy(list->copy());
        EXPECT_EQ(copy->metaObject(), meta);
        EXPECT_EQ(objectIn<InPort>(dynamic_cast<PortList*>(copy.get())->__iterItem__())->getIndex(), 1u);
        const Obj loop = list->__iter__();
        EXPECT_EQ(loop.get()->metaObject(), meta);
        EXPECT_EQ(objectIn<InPort>(objectIn<PortList>(loop)->__iterItem__())->getIndex(), 0u);
    }
}

TEST_F(PortListTest, ALoopOverAListThatShrinksEndsEarly)
{
    MO_Node* composite = node("Top/Composite");
    MultiInPortList ports(composite);
    ports.create(1, QString());
    ports.create(2, QString());
    const Obj iterator = ports.__iter__();
    auto* loop = objectIn<MultiInPortList>(iterator);
    int visited = 0;
    for (; !loop->__atend__(); ++*loop) {
        ++visited;
        ports.remove(composite->nInPorts() - 1);
    }
    EXPECT_EQ(visited, 2);
    EXPECT_EQ(composite->nInPorts(), 1u);
}

TEST_F(PortListTest, TheMattePortIsTheLastOne)
{
    InPortList ports(cutter);
    bool found = false;
    const QVariant matte = ports.getAttr("matte_port", found);
    ASSERT_TRUE(readAs<InPort>(matte));
    EXPECT_EQ(readAs<InPort>(matte)->getPort(), cutter->inPort(0));
    EXPECT_EQ(InPortList(add("BLUR", "B")).getMattePort().get(), nullptr);

    StandInNode two;
    two.addIn()->matte = true;
    two.addIn()->matte = true;
    two.addIn();
    EXPECT_EQ(objectIn<InPort>(InPortList(&two).getMattePort())->getPort(), two.inPort(1));
    EXPECT_EQ(objectIn<InPort>(MultiInPortList(&two).getMattePort())->getPort(), two.inPort(1));
}

TEST_F(PortListTest, AListOfADeadNodeSaysSo)
{
    InPortList ports(cutter);
    removeNode(cutter);
    EXPECT_EQ(failureOf([&] { ports.size(); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.get(0); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.list(); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports("0"); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.getMattePort(); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.__str__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.__atend__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.__iterItem__(); }), objectGone);
    EXPECT_EQ(failureOf([&] { ++ports; }), objectGone);
    EXPECT_EQ(failureOf([&] { --ports; }), objectGone);
    EXPECT_EQ(failureOf([&] { ports.set(0, Obj()); }), "Port lists cannot be set.");
    EXPECT_EQ(ports("text").get(), nullptr);
    EXPECT_EQ(failureOf([&] { InPortList(nullptr).size(); }), objectGone);
}

} // namespace
