#include "core/columns/controlpointlist.h"

#include "core/columns/beziercontrolpoint.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standincurve.h"

using namespace OMC;

class ControlPointListTest : public AnimationTest {
protected:
    static double frameOf(const Obj& handle) { return objectIn<BezierControlPoint>(handle)->getFrame(); }

    TUBezierTimedValue* curve = animate("position.x", {{1, 0.1}, {10, 3}, {20, 7}});
    ControlPointList points{curve};
};

TEST_F(ControlPointListTest, ItHoldsTheControlPointsInOrder)
{
    EXPECT_EQ(points.size(), 3u);
    EXPECT_EQ(points.__str__(), "ControlPointList(" + curve->getName().toStdString() + ")[3]");
    QList<double> listed;
    for (const Obj& point : points.list())
        listed.append(frameOf(point));
    EXPECT_EQ(listed, QList<double>({1, 10, 20}));
    QList<double> walked;
    const Obj handle = points.__iter__();
    auto& iterator = *objectIn<ControlPointList>(handle);
    for (; !iterator.__atend__(); ++iterator)
        walked.append(frameOf(iterator.__iterItem__()));
    EXPECT_EQ(walked, listed);
    const std::string outOfRange = "Iteration item is out of range.";
    EXPECT_EQ(failureOf([&] { iterator.__iterItem__(); }), outOfRange);
    --iterator;
    EXPECT_FALSE(iterator.__atend__());
    EXPECT_EQ(frameOf(iterator.__iterItem__()), 20);
    for (int step = 0; step < 9; ++step)
        --iterator;
    EXPECT_EQ(frameOf(iterator.__iterItem__()), 1);
    EXPECT_EQ(failureOf([&] { points.get(0); }), "Unable to retrieve item in container.");
    EXPECT_EQ(failureOf([&] { points.set(0, Obj()); }), "Unable to set item in container.");
}

TEST_F(ControlPointListTest, PointsAreCreated)
{
    QByteArray before = saved();
    points.create(5);
    EXPECT_EQ(points.size(), 4u);
    EXPECT_EQ(labels(), QStringList("Create 1 keyframes."));
    expectUndoable(before);
    before = saved();
    manager().clearHistory();
    points.create(QVariantList{6, 7});
    EXPECT_EQ(points.size(), 6u);
    EXPECT_EQ(labels(), QStringList("Create a keyframe."));
    expectUndoable(before);
    expectRefused([&] { points.create(QVariantList{6, 1e12}); }, "Failed to create keyframe at: 2147483647");
    expectRefused([&] { points.create("x"); }, "Invalid argument: ");
}

TEST_F(ControlPointListTest, PointsAreRemoved)
{
    QByteArray before = saved();
    points.remove(10);
    EXPECT_EQ(points.size(), 2u);
    EXPECT_EQ(labels(), QStringList("Remove 1 keyframes."));
    expectUndoable(before);
    before = saved();
    manager().clearHistory();
    points.remove(QVariantList{1, 20});
    EXPECT_EQ(points.size(), 0u);
    EXPECT_EQ(labels(), QStringList("Remove keyframe."));
    expectUndoable(before);
    expectRefused(
        [&] {
            points.remove(QVariantList{5, 6});
        },
        "Failed to remove keyframe at: 5\nFailed to remove keyframe at: 6");
}

TEST_F(ControlPointListTest, ACommandThatFailsSaysSo)
{
    StandInCurve function(sceneCommon());
    function.commands = StandInCurve::Failing;
    ControlPointList list(&function);
    EXPECT_EQ(failureOf([&] { list.create(1); }), "Failed to create 1 keyframes.");
    EXPECT_EQ(failureOf([&] { list.create(QVariantList{1, 2}); }), "Failed to create keyframe.");
    EXPECT_EQ(failureOf([&] { list.remove(1); }), "Failed to remove 1 keyframes.");
    EXPECT_EQ(failureOf([&] { list.remove(QVariantList{1, 2}); }), "Failed to remove keyframe.");
    EXPECT_EQ(list.size(), 0u);
    EXPECT_TRUE(list.list().empty());
    EXPECT_TRUE(objectIn<ControlPointList>(list.__iter__())->__atend__());
    function.scene = nullptr;
    EXPECT_EQ(failureOf([&] { list.create(1); }), "An unexpected error occurred.");
    EXPECT_EQ(failureOf([&] { list.remove(1); }), "An unexpected error occurred.");
}

TEST_F(ControlPointListTest, AListOfAColumnThatIsGoneSaysSo)
{
    curve->expireWeakPointers();
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { points.size(); }, [&] { points.list(); }, [&] { points.__iter__(); }, [&] { points.__iterItem__(); },
             [&] { points.create(1); }, [&] { points.remove(1); }, [&] { points.__str__(); }})
        EXPECT_EQ(failureOf(call), "Object is no longer valid.");
}

TEST_F(ControlPointListTest, TheGeneralControlPointHasAFrameOnly)
{
    ControlPoint point(2.5);
    EXPECT_EQ(point.getFrame(), 2.5);
    EXPECT_EQ(point.__str__(), "ControlPoint()");
    EXPECT_EQ(objectIn<ControlPoint>(Obj(point.copy()))->getFrame(), 2.5);
    const std::string sentence = "Control point should be implemented in higher-level classes.";
    EXPECT_EQ(failureOf([&] { point.getValue(); }), sentence);
    EXPECT_EQ(failureOf([&] { point.setValue(1); }), sentence);
}
