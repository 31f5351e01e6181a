#include "core/columns/path3dxyzcolumnvalue.h"

#include "core/columns/path3dcolumnvalue.h"
#include "core/frame/finite.h"
#include "core/geometry/point3d.h"

namespace OMC {

std::string Path3DXYZColumnValue::__str__() const
{
    return tr("Path3DXYZColumnValue(\"%1\", %2)").arg(column().getName(), QString::number(frame())).toStdString();
}

bool Path3DXYZColumnValue::filterDir(std::string& name) const
{
    return name != "frame" && name != "value" && ColumnValue::filterDir(name);
}

double Path3DXYZColumnValue::getFrame() const
{
    column();
    return frame();
}

QVariant Path3DXYZColumnValue::getValue() const
{
    const auto [x, y, z] = position();
    return QVariant::fromValue(Point3d(x, y, z));
}

void Path3DXYZColumnValue::setValue(const QVariant& value)
{
    Path3DColumnValue(&column(), frame()).setValue(value);
}

double Path3DXYZColumnValue::getX() const
{
    return position().x;
}

void Path3DXYZColumnValue::setX(double x)
{
    setAxis(x, 0);
}

double Path3DXYZColumnValue::getY() const
{
    return position().y;
}

void Path3DXYZColumnValue::setY(double y)
{
    setAxis(y, 1);
}

double Path3DXYZColumnValue::getZ() const
{
    return position().z;
}

void Path3DXYZColumnValue::setZ(double z)
{
    setAxis(z, 2);
}

Path3DXYZColumnValue::Position Path3DXYZColumnValue::position() const
{
    Position position;
    column().getValue(frame(), position.x, position.y, position.z);
    return position;
}

void Path3DXYZColumnValue::setAxis(double value, int axis)
{
    AT_Fnc3dTimedValue& path = column();
    requireFinite(value, 0);
    Path3DColumnValue(&path, frame()).setValueAxis(value, axis);
}

} // namespace OMC
