#include "core/geometry/vectors.h"

namespace OMC {

Vector2d::Vector2d(double x, double y) : Point2d(x, y) {}

Vector2d::Vector2d(const Vector2d& other) : Point2d(other) {}

Vector2d::Vector2d(const Math::Vector2d& vector) : Point2d(vector.x, vector.y) {}

Vector2d::Vector2d(const QVariant& value) : Point2d(value) {}

Vector2d& Vector2d::operator=(const Vector2d& other)
{
    Point2d::operator=(other);
    return *this;
}

std::string Vector2d::__str__() const
{
    return tr("Vector2d(%1, %2)").arg(x).arg(y).toStdString();
}

Vector2d* Vector2d::fromQVariant(const QVariant& value)
{
    return new Vector2d(value);
}

Vector3d::Vector3d(double x, double y, double z) : Point3d(x, y, z) {}

Vector3d::Vector3d(const Vector3d& other) : Point3d(other) {}

Vector3d::Vector3d(const QVariant& value) : Point3d(value) {}

Vector3d& Vector3d::operator=(const Vector3d& other)
{
    Point3d::operator=(other);
    return *this;
}

std::string Vector3d::__str__() const
{
    return tr("Vector3d(%1, %2, %3)").arg(x).arg(y).arg(z).toStdString();
}

Vector3d* Vector3d::fromQVariant(const QVariant& value)
{
    return new Vector3d(value);
}

} // namespace OMC
