#include "core/scene/sceneunitconverter.h"

#include "core/frame/found.h"
#include "core/geometry/vectors.h"
#include "core/host/sc_metrics.h"
#include "core/host/sc_scene.h"

#include <memory>

namespace OMC {

namespace {

enum class Kind { Point2, Point3, Vector };

struct Place {
    Math::Point3d point;
    Kind kind;
};

[[noreturn]] void throwNoPoint()
{
    throw Exception(SceneUnitConverter::tr("Unable to convert the point."));
}

Place placeIn(const QVariant& value)
{
    const QObject* object = BaseObject::QVariantToPointer(value);
    if (!object) {
        const std::unique_ptr<Point3d> point(Point3d::fromQVariant(value));
        if (!point)
            throwNoPoint();
        return {{point->x, point->y, point->z}, Kind::Point3};
    }
    if (const auto* vector = dynamic_cast<const Vector3d*>(object))
        return {{vector->x, vector->y, vector->z}, Kind::Vector};
    if (const auto* vector = dynamic_cast<const Vector2d*>(object))
        return {{vector->x, vector->y, 0.0}, Kind::Vector};
    if (const auto* point = dynamic_cast<const Point3d*>(object))
        return {{point->x, point->y, point->z}, Kind::Point3};
    if (const auto* point = dynamic_cast<const Point2d*>(object))
        return {{point->x, point->y, 0.0}, Kind::Point2};
    throwNoPoint();
}

/// A converted point as an object of the kind that came in.
QVariant objectOf(const Math::Point3d& point, Kind kind)
{
    switch (kind) {
    case Kind::Point3:
        return toVariant(new Point3d(point.x, point.y, point.z));
    case Kind::Point2:
        return toVariant(new Point2d(point.x, point.y));
    case Kind::Vector:
        break;
    }
    // A vector is converted and then refused: required as it is.
    throwNoPoint();
}

using Factor = double (SC_SceneMetrics::*)() const;

/// The factors along the axes, in the order of their names.
struct Factors {
    Factor x;
    Factor y;
    Factor z;
};

constexpr Factors oglToField = {&SC_SceneMetrics::fromOGLFactorX, &SC_SceneMetrics::fromOGLFactorY,
                                &SC_SceneMetrics::fromOGLFactorZ};
constexpr Factors fieldToOgl = {&SC_SceneMetrics::toOGLFactorX, &SC_SceneMetrics::toOGLFactorY,
                                &SC_SceneMetrics::toOGLFactorZ};

double scaled(double value, const QString& axis, const SC_SceneMetrics& metrics, const Factors& factors)
{
    const QString name = axis.toLower();
    if (name == QLatin1String("x"))
        return value * (metrics.*factors.x)();
    if (name == QLatin1String("y"))
        return value * (metrics.*factors.y)();
    if (name == QLatin1String("z"))
        return value * (metrics.*factors.z)();
    throw Exception(SceneUnitConverter::tr("Invalid axis provided -- only X,Y,Z is allowed."));
}

} // namespace

SceneUnitConverter::SceneUnitConverter(TUScene* scene) : UnguardedView(scene) {}

std::string SceneUnitConverter::__str__() const
{
    return "SceneUnitConverter()";
}

QVariant SceneUnitConverter::toField(const QVariant& point)
{
    const SC_SceneMetrics& sceneMetrics = metrics();
    const Place place = placeIn(point);
    return objectOf(sceneMetrics.fromOGL(place.point), place.kind);
}

double SceneUnitConverter::toField(double value, const QString& axis)
{
    return scaled(value, axis, metrics(), oglToField);
}

QVariant SceneUnitConverter::toOgl(const QVariant& point)
{
    const SC_SceneMetrics& sceneMetrics = metrics();
    const Place place = placeIn(point);
    return objectOf(sceneMetrics.toOGL(place.point), place.kind);
}

double SceneUnitConverter::toOgl(double value, const QString& axis)
{
    return scaled(value, axis, metrics(), fieldToOgl);
}

const SC_SceneMetrics& SceneUnitConverter::metrics() const
{
    return found(target().metrics());
}

} // namespace OMC
