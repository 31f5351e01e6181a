#include "core/geometry/point2d.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/node.h"
#include "core/nodes/nodelist.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/graph.h"
#include "tests/core/support/standingroup.h"
#include "tests/core/support/standinnode.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using OMC::Node;
using OMC::NodeList;
using OMC::Obj;

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// Top: Display, Composite, Body (Arm (Hand), Leg), Peg.
class NodeListEditTest : public GraphTest {
protected:
    /// The path of what a list creates, or the failure.
    static std::string created(NodeList& list, const char* type, const char* name)
    {
        return created([&] { return list.create(text(type), text(name)); });
    }
    static std::string created(NodeList& list, const char* type, const QVariant& group, const char* name)
    {
        return created([&] { return list.create(text(type), group, text(name)); });
    }

    std::string told(const NodeList& list, const QVariant& value) const
    {
        std::vector<MO_Node*> nodes;
        const std::string failure = failureOf([&] { list.nodesFromQVariant(value, nodes); });
        if (failure != "no exception")
            return failure;
        std::set<MO_Node*> merged;
        list.nodesFromQVariant(value, merged);
        EXPECT_EQ(merged, std::set<MO_Node*>(nodes.begin(), nodes.end()));
        QStringList names;
        for (const MO_Node* node : nodes)
            names.append(node->instanceName());
        return names.join(QLatin1Char(' ')).toStdString();
    }

    TUGroup* body = addGroup(text("Body"));
    TUGroup* arm = addGroup(text("Arm"), body);
    MO_Node* hand = add(text("READ"), text("Hand"), arm);
    MO_Node* leg = add(text("PEG"), text("Leg"), body);
    MO_Node* peg = add(text("PEG"), text("Peg"));

    NodeList all{scene(), false};
    NodeList inTop{scene(), true};
    NodeList inBody{body};
    NodeList filled = [this] {
        NodeList list;
        list.addNode(leg);
        return list;
    }();

private:
    template <typename Call>
    static std::string created(Call call)
    {
        try {
            const Obj object = call();
            const auto* node = OMC::objectIn<Node>(object);
            return node ? node->getPath().toStdString() : "nothing";
        } catch (const OMC::Exception& exception) {
            return exception.what();
        }
    }
};

TEST_F(NodeListEditTest, ANodeIsMadeInOneUndoableStep)
{
    const QStringList before = labels();
    const Obj made = all.create(text("BLUR"), text("Soft"));
    const auto* wrapper = OMC::objectIn<Node>(made);
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(wrapper->__str__(), "Node(Top/Soft)");
    EXPECT_EQ(wrapper->getType(), text("BLUR"));
    const MO_Node* node = wrapper->getNode();
    EXPECT_EQ(node->x(), 0);
    EXPECT_EQ(node->y(), 32);
    EXPECT_EQ(node->z(), 0);
    EXPECT_EQ(labels(), before + QStringList(text("Add Soft")));
    undo();
    EXPECT_EQ(this->node(text("Top/Soft")), nullptr);
    EXPECT_FALSE(wrapper->getValid());
    EXPECT_EQ(labels(), before);
    redo();
    EXPECT_NE(this->node(text("Top/Soft")), nullptr);
    EXPECT_FALSE(wrapper->getValid());
}

