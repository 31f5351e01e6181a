#include "core/nodes/nodemove.h"

#include "core/nodes/node_coordinates.h"
#include "core/nodes/nodelist.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/movablenodes.h"
#include "tests/core/support/standingroup.h"
#include "tests/core/support/standinnode.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using OMC::NodeList;
using OMC::Obj;

const std::string enters = "Unable to place the node in the group.";
const std::string noTarget = "Unable to find the target node.";

TEST_F(NodeMoveTest, ANodeMovesToAGroupAndItsWrapperFollows)
{
    const auto mover = wrapped("Top/Peg");
    const auto other = wrapped("Top/Peg");
    const QVariant position = mover->getPosition();
    const auto target = wrapped("Top/Body");
    expectMove([&] { mover->moveTo(borrowed(*target), 7, 8); }, moveLabel);
    EXPECT_NE(node(QStringLiteral("Top/Body/Peg")), nullptr);
    EXPECT_EQ(node(QStringLiteral("Top/Peg")), nullptr);
    EXPECT_TRUE(target->getValid());
    EXPECT_FALSE(other->getValid());
    EXPECT_EQ(failureOf([&] { other->getName(); }), nodeGone);
    EXPECT_EQ(failureOf([&] { readAs<OMC::Node_Coordinates>(position)->getX(); }), "Object is no longer valid.");
}

TEST_F(NodeMoveTest, TheMoverGoesOnWithTheNewNode)
{
    const auto mover = wrapped("Top/Peg");
    const MO_Node* before = mover->getNode();
    mover->moveTo(QStringLiteral("Top/Body"), 0, 0);
    EXPECT_TRUE(mover->getValid());
    EXPECT_NE(mover->getNode(), before);
    EXPECT_EQ(mover->getPath(), QStringLiteral("Top/Body/Peg"));
    EXPECT_EQ(mover->getType(), QStringLiteral("PEG"));
    mover->setName(QStringLiteral("Shoulder"));
    EXPECT_EQ(mover->getPath(), QStringLiteral("Top/Body/Shoulder"));
    mover->moveTo(QStringLiteral("Top/Body/Arm"), 0, 0);
    EXPECT_EQ(mover->getPath(), QStringLiteral("Top/Body/Arm/Shoulder"));
}

TEST_F(NodeMoveTest, UndoBringsTheOldNodeBackForNewWrappersOnly)
{
    const auto mover = wrapped("Top/Peg");
    const auto other = wrapped("Top/Peg");
    mover->moveTo(QStringLiteral("Top/Body"), 0, 0);
    undo();
    EXPECT_EQ(node(QStringLiteral("Top/Peg")), peg);
    EXPECT_FALSE(mover->getValid());
    EXPECT_FALSE(other->getValid());
    EXPECT_TRUE(wrapped("Top/Peg")->getValid());
    redo();
    EXPECT_FALSE(mover->getValid());
    EXPECT_FALSE(other->getValid());
    EXPECT_TRUE(wrapped("Top/Body/Peg")->getValid());
}

TEST_F(NodeMoveTest, ATargetThatIsNoGroupMeansBesideIt)
{
    const auto mover = wrapped("Top/Peg");
    expectMove([&] { mover->moveTo(borrowed(*wrapped("Top/Body/Leg")), 0, 0); }, moveLabel);
    EXPECT_EQ(names(body), QStringList({"Multi-Port-In", "Arm", "Leg", "Peg"}));
    const auto second = wrapped("Top/Body/Peg");
    second->moveTo(QStringLiteral("Top/Body/Arm/Hand"), 0, 0);
    EXPECT_EQ(second->getPath(), QStringLiteral("Top/Body/Arm/Peg"));
}

TEST_F(NodeMoveTest, ThePlaceIsLeftToTheEngine)
{
    const int positions[][2] = {{0, 0}, {-5, 12}, {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}};
    const auto mover = wrapped("Top/Peg");
    mover->setPosition(QVariantList({3, 4, 5}));
    for (const auto& [x, y] : positions) {
        mover->moveTo(QStringLiteral("Top/Body"), x, y);
        EXPECT_EQ(mover->getNode()->x(), 3);
        EXPECT_EQ(mover->getNode()->y(), 36);
        EXPECT_EQ(mover->getNode()->z(), 5);
    }
}

