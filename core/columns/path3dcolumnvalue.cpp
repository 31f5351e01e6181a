#include "core/columns/path3dcolumnvalue.h"

#include "core/columns/columnedit.h"
#include "core/columns/path3dparameters.h"
#include "core/columns/path3dxyzcolumnvalue.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/geometry/point3d.h"

#include <cstdio>

namespace OMC {

namespace pathcmd = tu_timedvalue::path3d;

std::string Path3DColumnValue::__str__() const
{
    return tr("Path3DColumnValue(\"%1\", %2)").arg(column().getName(), QString::number(frame())).toStdString();
}

double Path3DColumnValue::getFrame() const
{
    column();
    return frame();
}

QVariant Path3DColumnValue::getValue() const
{
    return toVariant(new Path3DXYZColumnValue(&column(), frame()));
}

void Path3DColumnValue::setValue(const QVariant& value)
{
    setValueAxis(value, -1);
}

void Path3DColumnValue::setValueAxis(const QVariant& value, int axis)
{
    const Place here = place();
    AT_Fnc3dTimedValue& column = here.column;
    Math::Point3d position;
    if (axis < 0) {
        position = Point3d::valueOf(value);
    } else {
        bool read = false;
        const double number = value.toDouble(&read);
        if (!read)
            throw Exception(tr("Invalid argument, expected a number value."));
        if (axis > 2)
            throwInvalidArgument(1);
        column.getValue(frame(), position.x, position.y, position.z);
        (axis == 0 ? position.x : axis == 1 ? position.y : position.z) = number;
    }
    for (const double coordinate : {position.x, position.y, position.z})
        requireFinite(coordinate, 0);

    ColumnEdit edit(column, tr("Add 3D Path Key Frame"));
    if (!here.isKey)
        edit.run(new pathcmd::AddKeyFrameCmd(&column, frame(), position.x, position.y, position.z));
    CatmullCtrlPt point;
    if (!column.keyAt(frame(), point))
        throw Exception(tr("Failed to create point."));
    edit.run(new pathcmd::MoveCtrlPtCmd(&column, point.index, position.x, position.y, position.z));
}

bool Path3DColumnValue::getKey() const
{
    return place().isKey;
}

void Path3DColumnValue::setKey(bool key)
{
    const Place here = place();
    AT_Fnc3dTimedValue& column = here.column;
    if (key == here.isKey)
        return;
    if (key) {
        double x, y, z;
        column.getValue(frame(), x, y, z);
        ColumnEdit edit(column, tr("Add Path Control Point"));
        edit.run(new pathcmd::AddKeyFrameCmd(&column, frame(), x, y, z));
        if (!column.isKey(frame()))
            unexpected::fail(unexpected::Error);
    } else {
        CO_Command* command = nullptr;
        column.removeKeyframes(frame(), frame(), &command);
        ColumnEdit edit(column, tr("Remove Path Control Point"));
        if (command)
            edit.run(command);
        if (column.isKey(frame()))
            unexpected::fail(unexpected::Error);
    }
}

bool Path3DColumnValue::getConstSegment() const
{
    const Place here = place();
    return here.hasPoint && here.point.constSegment;
}

void Path3DColumnValue::setConstSegment(bool constSegment)
{
    const Place key = keyPlace(tr("Const-segment can only be set on a keyframe."));
    if (constSegment == key.point.constSegment)
        return;
    TUVeloBasedTimedValue& velocity = found(key.column.velocity(), [] { return tr("No velocity column set"); });
    ColumnEdit edit(key.column, tr("Setting const-segment on ") + key.column.getDisplayName());
    edit.run(
        new pathcmd::Path3DVeloCmd(&key.column, new pathcmd::SetConstSegFrameCmd(&velocity, frame(), constSegment)));
}

double Path3DColumnValue::getTension() const
{
    return governingPoint().tension;
}

void Path3DColumnValue::setTension(double tension)
{
    const Place key = keyPlace(tr("Tension can only be set on a keyframe."));
    path3dparameters::requireTension(tension);
    setParameters(key, tension, key.point.continuity, key.point.bias, tr("Setting tension on "));
}

double Path3DColumnValue::getContinuity() const
{
    return governingPoint().continuity;
}

void Path3DColumnValue::setContinuity(double continuity)
{
    const Place key = keyPlace(tr("Continuity can only be set on a keyframe."));
    path3dparameters::requireContinuity(continuity);
    setParameters(key, key.point.tension, continuity, key.point.bias, tr("Setting continuity on "));
}

double Path3DColumnValue::getBias() const
{
    return governingPoint().bias;
}

// Required: the line on the standard output.
void Path3DColumnValue::setBias(double bias)
{
    const Place key = keyPlace(tr("Bias can only be set on a keyframe."));
    path3dparameters::requireBias(bias);
    const bool done = setParameters(key, key.point.tension, key.point.continuity, bias, tr("Setting bias on "));
    std::printf("RESULT: %f \n", static_cast<double>(done));
}

Obj Path3DColumnValue::getKeyframePrevious() const
{
    return previousOf(*this);
}

Obj Path3DColumnValue::getKeyframeNext() const
{
    return nextOf(*this);
}

bool Path3DColumnValue::setParameters(const Place& key, double tension, double continuity, double bias,
                                      const QString& label)
{
    ColumnEdit edit(key.column, label + key.column.getDisplayName());
    return edit.run(new pathcmd::SetParametersCmd(&key.column, key.point.index, tension, continuity, bias));
}

} // namespace OMC
