#include "core/nodes/multiportnode.h"

#include "tests/core/support/graph.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using OMC::MultiPortInNode;
using OMC::MultiPortNode;
using OMC::MultiPortOutNode;

class MultiPortNodeTest : public GraphTest {};

TEST_F(MultiPortNodeTest, ItsOperationsDoNothing)
{
    TUGroup* group = addPassage(QStringLiteral("Body"));
    const QStringList before = labels();
    MultiPortInNode in(group->getOutMultiPort());
    MultiPortOutNode out(group->getInMultiPort());
    MultiPortNode dead(nullptr);
    for (MultiPortNode* node : {static_cast<MultiPortNode*>(&in), static_cast<MultiPortNode*>(&out), &dead}) {
        EXPECT_EQ(node->addPort(0u, true), nullptr);
        EXPECT_EQ(node->addPort(static_cast<const OMC::Port*>(nullptr), true), nullptr);
        EXPECT_FALSE(node->removePort(0u));
        EXPECT_FALSE(node->removePort(static_cast<const OMC::Port*>(nullptr)));
        EXPECT_EQ(node->__str__(), "");
    }
    EXPECT_EQ(group->getOutMultiPort()->nOutPorts(), 1u);
    EXPECT_EQ(group->getInMultiPort()->nInPorts(), 1u);
    EXPECT_EQ(labels(), before);
}

TEST_F(MultiPortNodeTest, ACopyIsOfTheSameClass)
{
    const std::unique_ptr<OMC::BaseObject> plain(MultiPortNode(top()).copy());
    const std::unique_ptr<OMC::BaseObject> in(MultiPortInNode(top()).copy());
    const std::unique_ptr<OMC::BaseObject> out(MultiPortOutNode(top()).copy());
    EXPECT_STREQ(plain->metaObject()->className(), "OMC::MultiPortNode");
    EXPECT_STREQ(in->metaObject()->className(), "OMC::MultiPortInNode");
    EXPECT_STREQ(out->metaObject()->className(), "OMC::MultiPortOutNode");
    EXPECT_EQ(dynamic_cast<OMC::Node&>(*out).getNode(), top());
}

} // namespace
