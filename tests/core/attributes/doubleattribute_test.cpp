#include "core/attributes/doubleattribute.h"

#include "core/host/pr_preference.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standinattribute.h"

#include <limits>

using namespace OMC;

class DoubleAttributeTest : public AnimationTest {
protected:
    /// A curve of position.x whose column shows the value of every fourth frame up to the next one.
    const TUBezierTimedValue* animateHeldBack()
    {
        const TUBezierTimedValue* curve = animate("position.x", {{1, 1}, {5, 7}, {6, 9}});
        BezierColumn column(curveOf("position.x"));
        column.setHoldStopFrame(30);
        column.setHoldStep(4);
        manager().clearHistory();
        return curve;
    }

    DoubleAttribute x = number("position.x");
};

TEST_F(DoubleAttributeTest, ItSaysWhatItIs)
{
    EXPECT_EQ(x.__str__(), "DoubleAttr(Top/Peg, position.x)");
    EXPECT_TRUE(objectIn<DoubleAttribute>(Obj(x.copy())));
    MO_Node* read = add("READ", "Read");
    auto opacity = attribute<DoubleAttribute>("opacity", read);
    EXPECT_EQ(opacity.getMinimum(), 0);
    EXPECT_EQ(opacity.getMaximum(), 100);
    EXPECT_EQ(opacity.getStep(), 1);
    EXPECT_EQ(opacity.getDefault(), 100);
    bool found = false;
    for (const auto& [name, value] : std::initializer_list<std::pair<const char*, double>>{
             {"minimum", 0}, {"maximum", 100}, {"step", 1}, {"default", 100}}) {
        EXPECT_EQ(opacity.getAttr(name, found), value) << name;
        EXPECT_EQ(failureOf([&] { opacity.setAttr(name, 5.0, found); }), "Property is read-only.") << name;
    }
}

TEST_F(DoubleAttributeTest, AWrapperOfAnotherKindOfAttributeIsRefused)
{
    DoubleAttribute wrong(peg, {}, "full_transform");
    const std::string sentence = "Unexpected type found.";
    expectRefused([&] { wrong.value(1); }, sentence);
    expectRefused([&] { wrong.localvalue(); }, sentence);
    expectRefused([&] { wrong.setValue(1, 2); }, sentence);
    expectRefused([&] { wrong.setLocalvalue(2); }, sentence);
    expectRefused([&] { wrong.resetValue(1); }, sentence);
    expectRefused([&] { wrong.resetLocalvalue(); }, sentence);
    expectRefused([&] { wrong.offsetValue(1, 2); }, sentence);
    expectRefused([&] { wrong.getMinimum(); }, sentence);
}

TEST_F(DoubleAttributeTest, SettingAValueMakesAColumnInTheSameStep)
{
    const QByteArray before = saved();
    x.setValue(10, 2.5);
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    const TUBezierTimedValue* curve = curveOf("position.x");
    ASSERT_TRUE(curve);
    EXPECT_EQ(keysOf(*curve), Keys({{10, 2.5}}));
    EXPECT_FALSE(curve->getName().isEmpty());
    EXPECT_EQ(scene()->timedValueCount(), 1);
    EXPECT_EQ(x.value(10), 2.5);
    EXPECT_EQ(x.localvalue(), 0);
    expectUndoable(before);
    undo();
    EXPECT_EQ(scene()->timedValueCount(), 0);
    EXPECT_EQ(x.value(10), 0);
}

TEST_F(DoubleAttributeTest, SettingAValueBetweenKeysMakesAKey)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 0}, {20, 10}});
    const QByteArray before = saved();
    x.setValue(10, -3);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 0}, {10, -3}, {20, 10}}));
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    expectUndoable(before);
    undo();
    EXPECT_EQ(keysOf(*curve), Keys({{1, 0}, {20, 10}}));
}

TEST_F(DoubleAttributeTest, SettingAValueOnAKeyMovesIt)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 0}, {20, 10}});
    const QByteArray before = saved();
    x.setValue(20, 0.1);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 0}, {20, 0.1}}));
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, SettingThePresentValueIsAnEntryToo)
{
    animate("position.x", {{1, 0}, {20, 10}});
    const QByteArray before = saved();
    x.setValue(20, 10);
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    EXPECT_EQ(saved(), before);
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, AnAttributeThatCannotBeLinkedKeepsTheValueAtAllFrames)
{
    auto pivot = number("pivot.x");
    const QByteArray before = saved();
    pivot.setValue(10, 4);
    EXPECT_EQ(pivot.value(1), 4);
    EXPECT_EQ(pivot.localvalue(), 4);
    EXPECT_EQ(scene()->timedValueCount(), 0);
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, AdjustingTheColumnLetsTheLastKeyFollow)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 0}, {20, 10}});
    const QByteArray before = saved();
    x.setValue(30, 7, true);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 0}, {20, 7}, {30, 7}}));
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    expectUndoable(before);
    undo();
    x.setValue(10, 7, true);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 0}, {10, 7}, {20, 10}}));
}

