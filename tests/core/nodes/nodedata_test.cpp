#include "core/geometry/point2d.h"
#include "core/nodes/nodedatafactory.h"
#include "core/nodes/nodedatahandler.h"
#include "tests/core/support/failure.h"

#include <gtest/gtest.h>

using OMC::NodeDataFactory;
using OMC::NodeDataHandler;

namespace {

/// Makes points with a coordinate of its own, for one type of nodes.
class PointFactory final : public NodeDataFactory {
public:
    PointFactory(const QString& type, double x, int* alive = nullptr) : m_type(type), m_x(x), m_alive(alive)
    {
        if (m_alive)
            ++*m_alive;
    }
    ~PointFactory() override
    {
        if (m_alive)
            --*m_alive;
    }
    OMC::Obj create() const override { return OMC::Obj(new OMC::Point2d(m_x, 0)); }
    bool supports(const QString& nodeType) const override { return nodeType == m_type; }

private:
    QString m_type;
    double m_x;
    int* m_alive;
};

class NodeDataTest : public testing::Test {
protected:
    void SetUp() override { NodeDataFactory::registeredNodeData().clear(); }
    void TearDown() override { NodeDataFactory::registeredNodeData().clear(); }

    static double xOf(const OMC::Obj& object) { return dynamic_cast<const OMC::Point2d&>(*object.get()).x; }
};

} // namespace

TEST_F(NodeDataTest, TheFirstFactoryOfANameStays)
{
    int alive = 0;
    EXPECT_TRUE(NodeDataFactory::registerNodeData("view", new PointFactory("READ", 1, &alive)));
    EXPECT_FALSE(NodeDataFactory::registerNodeData("view", new PointFactory("READ", 2, &alive)));
    EXPECT_EQ(alive, 1) << "the second one is destroyed";
    EXPECT_EQ(xOf(NodeDataHandler("READ").get("view")), 1);
}

TEST_F(NodeDataTest, AHandlerShowsWhatItsTypeHas)
{
    for (const auto& [key, type] : {std::pair{"c", "READ"}, {"a", "READ"}, {"b", "PEG"}})
        NodeDataFactory::registerNodeData(key, new PointFactory(type, 0));
    const NodeDataHandler read("READ");
    EXPECT_EQ(read.size(), 2u);
    EXPECT_EQ(read.list(), QList<QString>({"a", "c"})) << "in the registry's order";
    EXPECT_TRUE(read.contains("c"));
    EXPECT_FALSE(read.contains("b"));
    EXPECT_FALSE(read.contains("d"));
    const NodeDataHandler other("CAMERA");
    EXPECT_EQ(other.size(), 0u);
    EXPECT_TRUE(other.list().isEmpty());
    EXPECT_EQ(other.__str__(), "Brindle Views: (a,b,c)") << "the text knows no type";
}

TEST_F(NodeDataTest, TheTextOfAnEmptyRegistry)
{
    EXPECT_EQ(NodeDataHandler("READ").__str__(), "Brindle Views: (No views loaded)");
}

TEST_F(NodeDataTest, WhatIsNotThereIsSaid)
{
    NodeDataFactory::registerNodeData("view", new PointFactory("READ", 0));
    NodeDataHandler peg("PEG");
    EXPECT_EQ(failureOf([&] { peg.get("nothing"); }), "Unable to find view: nothing");
    EXPECT_EQ(failureOf([&] { peg.get("view"); }), "Node data view is not supported on this node type (PEG).");
    for (const char* key : {"view", "nothing"})
        EXPECT_EQ(failureOf([&] { peg.set(key, OMC::Obj()); }), "Unable to set data handlers.");
}

TEST_F(NodeDataTest, ALoopGoesThroughTheKeysAsTheyWereWhenItBegan)
{
    NodeDataFactory::registerNodeData("a", new PointFactory("READ", 0));
    NodeDataFactory::registerNodeData("b", new PointFactory("READ", 0));
    const NodeDataHandler handler("READ");
    EXPECT_EQ(failureOf([&] { handler.__iterItem__(); }), "Index is out of range.") << "it goes through nothing itself";
    const OMC::Obj handle = handler.__iter__();
    auto& loop = dynamic_cast<NodeDataHandler&>(*handle.get());
    NodeDataFactory::registerNodeData("c", new PointFactory("READ", 0));
    QStringList keys;
    for (; !loop.__atend__(); ++loop)
        keys << loop.__iterItem__();
    EXPECT_EQ(keys, QStringList({"a", "b"}));
    EXPECT_EQ(failureOf([&] { loop.__iterItem__(); }), "Index is out of range.");
    const std::unique_ptr<NodeDataHandler> copy(loop.copy());
    EXPECT_EQ(copy->__iterItem__(), "a") << "a copy stands at the first key";
}
