#include "core/geometry/point2d.h"

#include "core/geometry/point3d.h"
#include "core/geometry/strictpoint.h"

#include <array>

namespace OMC {

namespace {

/// Hands the positions that a value tells to `append`, one by one.
template <typename Append>
void readPoints(const QVariant& value, const Append& append)
{
    if (value.typeId() == QMetaType::QVariantList) {
        const auto& list = *static_cast<const QVariantList*>(value.constData());
        if (list.isEmpty())
            return;
        if (!isStrictNumber(list.first())) {
            for (const QVariant& item : list)
                readPoints(item, append);
            return;
        }
    }
    double x = 0.0;
    double y = 0.0;
    Point2d::ConvertQVariant(value, x, y);
    append(x, y);
}

} // namespace

Point2d::Point2d(double x, double y) : x(x), y(y) {}

Point2d::Point2d(const Point2d& other) : BaseObject(other), x(other.x), y(other.y) {}

Point2d::Point2d(const Math::Point2d& point) : x(point.x), y(point.y) {}

Point2d::Point2d(const QVariant& value) : Point2d()
{
    const Math::Point3d point = Point3d::valueOf(value);
    x = point.x;
    y = point.y;
}

Point2d& Point2d::operator=(const Point2d& other)
{
    x = other.x;
    y = other.y;
    return *this;
}

std::string Point2d::__str__() const
{
    return QStringLiteral("Point2d(%1, %2)").arg(x).arg(y).toStdString();
}

void Point2d::translate(const QVariant& vector)
{
    const Math::Point3d way = Point3d::valueOf(vector);
    x += way.x;
    y += way.y;
}

Point2d* Point2d::fromQVariant(const QVariant& value)
{
    return new Point2d(value);
}

void Point2d::ConvertQVariant(const QVariant& value, double& x, double& y)
{
    switch (readStrictPoint(value, std::array{&x, &y})) {
    case StrictReading::Position:
    case StrictReading::Node:
        return;
    case StrictReading::DeadNode:
        throw Exception(tr("Position is invalid."));
    case StrictReading::Unsupported:
        break;
    }
    throw Exception(tr("Unsupported Point2D type."));
}

void Point2d::fromQVariant(const QVariant& value, std::vector<std::unique_ptr<Math::Point2d>>& points)
{
    readPoints(value, [&](double x, double y) {
        points.push_back(std::make_unique<Math::Point2d>(Math::Point2d{x, y}));
    });
}

void Point2d::fromQVariant(const QVariant& value, std::vector<Point2d>& points)
{
    readPoints(value, [&](double x, double y) { points.emplace_back(x, y); });
}

} // namespace OMC
