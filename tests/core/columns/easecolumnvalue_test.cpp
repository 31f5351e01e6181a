#include "core/columns/easecolumnvalue.h"

#include "core/columns/columnlist.h"
#include "core/columns/easecolumn.h"
#include "core/columns/easecontrolpoint.h"
#include "core/columns/velobasedcolumn.h"
#include "core/columns/velobasedcolumnvalue.h"
#include "core/columns/velobasedcontrolpoint.h"
#include "tests/core/support/animation.h"

#include <cmath>
#include <numbers>

using namespace OMC;

namespace {

/// An ease column with keys at 2 and 20, and a velocity column with the same.
class EaseColumnValueTest : public AnimationTest {
protected:
    EaseColumnValueTest()
    {
        ease.createPoint(2, 1, 1, 10, 2, 190, false, "STRAIGHT");
        ease.createPoint(20, 7, 3, -10, 0, 180, false, "CORNER");
        velocity.createPoint(2, 1);
        velocity.createPoint(20, 7);
        manager().clearHistory();
    }
    template <typename T>
    T made(const char* type)
    {
        return *objectIn<T>(ColumnList(scene()).create(type, type, QVariant()));
    }
    EaseColumnValue at(double frame) const { return EaseColumnValue(ease.getTimedValue(), frame); }
    VeloBasedColumnValue velocityAt(double frame) const
    {
        return VeloBasedColumnValue(velocity.getTimedValue(), frame);
    }

    EaseColumn ease = made<EaseColumn>("EASE");
    VeloBasedColumn velocity = made<VeloBasedColumn>("VELOBASED");
};

} // namespace

TEST_F(EaseColumnValueTest, AnglesGoInAsDegreesAndComeOutAsSlopes)
{
    const auto slope = [](double degrees) { return std::tan(degrees * std::numbers::pi / 180); };
    EXPECT_DOUBLE_EQ(at(2).getEaseInAngle(), slope(10));
    EXPECT_DOUBLE_EQ(at(2).getEaseOutAngle(), slope(190));
    ease.createPoint(5, 0, 0, 100, 0, 20, true, "CORNER");
    EXPECT_DOUBLE_EQ(at(5).getEaseInAngle(), slope(85)) << "clipped";
    EXPECT_DOUBLE_EQ(at(5).getEaseOutAngle(), slope(95)) << "clipped";
    EXPECT_TRUE(at(5).getConstSegment());
}

TEST_F(EaseColumnValueTest, WhatAKeyframeHasIsSetUndoably)
{
    const char* const segment = "Constant Segment can only be set on a keyframe.";
    const struct {
        std::function<void(EaseColumnValue&)> set;
        const char* label;
        const char* keyOnly;
    } rows[] = {
        {[](auto& value) { value.setConstSegment(true); }, "Set Constant Segment on EASE", segment},
        {[](auto& value) { value.setContinuity("CORNER"); }, "Set Constant Segment on EASE", segment},
        {[](auto& value) { value.setEaseIn(0.5); }, "Set ease-in on EASE", "Ease-in can only be set on a keyframe."},
        {[](auto& value) { value.setEaseOut(0.5); }, "Set ease-out on EASE", "Ease-out can only be set on a keyframe."},
        {[](auto& value) { value.setEaseInAngle(0.5); }, "Set angle ease-in on EASE",
         "Angle Ease-in can only be set on a keyframe."},
        {[](auto& value) { value.setEaseOutAngle(0.5); }, "Set angle ease-out on EASE",
         "Angle Ease-out can only be set on a keyframe."},
    };
    for (const auto& row : rows) {
        const QByteArray before = saved();
        EaseColumnValue value = at(2);
        row.set(value);
        EXPECT_EQ(labels(), QStringList(row.label));
        expectUndoable(before);
        row.set(value);
        EXPECT_EQ(labels().size(), 1) << "the present value is left";
        undo();
        manager().clearHistory();
        EaseColumnValue between = at(3);
        expectRefused([&] { row.set(between); }, row.keyOnly);
    }
    for (const char* word : {"corner", "SMOOTH", ""})
        expectRefused([&] { at(2).setContinuity(word); },
                      std::string("Invalid continuity value ") + word + ". Accepted values are : STRAIGHT, CORNER ");
    expectRefused([&] { at(2).setEaseIn(qQNaN()); }, "Invalid argument at index 0.");
    expectRefused([&] { ease.createPoint(1, 0, 0, 0, 0, 0, false, "corner"); }, "Invalid continuity value corner");
}