TEST_F(NodeMoveTest, AGroupMovesWithItsContent)
{
    const auto mover = wrapped("Top/Body");
    const auto inside = wrapped("Top/Body/Arm/Hand");
    expectMove([&] { mover->moveTo(QStringLiteral("Top/Bare"), 0, 0); }, moveLabel);
    EXPECT_NE(node(QStringLiteral("Top/Bare/Body/Arm/Hand")), nullptr);
    EXPECT_FALSE(inside->getValid());
}

TEST_F(NodeMoveTest, AGroupWithoutAMultiPortNodeGetsOneInTheSameStep)
{
    const auto mover = wrapped("Top/Peg");
    expectMove([&] { mover->moveTo(QStringLiteral("Top/Bare"), 0, 0); }, moveLabel);
    EXPECT_EQ(names(bare), QStringList({"Multi-Port-In", "Peg"}));
}

TEST_F(NodeMoveTest, ANameThatIsTakenGetsANumber)
{
    add(QStringLiteral("READ"), QStringLiteral("Peg"), body);
    const auto mover = wrapped("Top/Peg");
    mover->moveTo(QStringLiteral("Top/Body"), 0, 0);
    EXPECT_EQ(mover->getPath(), QStringLiteral("Top/Body/Peg_1"));
}

TEST_F(NodeMoveTest, AMoveIntoItsOwnGroupKeepsTheNameAndTheLinks)
{
    link(leg, 0, add(QStringLiteral("READ"), QStringLiteral("Foot"), body), 0);
    const auto mover = wrapped("Top/Body/Leg");
    expectMove([&] { mover->moveTo(QStringLiteral("Top/Body"), 0, 0); }, moveLabel);
    EXPECT_EQ(names(body), QStringList({"Multi-Port-In", "Arm", "Foot", "Leg"}));
    EXPECT_EQ(node(QStringLiteral("Top/Body/Foot"))->inPort(0)->srcPort(),
              node(QStringLiteral("Top/Body/Leg"))->outPort(0));
}

TEST_F(NodeMoveTest, AGroupThatWouldEnterItselfIsRefusedAndNothingChanges)
{
    const struct {
        const char* node;
        const char* target;
    } rows[] = {
        {"Top/Body", "Top/Body"},
        {"Top/Body", "Top/Body/Arm"},
        {"Top/Body", "Top/Body/Arm/Hand"},
        {"Top/Body", "Top/Body/Leg"},
        {"Top/Body/Arm", "Top/Body/Arm"},
        {"Top/Bare", "Top/Bare"},
        {"Top/Body/Multi-Port-In", "Top/Body"},
    };
    for (const auto& [path, target] : rows) {
        const auto mover = wrapped(path);
        const auto other = wrapped(path);
        expectFailure([&] { mover->moveTo(QString::fromLatin1(target), 0, 0); }, enters);
        EXPECT_TRUE(mover->getValid());
        EXPECT_TRUE(other->getValid());
        EXPECT_EQ(mover->getPath(), QString::fromLatin1(path));
    }
}

TEST_F(NodeMoveTest, AMissingTargetIsRefused)
{
    const auto mover = wrapped("Top/Peg");
    const auto dead = wrapped("Top/Body/Leg");
    removeNode(leg);
    for (const char* path : {"", "/", "Top/Nobody", "Body", "Top/Body/", "Top/Peg/x"})
        expectFailure([&] { mover->moveTo(QString::fromLatin1(path), 0, 0); }, noTarget);
    NodeList list(body);
    list.setOwnership(OMC::OwnedByNative);
    expectFailure([&] { mover->moveTo(Obj(), 0, 0); }, noTarget);
    expectFailure([&] { mover->moveTo(Obj(&list), 0, 0); }, noTarget);
    expectFailure([&] { mover->moveTo(borrowed(*dead), 0, 0); }, noTarget);
    StandInNode alone;
    const auto alonely = wrapped(&alone);
    expectFailure([&] { mover->moveTo(borrowed(*alonely), 0, 0); }, "Unable to find the target group.");
    expectFailure([&] { mover->moveNode(nullptr, 0, 0); }, "The target group is invalid.");
    EXPECT_EQ(mover->getNode(), peg);
}

TEST_F(NodeMoveTest, WhatHasNoGroupCantMove)
{
    const auto root = wrapped(top());
    expectFailure([&] { root->moveTo(QStringLiteral("Top/Body"), 0, 0); }, "The node source is invalid.");
    expectFailure([&] { root->moveNode(nullptr, 0, 0); }, "The node source is invalid.");
    expectFailure([&] { root->setPath(QStringLiteral("Top/Body/Top")); }, "The node source is invalid.");
    StandInNode alone;
    const auto alonely = wrapped(&alone);
    EXPECT_EQ(failureOf([&] { alonely->moveTo(QStringLiteral("Top"), 0, 0); }), "Object is no longer valid.");
}

