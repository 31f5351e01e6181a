#include "core/columns/path3dcolumn.h"

#include "core/columns/columnedit.h"
#include "core/columns/path3dcolumnvalue.h"
#include "core/columns/path3dparameters.h"
#include "core/columns/path3dxyzcolumnvalue.h"
#include "core/columns/velobasedcolumn.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/host/at_fnc3dtimedvalue.h"
#include "core/host/sc_scene.h"

namespace OMC {

namespace pathcmd = tu_timedvalue::path3d;

Path3DColumn::Path3DColumn(AT_Fnc3dTimedValue* timedValue) : KeyframeableColumn(timedValue) {}

std::string Path3DColumn::__str__() const
{
    return described(tr("Path3DColumn(\"%1\")"));
}

QVariant Path3DColumn::getEntry(double frame, int) const
{
    auto& column = path();
    requireFinite(frame, 0);
    return toVariant(new Path3DXYZColumnValue(&column, frame));
}

void Path3DColumn::setEntry(double frame, QVariant value, int)
{
    auto& column = path();
    requireFinite(frame, 0);
    Path3DColumnValue(&column, frame).setValue(value);
}

QVariant Path3DColumn::get(int frame) const
{
    return toVariant(new Path3DColumnValue(&target(), frame));
}

void Path3DColumn::set(int frame, const QVariant& value)
{
    Path3DColumnValue(&target(), frame).setValue(value);
}

void Path3DColumn::createPoint(double frame, double x, double y, double z, double tension, double continuity,
                               double bias)
{
    auto& column = path();
    const double numbers[] = {frame, x, y, z};
    for (unsigned int argument = 0; argument < std::size(numbers); ++argument)
        requireFinite(numbers[argument], argument);
    path3dparameters::requireTension(tension);
    path3dparameters::requireContinuity(continuity);
    path3dparameters::requireBias(bias);

    ColumnEdit edit(column, tr("Add 3D Path Key Frame"));
    double present[3];
    column.getValue(frame, present[0], present[1], present[2]);
    edit.run(new pathcmd::AddKeyFrameCmd(&column, frame, present[0], present[1], present[2]));
    CatmullCtrlPt point;
    if (!column.keyAt(frame, point))
        throw Exception(tr("Unable to create point."));
    edit.run(new pathcmd::MoveCtrlPtCmd(&column, point.index, x, y, z));
    edit.run(new pathcmd::SetParametersCmd(&column, point.index, tension, continuity, bias));
}

void Path3DColumn::removePoint(int index)
{
    auto& column = path();
    // Required: the first control point stays.
    if (index < 1 || index >= column.pathSize())
        throw Exception(tr("Invalid Point Index."));
    ColumnEdit edit(column, tr("Remove 3D Path Point"));
    edit.run(new pathcmd::RemoveCtrlPtCmd(&column, index));
    edit.run(new pathcmd::TrimCtrlPtsCmd(&column));
}

QList<QVariant> Path3DColumn::convertToSeparate(const QString& conversion)
{
    auto& column = path();
    const bool fits = conversion == QLatin1String("BEZIER_FITTER");
    if (!fits && conversion != QLatin1String("TRANSFORM_MATRIX"))
        throw Exception(
            tr("Invalid conversion %1. Accepted values are : TRANSFORM_MATRIX, BEZIER_FITTER").arg(conversion));
    SC_SceneCommon* scene = column.sceneCommon();
    ColumnEdit edit(column, tr("Create Separate beziers"));
    QList<QVariant> columns;
    for (TUBezierTimedValue* made : AT_Fnc3dConverter::convertToSeparate(
             column, fits ? AT_Fnc3dConverter::BezierFitter : AT_Fnc3dConverter::TransformMatrix)) {
        edit.run(new SC_SceneCmds::AddTimedValueCmd(scene, made, -1, -1));
        columns.append(toVariant(Column::getWrapped(made)));
    }
    return columns;
}

Obj Path3DColumn::getVelocityColumn() const
{
    return Obj(Column::getWrapped(&found(path().velocity(), [] { return tr("No velocity column set"); })));
}

// A wrapper leads to the column that it was made for, or to nothing.
AT_Fnc3dTimedValue& Path3DColumn::path() const
{
    return static_cast<AT_Fnc3dTimedValue&>(target());
}

} // namespace OMC
