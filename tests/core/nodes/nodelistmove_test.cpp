#include "core/nodes/nodelist.h"

#include "tests/core/support/movablenodes.h"
#include "tests/core/support/standingroup.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using OMC::Node;
using OMC::NodeList;
using OMC::Obj;

class NodeListMoveTest : public NodeMoveTest {
protected:
    NodeList all{scene(), false};
    NodeList inTop{scene(), true};
    NodeList inBody{body};
    NodeList inBare{bare};
};

TEST_F(NodeListMoveTest, OneNodeComesBackAsANode)
{
    QVariant result;
    const auto given = wrapped(peg);
    expectMove([&] { result = inBody.move(asArgument(*given), 3, 4); }, moveLabel);
    EXPECT_FALSE(given->getValid());
    result = inBare.move(QStringLiteral("Top/Body/Leg"), 0, 0);
    EXPECT_EQ(result.typeId(), QMetaType::fromType<Obj>().id());
    ASSERT_NE(readAs<Node>(result), nullptr);
    EXPECT_EQ(readAs<Node>(result)->__str__(), "PegNode(Top/Bare/Leg)");
    EXPECT_EQ(labels(), QStringList({moveLabel, moveLabel}));
}

TEST_F(NodeListMoveTest, SeveralNodesMoveAsOneStepAndComeBackInOrder)
{
    link(peg, 0, add(QStringLiteral("READ"), QStringLiteral("Foot")), 0);
    const QStringList paths = {QStringLiteral("Top/Foot"), QStringLiteral("Top/Peg"), QStringLiteral("Top/Foot")};
    QVariant result;
    expectMove([&] { result = inBody.move(QStringList(paths), 0, 0); }, moveLabel);
    undo();
    result = inBody.move(paths, 0, 0);
    ASSERT_EQ(result.typeId(), int(QMetaType::QVariantList));
    const QVariantList moved = result.toList();
    ASSERT_EQ(moved.size(), 2);
    EXPECT_EQ(readAs<Node>(moved[0])->getPath(), QStringLiteral("Top/Body/Foot"));
    EXPECT_EQ(readAs<Node>(moved[1])->getPath(), QStringLiteral("Top/Body/Peg"));
    EXPECT_EQ(readAs<Node>(moved[0])->getNode()->inPort(0)->srcPort(), readAs<Node>(moved[1])->getNode()->outPort(0));
}

TEST_F(NodeListMoveTest, WhatLiesInAMovedGroupMovesWithIt)
{
    add(QStringLiteral("MULTIPORT_IN"), QStringLiteral("In"), bare);
    QVariant result;
    expectMove(
        [&] {
            result =
                inBare.move(QStringList({QStringLiteral("Top/Body/Arm/Hand"), QStringLiteral("Top/Body/Arm")}), 0, 0);
        },
        moveLabel);
    EXPECT_EQ(result.toList().size(), 1);
    EXPECT_EQ(names(bare), QStringList({"In", "Arm"}));
    EXPECT_NE(node(QStringLiteral("Top/Bare/Arm/Hand")), nullptr);
}

TEST_F(NodeListMoveTest, OnlyAGroupsListTakesNodes)
{
    NodeList filled;
    filled.addNode(leg);
    const std::string refused = "Unable to move nodes into this list.";
    expectFailure([&] { all.move(QStringLiteral("Top/Peg"), 0, 0); }, refused);
    expectFailure([&] { all.move(QVariant(), 0, 0); }, refused);
    expectFailure([&] { filled.move(QStringLiteral("Leg"), 0, 0); }, refused);
    expectFailure([&] { NodeList().move(QStringLiteral("Leg"), 0, 0); }, "Object is no longer valid.");
    expectFailure([&] { inBody.move(QVariant(), 0, 0); }, "No valid nodes specified.");
    expectFailure([&] { inBody.move(QVariantList(), 0, 0); }, "No valid nodes specified.");
    expectFailure([&] { inBody.move(QStringLiteral("Top/Nobody"), 0, 0); }, "No valid nodes specified.");
    expectFailure([&] { inBody.move(77, 0, 0); }, "Index is out of range.");
    StandInGroup lost;
    EXPECT_EQ(failureOf([&] { NodeList(&lost).move(QVariant(), 0, 0); }), "Object is no longer valid.");
    EXPECT_EQ(inTop.move(QStringLiteral("Top/Body/Leg"), 0, 0).typeId(), QMetaType::fromType<Obj>().id());
}

TEST_F(NodeListMoveTest, SeveralNodesNeedAMultiPortNodeAndOneGetsIt)
{
    const QVariant two = QStringList({QStringLiteral("Top/Peg"), QStringLiteral("Top/Body/Leg")});
    expectFailure([&] { inBare.move(two, 0, 0); }, "Group must contain a multi-port-in.");
    inBare.move(QStringLiteral("Top/Peg"), 0, 0);
    EXPECT_EQ(names(bare), QStringList({"Multi-Port-In", "Peg"}));
    inBare.move(QStringList({QStringLiteral("Top/Composite"), QStringLiteral("Top/Body/Leg")}), 0, 0);
    EXPECT_EQ(names(bare), QStringList({"Multi-Port-In", "Peg", "Composite", "Leg"}));
}

TEST_F(NodeListMoveTest, WhatWouldEnterItselfOrCantMoveIsRefused)
{
    const std::string entersItself = "Invalid move - source contains the target group or multiport.";
    const std::string failed = "Failed to move the nodes to the group.";
    const auto move = [&](NodeList& list, const QStringList& paths) { list.move(paths, 0, 0); };
    const QString pegPath = QStringLiteral("Top/Peg");
    const QString entry = QStringLiteral("Top/Body/Multi-Port-In");
    add(QStringLiteral("MULTIPORT_IN"), QStringLiteral("In"), arm);
    NodeList inArm(arm);
    expectFailure([&] { move(inBody, {pegPath, QStringLiteral("Top/Body")}); }, entersItself);
    expectFailure([&] { move(inArm, {pegPath, QStringLiteral("Top/Body")}); }, entersItself);
    expectFailure([&] { move(inBody, {pegPath, entry}); }, entersItself);
    expectFailure([&] { move(inArm, {pegPath, QStringLiteral("Top")}); }, failed);
    expectFailure([&] { move(inArm, {pegPath, entry}); }, failed);
    expectFailure([&] { move(inBody, {QStringLiteral("Top/Body")}); }, "Unable to place the node in the group.");
    expectFailure([&] { move(inArm, {QStringLiteral("Top")}); }, "The node source is invalid.");

    PLUG_Services::setSessionContext(nullptr);
    const std::string failure = failureOf([&] { move(inBody, {pegPath, QStringLiteral("Top/Bare")}); });
    PLUG_Services::setSessionContext(&session());
    EXPECT_EQ(failure, "An unexpected error has occurred.");
    EXPECT_TRUE(labels().isEmpty());
}

} // namespace
