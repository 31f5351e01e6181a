#include "core/columns/beziercolumnvalue.h"

#include "tests/core/support/animation.h"
#include "tests/core/support/standincurve.h"

#include <functional>

using namespace OMC;

class BezierColumnValueTest : public AnimationTest {
protected:
    BezierColumnValueTest()
    {
        BezierColumn(curve).createPoint(10, 3, 8, 2, 12, 4, false, "SMOOTH");
        manager().clearHistory();
    }

    BezierColumnValue at(double frame) const { return BezierColumnValue(curve, frame); }
    BezierCtrlPt pointAt(double frame) const
    {
        BezierCtrlPt point;
        EXPECT_TRUE(curve->pointAt(frame, point)) << frame;
        return point;
    }
    QStringList label(const char* what) const { return QStringList(what + curve->getDisplayName()); }

    TUBezierTimedValue* curve = animate("position.x", {{2, 0.5}, {20, 7}});
    const std::string keyOnly = "Constant Segment can only be set on a keyframe.";
};

TEST_F(BezierColumnValueTest, ItSaysWhatItIs)
{
    const std::string name = curve->getName().toStdString();
    EXPECT_EQ(at(10).__str__(), "BezierColumnValue(\"" + name + "\", 10)");
    EXPECT_EQ(at(1.0 / 3).__str__(), "BezierColumnValue(\"" + name + "\", 0.333333)");
    EXPECT_EQ(at(5.5).getFrame(), 5.5);
    EXPECT_EQ(objectIn<BezierColumnValue>(Obj(at(5.5).copy()))->getFrame(), 5.5);
    bool native = false;
    bool filter = false;
    const std::vector<std::string> names{"objectName",
                                         "frame",
                                         "value",
                                         "key",
                                         "const_segment",
                                         "continuity",
                                         "handle_left_x",
                                         "handle_left_y",
                                         "handle_right_x",
                                         "handle_right_y",
                                         "keyframe_previous",
                                         "keyframe_next"};
    EXPECT_EQ(at(10).getDir(native, filter), names);
}

TEST_F(BezierColumnValueTest, BetweenKeysItReadsTheCurveAndTheKeyBefore)
{
    EXPECT_EQ(at(15).getValue().toDouble(), curve->evaluate(15));
    for (const double frame : {10.0, 15.0, 19.9}) {
        const BezierColumnValue value = at(frame);
        EXPECT_EQ(value.getKey(), frame == 10);
        EXPECT_FALSE(value.getConstSegment());
        EXPECT_EQ(value.getContinuity(), "SMOOTH");
        EXPECT_EQ(value.getHandleLeftX(), 8);
        EXPECT_EQ(value.getHandleLeftY(), 2);
        EXPECT_EQ(value.getHandleRightX(), 12);
        EXPECT_EQ(value.getHandleRightY(), 4);
    }
}

TEST_F(BezierColumnValueTest, AheadOfTheFirstKeyThereIsNothingToRead)
{
    const BezierColumnValue value = at(1);
    EXPECT_EQ(value.getValue(), 0.5);
    EXPECT_FALSE(value.getKey());
    EXPECT_FALSE(value.getConstSegment());
    EXPECT_EQ(value.getContinuity(), "UNKNOWN");
    EXPECT_EQ(value.getKeyframePrevious().get(), nullptr);
    EXPECT_EQ(value.getKeyframeNext().get(), nullptr);
    const std::string unexpected = "An unexpected error has occurred.";
    EXPECT_EQ(failureOf([&] { value.getHandleLeftX(); }), unexpected);
    EXPECT_EQ(failureOf([&] { value.getHandleLeftY(); }), unexpected);
    EXPECT_EQ(failureOf([&] { value.getHandleRightX(); }), unexpected);
    EXPECT_EQ(failureOf([&] { value.getHandleRightY(); }), unexpected);
}