TEST_F(NodeMoveTest, ADeadNodeSaysSo)
{
    const auto dead = wrapped("Top/Peg");
    removeNode(peg);
    expectFailure([&] { dead->moveTo(QStringLiteral("Top/Body"), 0, 0); }, nodeGone);
    expectFailure([&] { dead->moveTo(Obj(), 0, 0); }, nodeGone);
    expectFailure([&] { dead->moveNode(nullptr, 0, 0); }, nodeGone);
    expectFailure([&] { dead->setPath(QStringLiteral("x")); }, nodeGone);
}

TEST_F(NodeMoveTest, ADropThatTheEngineRefusesIsSilentAndTheNodeStays)
{
    const auto mover = wrapped("Top/Body/Multi-Port-In");
    add(QStringLiteral("MULTIPORT_IN"), QStringLiteral("Entry"), bare);
    manager().execute(new tu_node::SetXYCmd(peg, 1, 1), QStringLiteral("Set"));
    undo();
    expectFailure([&] { mover->moveTo(QStringLiteral("Top/Bare"), 0, 0); }, "no exception");
    EXPECT_TRUE(mover->getValid());
    EXPECT_EQ(mover->getPath(), QStringLiteral("Top/Body/Multi-Port-In"));
    expectFailure([&] { mover->setPath(QStringLiteral("Top/Bare/Multi-Port-In")); }, "no exception");
    EXPECT_EQ(mover->getPath(), QStringLiteral("Top/Body/Multi-Port-In"));

    // A group of no engine, with a multi-port node.
    class Group final : public StandInGroup {
    public:
        using StandInGroup::StandInGroup;
        TUMultiPortIn* getOutMultiPort() const override { return entry; }
        TUMultiPortIn* entry = nullptr;
    } group(sceneCommon());
    group.entry = body->getOutMultiPort();
    const auto second = wrapped("Top/Peg");
    expectFailure([&] { second->moveNode(&group, 0, 0); }, "no exception");
    EXPECT_EQ(second->getPath(), QStringLiteral("Top/Peg"));
}

TEST_F(NodeMoveTest, AGroupThatTakesNoMultiPortNodeIsRefused)
{
    StandInGroup group(sceneCommon());
    const auto mover = wrapped("Top/Peg");
    expectFailure([&] { mover->moveNode(&group, 0, 0); }, "Unable to find target's out multi-port.");
    EXPECT_EQ(mover->getNode(), peg);
}

