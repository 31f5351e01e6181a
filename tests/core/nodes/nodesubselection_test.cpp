#include "core/nodes/nodesubselection.h"

#include "core/nodes/nodesubselectionlist.h"
#include "core/nodes/nodesubselectionnamefactory.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"

#include <gtest/gtest.h>

namespace {

using OMC::NodeSubselection;
using OMC::NodeSubselectionList;
using OMC::NodeSubselectionNameFactory;

/// Knows "Hand" at 3 and "Far" at 100.
class NamedHandles : public NodeSubselectionNameFactory {
public:
    QString getSubselectionName(int index) const override
    {
        return index == 3 ? QStringLiteral("Hand") : NodeSubselectionNameFactory::getSubselectionName(index);
    }
    int getSubselectionIndex(const QString& name) const override
    {
        if (name == QLatin1String("Far"))
            return 100;
        return name == QLatin1String("Hand") ? 3 : -1;
    }
};

class NodeSubselectionTest : public GraphTest {
protected:
    ~NodeSubselectionTest() override { setFactory(nullptr); }

    static void setFactory(std::unique_ptr<NodeSubselectionNameFactory> factory)
    {
        NodeSubselectionNameFactory::registerNodeSubselectionNameFactory(QStringLiteral("PEG"), std::move(factory));
    }

    MO_Node* peg = add(QStringLiteral("PEG"), QStringLiteral("Peg"));
    NodeSubselectionList handles{peg};
};

TEST_F(NodeSubselectionTest, AFactoryNamesTheHandlesWithoutPadding)
{
    EXPECT_EQ(NodeSubselection(peg, 7).getName(), "Handle_007");
    setFactory(std::make_unique<NodeSubselectionNameFactory>());
    EXPECT_EQ(NodeSubselection(peg, 7).getName(), "Handle_7");
    setFactory(std::make_unique<NamedHandles>());
    EXPECT_EQ(NodeSubselection(peg, 3).getName(), "Hand");
}

TEST_F(NodeSubselectionTest, ANameThatWasGivenStays)
{
    const NodeSubselection handle(peg, 3);
    EXPECT_EQ(handle.getName(), "Handle_003");
    setFactory(std::make_unique<NamedHandles>());
    EXPECT_EQ(handle.getName(), "Handle_003");
}

TEST_F(NodeSubselectionTest, AFactoryFindsHandlesBeyondTheCount)
{
    setFactory(std::make_unique<NamedHandles>());
    EXPECT_EQ(OMC::objectIn<NodeSubselection>(handles.get(QStringLiteral("Hand")))->getIndex(), 3);
    EXPECT_EQ(OMC::objectIn<NodeSubselection>(handles.get(QStringLiteral("Far")))->getIndex(), 100);
    EXPECT_EQ(OMC::objectIn<NodeSubselection>(handles.get(QStringLiteral("no. 2")))->getIndex(), 2);
    EXPECT_EQ(failureOf([this] { handles.get(QStringLiteral("no. 9")); }),
              "Invalid subselection name for this node type.");
}

TEST_F(NodeSubselectionTest, ALoopEndsBehindTheLastHandle)
{
    const OMC::Obj loop = handles.__iter__();
    auto* steps = dynamic_cast<NodeSubselectionList*>(loop.get());
    ASSERT_NE(steps, nullptr);
    for (int index = 0; index < 7; ++index, ++*steps)
        EXPECT_EQ(OMC::objectIn<NodeSubselection>(steps->__iterItem__())->getIndex(), index);
    EXPECT_TRUE(steps->__atend__());
    EXPECT_EQ(failureOf([steps] { steps->__iterItem__(); }), "Iteration item is out of range.");
}

} // namespace
