#include "core/attributes/intattribute.h"

#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"
#include "tests/core/support/standincolumn.h"

#include <limits>
#include <random>

using namespace OMC;

class IntAttributeTest : public AnimationTest {
protected:
    MO_Node* card = add("COLOR_CARD", "Card");
    IntAttribute red = attribute<IntAttribute>("colour.red", card);
};

TEST_F(IntAttributeTest, ItSaysWhatItIs)
{
    EXPECT_EQ(red.__str__(), "IntAttr(Top/Card, colour.red)");
    EXPECT_TRUE(objectIn<IntAttribute>(Obj(red.copy())));
    EXPECT_EQ(red.getMinimum(), 0);
    EXPECT_EQ(red.getMaximum(), 255);
    EXPECT_EQ(red.getStep(), 1);
    IntAttribute wrong(peg, {}, "angle");
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { wrong.value(1); }, [&] { wrong.localvalue(); }, [&] { wrong.setValue(1, 2); },
             [&] { wrong.setLocalvalue(2); }, [&] { wrong.offsetValue(1, 2); }, [&] { wrong.getStep(); }})
        expectRefused(call, "Unexpected type found.");
}

TEST_F(IntAttributeTest, ItsValueIsSetAtAFrameAndLocally)
{
    const QByteArray before = saved();
    red.setValue(10, 7);
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    EXPECT_EQ(red.value(10), 7);
    EXPECT_EQ(red.localvalue(), 255);
    expectUndoable(before);
    undo();
    red.setLocalvalue(12);
    EXPECT_EQ(labels(), QStringList("Set Attribute local value."));
    EXPECT_EQ(red.value(10), 12);
    expectUndoable(before);
}

TEST_F(IntAttributeTest, ItsValuesAreOffset)
{
    red.setLocalvalue(100);
    const QByteArray before = saved();
    red.offsetValue(QVariantList{10, 20}, 5);
    EXPECT_EQ(labels(), QStringList({"Set Attribute local value.", "Offset Attribute Value"}));
    for (const auto& [frame, value] :
         std::initializer_list<std::pair<int, int>>{{1, 100}, {9, 100}, {10, 105}, {15, 105}, {20, 105}, {21, 100}})
        EXPECT_EQ(red.value(frame), value) << frame;
    expectUndoable(before);
}

TEST_F(IntAttributeTest, AnOffsetBeyondTheIntegersEndsAtTheLast)
{
    AttributedNode node(sceneCommon());
    StandInInt number(node, "number");
    node.attributes = {&number};
    IntAttribute wrapper(&node, {}, "number");
    number.held = std::numeric_limits<int>::max() - 2;
    wrapper.offsetValue(QVariant(), 5);
    EXPECT_EQ(number.held, std::numeric_limits<int>::max());
    wrapper.offsetValue(QVariant(), std::numeric_limits<int>::min());
    EXPECT_EQ(number.held, -1);
    manager().clearHistory();
}

TEST_F(IntAttributeTest, AKeyBetweenWholeNumbersComesBackExactlyInBothDirections)
{
    std::mt19937 random(1);
    const auto fraction = [&random] { return static_cast<double>(random() % 200'000) / 777; };
    for (int round = 0; round < 100; ++round) {
        number("position.x").unlink();
        animate("position.x", {{1, fraction()}, {20, fraction()}, {40, fraction()}});
        red.setColumn(number("position.x").getColumn());
        number("position.x").setValue(20, fraction());
        manager().clearHistory();
        const std::string before = saved().toStdString();
        red.setValue(20, static_cast<int>(random() % 256));
        const std::string after = saved().toStdString();
        undo();
        ASSERT_EQ(saved().toStdString(), before) << round;
        redo();
        ASSERT_EQ(saved().toStdString(), after) << round;
    }
}

TEST_F(IntAttributeTest, WithoutASceneNothingIsSet)
{
    AttributedNode node;
    StandInInt number(node, "number");
    node.attributes = {&number};
    IntAttribute wrapper(&node, {}, "number");
    const std::string sentence = "An unexpected error has occurred.";
    EXPECT_EQ(failureOf([&] { wrapper.setValue(1, 5); }), sentence);
    EXPECT_EQ(failureOf([&] { wrapper.setLocalvalue(5); }), sentence);
    EXPECT_EQ(failureOf([&] { wrapper.offsetValue(1, 5); }), sentence);
    EXPECT_EQ(number.held, 0);
    EXPECT_EQ(wrapper.getMinimum(), -7);
    EXPECT_EQ(wrapper.getMaximum(), 70);
    EXPECT_EQ(wrapper.getStep(), 7);
}

TEST_F(IntAttributeTest, AnExpressionTakesNoValues)
{
    StandInColumn expression(sceneCommon());
    expression.kind = TUTimedValue::kExpression;
    AttributedNode node(sceneCommon());
    StandInInt number(node, "number");
    number.linkable = true;
    number.plug.column = &expression;
    node.attributes = {&number};
    IntAttribute wrapper(&node, {}, "number");
    expectRefused([&] { wrapper.setValue(1, 5); }, "no exception");
    expectRefused([&] { wrapper.offsetValue(QVariantList{1, 5}, 5); }, "no exception");
    EXPECT_EQ(number.held, 0);
}

TEST_F(IntAttributeTest, ARefusedChangeIsNotReported)
{
    RefusingManager refusing;
    StandInSceneCommon common;
    common.commands = &refusing;
    AttributedNode node(&common);
    StandInInt number(node, "number");
    node.attributes = {&number};
    IntAttribute wrapper(&node, {}, "number");
    wrapper.setValue(1, 5);
    wrapper.setLocalvalue(5);
    wrapper.offsetValue(1, 5);
    EXPECT_EQ(refusing.refusedLabels,
              QStringList({"Set Attribute Value", "Set Attribute local value.", "Offset Attribute Value"}));
    EXPECT_EQ(number.held, 0);
}
