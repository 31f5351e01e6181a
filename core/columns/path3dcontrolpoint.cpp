#include "core/columns/path3dcontrolpoint.h"

#include "core/columns/columncast.h"
#include "core/columns/nearestpoint.h"
#include "core/columns/path3dparameters.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/frame/undo.h"
#include "core/geometry/point3d.h"

namespace OMC {

namespace pathcmd = tu_timedvalue::path3d;

Path3DPointHandle::Path3DPointHandle(AT_Fnc3dTimedValue& path, const CatmullCtrlPt& point)
    : m_path(&path),
      m_index(point.index),
      m_identity(point.identity)
{}

AT_Fnc3dTimedValue& Path3DPointHandle::path() const
{
    return found(columnCast<AT_Fnc3dTimedValue>(&found(m_path.get())));
}

CatmullCtrlPt Path3DPointHandle::point() const
{
    const AT_Fnc3dTimedValue& column = path();
    BaseObject::validateThreadLock();
    const int count = column.pathSize();
    // Control points come and go ahead of it: it is sought from where it last was.
    for (int step = 0; step < count; ++step) {
        const int index = (m_index + step) % count;
        const CatmullCtrlPt point = column.path(index);
        if (point.identity == m_identity) {
            m_index = index;
            return point;
        }
    }
    BaseObject::throwInvalid();
}

void Path3DPointHandle::run(CO_Command* command, const QString& label) const
{
    undo::manager(path().sceneCommon()).execute(command, label);
}

void Path3DPointHandle::move(const Math::Point3d& position, const QString& label) const
{
    for (const double coordinate : {position.x, position.y, position.z})
        requireFinite(coordinate, 0);
    const int index = point().index;
    run(new pathcmd::MoveCtrlPtCmd(&path(), index, position.x, position.y, position.z), label);
}

void Path3DPointHandle::moveAxis(double coordinate, int axis) const
{
    const CatmullCtrlPt present = point();
    Math::Point3d position{present.x, present.y, present.z};
    (axis == 0 ? position.x : axis == 1 ? position.y : position.z) = coordinate;
    // Required: the label says X for each of the coordinates.
    move(position, Path3DControlPoint::tr("Set 3D Path Point X"));
}

Path3DControlPoint::Path3DControlPoint(AT_Fnc3dTimedValue& timedValue, const CatmullCtrlPt& point)
    : ControlPoint(point.frame),
      m_handle(timedValue, point)
{}

Path3DControlPoint* Path3DControlPoint::at(AT_Fnc3dTimedValue& timedValue, quint64 index)
{
    if (index >= static_cast<quint64>(timedValue.pathSize()))
        return nullptr;
    return new Path3DControlPoint(timedValue, timedValue.path(static_cast<int>(index)));
}

Path3DControlPoint* Path3DControlPoint::at(AT_Fnc3dTimedValue& timedValue, double frame)
{
    const int index =
        nearestPoint(frame, timedValue.pathSize(), [&timedValue](int place) { return timedValue.path(place).frame; });
    return index < 0 ? nullptr : at(timedValue, static_cast<quint64>(index));
}

std::string Path3DControlPoint::__str__() const
{
    return tr("Path3DControlPoint( \"%1\", %2 )")
        .arg(m_handle.path().getName(), QString::number(m_handle.point().frame))
        .toStdString();
}

QVariant Path3DControlPoint::getValue() const
{
    validate();
    return toVariant(new Path3DControlPointValue(m_handle));
}

void Path3DControlPoint::setValue(const QVariant& value)
{
    validate();
    const auto* other = objectFrom<Path3DControlPointValue>(value);
    m_handle.move(other ? Math::Point3d{other->getX(), other->getY(), other->getZ()} : Point3d::valueOf(value),
                  tr("Set 3D Path Point XYZ"));
}

bool Path3DControlPoint::getConstSegment() const
{
    return m_handle.point().constSegment;
}

void Path3DControlPoint::setConstSegment(bool constSegment)
{
    const CatmullCtrlPt point = m_handle.point();
    if (!point.keyframe)
        throw Exception(tr("Control point is not a keyframe. Only keyframes can be set to constant segment."));
    TUVeloBasedTimedValue& velocity = found(m_handle.path().velocity(), [] { return tr("No velocity column set"); });
    m_handle.run(new pathcmd::Path3DVeloCmd(&m_handle.path(),
                                            new pathcmd::SetConstSegFrameCmd(&velocity, point.frame, constSegment)),
                 tr("Set 3D Path Point constant segment"));
}

double Path3DControlPoint::getContinuity() const
{
    return m_handle.point().continuity;
}

void Path3DControlPoint::setContinuity(double continuity)
{
    const CatmullCtrlPt point = m_handle.point();
    path3dparameters::requireContinuity(continuity);
    setParameters(point.tension, continuity, point.bias, tr("Set 3D Path Point continuity"));
}

double Path3DControlPoint::getX() const
{
    return m_handle.point().x;
}

void Path3DControlPoint::setX(double x)
{
    m_handle.moveAxis(x, 0);
}

double Path3DControlPoint::getY() const
{
    return m_handle.point().y;
}

void Path3DControlPoint::setY(double y)
{
    m_handle.moveAxis(y, 1);
}

double Path3DControlPoint::getZ() const
{
    return m_handle.point().z;
}

void Path3DControlPoint::setZ(double z)
{
    m_handle.moveAxis(z, 2);
}

double Path3DControlPoint::getTension() const
{
    return m_handle.point().tension;
}

void Path3DControlPoint::setTension(double tension)
{
    const CatmullCtrlPt point = m_handle.point();
    path3dparameters::requireTension(tension);
    setParameters(tension, point.continuity, point.bias, tr("Set 3D Path Point tension"));
}

double Path3DControlPoint::getBias() const
{
    return m_handle.point().bias;
}

void Path3DControlPoint::setBias(double bias)
{
    const CatmullCtrlPt point = m_handle.point();
    path3dparameters::requireBias(bias);
    setParameters(point.tension, point.continuity, bias, tr("Set 3D Path Point bias"));
}

bool Path3DControlPoint::getKeyframe() const
{
    return m_handle.point().keyframe;
}

void Path3DControlPoint::validate() const
{
    m_handle.point();
}

void Path3DControlPoint::setParameters(double tension, double continuity, double bias, const QString& label)
{
    const int index = m_handle.point().index;
    m_handle.run(new pathcmd::SetParametersCmd(&m_handle.path(), index, tension, continuity, bias), label);
}

Path3DControlPointValue::Path3DControlPointValue(const Path3DPointHandle& handle) : m_handle(handle) {}

std::string Path3DControlPointValue::__str__() const
{
    return tr("Path3DControlPointValue( %1, %2, %3 )")
        .arg(QString::number(getX()), QString::number(getY()), QString::number(getZ()))
        .toStdString();
}

double Path3DControlPointValue::getX() const
{
    return m_handle.point().x;
}

void Path3DControlPointValue::setX(double x)
{
    m_handle.moveAxis(x, 0);
}

double Path3DControlPointValue::getY() const
{
    return m_handle.point().y;
}

void Path3DControlPointValue::setY(double y)
{
    m_handle.moveAxis(y, 1);
}

double Path3DControlPointValue::getZ() const
{
    return m_handle.point().z;
}

void Path3DControlPointValue::setZ(double z)
{
    m_handle.moveAxis(z, 2);
}

} // namespace OMC
