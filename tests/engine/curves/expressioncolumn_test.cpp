#include "engine/curves/expressioncolumn.h"

#include "engine/curves/columnlist.h"
#include "engine/engine.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "tests/engine/support/columnproject.h"

using brindle::engine::ColumnList;
using brindle::engine::ExpressionColumn;

namespace {

class ExpressionColumnTest : public ColumnTest {
protected:
    ExpressionColumnTest()
    {
        brindle::engine::setLogSink([this](MSG_Scope::Action, const QString& line) { m_log += line + u'\n'; });
    }
    ~ExpressionColumnTest() override { brindle::engine::setLogSink({}); }

    /// `text` may be one that can't be evaluated yet, as a file has it.
    ExpressionColumn& add(const QString& name, const QString& text = QString())
    {
        auto* column = new ExpressionColumn(name);
        column->setExpression(text);
        EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        return *column;
    }
    brindle::engine::BezierColumn& addCurve(const QString& name, double value)
    {
        brindle::engine::BezierColumn& column = *addColumn(name);
        column.setValueAt(1, value, false);
        return column;
    }
    bool set(ExpressionColumn& column, const QString& text)
    {
        return run(new tu_timedvalue::expr::SetExprCmd(&column, text), "Set");
    }
    ColumnList& columns() { return *ColumnList::of(&scene()); }
    /// Takes a column out of the scene while the result lives.
    std::unique_ptr<TUTimedValue> take(TUTimedValue& column)
    {
        int place = 0;
        return columns().take(&column, place);
    }
    std::string takeLog() { return std::exchange(m_log, QString()).toStdString(); }

private:
    QString m_log;
};

constexpr char noColumn[] = "The expression of the column \"A\" is 0: character 7: there is no column named \"B\".\n";

} // namespace

TEST_F(ExpressionColumnTest, ItReadsOtherColumns)
{
    addCurve("Wave", 2);
    ExpressionColumn& twice = add("Twice", "value(\"Wave\") * 2");
    ExpressionColumn& more = add("More", "value(\"Twice\", frame + 1) + frame + value(\"Empty\")");
    addColumn("Empty");
    EXPECT_EQ(twice.evaluate(5), 4);
    EXPECT_EQ(more.evaluate(5), 9);
    EXPECT_EQ(add("None").evaluate(5), 0);
    EXPECT_EQ(takeLog(), "");

    QString text;
    bool isKey = true, isHeld = true, isBlank = true, isLocked = false;
    more.getValueForXsheet(1.25, 1, &text, isKey, isHeld, isBlank, isLocked);
    EXPECT_EQ(text, "5.25");
    EXPECT_FALSE(isKey || isHeld || isBlank);
    EXPECT_TRUE(isLocked);
    CO_Command* command = nullptr;
    more.scale(2, 0, &command);
    EXPECT_EQ(command, nullptr);
    EXPECT_NE(more.setValuesFromXsheet(1, 1, "3", 1), 0);
}

TEST_F(ExpressionColumnTest, ItDrivesAttributes)
{
    brindle::engine::BezierColumn& wave = addCurve("Wave", 2);
    ExpressionColumn& column = add("A", "value(\"Wave\") * frame");
    auto& angle = attributeAs<AT_DoubleAttr>(MemoryProject::add("PEG", "P"), "angle");
    ASSERT_TRUE(drive(angle, &column));
    EXPECT_EQ(angle.value(3), 6);
    const QString before = state();
    EXPECT_FALSE(angle.setValue(3, 1.0, false, true)) << "values follow from the text";
    EXPECT_EQ(state(), before);

    // A change of what it reads is a change of what it drives.
    const auto revision = [this] { return scene().changes().revision(); };
    auto last = revision();
    const auto hasTold = [&] { return std::exchange(last, revision()) != last; };
    wave.setValueAt(1, 3, false);
    wave.tellLinked();
    EXPECT_TRUE(hasTold());
    EXPECT_EQ(angle.value(3), 9);
    const std::unique_ptr<TUTimedValue> taken = take(wave);
    EXPECT_TRUE(hasTold());
    EXPECT_EQ(angle.value(3), 0);
}

TEST_F(ExpressionColumnTest, ATextIsRefusedWithItsPlace)
{
    addCurve("Wave", 2);
    ExpressionColumn& a = add("A", "value(\"Wave\")");
    ExpressionColumn& b = add("B", "value(\"A\") + 1");
    add("C", "value(\"Wave\") + value(\"B\")");
    const std::pair<const char*, const char*> cases[] = {
        {"1 +", "Invalid expression at character 4: something is missing at the end."},
        {"1 + value(\"Nil\")", "Invalid expression at character 11: there is no column named \"Nil\"."},
        {"value(\"A\")", "Invalid expression at character 7: a column can't read its own values."},
        {"value(\"A\", frame - 1)", "Invalid expression at character 7: a column can't read its own values."},
        {"value(\"C\")", "Invalid expression at character 7: the column \"C\" reads the values of this one."},
        {"value(\"Wave\") - value(\"B\")",
         "Invalid expression at character 23: the column \"B\" reads the values of this one."},
    };
    const QString before = state();
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(a.faultOf(text).toStdString(), expected);
        EXPECT_FALSE(set(a, text)) << text;
    }
    EXPECT_EQ(state(), before);
    EXPECT_EQ(b.evaluate(1), 3);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ExpressionColumnTest, SettingIsUndoneExactly)
{
    addCurve("Wave", 2);
    ExpressionColumn& column = add("A", "frame");
    const QString before = state();
    ASSERT_TRUE(set(column, "value(\"Wave\")  + 1 "));
    EXPECT_EQ(column.expression(), "value(\"Wave\")  + 1 ");
    EXPECT_EQ(column.evaluate(1), 3);
    EXPECT_TRUE(undoesTo(before));
    EXPECT_EQ(column.evaluate(1), 3);
}