TEST_F(DoubleAttributeTest, TheLocalValueHoldsWhileNoColumnIsLinked)
{
    const QByteArray before = saved();
    x.setLocalvalue(3);
    EXPECT_EQ(labels(), QStringList("Set Attribute local value."));
    EXPECT_EQ(x.localvalue(), 3);
    EXPECT_EQ(x.value(50), 3);
    expectUndoable(before);
    x.setValue(1, 8);
    EXPECT_EQ(x.value(50), 8);
    EXPECT_EQ(x.localvalue(), 3);
    x.unlink();
    EXPECT_EQ(x.value(50), 3);
}

TEST_F(DoubleAttributeTest, SettingThePresentLocalValueIsAnEntryToo)
{
    x.setLocalvalue(0);
    EXPECT_EQ(labels(), QStringList("Set Attribute local value."));
    const QByteArray before = savedContent();
    undo();
    EXPECT_EQ(savedContent(), before);
    redo();
    EXPECT_EQ(savedContent(), before);
}

TEST_F(DoubleAttributeTest, ResettingGivesTheDefault)
{
    auto scale = number("scale.x");
    scale.setLocalvalue(4);
    const QByteArray before = saved();
    scale.resetLocalvalue();
    EXPECT_EQ(scale.localvalue(), 1);
    EXPECT_EQ(labels(), QStringList({"Set Attribute local value.", "Set Attribute local value."}));
    expectUndoable(before);

    const TUBezierTimedValue* curve = animate("scale.x", {{1, 5}, {20, 6}});
    const QByteArray animated = saved();
    scale.resetValue(20);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 5}, {20, 1}}));
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    expectUndoable(animated);
}

TEST_F(DoubleAttributeTest, NumbersThatAreNotFiniteAreRefused)
{
    for (const double number : {qQNaN(), qInf(), -qInf()}) {
        expectRefused([&] { x.setValue(1, number); }, "Invalid argument at index 1.");
        expectRefused([&] { x.setLocalvalue(number); }, "Invalid argument at index 0.");
        expectRefused([&] { x.offsetValue(1, number); }, "Invalid argument at index 1.");
        expectRefused([&] { x.offsetValue(number, 1); }, "Invalid argument at index 0.");
    }
}

TEST_F(DoubleAttributeTest, FramesOutsideTheSceneAreFramesLikeOthers)
{
    for (const int frame : {0, -5, 100000}) {
        const QByteArray before = saved();
        x.setValue(frame, 4);
        EXPECT_EQ(x.value(frame), 4) << frame;
        expectUndoable(before);
        undo();
    }
}

TEST_F(DoubleAttributeTest, AFrameThatNoColumnCanHoldChangesNothing)
{
    animate("position.y", {{1, 3}});
    auto y = number("position.y");
    for (const int frame : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        expectRefused([&] { x.setValue(frame, 4); }, "no exception");
        expectRefused([&] { y.setValue(frame, 4); }, "no exception");
    }
}

TEST_F(DoubleAttributeTest, OffsettingARangeLeavesWhatLiesOutsideInPlace)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 0}, {12, 3}, {15, 2}, {30, 10}});
    const QByteArray before = saved();
    std::vector<double> outside;
    for (const int frame : {1, 5, 9, 21, 25, 30})
        outside.push_back(x.value(frame));
    const double first = x.value(10);
    const double last = x.value(20);
    x.offsetValue(QVariantList{10, 20}, 5);
    EXPECT_EQ(labels(), QStringList("Set Attribute Value"));
    std::size_t index = 0;
    for (const int frame : {1, 5, 9, 21, 25, 30})
        EXPECT_NEAR(x.value(frame), outside[index++], 1e-9) << frame;
    EXPECT_NEAR(x.value(10), first + 5, 1e-9);
    EXPECT_NEAR(x.value(20), last + 5, 1e-9);
    EXPECT_EQ(x.value(12), 8);
    EXPECT_EQ(x.value(15), 7);
    EXPECT_EQ(curve->pointCount(), 8);
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, OffsettingAStretchOfACurveKeepsItsShape)
{
    animate("position.x", {{1, -40}, {30, 45}, {60, -20}});
    std::vector<double> present;
    for (int frame = 1; frame <= 60; ++frame)
        present.push_back(x.value(frame));
    x.offsetValue(QVariantList{10, 20}, 5);
    for (int frame = 1; frame <= 60; ++frame) {
        const double delta = frame >= 10 && frame <= 20 ? 5 : 0;
        EXPECT_NEAR(x.value(frame), present[static_cast<std::size_t>(frame - 1)] + delta, 1e-9) << frame;
    }
}

