#include "core/columns/path3dcolumn.h"

#include "core/columns/columnlist.h"
#include "core/columns/path3dcolumnvalue.h"
#include "core/columns/path3dcontrolpoint.h"
#include "core/columns/path3dxyzcolumnvalue.h"
#include "core/columns/quaternioncolumn.h"
#include "core/columns/velobasedcolumn.h"
#include "core/geometry/point3d.h"
#include "tests/core/support/animation.h"
#include "tests/core/support/standincurve.h"

using namespace OMC;

namespace {

class Path3DColumnTest : public AnimationTest {
protected:
    Path3DColumnTest()
    {
        path.createPoint(1, 0, 0, 0, 0, 0, 0);
        path.createPoint(20, 10, 5, -2, 0.5, -0.25, 0.125);
        manager().clearHistory();
    }
    Path3DColumnValue at(double frame) const { return Path3DColumnValue(path.getTimedValue(), frame); }
    Point3d placeAt(double frame) const { return Point3d(at(frame).getValue()); }
    std::unique_ptr<Path3DControlPoint> point(quint64 index) const
    {
        return std::unique_ptr<Path3DControlPoint>(
            Path3DControlPoint::at(static_cast<AT_Fnc3dTimedValue&>(*path.getTimedValue()), index));
    }

    Path3DColumn path = *objectIn<Path3DColumn>(ColumnList(scene()).create("3D_PATH", "Way", QVariant()));
};

} // namespace

TEST_F(Path3DColumnTest, APathOfNoEngineMakesNoPointsAndHasNoVelocity)
{
    StandInPath other(sceneCommon());
    Path3DColumn column(&other);
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { column.createPoint(1, 0, 0, 0, 0, 0, 0); }, "Unable to create point."},
        {[&] { column.getVelocityColumn(); }, "No velocity column set"},
        {[&] { column.removePoint(0); }, "Invalid Point Index."},
        {[&] { column.removePoint(1); }, "Invalid Point Index."},
        {[&] { column.setEntry(1, 5, -1); }, "Failed to create point."},
        {[&] { Path3DColumnValue(&other, 1).setValueAxis(1, 0); }, "Failed to create point."},
    };
    for (const auto& [call, sentence] : rows)
        EXPECT_EQ(failureOf(call), sentence);
    EXPECT_TRUE(labels().isEmpty());
}

TEST_F(Path3DColumnTest, EachEditIsOneEntryUnderItsLabel)
{
    const struct {
        std::function<void()> edit;
        const char* label;
    } rows[] = {
        {[this] { path.createPoint(40, 1, 2, 3, 0, 0, 0); }, "Add 3D Path Key Frame"},
        {[this] { path.removePoint(1); }, "Remove 3D Path Point"},
        {[this] { path.convertToSeparate("TRANSFORM_MATRIX"); }, "Create Separate beziers"},
        {[this] { path.convertToSeparate("BEZIER_FITTER"); }, "Create Separate beziers"},
        {[this] {
             at(7).setValue(QVariantList{1, 2, 3});
         },
         "Add 3D Path Key Frame"},
        {[this] { at(20).setValueAxis(8, 1); }, "Add 3D Path Key Frame"},
        {[this] { at(7).setKey(true); }, "Add Path Control Point"},
        {[this] { at(20).setKey(false); }, "Remove Path Control Point"},
        {[this] { at(20).setTension(1); }, "Setting tension on Way"},
        {[this] { at(20).setContinuity(1); }, "Setting continuity on Way"},
        {[this] { at(20).setBias(1); }, "Setting bias on Way"},
        {[this] { at(1).setConstSegment(true); }, "Setting const-segment on Way"},
        {[this] { point(1)->setTension(1); }, "Set 3D Path Point tension"},
        {[this] { point(1)->setContinuity(1); }, "Set 3D Path Point continuity"},
        {[this] { point(1)->setBias(1); }, "Set 3D Path Point bias"},
        {[this] { point(1)->setConstSegment(true); }, "Set 3D Path Point constant segment"},
        {[this] {
             point(1)->setValue(QVariantList{1, 2, 3});
         },
         "Set 3D Path Point XYZ"},
        {[this] { point(1)->setX(1); }, "Set 3D Path Point X"},
        {[this] { point(1)->setY(1); }, "Set 3D Path Point X"},
        {[this] { point(1)->setZ(1); }, "Set 3D Path Point X"},
        {[this] { Path3DXYZColumnValue(path.getTimedValue(), 20).setZ(4); }, "Add 3D Path Key Frame"},
        {[this] { path.setHoldStep(3); }, "Set Step for Hold"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const QByteArray before = saved();
        row.edit();
        EXPECT_EQ(labels(), QStringList(row.label));
        EXPECT_NE(saved(), before);
        expectUndoable(before);
        undo();
        manager().clearHistory();
    }
}

TEST_F(Path3DColumnTest, WhatDoesNotFitIsRefusedInItsOwnSentence)
{
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[this] { path.convertToSeparate("LINES"); },
         "Invalid conversion LINES. Accepted values are : TRANSFORM_MATRIX, BEZIER_FITTER"},
        {[this] { at(5).setTension(2); }, "Tension can only be set on a keyframe."},
        {[this] { at(5).setContinuity(2); }, "Continuity can only be set on a keyframe."},
        {[this] { at(5).setBias(2); }, "Bias can only be set on a keyframe."},
        {[this] { at(5).setConstSegment(true); }, "Const-segment can only be set on a keyframe."},
        {[this] { at(20).setTension(1.01); }, "Tension must be between -1.0 and 1.0."},
        {[this] { at(20).setContinuity(-1.01); }, "Continuity must be between -1.0 and 1.0."},
        {[this] { at(20).setBias(qQNaN()); }, "Bias must be between -1.0 and 1.0."},
        {[this] { at(20).setValueAxis("x", 0); }, "Invalid argument, expected a number value."},
        {[this] { at(20).setValueAxis(1, 3); }, "Invalid argument at index 1."},
        {[this] { at(20).setValueAxis(qInf(), 0); }, "Invalid argument at index 0."},
    };
    for (const auto& [call, sentence] : rows)
        expectRefused(call, sentence);
}

