#include "core/attributes/boolattribute.h"

#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"

using namespace OMC;

class BoolAttributeTest : public AnimationTest {
protected:
    MO_Node* read = add("READ", "Read");
    BoolAttribute visible = attribute<BoolAttribute>("visible", read);
    BoolAttribute transform = attribute<BoolAttribute>("full_transform");
};

TEST_F(BoolAttributeTest, ItSaysWhatItIs)
{
    EXPECT_EQ(visible.__str__(), "BoolAttr(Top/Read, visible)");
    EXPECT_TRUE(objectIn<BoolAttribute>(Obj(visible.copy())));
    BoolAttribute wrong(peg, {}, "angle");
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { wrong.value(1); }, [&] { wrong.localvalue(); }, [&] { wrong.setValue(1, true); },
             [&] { wrong.setLocalvalue(true); }, [&] { wrong.resetValue(1); }, [&] { wrong.resetLocalvalue(); }})
        expectRefused(call, "Unexpected type found.");
}

TEST_F(BoolAttributeTest, ItsValueIsSetAtAFrame)
{
    const QByteArray before = saved();
    visible.setValue(10, false);
    EXPECT_FALSE(visible.value(10));
    EXPECT_TRUE(visible.localvalue());
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    expectUndoable(before);
    transform.setValue(10, true);
    EXPECT_TRUE(transform.value(1));
}

TEST_F(BoolAttributeTest, ItsLocalValueIsSet)
{
    const QByteArray before = saved();
    visible.setLocalvalue(false);
    EXPECT_FALSE(visible.value(10));
    EXPECT_EQ(labels(), QStringList("Set Attribute local value."));
    expectUndoable(before);
}

TEST_F(BoolAttributeTest, SettingThePresentLocalValueIsNoEntry)
{
    visible.setLocalvalue(true);
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(BoolAttributeTest, ItsValueIsResetAtAFrame)
{
    visible.setValue(1, false);
    visible.setValue(10, false);
    manager().clearHistory();
    const QByteArray before = saved();
    visible.resetValue(10);
    EXPECT_TRUE(visible.value(10));
    EXPECT_FALSE(visible.value(9));
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    expectUndoable(before);
}

TEST_F(BoolAttributeTest, ItsLocalValueIsReset)
{
    visible.setLocalvalue(false);
    transform.setLocalvalue(true);
    manager().clearHistory();
    const QByteArray before = saved();
    visible.resetLocalvalue();
    EXPECT_TRUE(visible.localvalue());
    EXPECT_EQ(labels(), QStringList("Set Attribute local value."));
    expectUndoable(before);
    transform.resetLocalvalue();
    EXPECT_FALSE(transform.localvalue());
}

TEST_F(BoolAttributeTest, ResettingWhatHasItsDefaultIsAnEntryAsForANumber)
{
    visible.resetLocalvalue();
    number("angle").resetLocalvalue();
    EXPECT_EQ(labels(), QStringList(2, "Set Attribute local value."));
    EXPECT_TRUE(visible.localvalue());
}

TEST_F(BoolAttributeTest, ARefusedChangeIsReported)
{
    RefusingManager refusing;
    StandInSceneCommon common;
    common.commands = &refusing;
    AttributedNode node(&common);
    StandInValue<AT_BoolAttr> flag(node, "flag");
    node.attributes = {&flag};
    BoolAttribute wrapper(&node, {}, "flag");
    EXPECT_EQ(failureOf([&] { wrapper.setValue(1, true); }), "Failed to set the attribute's value.");
    EXPECT_EQ(failureOf([&] { wrapper.setLocalvalue(true); }), "Failed to set the attribute's local value.");
    EXPECT_EQ(failureOf([&] { wrapper.resetValue(1); }), "Failed to set the attribute's value.");
    EXPECT_EQ(failureOf([&] { wrapper.resetLocalvalue(); }), "Failed to set the attribute's local value.");
    EXPECT_FALSE(flag.held);
    common.commands = nullptr;
    wrapper.setLocalvalue(false);
    EXPECT_EQ(failureOf([&] { wrapper.setLocalvalue(true); }), "An unexpected error has occurred.");
}