TEST_F(ExpressionColumnTest, WhatGoesWrongLaterIsZeroWithOneLine)
{
    ExpressionColumn& a = add("A", "value(\"B\") + 1");
    EXPECT_EQ(a.evaluate(1), 0);
    EXPECT_EQ(a.evaluate(2), 0);
    EXPECT_EQ(takeLog(), noColumn);
    brindle::engine::BezierColumn& b = addCurve("B", 4);
    EXPECT_EQ(a.evaluate(1), 5);
    {
        const std::unique_ptr<TUTimedValue> taken = take(b);
        EXPECT_EQ(a.evaluate(1), 0);
        addCurve("Other", 1);
        EXPECT_EQ(a.evaluate(1), 0);
        EXPECT_EQ(takeLog(), noColumn);
    }
    addCurve("B", 7);
    EXPECT_EQ(a.evaluate(1), 8);
    ASSERT_TRUE(columns().rename(columns().find("B"), "Renamed"));
    EXPECT_EQ(a.evaluate(1), 0);
    EXPECT_EQ(takeLog(), noColumn);

    a.setExpression("1 +");
    EXPECT_EQ(a.evaluate(1), 0);
    EXPECT_EQ(takeLog(), "The expression of the column \"A\" is 0: character 4: something is missing at the end.\n");
    ASSERT_TRUE(set(a, "1 / (frame - 2)"));
    EXPECT_EQ(a.evaluate(3), 1);
    EXPECT_EQ(a.evaluate(2), 0);
    EXPECT_EQ(a.evaluate(1), -1);
    EXPECT_EQ(a.evaluate(2), 0);
    EXPECT_EQ(takeLog(), "The expression of the column \"A\" is 0: its value is no finite number.\n");
}

TEST_F(ExpressionColumnTest, ACircleIsZeroWhoeverIsAsked)
{
    ExpressionColumn& a = add("A", "value(\"B\") + 1");
    ExpressionColumn& b = add("B", "value(\"A\") + 1");
    ExpressionColumn& c = add("C", "value(\"A\") + 5");
    EXPECT_EQ(c.evaluate(1), 5);
    EXPECT_EQ(a.evaluate(1), 0);
    EXPECT_EQ(b.evaluate(1), 0);
    EXPECT_EQ(takeLog(), "The expression of the column \"A\" is 0: character 7: the column \"B\" reads the values "
                         "of this one.\n"
                         "The expression of the column \"B\" is 0: character 7: the column \"A\" reads the values "
                         "of this one.\n");
    ASSERT_TRUE(set(b, "2"));
    EXPECT_EQ(c.evaluate(1), 8);
    auto& angle = attributeAs<AT_DoubleAttr>(MemoryProject::add("PEG", "P"), "angle");
    ASSERT_TRUE(drive(angle, &c));
    b.setExpression("value(\"C\")"); // Told around the circle once.
    EXPECT_EQ(angle.value(1), 0);
}

TEST_F(ExpressionColumnTest, LongWaysAreGivenUp)
{
    add("N0", "frame");
    for (int number = 1; number <= 60; ++number)
        add(QString("N%1").arg(number), QString("value(\"N%1\") + value(\"N%1\")").arg(number - 1));
    const auto* last = dynamic_cast<ExpressionColumn*>(columns().find("N60"));
    EXPECT_EQ(last->evaluate(3), 3 * std::pow(2.0, 60)) << "each column is evaluated once";
    EXPECT_EQ(takeLog(), "");

    for (int number = 61; number <= 2000; ++number)
        add(QString("N%1").arg(number), QString("value(\"N%1\")").arg(number - 1));
    const auto* deep = dynamic_cast<ExpressionColumn*>(columns().find("N2000"));
    EXPECT_EQ(deep->evaluate(3), 0);
    EXPECT_EQ(takeLog(), "The expression of the column \"N2000\" is 0: it goes through too many columns.\n");

    add("W0", "frame");
    for (int number = 1; number <= 40; ++number)
        add(QString("W%1").arg(number),
            QString("value(\"W%1\", frame * 1.1) + value(\"W%1\", frame + 0.37)").arg(number - 1));
    EXPECT_EQ(dynamic_cast<ExpressionColumn*>(columns().find("W40"))->evaluate(3), 0);
    EXPECT_EQ(takeLog(), "The expression of the column \"W40\" is 0: it goes through too many columns.\n");
}

TEST_F(ExpressionColumnTest, ItIsSavedReadAndCopiedAsItIs)
{
    const QString text = QString("value(\"Gone\") +\n  \"%1 (").arg(QChar(0x8155));
    ExpressionColumn& column = add("A", text);
    brindle::engine::JsonWriter json;
    json.beginObject();
    column.write(json);
    json.endObject();
    const brindle::engine::JsonFile file("/p/x.json", json.result());
    ExpressionColumn read("A");
    read.read(file.root());
    EXPECT_EQ(read.expression(), text);
    const std::unique_ptr<brindle::engine::Column> copy = column.copy("B", true);
    EXPECT_EQ(dynamic_cast<ExpressionColumn&>(*copy).expression(), text);
    EXPECT_TRUE(copy->anonymous());
}