TEST_F(Path3DColumnTest, APointIsReadOfWhatAPathGives)
{
    EXPECT_TRUE(placeAt(20) == Point3d(10, 5, -2));
    EXPECT_TRUE(Point3d(asArgument(*point(1))) == Point3d(10, 5, -2));
    EXPECT_TRUE(Point3d(asArgument(at(20))) == Point3d(10, 5, -2));
    EXPECT_TRUE(Point3d(asArgument(Path3DXYZColumnValue(path.getTimedValue(), 20))) == Point3d(10, 5, -2));
    const QVariant place = point(1)->getValue();
    EXPECT_TRUE(Point3d(place) == Point3d()) << "required: it is none of the objects with a position";
    point(0)->setValue(place);
    EXPECT_TRUE(placeAt(1) == Point3d(10, 5, -2));
}

TEST_F(Path3DColumnTest, APathOfRotationsIsAPath)
{
    const Obj made = ColumnList(scene()).create("QUATERNION_PATH", "Turn", QVariant());
    auto& turn = *objectIn<QuaternionColumn>(made);
    EXPECT_EQ(turn.__str__(), "QuaternionColumn(Turn)");
    EXPECT_NE(objectIn<QuaternionColumn>(Obj(turn.copy())), nullptr);
    EXPECT_NE(objectIn<QuaternionColumn>(turn.__iter__()), nullptr);
    turn.createPoint(1, 0, 0, 90, 0, 0, 0);
    EXPECT_EQ(objectFrom<Path3DXYZColumnValue>(turn.getEntry(1, -1))->getZ(), 90);
    EXPECT_NE(objectIn<VeloBasedColumn>(turn.getVelocityColumn()), nullptr);
    EXPECT_EQ(path.__str__(), "Path3DColumn(\"Way\")");
}

TEST_F(Path3DColumnTest, WhatAPathThatIsGoneGaveSaysSo)
{
    Path3DColumnValue value = at(20);
    Path3DXYZColumnValue place(path.getTimedValue(), 20);
    const auto control = point(1);
    const QVariant position = control->getValue();
    const auto* coordinates = objectFrom<Path3DControlPointValue>(position);
    path.getTimedValue()->expireWeakPointers();
    for (const auto& call : std::initializer_list<std::function<void()>>{
             [&] { value.getValue(); }, [&] { value.setValue(1); }, [&] { value.getKey(); },
             [&] { value.setKey(true); }, [&] { value.getBias(); }, [&] { value.setBias(0); }, [&] { value.__str__(); },
             [&] { place.getX(); }, [&] { place.setX(1); }, [&] { place.__str__(); }, [&] { control->getX(); },
             [&] { control->setX(1); }, [&] { control->getValue(); }, [&] { control->__str__(); },
             [&] { coordinates->getX(); }, [&] { path.createPoint(1, 1, 1, 1, 0, 0, 0); },
             [&] { path.getVelocityColumn(); }, [&] { path.getEntry(1, -1); }})
        EXPECT_EQ(failureOf(call), "Object is no longer valid.");
}
