#include "core/attributes/attribute.h"
#include "core/columns/column.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"

using namespace OMC;

/// Linking attributes to columns.
class AttributeLinkTest : public AnimationTest {
protected:
    TUTimedValue* columnOf(const QString& path) const { return engineAttribute(path)->socket()->linkedTimedValue(); }

    TUTimedValue* columnX = animate("position.x", {{1, 0}, {10, 5}});
    TUTimedValue* columnY = animate("position.y", {{1, 7}});
    DoubleAttribute x = number("position.x");
    DoubleAttribute z = number("position.z");
    const QString linkingZ = "Linking z of Peg to " + columnX->getName();
};

TEST_F(AttributeLinkTest, TheColumnIsAnObjectAndWithoutOneANullPointer)
{
    const QVariant column = x.getColumn();
    ASSERT_TRUE(readAs<BezierColumn>(column));
    EXPECT_EQ(readAs<BezierColumn>(column)->getTimedValue(), columnX);
    EXPECT_EQ(x.getColumnName(), columnX->getName());
    EXPECT_EQ(z.getColumn().metaType(), QMetaType::fromType<std::nullptr_t>());
    EXPECT_EQ(z.getColumnName(), "");
    EXPECT_FALSE(z.getColumnName().isNull());
    const auto pivot = attribute<Attribute>("pivot.x");
    EXPECT_EQ(pivot.getColumn().metaType(), QMetaType::fromType<std::nullptr_t>());
    EXPECT_EQ(pivot.getColumnName(), "");
}

TEST_F(AttributeLinkTest, AnAttributeIsLinkedToAColumnGivenAsObjectOrByName)
{
    const BezierColumn column(static_cast<TUBezierTimedValue*>(columnX));
    for (const QVariant& value : {asArgument(column), x.getColumn(), QVariant(columnX->getName())}) {
        const QByteArray before = saved();
        z.setColumn(value);
        EXPECT_EQ(columnOf("position.z"), columnX);
        EXPECT_EQ(labels(), QStringList(linkingZ));
        expectUndoable(before);
        undo();
        manager().clearHistory();
    }
}

TEST_F(AttributeLinkTest, WhatSaysNoColumnUnlinks)
{
    for (const QVariant& value :
         {QVariant(""), QVariant(false), QVariant(), QVariant::fromValue(nullptr), QVariant(0)}) {
        const QByteArray before = saved();
        x.setColumn(value);
        EXPECT_EQ(columnOf("position.x"), nullptr) << value.typeName();
        EXPECT_EQ(labels(), QStringList("Unlinking x of Peg"));
        expectUndoable(before);
        undo();
        manager().clearHistory();
    }
}

TEST_F(AttributeLinkTest, AnObjectThatIsNoColumnUnlinks)
{
    x.setColumn(asArgument(z));
    EXPECT_EQ(columnOf("position.x"), nullptr);
}

TEST_F(AttributeLinkTest, WhatIsNoColumnIsRefused)
{
    expectRefused([&] { z.setColumn(true); }, "Failed to get valid column argument.");
    expectRefused([&] { z.setColumn(7); }, "Failed to get valid column argument.");
    expectRefused([&] { z.setColumn("none"); }, "Unable to find specified column by name.");
    expectRefused([&] { z.setColumnName("none"); }, "Unable to find specified column by name (none)");
    expectRefused([&] { z.setColumnName("%1"); }, "Unable to find specified column by name (%1)");
}

TEST_F(AttributeLinkTest, AnAttributeWithoutASocketCannotBeLinked)
{
    auto pivot = attribute<Attribute>("pivot.x");
    expectRefused([&] { pivot.setColumn(columnX->getName()); }, "This attribute cannot be linked.");
    expectRefused([&] { pivot.setColumn(QVariant()); }, "This attribute cannot be linked.");
    expectRefused([&] { pivot.setColumnName(columnX->getName()); }, "Attribute cannot be animated.");
    expectRefused([&] { pivot.setColumnName(""); }, "Attribute cannot be animated.");
}

TEST_F(AttributeLinkTest, LinkingALinkedAttributeReplacesItsColumn)
{
    for (const bool byName : {false, true}) {
        const QByteArray before = saved();
        if (byName)
            x.setColumnName(columnY->getName());
        else
            x.setColumn(columnY->getName());
        EXPECT_EQ(columnOf("position.x"), columnY);
        EXPECT_EQ(columnX->getNumLinks(), 0u);
        EXPECT_EQ(labels(), QStringList("Linking x of Peg to " + columnY->getName()));
        expectUndoable(before);
        undo();
        EXPECT_EQ(columnOf("position.x"), columnX);
        manager().clearHistory();
    }
}

TEST_F(AttributeLinkTest, TheColumnsNameLinksAndTheEmptyOneUnlinks)
{
    const QByteArray before = saved();
    z.setColumnName(columnX->getName());
    EXPECT_EQ(columnOf("position.z"), columnX);
    EXPECT_EQ(labels(), QStringList(linkingZ));
    expectUndoable(before);
    const QByteArray linked = saved();
    z.setColumnName("");
    EXPECT_EQ(columnOf("position.z"), nullptr);
    EXPECT_EQ(labels(), QStringList({linkingZ, "Unlinking z of Peg"}));
    expectUndoable(linked);
}

TEST_F(AttributeLinkTest, LinkAndUnlinkAnswerAndNeverThrow)
{
    EXPECT_TRUE(z.link(columnX->getName()));
    EXPECT_EQ(columnOf("position.z"), columnX);
    EXPECT_TRUE(z.unlink());
    EXPECT_EQ(columnOf("position.z"), nullptr);
    const QStringList entries = labels();
    EXPECT_FALSE(z.link("none"));
    EXPECT_FALSE(z.link(true));
    auto pivot = attribute<Attribute>("pivot.x");
    EXPECT_FALSE(pivot.link(columnX->getName()));
    EXPECT_FALSE(pivot.unlink());
    EXPECT_EQ(labels(), entries);
}

TEST_F(AttributeLinkTest, ARefusedLinkSaysSo)
{
    RefusingManager refusing;
    StandInSceneCommon common;
    common.commands = &refusing;
    AttributedNode node(&common);
    StandInSimple simple(node, "extra");
    simple.linkable = true;
    node.attributes = {&simple};
    Attribute wrapper(&node, {}, "extra");
    const BezierColumn column(static_cast<TUBezierTimedValue*>(columnX));
    const std::string sentence = "Failed to set the attribute's column name.";
    EXPECT_EQ(failureOf([&] { wrapper.setColumn(asArgument(column)); }), sentence);
    EXPECT_EQ(failureOf([&] { wrapper.setColumn(QVariant()); }), sentence);
    EXPECT_EQ(failureOf([&] { wrapper.setColumnName(""); }), sentence);
    EXPECT_EQ(failureOf([&] { wrapper.setColumn("none"); }), "Unable to find specified column by name.");
    EXPECT_EQ(refusing.refusedLabels, QStringList({"Linking extra of StandIn to " + columnX->getName(),
                                                   "Unlinking extra of StandIn", "Unlinking extra of StandIn"}));
}

TEST_F(AttributeLinkTest, AColumnThatIsGoneUnlinks)
{
    const Obj column(Column::getWrapped(columnX));
    columnX->expireWeakPointers();
    x.setColumn(asArgument(*column.get()));
    EXPECT_EQ(columnOf("position.x"), nullptr);
}
