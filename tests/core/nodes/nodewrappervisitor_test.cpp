#include "core/nodes/node.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standinnode.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using OMC::Node;

/// Through Node::getWrapped: the factory itself is the library's own.
class NodeWrapperVisitorTest : public GraphTest {};

TEST_F(NodeWrapperVisitorTest, TheKindOfTheNodeDecidesTheClassOfItsWrapper)
{
    const struct {
        const char* type;
        const char* className;
        std::string text;
    } rows[] = {
        {"GROUP", "OMC::GroupNode", "Group(Top/A)"},
        {"PEG", "OMC::PegNode", "PegNode(Top/A)"},
        {"CAMERA", "OMC::CameraNode", "CameraNode(Top/A)"},
        {"DISPLAY", "OMC::DisplayNode", "DisplayNode(Top/A)"},
        {"READ", "OMC::Node", "Node(Top/A)"},
        {"MULTIPORT_IN", "OMC::Node", "Node(Top/A)"},
        {"MULTIPORT_OUT", "OMC::Node", "Node(Top/A)"},
        {"COMPOSITE", "OMC::Node", "Node(Top/A)"},
        {"BLUR", "OMC::Node", "Node(Top/A)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.type);
        MO_Node* node = add(QLatin1String(row.type), QStringLiteral("A"));
        const std::unique_ptr<Node> wrapper(Node::getWrapped(node));
        ASSERT_NE(wrapper, nullptr);
        EXPECT_STREQ(wrapper->metaObject()->className(), row.className);
        EXPECT_EQ(wrapper->__str__(), row.text);
        EXPECT_EQ(wrapper->getNode(), node);
        EXPECT_EQ(wrapper->getOwnership(), OMC::Unowned);
        removeNode(node);
    }
}

/// A node of a host that visitors don't know.
class UnvisitedNode : public StandInNode {
public:
    void accept(MO_ModuleVisitor&) override {}
};

TEST_F(NodeWrapperVisitorTest, ANodeThatNoVisitReachesHasNoWrapper)
{
    UnvisitedNode node;
    EXPECT_EQ(Node::getWrapped(&node), nullptr);
}

} // namespace
