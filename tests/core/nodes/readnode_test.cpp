#include "core/nodes/readnode.h"

#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class ReadNodeTest : public GraphTest {};

TEST_F(ReadNodeTest, NativeCodeCanWrapANodeByIt)
{
    MO_Node* node = add(QStringLiteral("READ"), QStringLiteral("Hand"));
    const OMC::ReadNode read(node);
    EXPECT_EQ(read.__str__(), "ReadNode(Top/Hand)");
    const std::unique_ptr<OMC::BaseObject> copy(read.copy());
    EXPECT_NE(dynamic_cast<OMC::ReadNode*>(copy.get()), nullptr);
    EXPECT_TRUE(read == OMC::Obj(OMC::Node::getWrapped(node)));
    close();
    EXPECT_EQ(failureOf([&] { (void)read.__str__(); }),
              "Node is no longer valid. Node may have been moved or deleted.");
}

} // namespace
