#include "engine/attributes/enumattribute.h"
#include "tests/engine/support/columnproject.h"
#include "tests/support/numbers.h"

namespace {

class AttributesTest : public ColumnTest {
protected:
    MO_Node* peg = add("PEG", "Peg");
    MO_Node* drawing = add("READ", "Drawing");
    MO_Node* card = add("COLOR_CARD", "Card");
    AT_DoubleAttr& angle = attributeAs<AT_DoubleAttr>(peg, "angle");
    AT_DoubleAttr& opacity = attributeAs<AT_DoubleAttr>(drawing, "opacity");
    AT_BoolAttr& visible = attributeAs<AT_BoolAttr>(drawing, "visible");
    AT_IntAttr& red = attributeAs<AT_IntAttr>(card, "colour.red");
    brindle::engine::BezierColumn* column = addColumn("column");
};

TEST_F(AttributesTest, TheLocalValueHoldsWhileNoColumnGivesValues)
{
    EXPECT_TRUE(angle.setLocalValue(30));
    EXPECT_FALSE(angle.setLocalValue(30)) << "as before";
    EXPECT_EQ(angle.value(7), 30);
    drive(angle, column);
    EXPECT_EQ(angle.value(7), 30) << "the column has no key yet";
    column->setValueAt(1, 5, false);
    EXPECT_EQ(angle.value(7), 5);
    EXPECT_EQ(angle.localValue(), 30);
}

TEST_F(AttributesTest, WithoutAColumnAValueAtAFrameIsTheLocalValue)
{
    EXPECT_TRUE(angle.setValue(5, 12, false, false));
    EXPECT_EQ(angle.localValue(), 12);
    EXPECT_FALSE(angle.setValue(9, 12, false, false));
    EXPECT_TRUE(angle.setValue(9, 12, false, true)) << "forced";
}

TEST_F(AttributesTest, WithAColumnAValueAtAFrameIsAKey)
{
    drive(angle, column);
    EXPECT_TRUE(angle.setValue(5, 12, false, false));
    EXPECT_TRUE(angle.setValue(10, 20, true, false));
    EXPECT_EQ(column->keyframes(), (std::vector<int>{5, 10}));
    EXPECT_EQ(angle.value(5), 12);
    EXPECT_EQ(angle.localValue(), 0);
    BezierCtrlPt point;
    ASSERT_TRUE(column->pointAt(10, point));
    EXPECT_TRUE(point.constSegment);
    EXPECT_FALSE(angle.setValue(10, 20, false, false)) << "as before";
    EXPECT_FALSE(angle.setValue(20, 20, false, false)) << "as before, without a key";
    EXPECT_FALSE(column->isKey(20));
    EXPECT_TRUE(angle.setValue(20, 20, false, true)) << "forced";
    EXPECT_TRUE(column->isKey(20));
}

TEST_F(AttributesTest, AKeysHandlesMoveWithItsValue)
{
    drive(angle, column);
    angle.setValue(1, 0, false, true);
    angle.setValue(10, 0, false, true);
    angle.setValue(10, 50, false, true);
    BezierCtrlPt point;
    ASSERT_TRUE(column->pointAt(10, point));
    EXPECT_EQ(point.leftY, 50);
    EXPECT_EQ(point.leftX, 7);
}

TEST_F(AttributesTest, NumbersThatAreNotFiniteAreRefused)
{
    for (const double bad : {nan, infinity, -infinity}) {
        EXPECT_FALSE(opacity.setLocalValue(bad));
        EXPECT_FALSE(opacity.setValue(1, bad, false, true));
        drive(angle, column);
        EXPECT_FALSE(angle.setValue(1, bad, false, true));
        EXPECT_FALSE(angle.setValue(bad, 1, false, true));
    }
    EXPECT_EQ(opacity.localValue(), 100);
    EXPECT_EQ(column->pointCount(), 0);
}

TEST_F(AttributesTest, NumbersAreHeldWithinTheBounds)
{
    opacity.setLocalValue(-5);
    EXPECT_EQ(opacity.localValue(), 0);
    opacity.setValue(1, 130, false, true);
    EXPECT_EQ(opacity.localValue(), 100);
    red.setLocalValue(256);
    EXPECT_EQ(red.localValue(), 255);
    drive(opacity, column);
    opacity.setValue(5, 400, false, true);
    EXPECT_EQ(column->evaluate(5), 100);
    column->setValueAt(9, -7, false);
    EXPECT_EQ(opacity.value(9), 0) << "also what the column says";
}

TEST_F(AttributesTest, WholeNumbersRoundTheirColumn)
{
    drive(red, column);
    for (const auto& [given, read] :
         {std::pair(2.4, 2), std::pair(2.5, 3), std::pair(-1e300, 0), std::pair(1e300, 255)}) {
        column->setValueAt(1, given, false);
        EXPECT_EQ(red.value(1), read) << given;
    }
    EXPECT_TRUE(red.setValue(1, 7, false, false));
    EXPECT_EQ(column->evaluate(1), 7);
}

TEST_F(AttributesTest, SwitchesAreOnForAllButZero)
{
    drive(visible, column);
    for (const auto& [given, read] :
         {std::pair(0., false), std::pair(-0., false), std::pair(0.001, true), std::pair(-3., true)}) {
        column->setValueAt(1, given, false);
        EXPECT_EQ(visible.value(1), read) << given;
    }
    visible.setValue(1, true, false, true);
    visible.setValue(10, false, false, true);
    EXPECT_TRUE(visible.value(9.9)) << "holds up to the next key";
    EXPECT_FALSE(visible.value(10));
}

TEST_F(AttributesTest, ZeroAndMinusZeroAreTwoValues)
{
    EXPECT_TRUE(angle.setLocalValue(-0.0));
    EXPECT_TRUE(std::signbit(angle.localValue()));
    EXPECT_TRUE(angle.setLocalValue(0.0));
    EXPECT_FALSE(std::signbit(angle.localValue()));
}

TEST_F(AttributesTest, NewColumnsAreAnonymousAndOfTheAttributesKind)
{
    const std::unique_ptr<TUTimedValue> one(angle.createTimedValue());
    const std::unique_ptr<TUTimedValue> other(visible.createTimedValue());
    ASSERT_TRUE(one && other);
    EXPECT_EQ(one->type(), TUTimedValue::kBezier);
    EXPECT_TRUE(one->isAnonymous());
    EXPECT_EQ(one->getName(), "ATV-0001");
    EXPECT_EQ(other->getName(), "ATV-0002");
    EXPECT_EQ(one->sceneCommon(), nullptr);
    EXPECT_EQ(attributeAs<AT_DoubleAttr>(peg, "pivot.x").createTimedValue(), nullptr);
    EXPECT_EQ(attributeAs<AT_StringAttr>(add("WRITE"), "path").createTimedValue(), nullptr);
}

TEST_F(AttributesTest, TextsAreTheSameAtEveryFrame)
{
    auto& path = attributeAs<AT_StringAttr>(add("WRITE"), "path");
    EXPECT_TRUE(path.setValue(5, "a", false, false));
    EXPECT_FALSE(path.setValue(5, "a", false, false));
    EXPECT_TRUE(path.setValue(5, "a", false, true));
    EXPECT_EQ(path.value(99), "a");
    EXPECT_FALSE(path.setLocalValue("a"));
    EXPECT_TRUE(path.setLocalValue("b"));
    EXPECT_EQ(path.socket(), nullptr);
}

TEST_F(AttributesTest, EnumsTakeTheirOptionsOnly)
{
    auto& mode = attributeAs<brindle::engine::EnumAttribute>(add("COMPOSITE"), "mode");
    EXPECT_EQ(mode.options().value(0), "NORMAL");
    EXPECT_EQ(mode.options().value(1), "MULTIPLY");
    EXPECT_EQ(mode.options().size(), 11);
    EXPECT_TRUE(mode.setLocalValue(1));
    EXPECT_FALSE(mode.setLocalValue(1));
    EXPECT_FALSE(mode.setLocalValue(11));
    EXPECT_FALSE(mode.setLocalValue(-1));
    EXPECT_EQ(mode.localValue(), 1);
    EXPECT_EQ(mode.textAt(1), "MULTIPLY");
}

TEST_F(AttributesTest, TextsSetValuesUndoably)
{
    const struct {
        const char* type;
        const char* path;
        const char* text;
        const char* result;
    } rows[] = {
        {"PEG", "angle", " 2.5e1 ", "25"},
        {"PEG", "position", "1, 2.5,-3", "1, 2.5, -3"},
        {"PEG", "full_transform", "TRUE", "true"},
        {"READ", "visible", "0", "false"},
        {"READ", "opacity", "1000", "100"},
        {"READ", "drawing.timing", "d-1", "d-1"},
        {"COLOR_CARD", "colour", "1,2,3,4", "1, 2, 3, 4"},
        {"COMPOSITE", "mode", "ADD", "ADD"},
        {"WRITE", "path", " a b ", " a b "},
    };
    for (const auto& row : rows) {
        AT_Attr* attr = attribute(add(row.type), row.path);
        const QString before = state();
        CO_Command* command = attr->setTextCommand(3, row.text);
        ASSERT_NE(command, nullptr) << row.path;
        ASSERT_TRUE(run(command)) << row.path;
        EXPECT_EQ(attr->textAt(3), row.result) << row.path;
        EXPECT_TRUE(undoesTo(before)) << row.path;
    }
}

TEST_F(AttributesTest, TextsThatCannotBeReadGiveNoCommand)
{
    const struct {
        const char* type;
        const char* path;
        const char* text;
    } rows[] = {
        {"PEG", "angle", ""},
        {"PEG", "angle", "abc"},
        {"PEG", "angle", "nan"},
        {"PEG", "angle", "inf"},
        {"PEG", "angle", "1e999"},
        {"PEG", "position", "1,2"},
        {"PEG", "position", "1,2,x"},
        {"PEG", "position", "1,2,3,4"},
        {"READ", "visible", "maybe"},
        {"COLOR_CARD", "colour.red", "1.5"},
        {"COLOR_CARD", "colour.red", "99999999999"},
        {"COMPOSITE", "mode", "add"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(attribute(add(row.type), row.path)->setTextCommand(1, row.text), nullptr)
            << row.path << ' ' << row.text;
}

TEST_F(AttributesTest, ATextOnALinkedAttributeMakesAKeyUndoably)
{
    drive(angle, column);
    const QString before = state();
    ASSERT_TRUE(run(angle.setTextCommand(5, "12")));
    EXPECT_EQ(column->evaluate(5), 12);
    EXPECT_TRUE(undoesTo(before));
    EXPECT_EQ(angle.textAt(5), "12");
    EXPECT_FALSE(run(angle.setTextCommand(nan, "1")));
}

TEST_F(AttributesTest, ATextReadsTheColumnAsTheAttributeDoes)
{
    drive(red, column);
    column->setValueAt(1, 2.5, false);
    EXPECT_EQ(red.textAt(1), "3");
    EXPECT_EQ(attribute(card, "colour")->textAt(1), "3, 255, 255, 255");
}

} // namespace