TEST_F(NodeListEditTest, TheListAndTheNameDecideTheGroup)
{
    const struct {
        NodeList& list;
        const char* type;
        const char* name;
        std::string path;
    } rows[] = {
        {all, "PEG", "A", "Top/A"},
        {inTop, "PEG", "B", "Top/B"},
        {inBody, "PEG", "C", "Top/Body/C"},
        {all, "PEG", "Top/Body/D", "Top/Body/D"},
        {all, "GROUP", "Top/Body/Arm/Fingers", "Top/Body/Arm/Fingers"},
        {inBody, "PEG", "Arm/E", "Top/Body/Arm/E"},
        {inBody, "PEG", "Top/Body/Arm/F", "Top/Body/Arm/F"},
        {inBody, "PEG", "Top/G", "Top/G"},
        {inBody, "PEG", "", "Top/Body/Peg"},
        {all, "PEG", "Top/Body/", "Top/Body/Peg_1"},
        {all, "PEG", "A", "Top/A_1"},
        {all, "GROUP", "H", "Top/H"},
        {all, "PEG", " I\n", "Top/I"},
    };
    for (const auto& row : rows) {
        const QStringList before = labels();
        EXPECT_EQ(created(row.list, row.type, row.name), row.path);
        const QString given = text(row.name).section(QLatin1Char('/'), -1);
        EXPECT_EQ(labels(), before + QStringList(text("Add ") + given)) << row.path;
        EXPECT_EQ(node(QString::fromStdString(row.path))->typeName(), text(row.type));
    }
}

TEST_F(NodeListEditTest, AGroupIsGivenInManyForms)
{
    const std::unique_ptr<Node> wrapper(Node::getWrapped(body));
    NodeList groups;
    groups.addNode(body);
    const struct {
        const char* name;
        QVariant group;
        std::string parent;
    } rows[] = {
        {"a node", asArgument(*wrapper), "Top/Body/"},
        {"a node in a handle", OMC::toVariant(Obj(Node::getWrapped(body))), "Top/Body/"},
        {"a path", text("Top/Body/Arm"), "Top/Body/Arm/"},
        {"the root group", text("Top"), "Top/"},
        {"an index", 2, "Top/Body/"},
        {"a list", QVariantList{text("Top/Body")}, "Top/Body/"},
        {"a list of nodes", asArgument(groups), "Top/Body/"},
    };
    int number = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string name = "N" + std::to_string(number++);
        EXPECT_EQ(created(all, "PEG", row.group, name.c_str()), row.parent + name);
        EXPECT_EQ(labels().last().toStdString(), "Add " + name);
    }
    EXPECT_EQ(created(filled, "PEG", asArgument(*wrapper), "InFilled"), "Top/Body/InFilled");
    // A slash in the name is no path here.
    EXPECT_EQ(created(all, "PEG", asArgument(*wrapper), "a/b"), "Top/Body/a_b");
}