TEST_F(DoubleAttributeTest, OffsettingAKeyThatTheColumnHoldsBackAddsToItsOwnValue)
{
    const TUBezierTimedValue* curve = animateHeldBack();
    ASSERT_EQ(x.value(6), 7);
    const QByteArray before = saved();
    x.offsetValue(QVariant(), 5);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 6}, {5, 12}, {6, 14}}));
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, OffsettingARangeInEitherOrderIsTheSame)
{
    animate("position.x", {{1, 0}, {30, 10}});
    x.offsetValue(QVariantList{10, 20}, 5);
    const QByteArray forward = saved();
    undo();
    x.offsetValue(QVariantList{20, 10}, 5);
    EXPECT_EQ(saved(), forward);
}

TEST_F(DoubleAttributeTest, OffsettingAFrameMovesThatFrameOnly)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 1}, {30, 1}});
    const QByteArray before = saved();
    x.offsetValue(10, 5);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 1}, {9, 1}, {10, 6}, {11, 1}, {30, 1}}));
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, OffsettingFromTheFirstFrameFixesNothingAheadOfIt)
{
    const TUBezierTimedValue* curve = animate("position.x", {{5, 1}});
    x.offsetValue(QVariantList{1, -1}, 2);
    EXPECT_EQ(keysOf(*curve), Keys({{1, 3}, {5, 3}, {60, 3}, {61, 1}}));
}

TEST_F(DoubleAttributeTest, OffsettingWithoutARangeMovesEveryKey)
{
    const TUBezierTimedValue* curve = animate("position.x", {{1, 1}, {30, 2}});
    const QByteArray before = saved();
    for (const QVariant& range : {QVariant(), QVariant("all"), QVariant(0)}) {
        x.offsetValue(range, 5);
        EXPECT_EQ(keysOf(*curve), Keys({{1, 6}, {30, 7}}));
        undo();
        EXPECT_EQ(saved(), before);
    }
}

TEST_F(DoubleAttributeTest, OffsettingAnAttributeWithoutAColumn)
{
    x.setLocalvalue(1);
    QByteArray before = saved();
    x.offsetValue(QVariant(), 5);
    EXPECT_EQ(x.localvalue(), 6);
    EXPECT_EQ(scene()->timedValueCount(), 0);
    expectUndoable(before);
    undo();
    x.offsetValue(QVariantList{10, 20}, 5);
    ASSERT_TRUE(curveOf("position.x"));
    EXPECT_EQ(keysOf(*curveOf("position.x")), Keys({{9, 1}, {10, 6}, {20, 6}, {21, 1}}));
    for (int frame = 1; frame <= 60; ++frame)
        EXPECT_EQ(x.value(frame), frame >= 10 && frame <= 20 ? 6 : 1) << frame;
    expectUndoable(before);

    auto pivot = number("pivot.x");
    before = saved();
    pivot.offsetValue(QVariantList{10, 20}, 5);
    EXPECT_EQ(pivot.localvalue(), 5);
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, OffsettingAHeldStretchKeepsItHeld)
{
    animate("position.x", {{1, 1}, {30, 9}});
    BezierColumnValue(curveOf("position.x"), 1).setConstSegment(true);
    manager().clearHistory();
    const QByteArray before = saved();
    x.offsetValue(QVariantList{10, 20}, 5);
    EXPECT_EQ(x.value(9), 1);
    EXPECT_EQ(x.value(10), 6);
    EXPECT_EQ(x.value(15), 6);
    EXPECT_EQ(x.value(20), 6);
    EXPECT_EQ(x.value(29), 1);
    EXPECT_EQ(x.value(30), 9);
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, ABadRangeIsRefused)
{
    expectRefused([&] { x.offsetValue(QVariantList(), 1); }, "Invalid range specififed.");
    expectRefused([&] { x.offsetValue(QVariantList({"a"}), 1); }, "First range argument is invalid.");
    expectRefused([&] { x.offsetValue(QVariantList({1, "a"}), 1); }, "Second range argument is invalid.");
}

TEST_F(DoubleAttributeTest, AnOffsetOverAllIntegersIsRefusedAtOnce)
{
    animate("position.x", {{1, 1}});
    const int first = std::numeric_limits<int>::min();
    const int last = std::numeric_limits<int>::max();
    expectRefused([&] { x.offsetValue(QVariantList{first, last}, 1); }, "no exception");
}

TEST_F(DoubleAttributeTest, AValueOfAHeldFrameComesBackToItsKey)
{
    animateHeldBack();
    ASSERT_EQ(x.value(6), 7);
    const QByteArray before = saved();
    x.setValue(6, 0.3);
    expectUndoable(before);
}

TEST_F(DoubleAttributeTest, ANewKeyHoldsItsValueWhereThePersonPrefersIt)
{
    const QString preference = QStringLiteral("SP_CONSTANT_SEGMENT");
    animate("position.x", {{1, 1}, {20, 9}});
    tuPref()->setBoolValue(preference, true);
    const QByteArray before = saved();
    x.setValue(10, 3);
    EXPECT_EQ(x.value(15), 3);
    expectUndoable(before);
    const QByteArray held = saved();
    x.setValue(1, 0.1);
    EXPECT_EQ(x.value(5), 0.1);
    expectUndoable(held);
    tuPref()->setBoolValue(preference, false);
}
