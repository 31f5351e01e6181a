#include "core/nodes/groupnode.h"

#include "core/nodes/nodelist.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standingroup.h"
#include "tests/core/support/standinnode.h"
#include "tests/support/numbers.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using OMC::GroupNode;
using OMC::Node;
using OMC::Obj;

class GroupNodeTest : public GraphTest {
protected:
    MO_Node* addAt(int x, int y)
    {
        MO_Node* node = add(QStringLiteral("BLUR"), QStringLiteral("Blur"), body);
        node->setX(x);
        node->setY(y);
        return node;
    }

    static MO_Node* nodeIn(const Obj& object)
    {
        const auto* wrapper = OMC::objectIn<Node>(object);
        return wrapper ? wrapper->getNode() : nullptr;
    }

    TUGroup* body = addGroup(QStringLiteral("Body"));
    GroupNode group{body};
};

TEST_F(GroupNodeTest, ItsPropertiesComeBehindThoseOfANode)
{
    bool extendNative = false;
    bool filter = false;
    const std::vector<std::string> names = group.getDir(extendNative, filter);
    const std::vector<std::string> own = {"subselections", "multi_port_in", "multi_port_out", "nodes", "backdrops"};
    ASSERT_GE(names.size(), own.size());
    EXPECT_EQ(std::vector<std::string>(names.end() - own.size(), names.end()), own);
}

TEST_F(GroupNodeTest, ItsTextHasItsPath)
{
    EXPECT_EQ(group.__str__(), "Group(Top/Body)");
    EXPECT_EQ(GroupNode(top()).__str__(), "Group(Top)");
}

TEST_F(GroupNodeTest, ItsNodesAreItsDirectSubNodes)
{
    addAt(0, 0);
    bool found = false;
    const QVariant value = group.getAttr("nodes", found);
    const auto* nodes = readAs<OMC::NodeList>(value);
    ASSERT_NE(nodes, nullptr);
    EXPECT_EQ(nodes->__str__(), "NodeList(Group, Top/Body)[1]");
}

TEST_F(GroupNodeTest, AMultiPortNodeThatIsThereIsGiven)
{
    TUGroup* passage = addPassage(QStringLiteral("Passage"));
    const GroupNode wrapper(passage);
    const QStringList before = labels();
    EXPECT_EQ(nodeIn(wrapper.getMultiPortIn()), passage->getOutMultiPort());
    EXPECT_EQ(nodeIn(wrapper.getMultiPortOut()), passage->getInMultiPort());
    EXPECT_EQ(labels(), before);
}

TEST_F(GroupNodeTest, AMissingMultiPortInIsMadeInOneUndoableStep)
{
    const QStringList before = labels();
    const Obj made = group.getMultiPortIn();
    MO_Node* node = nodeIn(made);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node, body->getOutMultiPort());
    EXPECT_EQ(node->typeName(), QStringLiteral("MULTIPORT_IN"));
    EXPECT_EQ(node->x(), 0);
    EXPECT_EQ(node->y(), 0);
    EXPECT_EQ(node->z(), 0);
    EXPECT_EQ(labels(), before + QStringList(QStringLiteral("Add ") + node->instanceName()));
    EXPECT_EQ(nodeIn(group.getMultiPortIn()), node);
    EXPECT_EQ(labels().size(), before.size() + 1);
    undo();
    EXPECT_EQ(body->getOutMultiPort(), nullptr);
    EXPECT_FALSE(OMC::objectIn<Node>(made)->getValid());
    EXPECT_EQ(labels(), before);
    redo();
    EXPECT_EQ(body->getOutMultiPort(), node);
    EXPECT_FALSE(OMC::objectIn<Node>(made)->getValid());
}