TEST_F(BezierColumnValueTest, TheKeyframesAroundAFrame)
{
    const struct {
        double frame, previous, next;
    } rows[] = {{2, 2, 10}, {5, 2, 10}, {10, 10, 20}, {12, 10, 20}, {20, 20, 0}, {50, 20, 0}};
    for (const auto& [frame, previous, next] : rows) {
        const Obj before = at(frame).getKeyframePrevious();
        const Obj after = at(frame).getKeyframeNext();
        EXPECT_EQ(objectIn<BezierColumnValue>(before)->getFrame(), previous) << frame;
        EXPECT_EQ(after.get() ? objectIn<BezierColumnValue>(after)->getFrame() : 0, next) << frame;
    }
}

TEST_F(BezierColumnValueTest, AValueBetweenKeysMakesAKeyframe)
{
    const QByteArray before = saved();
    at(5).setValue(3.0);
    EXPECT_EQ(keysOf(*curve), Keys({{2, 0.5}, {5, 3}, {10, 3}, {20, 7}}));
    EXPECT_EQ(labels(), label("Set Bezier Point "));
    expectUndoable(before);
}

TEST_F(BezierColumnValueTest, AValueOnAKeyCarriesItsHandles)
{
    const QByteArray before = saved();
    at(10).setValue(5.5);
    EXPECT_EQ(pointAt(10).value, 5.5);
    EXPECT_EQ(pointAt(10).leftX, 8);
    EXPECT_EQ(pointAt(10).leftY, 4.5);
    EXPECT_EQ(pointAt(10).rightX, 12);
    EXPECT_EQ(pointAt(10).rightY, 6.5);
    EXPECT_EQ(labels(), label("Set Bezier Point "));
    expectUndoable(before);
}

TEST_F(BezierColumnValueTest, AValueNextToTheKeysOwnIsLeft)
{
    at(10).setValue(3.00005);
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_EQ(pointAt(10).value, 3);
    at(10).setValue(3.0002);
    EXPECT_EQ(pointAt(10).value, 3.0002);
    EXPECT_EQ(labels().size(), 1);
}

TEST_F(BezierColumnValueTest, ThePresentValueBetweenKeysMakesAKeyframe)
{
    at(15).setValue(at(15).getValue());
    EXPECT_EQ(curve->pointCount(), 4);
}

TEST_F(BezierColumnValueTest, AnotherValueObjectGivesItsValue)
{
    TUBezierTimedValue* other = animate("position.y", {{1, -4}});
    const BezierColumnValue source(other, 30);
    at(10).setValue(asArgument(source));
    EXPECT_EQ(pointAt(10).value, -4);
    at(20).setValue(QVariant::fromValue(Obj(new BezierColumnValue(source))));
    EXPECT_EQ(pointAt(20).value, -4);
    at(20).setValue("2.5");
    EXPECT_EQ(pointAt(20).value, 2.5);
}

TEST_F(BezierColumnValueTest, WhatIsNoValueIsRefused)
{
    const BezierColumn column(curve);
    for (const QVariant& value : {QVariant(), QVariant("abc"), QVariant(QVariantList{1}), asArgument(column)})
        expectRefused([&] { at(10).setValue(value); }, "Invalid type set on column value.");
    for (const double value : {qQNaN(), qInf(), -qInf()})
        expectRefused([&] { at(10).setValue(value); }, "Invalid argument at index 0.");
    expectRefused([&] { at(1e12).setValue(5); }, "Unexpected error");
}

TEST_F(BezierColumnValueTest, AKeyframeIsMadeAndRemoved)
{
    const QByteArray before = saved();
    const double value = curve->evaluate(5);
    at(5).setKey(true);
    EXPECT_EQ(pointAt(5).value, value);
    EXPECT_EQ(labels(), label("Set Bezier Point "));
    expectUndoable(before);
    at(5).setKey(true);
    EXPECT_EQ(labels().size(), 1);
    manager().clearHistory();

    const QByteArray keyed = saved();
    at(5).setKey(false);
    EXPECT_FALSE(at(5).getKey());
    EXPECT_EQ(labels(), label("Remove Bezier Point "));
    expectUndoable(keyed);
    at(5).setKey(false);
    EXPECT_EQ(labels().size(), 1);
    expectRefused([&] { at(1e12).setKey(true); }, "Unexpected error");
}

