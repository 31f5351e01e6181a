#include "tests/engine/support/columnproject.h"

namespace {

class ColumnCommandsTest : public ColumnTest {
protected:
    MO_Node* arm = add("PEG", "Arm");
    MO_Node* leg = add("PEG", "Leg");
    AT_Attr& armAngle = *attribute(arm, "angle");
    AT_Attr& legAngle = *attribute(leg, "angle");
    AT_Attr& armX = *attribute(arm, "position.x");
    brindle::engine::BezierColumn* column = addColumn("bend");
    brindle::engine::BezierColumn* other = addColumn("twist");
};

TEST_F(ColumnCommandsTest, ALinkLeadsBothWays)
{
    const QString before = state();
    ASSERT_TRUE(drive(armAngle, column));
    EXPECT_EQ(armAngle.socket()->linkedTimedValue(), column);
    QString name;
    EXPECT_TRUE(armAngle.socket()->columnName(name, 0));
    EXPECT_EQ(name, "bend");
    EXPECT_EQ(column->getNumLinks(), 1u);
    EXPECT_EQ(column->linkedAttr(0), &armAngle);
    EXPECT_EQ(column->linkedAttr(1), nullptr);
    EXPECT_EQ(column->linkedNodes(), std::vector<MO_Node*>{arm});
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(ColumnCommandsTest, NodesOfSeveralLinksComeOnceInTheOrderOfLinking)
{
    drive(legAngle, column);
    drive(armAngle, column);
    drive(*attribute(leg, "skew"), column);
    EXPECT_EQ(column->getNumLinks(), 3u);
    EXPECT_EQ(column->linkedAttr(1), &armAngle);
    EXPECT_EQ(column->linkedNodes(), (std::vector<MO_Node*>{leg, arm}));
}

TEST_F(ColumnCommandsTest, ALinkTakesThePlaceOfTheOneBefore)
{
    drive(armAngle, column);
    drive(legAngle, column);
    const QString before = state();
    ASSERT_TRUE(drive(armAngle, other));
    EXPECT_EQ(column->getNumLinks(), 1u);
    EXPECT_EQ(other->linkedAttr(0), &armAngle);
    EXPECT_TRUE(undoesTo(before)) << "the first link comes back ahead of the second";
}

TEST_F(ColumnCommandsTest, ACutLinkComesBackToItsPlace)
{
    drive(armAngle, column);
    drive(legAngle, column);
    drive(armX, column);
    const QString before = state();
    ASSERT_TRUE(run(new tu_tv_socket::UnlinkCmd(legAngle.socket(), 0)));
    EXPECT_FALSE(legAngle.socket()->isLinked());
    QString name = "as it was";
    EXPECT_FALSE(legAngle.socket()->columnName(name, 0));
    EXPECT_EQ(name, "as it was");
    EXPECT_EQ(column->getNumLinks(), 2u);
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(ColumnCommandsTest, LinksThatAreRedoneHaveTheirPlacesAgain)
{
    drive(armAngle, column);
    drive(legAngle, column);
    const auto orderOf = [](const AT_Attr& attr) {
        return dynamic_cast<const brindle::engine::Socket&>(*attr.socket()).order();
    };
    const auto armOrder = orderOf(armAngle);
    const auto legOrder = orderOf(legAngle);
    manager().unexecute(2);
    manager().reexecute(2);
    EXPECT_EQ(orderOf(armAngle), armOrder) << "a later command may have kept the number";
    EXPECT_EQ(orderOf(legAngle), legOrder);
}

TEST_F(ColumnCommandsTest, LinksThatCannotStandAreRefusedAndChangeNothing)
{
    brindle::engine::BezierColumn outside("outside");
    MO_Node* card = add("COMPOSITE", "Card");
    const QString before = state();
    const int entries = manager().historySize();
    EXPECT_FALSE(drive(armAngle, &outside)) << "in no scene";
    EXPECT_FALSE(drive(armAngle, nullptr));
    EXPECT_FALSE(run(new tu_tv_socket::LinkCmd(nullptr, column)));
    EXPECT_FALSE(run(new tu_tv_socket::UnlinkCmd(nullptr, 0)));
    EXPECT_EQ(attribute(card, "mode")->socket(), nullptr);
    EXPECT_EQ(state(), before);
    EXPECT_EQ(manager().historySize(), entries);
}

TEST_F(ColumnCommandsTest, CuttingNothingAndLinkingAgainDoNothing)
{
    EXPECT_EQ(tu_tv_socket::UnlinkCmd(armAngle.socket(), 0).execute(), CO_Command::kNoop);
    drive(armAngle, column);
    EXPECT_EQ(tu_tv_socket::LinkCmd(armAngle.socket(), column).execute(), CO_Command::kNoop);
}

TEST_F(ColumnCommandsTest, ARemovedNodeLeavesItsColumnsAndComesBackToItsPlaces)
{
    drive(armAngle, column);
    drive(legAngle, column);
    drive(armX, column);
    const QString before = state();
    ASSERT_TRUE(remove({arm}));
    EXPECT_EQ(column->getNumLinks(), 1u);
    EXPECT_EQ(column->linkedAttr(0), &legAngle);
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(ColumnCommandsTest, ColumnsGoAlongWithTheLastNodeThatTheyDrive)
{
    drive(armAngle, column);
    drive(armX, other);
    drive(legAngle, other);
    const QString before = state();
    ASSERT_TRUE(remove({arm}, true));
    EXPECT_EQ(scene().findTimedValue("bend", 0), nullptr);
    EXPECT_EQ(scene().findTimedValue("twist", 0), other);
    EXPECT_TRUE(undoesTo(before));
}

TEST_F(ColumnCommandsTest, AnAnonymousColumnIsShownByWhatItDrivesFirst)
{
    brindle::engine::BezierColumn* nameless = addColumn("ATV-0001", true);
    EXPECT_EQ(nameless->getDisplayName(), "ATV-0001");
    drive(armX, nameless);
    drive(legAngle, nameless);
    EXPECT_EQ(nameless->getDisplayName(), "Arm: position.x");
    EXPECT_EQ(nameless->getName(), "ATV-0001");
    run(new tu_timedvalue::timedvalue::SetAnonymous(nameless, false));
    EXPECT_EQ(nameless->getDisplayName(), "ATV-0001");
}

TEST_F(ColumnCommandsTest, AnonymityIsUndone)
{
    const QString before = state();
    ASSERT_TRUE(run(new tu_timedvalue::timedvalue::SetAnonymous(column, true)));
    EXPECT_TRUE(column->isAnonymous());
    EXPECT_TRUE(undoesTo(before));
    EXPECT_FALSE(run(new tu_timedvalue::timedvalue::SetAnonymous(nullptr, true)));
}

TEST_F(ColumnCommandsTest, AColumnIsRenamedWhereNoOtherHasTheName)
{
    const QString before = state();
    ASSERT_TRUE(run(new tu_timedvalue::timedvalue::RenameCmd(column, "elbow")));
    EXPECT_EQ(column->getName(), "elbow");
    EXPECT_EQ(scene().findTimedValue("elbow", 0), column);
    EXPECT_EQ(scene().findTimedValue("bend", 0), nullptr);
    EXPECT_TRUE(undoesTo(before));

    const QString renamed = state();
    for (const QString& name : {QString("twist"), QString()})
        EXPECT_FALSE(run(new tu_timedvalue::timedvalue::RenameCmd(column, name))) << name.toStdString();
    EXPECT_FALSE(run(new tu_timedvalue::timedvalue::RenameCmd(nullptr, "x")));
    brindle::engine::BezierColumn outside("outside");
    EXPECT_FALSE(run(new tu_timedvalue::timedvalue::RenameCmd(&outside, "x")));
    EXPECT_EQ(state(), renamed);
}

TEST_F(ColumnCommandsTest, AnUndoneColumnIsGoneForScriptsAndIsTheSameOneWhenItComesBack)
{
    brindle::engine::BezierColumn* made = addColumn("made");
    UT_SharedWeakPtrBase handle;
    handle.assign(made);
    undo();
    EXPECT_EQ(handle.get(), nullptr);
    EXPECT_EQ(scene().findTimedValue("made", 0), nullptr);
    redo();
    EXPECT_EQ(scene().findTimedValue("made", 0), made);
    EXPECT_EQ(handle.get(), nullptr);
}

TEST_F(ColumnCommandsTest, NodesAndColumnsMayEndInAnyOrder)
{
    auto loose = std::make_unique<brindle::engine::BezierColumn>("loose");
    auto& socket = static_cast<brindle::engine::Socket&>(*armAngle.socket());
    socket.link(*loose);
    loose.reset();
    EXPECT_FALSE(socket.isLinked());
}

TEST_F(ColumnCommandsTest, TenThousandAttributesOfOneColumnAreCutQuickly)
{
    std::vector<AT_Attr*> attrs;
    for (int i = 0; i < 2500; ++i) {
        const MO_Node* peg = add("PEG");
        for (const char* path : {"angle", "skew", "position.x", "position.y"})
            attrs.push_back(attribute(peg, path));
    }
    for (AT_Attr* attr : attrs)
        ASSERT_TRUE(drive(*attr, column));
    EXPECT_EQ(column->linkedAttr(9999), attrs.back());
    for (const AT_Attr* attr : attrs)
        ASSERT_TRUE(run(new tu_tv_socket::UnlinkCmd(attr->socket(), 0)));
    EXPECT_EQ(column->getNumLinks(), 0u);
    undo(10000);
    EXPECT_EQ(column->getNumLinks(), 10000u);
    for (unsigned int i = 0; i < 10000; ++i)
        ASSERT_EQ(column->linkedAttr(i), attrs[i]);
}

} // namespace