TEST_F(EaseColumnValueTest, AValueMakesAKeyframeAndOneNextToItsOwnIsLeft)
{
    const QByteArray before = saved();
    at(9).setValue(3.5);
    EXPECT_EQ(labels(), QStringList("Set Ease Point EASE"));
    EXPECT_TRUE(at(9).getKey());
    expectUndoable(before);
    at(9).setValue(3.50005);
    velocityAt(9).setValue(3.5);
    velocityAt(9).setValue(3.50005);
    EXPECT_EQ(labels(), QStringList({"Set Ease Point EASE", "Set Velo Based Point VELOBASED"}));
    at(2).setValue(asArgument(velocityAt(9)));
    EXPECT_EQ(at(2).getValue(), QVariant(velocityAt(9).getValue()));
    expectRefused([&] { velocityAt(2).setValue("x"); }, "Invalid type set on column value.");
    expectRefused([&] { at(1e12).setKey(true); }, "Unexpected error");
}

TEST_F(EaseColumnValueTest, KeyframesAreMadeAndRemovedUnderTheirLabels)
{
    at(9).setKey(true);
    at(9).setKey(false);
    velocityAt(9).setKey(true);
    velocityAt(9).setKey(false);
    EXPECT_EQ(labels(), QStringList({"Set Ease Point EASE", "Remove Ease Point EASE", "Set Velo-Based Point VELOBASED",
                                     "Remove Ease Point VELOBASED"}));
    EXPECT_EQ(ease.keyframeList(), QList<int>({2, 20}));
}

TEST_F(EaseColumnValueTest, ControlPointsTellTheSameAndAreReadOnlyWhereTheyShould)
{
    const std::unique_ptr<EaseControlPoint> point(
        EaseControlPoint::at(static_cast<TUEaseTimedValue&>(*ease.getTimedValue()), 2.0));
    EXPECT_EQ(point->__str__(), "EaseControlPoint( \"EASE\", 2 )");
    EXPECT_EQ(point->getEaseOut(), 2);
    EXPECT_EQ(point->getContinuity(), "STRAIGHT");
    expectRefused([&] { point->setValue(1); }, "NOT YET IMPLEMENTED");
    const std::unique_ptr<VeloBasedControlPoint> place(
        VeloBasedControlPoint::at(static_cast<TUVeloBasedTimedValue&>(*velocity.getTimedValue()), 2.05));
    ASSERT_TRUE(place);
    EXPECT_EQ(place->__str__(), "EaseControlPoint( \"VELOBASED\", 2 )");
    EXPECT_EQ(VeloBasedControlPoint::at(static_cast<TUVeloBasedTimedValue&>(*velocity.getTimedValue()), 2.1), nullptr);
    place->setValue(3);
    EXPECT_EQ(labels(), QStringList("Set Velocity Point"));
    expectRefused([&] { place->setValue("x"); }, "Invalid value type, expected a number value.");
    ease.keyframeRemove(2);
    ease.keyframeCreate(2);
    EXPECT_EQ(failureOf([&] { point->getEaseIn(); }), "Object is no longer valid.") << "another point stands there";
}

TEST_F(EaseColumnValueTest, AValueOfAColumnThatIsGoneSaysSo)
{
    EaseColumnValue value = at(2);
    VeloBasedColumnValue place = velocityAt(2);
    EXPECT_EQ(failureOf([&] { EaseColumnValue(velocity.getTimedValue(), 2).getEaseIn(); }),
              "An unexpected error has occurred.");
    ease.getTimedValue()->expireWeakPointers();
    velocity.getTimedValue()->expireWeakPointers();
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { value.getFrame(); }, [&] { value.getValue(); }, [&] { value.setValue(1); }, [&] { value.getKey(); },
             [&] { value.setKey(false); }, [&] { value.getEaseIn(); }, [&] { value.setEaseIn(1); },
             [&] { value.getKeyframePrevious(); }, [&] { value.__str__(); }, [&] { place.getValue(); },
             [&] { place.setKey(false); }, [&] { place.getKeyframeNext(); }, [&] { place.__str__(); }})
        EXPECT_EQ(failureOf(call), "Object is no longer valid.");
}
