#include "core/geometry/strictpoint.h"

#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "core/host/mo_node.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"

#include <QPointF>

#include <algorithm>
#include <initializer_list>

namespace OMC {

namespace {

/// Writes as many of the values as there are places, and as there are values.
StrictReading write(std::span<double* const> coordinates, std::initializer_list<double> values,
                    StrictReading reading = StrictReading::Position)
{
    const double* value = values.begin();
    for (double* coordinate : coordinates.first(std::min(coordinates.size(), values.size())))
        *coordinate = *value++;
    return reading;
}

StrictReading readObject(const QObject* object, std::span<double* const> coordinates)
{
    if (const auto* view = dynamic_cast<const Node_Coordinates*>(object))
        return write(coordinates, {double(view->getX()), double(view->getY()), double(view->getZ())});
    if (const auto* point = dynamic_cast<const Point2d*>(object))
        return write(coordinates, {point->x, point->y});
    if (const auto* point = dynamic_cast<const Point3d*>(object))
        return write(coordinates, {point->x, point->y, point->z});
    if (const auto* wrapper = dynamic_cast<const Node*>(object)) {
        const MO_Node* node = wrapper->getNode();
        if (!node)
            return StrictReading::DeadNode;
        BaseObject::validateThreadLock();
        const double y = double(node->y()) - Node_Coordinates::networkOffset;
        return write(coordinates, {double(node->x()), y, double(node->z())}, StrictReading::Node);
    }
    return StrictReading::Unsupported;
}

} // namespace

bool isStrictNumber(const QVariant& value)
{
    return value.typeId() == QMetaType::Int || value.typeId() == QMetaType::Double;
}

bool readStrictList(const QList<QVariant>& list, std::span<double* const> coordinates)
{
    bool taken = false;
    const qsizetype count = std::min(list.size(), static_cast<qsizetype>(coordinates.size()));
    for (qsizetype index = 0; index < count; ++index) {
        taken = isStrictNumber(list[index]);
        if (taken)
            *coordinates[static_cast<std::size_t>(index)] = list[index].toDouble();
    }
    return taken;
}

StrictReading readStrictPoint(const QVariant& value, std::span<double* const> coordinates)
{
    if (const QObject* object = BaseObject::QVariantToPointer(value))
        return readObject(object, coordinates);
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::Double:
        return write(coordinates, {value.toDouble()});
    case QMetaType::QVariantList:
        if (readStrictList(*static_cast<const QVariantList*>(value.constData()), coordinates))
            return StrictReading::Position;
        break;
    case QMetaType::QPoint:
    case QMetaType::QPointF: {
        const QPointF point = value.toPointF();
        return write(coordinates, {point.x(), point.y()});
    }
    default:
        break;
    }
    return StrictReading::Unsupported;
}

} // namespace OMC
