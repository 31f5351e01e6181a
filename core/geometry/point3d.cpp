#include "core/geometry/point3d.h"

#include "core/columns/columnvalue.h"
#include "core/columns/path3dcontrolpoint.h"
#include "core/geometry/matrix.h"
#include "core/geometry/point2d.h"
#include "core/geometry/strictpoint.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"

#include <array>

namespace OMC {

namespace {

/// The place of a node in the plane of the node view: z stays 0.
Math::Point3d placeOf(const Node_Coordinates& coordinates)
{
    return {double(coordinates.getX()), double(coordinates.getY()), 0.0};
}

/// The position of a single object; (0, 0, 0) for one without a position.
Math::Point3d positionOf(const QObject* object)
{
    if (const auto* matrix = dynamic_cast<const Matrix*>(object))
        return matrix->getMatrix().origin();
    if (const auto coordinates = Point3d::coordinatesOf(object))
        return Math::Point3d() + *coordinates;
    if (const auto* point = dynamic_cast<const Path3DControlPoint*>(object))
        return {point->getX(), point->getY(), point->getZ()};
    // A frame of a path gives its position, and that is a point.
    if (const auto* value = dynamic_cast<const ColumnValue*>(object))
        return Point3d::valueOf(value->getValue());
    if (const auto* node = dynamic_cast<const Node*>(object)) {
        MO_Node* place = node->getNode();
        if (place) // One that is gone is refused by its coordinates.
            BaseObject::validateThreadLock();
        return placeOf(Node_Coordinates(place));
    }
    if (const auto* coordinates = dynamic_cast<const Node_Coordinates*>(object))
        return placeOf(*coordinates);
    return {};
}

/// The sum of what a list holds. A matrix transforms the sum up to it, so the order of the list matters.
Math::Point3d sumOf(const QList<QVariant>& list)
{
    Math::Point3d sum;
    const std::array<double*, 3> coordinates = {&sum.x, &sum.y, &sum.z};
    std::size_t numbers = 0;
    for (const QVariant& item : list) {
        if (const QObject* object = BaseObject::QVariantToPointer(item)) {
            if (const auto* matrix = dynamic_cast<const Matrix*>(object))
                sum = matrix->getMatrix() * sum;
            else if (const auto way = Point3d::coordinatesOf(object))
                sum = sum + *way;
            continue;
        }
        bool isNumber = false;
        const double number = item.toDouble(&isNumber);
        // Required: a fourth number is added to x again.
        if (isNumber)
            *coordinates[numbers++ % coordinates.size()] += number;
    }
    return sum;
}

} // namespace

Point3d::Point3d(double x, double y, double z) : x(x), y(y), z(z) {}

Point3d::Point3d(const Point3d& other) : BaseObject(other), x(other.x), y(other.y), z(other.z) {}

Point3d::Point3d(const QVariant& value) : Point3d()
{
    const Math::Point3d point = valueOf(value);
    x = point.x;
    y = point.y;
    z = point.z;
}

Point3d& Point3d::operator=(const Point3d& other)
{
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
}

std::string Point3d::__str__() const
{
    return QStringLiteral("Point3d(%1, %2, %3)").arg(x).arg(y).arg(z).toStdString();
}

void Point3d::translate(const QVariant& vector)
{
    const Math::Point3d way = valueOf(vector);
    x += way.x;
    y += way.y;
    z += way.z;
}

Point3d* Point3d::fromQVariant(const QVariant& value)
{
    return new Point3d(value);
}

Math::Point3d Point3d::valueOf(const QVariant& value)
{
    if (const QObject* object = QVariantToPointer(value))
        return positionOf(object);
    if (value.typeId() == QMetaType::QVariantList)
        return sumOf(*static_cast<const QVariantList*>(value.constData()));
    if (value.typeId() == QMetaType::QStringList)
        return sumOf(value.toList());
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber ? Math::Point3d{number, number, number} : Math::Point3d();
}

std::optional<Math::Vector3d> Point3d::coordinatesOf(const QObject* object)
{
    // A vector is a point too, and tells the same as either.
    if (const auto* point = dynamic_cast<const Point3d*>(object))
        return Math::Vector3d{point->x, point->y, point->z};
    if (const auto* point = dynamic_cast<const Point2d*>(object))
        return Math::Vector3d{point->x, point->y, 0.0};
    return std::nullopt;
}

void Point3d::ConvertQVariant(const QVariant& value, double& x, double& y, double& z)
{
    switch (readStrictPoint(value, std::array{&x, &y, &z})) {
    case StrictReading::Position:
        return;
    case StrictReading::DeadNode:
        throw Exception(tr("Position is invalid."));
    case StrictReading::Node:
        // Required: a node is refused after its coordinates were written. No caller takes a node here.
    case StrictReading::Unsupported:
        break;
    }
    throw Exception(tr("Unsupported Point3D type."));
}

} // namespace OMC
