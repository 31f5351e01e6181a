#include "core/columns/beziercolumn.h"

#include "tests/core/support/animation.h"

#include <functional>

using namespace OMC;

class BezierColumnTest : public AnimationTest {
protected:
    BezierCtrlPt pointAt(double frame) const
    {
        BezierCtrlPt point;
        EXPECT_TRUE(curve->pointAt(frame, point)) << frame;
        return point;
    }

    TUBezierTimedValue* curve = animate("position.x", {{1, 0.5}, {20, 7}});
    BezierColumn column{curve};
    const QString setPoint = "Set Bezier Point " + curve->getDisplayName();
};

TEST_F(BezierColumnTest, ItSaysWhatItIs)
{
    EXPECT_EQ(column.__str__(), "BezierColumn(" + curve->getName().toStdString() + ")");
    EXPECT_TRUE(objectIn<BezierColumn>(column.__iter__()));
}

TEST_F(BezierColumnTest, AnEntryIsTheCurvesValue)
{
    EXPECT_EQ(column.getEntry(1), 0.5);
    EXPECT_EQ(column.getEntry(10.5).typeId(), QMetaType::Double);
    EXPECT_EQ(column.getEntry(10.5).toDouble(), curve->evaluate(10.5));
    EXPECT_EQ(column.getEntry(20, 5), 7.0);
    EXPECT_EQ(failureOf([&] { column.getEntry(qQNaN()); }), "Invalid argument at index 0.");
}

TEST_F(BezierColumnTest, ItsFramesGiveValueObjects)
{
    const QVariant value = column.get(5);
    ASSERT_TRUE(readAs<BezierColumnValue>(value));
    EXPECT_EQ(readAs<BezierColumnValue>(value)->getFrame(), 5);
    EXPECT_EQ(readAs<BezierColumnValue>(column.get(QString("5")))->getFrame(), 5);
    const QList<QVariant> values = column.list();
    ASSERT_EQ(values.size(), 121);
    EXPECT_FALSE(values[60].isValid());
    EXPECT_EQ(readAs<BezierColumnValue>(values[61])->getFrame(), 1);
    const Obj iterator = column.__iter__();
    int frames = 0;
    for (auto& walking = *objectIn<BezierColumn>(iterator); !walking.__atend__(); ++walking)
        EXPECT_EQ(readAs<BezierColumnValue>(walking.__iterItem__())->getFrame(), ++frames);
    EXPECT_EQ(frames, 60);
}

TEST_F(BezierColumnTest, SettingAnEntryMakesAKeyframe)
{
    const std::initializer_list<std::function<void()>> ways{
        [&] { column.set(5, 3.0); }, [&] { column.set(QString("5"), "3"); }, [&] { column.setEntry(5, 3, 9); }};
    for (const auto& set : ways) {
        const QByteArray before = saved();
        set();
        EXPECT_EQ(keysOf(*curve), Keys({{1, 0.5}, {5, 3}, {20, 7}}));
        EXPECT_EQ(labels(), QStringList(setPoint));
        expectUndoable(before);
        undo();
        manager().clearHistory();
    }
    column.setEntry(5.25, 4);
    EXPECT_EQ(pointAt(5.25).value, 4);
    expectRefused([&] { column.setEntry(qInf(), 4); }, "Invalid argument at index 0.");
}

TEST_F(BezierColumnTest, APointIsMadeWithAllThatItHas)
{
    const QByteArray before = saved();
    column.createPoint(10, 3, 8, 2, 12, 4, true, "smooth");
    const BezierCtrlPt point = pointAt(10);
    EXPECT_EQ(point.value, 3);
    EXPECT_EQ(point.leftX, 8);
    EXPECT_EQ(point.leftY, 2);
    EXPECT_EQ(point.rightX, 12);
    EXPECT_EQ(point.rightY, 4);
    EXPECT_TRUE(point.constSegment);
    EXPECT_EQ(point.continuity, 2);
    EXPECT_EQ(labels(), QStringList(setPoint));
    expectUndoable(before);
}

TEST_F(BezierColumnTest, APointThatIsMadeLeavesTheHandlesOfItsNeighbours)
{
    column.createPoint(20, 7, 15, 6, 26, -4, false, "CORNER");
    const BezierCtrlPt first = pointAt(1);
    for (const double frame : {10.0, 30.0, -5.0}) {
        const QByteArray before = saved();
        column.createPoint(frame, 3, frame - 1, 2, frame + 1, 4, false, "CORNER");
        EXPECT_EQ(pointAt(20).leftX, 15) << frame;
        EXPECT_EQ(pointAt(20).leftY, 6) << frame;
        EXPECT_EQ(pointAt(20).rightX, 26) << frame;
        EXPECT_EQ(pointAt(20).rightY, -4) << frame;
        EXPECT_EQ(pointAt(1).leftX, first.leftX) << frame;
        EXPECT_EQ(pointAt(1).rightX, first.rightX) << frame;
        expectUndoable(before);
    }
    column.createPoint(18, 3, 17, 2, 19, 4, false, "CORNER");
    EXPECT_EQ(pointAt(20).leftX, 18) << "drawn back to the new point";
    EXPECT_EQ(pointAt(20).leftY, 6);
}

TEST_F(BezierColumnTest, APointThatStandsThereIsSet)
{
    const QByteArray before = saved();
    column.createPoint(20, 0.3, 15, 0.1, 25, 0.2, false, "Straight");
    EXPECT_EQ(curve->pointCount(), 2);
    EXPECT_EQ(pointAt(20).value, 0.3);
    EXPECT_EQ(pointAt(20).continuity, 1);
    expectUndoable(before);
}

TEST_F(BezierColumnTest, ABadPointIsRefused)
{
    expectRefused([&] { column.createPoint(10, 3, 8, 2, 12, 4, true, "round"); },
                  "Invalid continuity value ROUND. Accepted values are : STRAIGHT, CORNER, SMOOTH ");
    expectRefused([&] { column.createPoint(10, 3, 8, 2, 12, 4, true, "%2"); },
                  "Invalid continuity value %2. Accepted values are : STRAIGHT, CORNER, SMOOTH ");
    expectRefused([&] { column.createPoint(1e12, 3, 8, 2, 12, 4, true, "CORNER"); }, "Unexpected error");
    for (unsigned int argument = 0; argument < 6; ++argument) {
        double numbers[] = {10, 3, 8, 2, 12, 4};
        numbers[argument] = qQNaN();
        expectRefused(
            [&] {
                column.createPoint(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5], true,
                                   "CORNER");
            },
            "Invalid argument at index " + std::to_string(argument) + ".");
    }
}