TEST_F(NodeListEditTest, WhatCannotBeMadeChangesNothing)
{
    const std::string none = "Unable to find specified group.";
    const std::string noGroup = "Unable to find the specified group.";
    const QStringList before = labels();
    const QByteArray project = saved();
    const struct {
        const char* name;
        NodeList& list;
        QVariant group;
        std::string failure;
    } rows[] = {
        {"no such path", all, text("Top/Nothing"), none},
        {"an empty path", all, QString(), none},
        {"nothing", all, QVariant(), none},
        {"an empty list", all, QVariantList(), none},
        {"another object", all, QVariant::fromValue(OMC::Point2d()), none},
        {"an empty handle", all, OMC::toVariant(Obj()), none},
        {"a node that is no group", all, text("Top/Peg"), noGroup},
        {"no such path in a group", inBody, text("Nothing"), noGroup},
        {"nothing in a group", inBody, QVariant(), noGroup},
        {"nothing in a filled list", filled, QVariant(), noGroup},
        {"an index out of range", all, 100, "Index is out of range."},
        {"an index below zero", all, -1, "Index is out of range."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(created(row.list, "PEG", row.group, "A"), row.failure);
    }
    EXPECT_EQ(created(filled, "PEG", "A"), "Unable to add nodes to this list.");
    EXPECT_EQ(created(all, "PEG", "Top/Nothing/A"), none);
    EXPECT_EQ(created(all, "PEG", "/A"), none);
    EXPECT_EQ(created(all, "PEG", "Top/Peg/A"), noGroup);
    EXPECT_EQ(created(inBody, "PEG", "Nothing/A"), noGroup);
    EXPECT_EQ(created(all, "NOTHING", "A"), "nothing");
    EXPECT_EQ(created(all, "", "A"), "nothing");
    EXPECT_EQ(created(all, "peg", "A"), "nothing");
    EXPECT_EQ(labels(), before);
    EXPECT_EQ(saved(), project);
}

TEST_F(NodeListEditTest, ANewDisplayGetsANameThatNoDisplayHas)
{
    EXPECT_EQ(created(all, "DISPLAY", "Top/Body/Display"), "Top/Body/Display_1");
    EXPECT_EQ(created(all, "DISPLAY", "Screen"), "Top/Screen");
}

TEST_F(NodeListEditTest, AGroupWithoutASceneOrAManagerTakesNothing)
{
    StandInGroup group;
    const std::unique_ptr<Node> wrapper(Node::getWrapped(&group));
    NodeList list(&group);
    EXPECT_EQ(created(list, "PEG", "A"), "Invalid group specified.");
    EXPECT_EQ(created(all, "PEG", asArgument(*wrapper), "A"), "Invalid group specified.");
    StandInSceneCommon scene;
    group.scene = &scene;
    EXPECT_EQ(created(list, "PEG", "A"), "An unexpected error has occurred.");
}

TEST_F(NodeListEditTest, ARefusedNodeIsEmpty)
{
    RefusingManager manager;
    StandInSceneCommon scene;
    scene.commands = &manager;
    StandInGroup group(&scene);
    NodeList list(&group);
    EXPECT_EQ(created(list, "PEG", "A"), "nothing");
    EXPECT_EQ(created(list, "GROUP", ""), "nothing");
    EXPECT_EQ(manager.refusedLabels, QStringList({text("Add A"), text("Add ")}));
}

TEST_F(NodeListEditTest, AValueTellsNodesInManyForms)
{
    const std::unique_ptr<Node> wrapper(Node::getWrapped(leg));
    const OMC::GroupNode dead(nullptr);
    NodeList unfilled;
    const struct {
        const char* name;
        const NodeList& list;
        QVariant value;
        std::string nodes;
    } rows[] = {
        {"a node", all, asArgument(*wrapper), "Leg"},
        {"a node of another list", inTop, asArgument(*wrapper), "Leg"},
        {"a node in a handle", all, OMC::toVariant(Obj(Node::getWrapped(hand))), "Hand"},
        {"a node that is gone", all, asArgument(dead), ""},
        {"a list of nodes", all, asArgument(inBody), "Arm Leg"},
        {"a list that is invalid", all, asArgument(unfilled), "Object is no longer valid."},
        {"another object", all, QVariant::fromValue(OMC::Point2d()), ""},
        {"a path", all, text("Top/Body/Leg"), "Leg"},
        {"a name in a group", inBody, text("Leg"), "Leg"},
        {"a path to nothing", all, text("Top/Nothing"), ""},
        {"paths", all, QStringList{text("Top/Peg"), text("Top/Nothing"), text("Top/Body/Leg")}, "Peg Leg"},
        {"an index", inBody, 1, "Leg"},
        {"an index that is rounded", inBody, 0.7, "Leg"},
        {"a bool is an index", inBody, true, "Leg"},
        {"a mixed list", all, QVariantList{text("Top/Peg"), asArgument(*wrapper), 0, QVariant()}, "Peg Leg Display"},
        {"lists in lists", all,
         QVariantList{QVariantList{text("Top/Peg"), QVariantList{text("Top/Body/Leg")}}, text("Top/Body/Arm/Hand")},
         "Peg Leg Hand"},
        {"a node twice", all, QVariantList{text("Top/Peg"), text("Top/Peg")}, "Peg Peg"},
        {"nothing", all, QVariant(), ""},
        {"an empty list", all, QVariantList(), ""},
        {"a map", all, QVariantMap{{text("name"), text("Top/Peg")}}, ""},
        {"an index at the end", inBody, 2, "Index is out of range."},
        {"an index below zero", inBody, -1, "Index is out of range."},
        {"a number beyond 32 bits", inBody, QVariant(qlonglong(1) << 32), "Index is out of range."},
        {"a huge number", inBody, 1e300, "Index is out of range."},
        {"no number", inBody, std::numeric_limits<double>::quiet_NaN(), "Index is out of range."},
        {"an infinite number", inBody, std::numeric_limits<double>::infinity(), "Index is out of range."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(told(row.list, row.value), row.nodes);
    }
}

TEST_F(NodeListEditTest, RemovingNodesIsOneUndoableStep)
{
    const QByteArray project = saved();
    const QStringList before = labels();
    const std::unique_ptr<Node> wrapper(Node::getWrapped(hand));
    all.remove(QVariantList{text("Top/Body"), text("Top/Peg")});
    EXPECT_EQ(all.size(), 2u);
    EXPECT_FALSE(wrapper->getValid());
    EXPECT_EQ(labels(), before + QStringList(text("Delete Nodes")));
    const QByteArray removed = saved();
    undo();
    EXPECT_EQ(saved(), project);
    EXPECT_FALSE(wrapper->getValid());
    redo();
    EXPECT_EQ(saved(), removed);
}

TEST_F(NodeListEditTest, EachKindOfListRemovesWhatItIsTold)
{
    inTop.remove(text("Peg"));
    EXPECT_EQ(node(text("Top/Peg")), nullptr);
    inBody.remove(0);
    EXPECT_EQ(node(text("Top/Body/Arm")), nullptr);
    filled.remove(asArgument(filled));
    EXPECT_EQ(node(text("Top/Body/Leg")), nullptr);
}

TEST_F(NodeListEditTest, TheLastFlagBridgesTheGap)
{
    MO_Node* card = add(text("COLOR_CARD"), text("Card"));
    MO_Node* blur = add(text("BLUR"), text("Soft"));
    MO_Node* write = add(text("WRITE"), text("Write"));
    link(card, 0, blur, 0);
    link(blur, 0, write, 0);
    const std::unique_ptr<Node> wrapper(Node::getWrapped(blur));
    all.remove(asArgument(*wrapper));
    EXPECT_EQ(write->inPort(0)->srcPort(), nullptr);
    undo();
    ASSERT_EQ(write->inPort(0)->srcPort(), blur->outPort(0));
    all.remove(text("Top/Soft"), false, true);
    EXPECT_EQ(write->inPort(0)->srcPort(), card->outPort(0));
}

TEST_F(NodeListEditTest, WhatCannotBeRemovedStays)
{
    const QByteArray project = saved();
    const QStringList before = labels();
    StandInNode foreign;
    const std::unique_ptr<Node> wrapper(Node::getWrapped(&foreign));
    NodeList foreigners;
    foreigners.addNode(&foreign);
    StandInSceneCommon noColumns;
    StandInNode sceneless(&noColumns);
    NodeList strangers;
    strangers.addNode(&sceneless);
    const struct {
        const char* name;
        NodeList& list;
        QVariant nodes;
        std::string failure;
    } rows[] = {
        {"nothing", all, QVariant(), "No valid nodes specified."},
        {"an empty list", all, QVariantList(), "No valid nodes specified."},
        {"a path to nothing", all, text("Top/Nothing"), "No valid nodes specified."},
        {"another object", all, QVariant::fromValue(OMC::Point2d()), "No valid nodes specified."},
        {"the root group", all, text("Top"), "Failed to remove nodes."},
        {"a node of another host", all, asArgument(*wrapper), "Failed to remove nodes."},
        {"an index out of range", all, 100, "Index is out of range."},
        {"one index of several out of range", all, QVariantList{0, 100}, "Index is out of range."},
        {"a node without a scene", foreigners, 0, "Invalid node specified."},
        {"a node of a scene without nodes", strangers, 0, "Invalid node specified."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(failureOf([&] { row.list.remove(row.nodes); }), row.failure);
    }
    EXPECT_EQ(labels(), before);
    EXPECT_EQ(saved(), project);
}

} // namespace