TEST_F(GroupNodeTest, AMissingMultiPortOutIsMadeInOneUndoableStep)
{
    const QStringList before = labels();
    const Obj made = group.getMultiPortOut();
    MO_Node* node = nodeIn(made);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node, body->getInMultiPort());
    EXPECT_EQ(node->typeName(), QStringLiteral("MULTIPORT_OUT"));
    EXPECT_EQ(labels(), before + QStringList(QStringLiteral("Add ") + node->instanceName()));
    EXPECT_EQ(nodeIn(group.getMultiPortOut()), node);
    EXPECT_EQ(labels().size(), before.size() + 1);
    undo();
    EXPECT_EQ(body->getInMultiPort(), nullptr);
    EXPECT_EQ(labels(), before);
    redo();
    EXPECT_EQ(body->getInMultiPort(), node);
}

TEST_F(GroupNodeTest, ANewMultiPortOutIsPlacedByTheSubNodes)
{
    struct Place {
        int x;
        int y;
    };
    const struct {
        const char* name;
        std::vector<Place> subNodes;
        Place expected;
    } rows[] = {
        {"an empty group", {}, {0, 0}},
        {"one node above zero", {{10, -100}}, {10, -60}},
        {"all nodes below zero", {{10, 500}, {20, 300}}, {15, 40}},
        {"the average is cut", {{1, 0}, {2, 0}}, {1, 40}},
        {"the average is cut towards zero", {{-1, 0}, {-2, 0}}, {-1, 40}},
        {"the topmost node counts", {{0, -5}, {0, -50}, {0, 70}}, {0, -10}},
        {"single precision", {{16777217, 0}}, {16777216, 40}},
        {"the last integers", {{highest, highest}, {highest, lowest}}, {highest, lowest + 40}},
        {"the first integers", {{lowest, lowest}}, {lowest, lowest + 40}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<MO_Node*> nodes;
        for (const Place& place : row.subNodes)
            nodes.push_back(addAt(place.x, place.y));
        MO_Node* made = nodeIn(group.getMultiPortOut());
        ASSERT_NE(made, nullptr);
        EXPECT_EQ(made->x(), row.expected.x);
        EXPECT_EQ(made->y(), row.expected.y);
        EXPECT_EQ(made->z(), 0);
        removeNode(made);
        for (MO_Node* node : nodes)
            removeNode(node);
    }
}

TEST_F(GroupNodeTest, WithoutItsGroupEveryUseFails)
{
    const GroupNode nothing(nullptr);
    removeNode(body);
    for (const GroupNode* dead : {static_cast<const GroupNode*>(&group), &nothing}) {
        const std::string gone = "Node is no longer valid. Node may have been moved or deleted.";
        EXPECT_EQ(dead->getGroup(), nullptr);
        EXPECT_EQ(failureOf([&] { dead->getNodes(); }), gone);
        EXPECT_EQ(failureOf([&] { dead->getMultiPortIn(); }), gone);
        EXPECT_EQ(failureOf([&] { dead->getMultiPortOut(); }), gone);
        EXPECT_EQ(failureOf([&] { (void)dead->__str__(); }), gone);
    }
}

TEST_F(GroupNodeTest, WithoutASceneOrAManagerNoMultiPortIsMade)
{
    StandInSceneCommon scene;
    for (SC_SceneCommon* common : {static_cast<SC_SceneCommon*>(nullptr), static_cast<SC_SceneCommon*>(&scene)}) {
        StandInGroup standIn(common);
        const GroupNode wrapper(&standIn);
        EXPECT_EQ(failureOf([&] { wrapper.getMultiPortIn(); }), "An unexpected error occurred.");
        EXPECT_EQ(failureOf([&] { wrapper.getMultiPortOut(); }), "An unexpected error occurred.");
    }
}

TEST_F(GroupNodeTest, ARefusedMultiPortIsEmpty)
{
    RefusingManager manager;
    StandInSceneCommon scene;
    scene.commands = &manager;
    StandInGroup standIn(&scene);
    const GroupNode wrapper(&standIn);
    EXPECT_EQ(wrapper.getMultiPortIn().get(), nullptr);
    EXPECT_EQ(wrapper.getMultiPortOut().get(), nullptr);
    EXPECT_EQ(manager.refusedLabels.size(), 2);
}

} // namespace
