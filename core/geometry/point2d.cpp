#include "core/geometry/point2d.h"

#include "core/geometry/point3d.h"
#include "core/geometry/strictnumbers.h"
#include "core/host/mo_node.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"

#include <QPointF>

namespace OMC {

Point2d::Point2d(double x, double y) : x(x), y(y) {}

Point2d::Point2d(const Point2d& other) : BaseObject(other), x(other.x), y(other.y) {}

Point2d& Point2d::operator=(const Point2d& other)
{
    x = other.x;
    y = other.y;
    return *this;
}

BaseObject* Point2d::copy() const
{
    return new Point2d(*this);
}

std::string Point2d::__str__() const
{
    return QStringLiteral("Point2d(%1, %2)").arg(x).arg(y).toStdString();
}

void Point2d::ConvertQVariant(const QVariant& value, double& x, double& y)
{
    if (const QObject* object = QVariantToPointer(value)) {
        if (const auto* coordinates = dynamic_cast<const Node_Coordinates*>(object)) {
            x = coordinates->getX();
            y = coordinates->getY();
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
            return;
        }
        if (const auto* wrapper = dynamic_cast<const Node*>(object)) {
            const MO_Node* node = wrapper->getNode();
            if (!node)
                throw Exception(tr("Position is invalid."));
            validateThreadLock();
            x = node->x();
            y = double(node->y()) - Node_Coordinates::networkOffset;
            return;
        }
        throw Exception(tr("Unsupported Point2D type."));
    }
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::Double:
        x = value.toDouble();
        return;
    case QMetaType::QVariantList:
        if (readStrictList<2>(value.toList(), {&x, &y}))
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
    throw Exception(tr("Unsupported Point2D type."));
}

} // namespace OMC
