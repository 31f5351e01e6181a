#include "core/geometry/point3d.h"

#include "core/geometry/point2d.h"
#include "core/geometry/strictnumbers.h"
#include "core/host/mo_node.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"

#include <QPointF>

namespace OMC {

Point3d::Point3d(double x, double y, double z) : x(x), y(y), z(z) {}

Point3d::Point3d(const Point3d& other) : BaseObject(other), x(other.x), y(other.y), z(other.z) {}

Point3d& Point3d::operator=(const Point3d& other)
{
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
}

BaseObject* Point3d::copy() const
{
    return new Point3d(*this);
}

std::string Point3d::__str__() const
{
    return QStringLiteral("Point3d(%1, %2, %3)").arg(x).arg(y).arg(z).toStdString();
}

void Point3d::ConvertQVariant(const QVariant& value, double& x, double& y, double& z)
{
    if (const QObject* object = QVariantToPointer(value)) {
        if (const auto* coordinates = dynamic_cast<const Node_Coordinates*>(object)) {
            x = coordinates->getX();
            y = coordinates->getY();
            z = coordinates->getZ();
            return;
        }
        if (const auto* point = dynamic_cast<const Point2d*>(object)) {
            x = point->x;
            y = point->y;
            return;
        }
        if (const auto* point = dynamic_cast<const Point3d*>(object)) {
            x = point->x;
            y = point->y;
            z = point->z;
            return;
        }
        if (const auto* wrapper = dynamic_cast<const Node*>(object)) {
            const MO_Node* node = wrapper->getNode();
            if (!node)
                throw Exception(tr("Position is invalid."));
            validateThreadLock();
            x = node->x();
            y = double(node->y()) - Node_Coordinates::networkOffset;
            z = node->z();
            // Refused below all the same, after the coordinates were written: required, no caller takes a node here.
        }
        throw Exception(tr("Unsupported Point3D type."));
    }
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::Double:
        x = value.toDouble();
        return;
    case QMetaType::QVariantList:
        if (readStrictList<3>(value.toList(), {&x, &y, &z}))
            return;
        break;
    case QMetaType::QPoint:
    case QMetaType::QPointF: {
        const QPointF point = value.toPointF();
        x = point.x();
        y = point.y();
        return;
    }
    default:
        break;
    }
    throw Exception(tr("Unsupported Point3D type."));
}

} // namespace OMC
