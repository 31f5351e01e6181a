#include "core/columns/beziercontrolpoint.h"

#include "tests/core/support/animation.h"

using namespace OMC;

class BezierControlPointTest : public AnimationTest {
protected:
    TUBezierTimedValue* curve = animate("position.x", {{1, 0.5}, {10, 3}, {20, 7}});
    BezierColumn column{curve};
};

TEST_F(BezierControlPointTest, ItReadsThePoint)
{
    column.createPoint(10, 3.5, 8, 2, 12, 4, true, "SMOOTH");
    BezierControlPoint point(curve, 10);
    const std::string name = curve->getName().toStdString();
    EXPECT_EQ(point.__str__(), "BezierControlPoint( \"" + name + "\", 10 )");
    EXPECT_EQ(point.getFrame(), 10);
    EXPECT_EQ(point.getValue(), 3.5);
    EXPECT_TRUE(point.getConstSegment());
    EXPECT_EQ(point.getContinuity(), "SMOOTH");
    EXPECT_EQ(point.getHandleLeftX(), 8);
    EXPECT_EQ(point.getHandleLeftY(), 2);
    EXPECT_EQ(point.getHandleRightX(), 12);
    EXPECT_EQ(point.getHandleRightY(), 4);
    EXPECT_EQ(objectIn<BezierControlPoint>(Obj(point.copy()))->getHandleRightY(), 4);
    bool native = false;
    bool filter = false;
    const std::vector<std::string> names{"objectName",    "frame",          "value",
                                         "const_segment", "continuity",     "handle_left_x",
                                         "handle_left_y", "handle_right_x", "handle_right_y"};
    EXPECT_EQ(point.getDir(native, filter), names);
}

TEST_F(BezierControlPointTest, ItsValueCannotBeSet)
{
    BezierControlPoint point(curve, 10);
    expectRefused([&] { point.setValue(5); }, "NOT YET IMPLEMENTED");
    bool found = false;
    expectRefused([&] { point.setAttr("value", 5, found); }, "NOT YET IMPLEMENTED");
}

TEST_F(BezierControlPointTest, APointThatIsEditedStaysThePoint)
{
    const BezierControlPoint point(curve, 10);
    column.set(10, 5);
    EXPECT_EQ(point.getValue(), 5);
    undo();
    EXPECT_EQ(point.getValue(), 3);
    column.set(9, 5);
    EXPECT_EQ(point.getValue(), 3);
}

TEST_F(BezierControlPointTest, APointThatIsGoneOrReplacedIsInvalid)
{
    const BezierControlPoint point(curve, 10);
    const std::string invalid = "Object is no longer valid.";
    column.keyframeRemove(10);
    EXPECT_EQ(failureOf([&] { point.getValue(); }), invalid);
    EXPECT_EQ(failureOf([&] { point.getFrame(); }), invalid);
    column.keyframeCreate(10);
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { point.getValue(); }, [&] { point.getConstSegment(); }, [&] { point.getContinuity(); },
             [&] { point.getHandleLeftX(); }, [&] { point.getFrame(); }, [&] { point.__str__(); }})
        EXPECT_EQ(failureOf(call), invalid);
    EXPECT_EQ(failureOf([&] { BezierControlPoint(curve, 11).getValue(); }), invalid);
    curve->expireWeakPointers();
    EXPECT_EQ(failureOf([&] { point.getFrame(); }), invalid);
}