TEST_F(BezierColumnValueTest, WhatAKeyframeHasIsSetUndoably)
{
    const struct {
        std::function<void(BezierColumnValue&)> set;
        std::function<bool(const BezierCtrlPt&)> isSet;
        const char* label;
    } rows[] = {
        {[](auto& value) { value.setConstSegment(true); }, [](auto& point) { return point.constSegment; },
         "Set Constant Segment on "},
        {[](auto& value) { value.setContinuity("CORNER"); }, [](auto& point) { return point.continuity == 0; },
         "Set Constant Segment on "},
        {[](auto& value) { value.setContinuity("STRAIGHT"); }, [](auto& point) { return point.continuity == 1; },
         "Set Constant Segment on "},
        {[](auto& value) { value.setHandleLeftX(7.5); },
         [](auto& point) { return point.leftX == 7.5 && point.leftY == 2; }, "Set left handle on "},
        {[](auto& value) { value.setHandleLeftY(2.5); },
         [](auto& point) { return point.leftX == 8 && point.leftY == 2.5; }, "Set left handle on "},
        {[](auto& value) { value.setHandleRightX(13.5); },
         [](auto& point) { return point.rightX == 13.5 && point.rightY == 4; }, "Set right handle on "},
        {[](auto& value) { value.setHandleRightY(4.5); },
         [](auto& point) { return point.rightX == 12 && point.rightY == 4.5; }, "Set right handle on "},
    };
    for (const auto& row : rows) {
        const QByteArray before = saved();
        BezierColumnValue value = at(10);
        row.set(value);
        EXPECT_TRUE(row.isSet(pointAt(10)));
        EXPECT_EQ(labels(), label(row.label));
        expectUndoable(before);
        row.set(value);
        EXPECT_EQ(labels().size(), 1) << "the present value is left";
        undo();
        manager().clearHistory();
        BezierColumnValue between = at(15);
        expectRefused([&] { row.set(between); }, keyOnly);
        BezierColumnValue ahead = at(1);
        expectRefused([&] { row.set(ahead); }, keyOnly);
    }
}

TEST_F(BezierColumnValueTest, AContinuityIsWrittenInCapitals)
{
    for (const char* word : {"corner", "UNKNOWN", ""})
        expectRefused([&] { at(10).setContinuity(word); }, std::string("Invalid continuity value ") + word +
                                                               ". Accepted values are : STRAIGHT, CORNER, SMOOTH ");
}

TEST_F(BezierColumnValueTest, HandlesTakeFiniteNumbers)
{
    for (const double number : {qQNaN(), qInf()}) {
        expectRefused([&] { at(10).setHandleLeftX(number); }, "Invalid argument at index 0.");
        expectRefused([&] { at(10).setHandleLeftY(number); }, "Invalid argument at index 0.");
        expectRefused([&] { at(10).setHandleRightX(number); }, "Invalid argument at index 0.");
        expectRefused([&] { at(10).setHandleRightY(number); }, "Invalid argument at index 0.");
    }
}

TEST_F(BezierColumnValueTest, AnotherKindOfColumnIsUnexpected)
{
    StandInCurve function(sceneCommon());
    BezierColumnValue value(&function, 5);
    const std::string unexpected = "An unexpected error has occurred.";
    EXPECT_EQ(failureOf([&] { value.getValue(); }), unexpected);
    EXPECT_EQ(failureOf([&] { value.setValue(1); }), unexpected);
    EXPECT_EQ(failureOf([&] { value.getFrame(); }), unexpected);
}

TEST_F(BezierColumnValueTest, AValueOfAColumnThatIsGoneSaysSo)
{
    BezierColumnValue value = at(10);
    curve->expireWeakPointers();
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { value.getFrame(); }, [&] { value.getValue(); }, [&] { value.setValue(1); }, [&] { value.getKey(); },
             [&] { value.setKey(true); }, [&] { value.getConstSegment(); }, [&] { value.setConstSegment(true); },
             [&] { value.getContinuity(); }, [&] { value.setContinuity("CORNER"); }, [&] { value.getHandleLeftX(); },
             [&] { value.setHandleLeftX(1); }, [&] { value.getKeyframePrevious(); }, [&] { value.getKeyframeNext(); },
             [&] { value.__str__(); }})
        EXPECT_EQ(failureOf(call), "Object is no longer valid.");
}