TEST_F(NodeMoveTest, WithoutASceneItsPartsOrASessionNothingMoves)
{
    class Inside final : public StandInNode {
    public:
        using StandInNode::StandInNode;
        TUGroup* parentGroup() const override { return parent; }
        TUGroup* parent = nullptr;
    };
    const std::string unexpected = "An unexpected error occurred.";
    StandInSceneCommon scene;
    SelectiveManager commands;
    Inside lost;
    Inside managed(&scene);
    lost.parent = managed.parent = body;
    EXPECT_EQ(failureOf([&] { wrapped(&lost)->moveNode(body, 0, 0); }), unexpected);
    EXPECT_EQ(failureOf([&] { wrapped(&managed)->moveNode(body, 0, 0); }), unexpected) << "no manager";
    EXPECT_EQ(failureOf([&] { wrapped(&lost)->setPath(QStringLiteral("Top/x")); }), unexpected);
    scene.commands = &commands;
    EXPECT_EQ(failureOf([&] { wrapped(&managed)->moveNode(body, 0, 0); }), unexpected) << "no scene";
    EXPECT_TRUE(commands.labels.isEmpty());
    EXPECT_EQ(commands.openScopes, 0);

    SC_SessionContext* const given = PLUG_Services::getSessionContext();
    PLUG_Services::setSessionContext(nullptr);
    const auto mover = wrapped("Top/Peg");
    const std::string failure = failureOf([&] { mover->moveTo(QStringLiteral("Top/Body"), 0, 0); });
    PLUG_Services::setSessionContext(given);
    EXPECT_EQ(failure, unexpected);
    EXPECT_EQ(mover->getNode(), peg);
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(NodeMoveTest, WritingThePathMovesAndNames)
{
    const struct {
        const char* path;
        const char* written;
        const char* becomes;
    } rows[] = {
        {"Top/Peg", "Top/Body/Peg", "Top/Body/Peg"},          {"Top/Peg", "Top/Body/Shoulder", "Top/Body/Shoulder"},
        {"Top/Body/Leg", "Top/Body/Thigh", "Top/Body/Thigh"}, {"Top/Body/Leg", "Top/Body/Leg", "Top/Body/Leg"},
        {"Top/Body/Arm", "Top/Bare/Wing", "Top/Bare/Wing"},   {"Top/Body/Leg", "Top/Leg", "Top/Leg"},
        {"Top/Peg", "Top/Body/peg", "Top/Body/peg"},          {"Top/Peg", "Top/Body/", "Top/Body/_"},
        {"Top/Peg", "Top/Body/ Hip ", "Top/Body/Hip"},        {"Top/Peg", "Top/Body/Leg/Hip", "Top/Body/Hip"},
    };
    for (const auto& [path, written, becomes] : rows) {
        const auto mover = wrapped(path);
        const auto other = wrapped(path);
        bool found = false;
        mover->setAttr("path", QString::fromLatin1(written), found);
        EXPECT_TRUE(found);
        EXPECT_EQ(mover->getPath(), QString::fromLatin1(becomes));
        EXPECT_FALSE(other->getValid());
        EXPECT_EQ(labels(), QStringList(pathLabel));
        undo();
        EXPECT_EQ(node(QString::fromLatin1(becomes)) == nullptr, QLatin1String(path) != QLatin1String(becomes));
        expectMove([&] { wrapped(path)->setPath(QString::fromLatin1(written)); }, pathLabel);
        undo();
        manager().clearHistory();
    }
}

TEST_F(NodeMoveTest, ANewNameInTheSamePlaceKeepsTheNodesLinks)
{
    MO_Node* foot = add(QStringLiteral("READ"), QStringLiteral("Foot"), body);
    link(leg, 0, foot, 0);
    const auto mover = wrapped("Top/Body/Leg");
    mover->setPath(QStringLiteral("Top/Body/Thigh"));
    EXPECT_EQ(foot->inPort(0)->srcPort(), mover->getNode()->outPort(0));
}

TEST_F(NodeMoveTest, APathThatCantBeTakenIsRefusedAndTheMoverStaysValid)
{
    add(QStringLiteral("READ"), QStringLiteral("Taken"), body);
    const struct {
        const char* path;
        const char* written;
        std::string failure;
    } rows[] = {
        {"Top/Peg", "", "Invalid target path."},
        {"Top/Peg", "Shoulder", "Invalid target path."},
        {"Top/Peg", "/Shoulder", noTarget},
        {"Top/Peg", "Top/Nobody/Shoulder", noTarget},
        {"Top/Peg", "Body/Shoulder", noTarget},
        {"Top/Peg", "Top/Body/Taken", "Failed to rename the node."},
        {"Top/Peg", "Top/Body/Arm", "Failed to rename the node."},
        {"Top/Body/Leg", "Top/Body/Taken", "Failed to rename the node."},
        {"Top/Peg", "Top/Bare", "Failed to rename the node."},
        {"Top/Body", "Top/Body/Body", enters},
        {"Top/Body", "Top/Body/Arm/Body", enters},
    };
    for (const auto& [path, written, failure] : rows) {
        const auto mover = wrapped(path);
        expectFailure([&] { mover->setPath(QString::fromLatin1(written)); }, failure);
        EXPECT_TRUE(mover->getValid()) << written;
        EXPECT_EQ(mover->getPath(), QString::fromLatin1(path));
    }
}

TEST_F(NodeMoveTest, AMoveInsideABracketIsPartOfIt)
{
    const std::string before = saved().toStdString();
    {
        const CO_CommandAccumScope bracket(&manager(), QStringLiteral("Rig"), nullptr, CO_CommandAccumScope::kDefault);
        const auto mover = wrapped("Top/Peg");
        mover->moveTo(QStringLiteral("Top/Body"), 0, 0);
        mover->setPath(QStringLiteral("Top/Bare/Hip"));
        EXPECT_EQ(failureOf([&] { mover->setPath(QStringLiteral("Top/Body/Leg")); }), "Failed to rename the node.");
        EXPECT_EQ(mover->getPath(), QStringLiteral("Top/Bare/Hip"));
    }
    EXPECT_EQ(labels(), QStringList(QStringLiteral("Rig")));
    undo();
    EXPECT_EQ(saved().toStdString(), before);
}

} // namespace
