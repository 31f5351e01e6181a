#include "core/geometry/matrix.h"

#include "core/geometry/matrixarguments.h"
#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "core/geometry/vectors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace OMC {

namespace {

/// A variant with a new object, which goes to whoever takes it out.
QVariant objectVariant(BaseObject* object)
{
    return toVariant(object);
}

/// Required: the index of an iteration stops here, and a script's loop doesn't see the last cell.
constexpr int lastIndex = Matrix::cellCount - 1;

void requireCell(int index)
{
    if (index < 0 || index >= Matrix::cellCount)
        throw Exception(Matrix::tr("Index is out of range."));
}

/// Refuses a projection whose volume has no size, or none that is finite.
void requireVolume(bool projected)
{
    if (!projected)
        throw Exception(Matrix::tr("The volume of the projection is empty."));
}

QVariant vectorVariant(const Math::Vector3d& vector)
{
    return QVariant::fromValue(Vector3d(vector.x, vector.y, vector.z));
}

} // namespace

struct Matrix::Private : Recycled {
    Math::Matrix4x4 matrix;
    int index = 0; ///< The cell where an iteration stands.
};

Matrix::Matrix() : d(std::make_unique<Private>()) {}

Matrix::Matrix(const Math::Matrix4x4& matrix) : d(new Private{{}, matrix}) {}

Matrix::Matrix(const Matrix& other) : BaseObject(other), d(new Private{{}, other.d->matrix}) {}

Matrix::Matrix(const QVariant& value) : Matrix(valueOf(value)) {}

Matrix::Matrix(const QVariant& axis, const QVariant& origin)
    : Matrix(Math::Matrix4x4(vectorOr(axis, {0, 1, 0}), pointOr(origin, {})))
{}

Matrix::~Matrix() = default;

Matrix& Matrix::operator=(const Matrix& other)
{
    d->matrix = other.d->matrix;
    return *this;
}

std::string Matrix::__str__() const
{
    QString text = tr("Matrix( %1, %2, %3, %4,") + QStringLiteral("\n        %5, %6, %7, %8,") +
                   QStringLiteral("\n        %9, %10, %11, %12,") + QStringLiteral("\n        %13, %14, %15, %16 )");
    for (const double cell : d->matrix.cells())
        text = text.arg(QStringLiteral("%1").arg(cell, 5).rightJustified(9, QLatin1Char(' '), true));
    return text.toStdString();
}

bool Matrix::filterDir(std::string& name) const
{
    return name == "get_inverse" || BaseObject::filterDir(name);
}

const Math::Matrix4x4& Matrix::getMatrix() const
{
    return d->matrix;
}

QVariant Matrix::get(int index) const
{
    requireCell(index);
    return d->matrix.cells()[static_cast<std::size_t>(index)];
}

void Matrix::set(int index, [[maybe_unused]] const QVariant& value)
{
    requireCell(index);
}

QList<int> Matrix::list() const
{
    QList<int> cells;
    cells.reserve(cellCount);
    for (const double cell : d->matrix.cells())
        cells.append(wholeNumber(cell));
    return cells;
}

bool Matrix::operator==(const QVariant& other) const
{
    return d->matrix.compare(valueOf(other));
}

Obj Matrix::__iter__() const
{
    return Obj(new Matrix(*this));
}

bool Matrix::__atend__() const
{
    return d->index >= lastIndex;
}

QVariant Matrix::__iterItem__() const
{
    return get(d->index);
}

void Matrix::operator++()
{
    if (d->index < lastIndex)
        ++d->index;
}

void Matrix::reset()
{
    d->matrix.clear();
}

void Matrix::normalize()
{
    d->matrix.normalize();
}

void Matrix::transpose()
{
    d->matrix.transpose();
}

void Matrix::inverse()
{
    d->matrix = inverseOf<Matrix>(d->matrix);
}

Obj Matrix::getInverse() const
{
    return Obj(new Matrix(inverseOf<Matrix>(d->matrix)));
}

Obj Matrix::matrixRotation() const
{
    return Obj(new Matrix(d->matrix.rotation()));
}

void Matrix::multiply(const QVariant& other)
{
    d->matrix = d->matrix * valueOf(other);
}

void Matrix::translate(double x, double y, double z)
{
    requireFinite({x, y, z});
    d->matrix.translate(x, y, z);
}

void Matrix::translate(const QVariant& vector)
{
    const Math::Point3d way = Point3d::valueOf(vector);
    d->matrix.translate(way.x, way.y, way.z);
}

void Matrix::scale(double x, double y, double z)
{
    requireFinite({x, y, z});
    d->matrix.scale(x, y, z);
}

void Matrix::skew(double angle)
{
    requireFinite(angle, 0);
    d->matrix.skew(angle);
}

void Matrix::rotateDegrees(double angle, const QVariant& axis)
{
    requireFinite(angle, 0);
    d->matrix.rotateDegrees(angle, rotationAxis(axis));
}

void Matrix::rotateRadians(double angle, const QVariant& axis)
{
    requireFinite(angle, 0);
    d->matrix.rotateRadians(angle, rotationAxis(axis));
}

void Matrix::orthogonalProject(double left, double right, double bottom, double top, double zNear, double zFar)
{
    requireFinite({left, right, bottom, top, zNear, zFar});
    requireVolume(d->matrix.orthogonalProject(left, right, bottom, top, zNear, zFar));
}

void Matrix::perspectiveProject(double fieldOfView, double aspect, double zNear, double zFar)
{
    requireFinite({fieldOfView, aspect, zNear, zFar});
    requireVolume(d->matrix.perspectiveProject(fieldOfView, aspect, zNear, zFar));
}

void Matrix::perspectiveProject(double left, double right, double bottom, double top, double zNear, double zFar)
{
    requireFinite({left, right, bottom, top, zNear, zFar});
    requireVolume(d->matrix.perspectiveProject(left, right, bottom, top, zNear, zFar));
}

void Matrix::lookAt(const QVariant& eye, const QVariant& target, const QVariant& up)
{
    const Math::Point3d from = pointOr(eye, {0, 0, 0});
    const Math::Point3d to = pointOr(target, {0, 0, -2.66});
    d->matrix.lookAt(from, to, vectorOr(up, {0, 1, 0}));
}

QVariant Matrix::apply(const QVariant& value) const
{
    const QObject* object = QVariantToPointer(value);
    if (!object) {
        const Math::Point3d point = d->matrix * Point3d::valueOf(value);
        return QList<QVariant>{point.x, point.y, point.z};
    }
    if (const auto* matrix = dynamic_cast<const Matrix*>(object))
        return objectVariant(new Matrix(d->matrix * matrix->d->matrix));
    const auto place = Point3d::coordinatesOf(object);
    if (!place)
        return {};
    // Required: vectors are moved like points.
    const Math::Point3d point = d->matrix * (Math::Point3d() + *place);
    if (dynamic_cast<const Vector3d*>(object))
        return objectVariant(new Vector3d(point.x, point.y, point.z));
    if (dynamic_cast<const Vector2d*>(object))
        return objectVariant(new Vector2d(point.x, point.y));
    if (dynamic_cast<const Point3d*>(object))
        return objectVariant(new Point3d(point.x, point.y, point.z));
    return objectVariant(new Point2d(point.x, point.y));
}

QList<QVariant> Matrix::extractParameters_2d(bool negativeX, bool negativeY, const QVariant& pivot) const
{
    const Math::Point3d about = pointOr(pivot, {});
    Math::Vector3d translation;
    Math::Vector2d scale;
    double rotation = 0.0;
    double skew = 0.0;
    d->matrix.extractParameters(negativeX, negativeY, about.x, about.y, translation.x, translation.y, translation.z,
                                scale.x, scale.y, rotation, skew);
    return {vectorVariant(translation), QVariant::fromValue(Vector2d(scale)), rotation, skew};
}

QList<QVariant> Matrix::extractParameters_3d(const QVariant& pivot) const
{
    const Math::Point3d about = pointOr(pivot, {});
    Math::Vector3d translation;
    Math::Vector3d scale;
    Math::Vector3d rotation;
    d->matrix.extractParameters(about.x, about.y, about.z, translation.x, translation.y, translation.z, scale.x,
                                scale.y, scale.z, rotation.x, rotation.y, rotation.z);
    return {vectorVariant(translation), vectorVariant(scale), vectorVariant(rotation)};
}

void Matrix::print(const QString& text) const
{
    d->matrix.print(text.toLocal8Bit().constData());
}

bool Matrix::getHasNan() const
{
    return d->matrix.hasNan();
}

bool Matrix::getHasInfinity() const
{
    return d->matrix.hasInfinity();
}

QVariant Matrix::getXAxis() const
{
    return vectorVariant(d->matrix.axis(0));
}

void Matrix::setXAxis(const QVariant& axis)
{
    setCells(0, axis);
}

QVariant Matrix::getYAxis() const
{
    return vectorVariant(d->matrix.axis(1));
}

void Matrix::setYAxis(const QVariant& axis)
{
    setCells(4, axis);
}

QVariant Matrix::getZAxis() const
{
    return vectorVariant(d->matrix.axis(2));
}

void Matrix::setZAxis(const QVariant& axis)
{
    setCells(8, axis);
}

QVariant Matrix::getOrigin() const
{
    const Math::Point3d origin = d->matrix.origin();
    return QVariant::fromValue(Point3d(origin.x, origin.y, origin.z));
}

void Matrix::setOrigin(const QVariant& origin)
{
    setCells(12, origin);
}

void Matrix::setCells(std::size_t first, const QVariant& value)
{
    const Math::Point3d point = Point3d::valueOf(value);
    std::array<double, cellCount> cells = d->matrix.cells();
    cells[first] = point.x;
    cells[first + 1] = point.y;
    cells[first + 2] = point.z;
    d->matrix = Math::Matrix4x4(cells.data());
}

bool Matrix::getIdentity() const
{
    return d->matrix.isIdentity();
}

void Matrix::setIdentity(bool identity)
{
    if (identity)
        d->matrix.clear();
}

bool Matrix::getSingular() const
{
    return d->matrix.isSingular();
}

double Matrix::getTruckFactor() const
{
    return d->matrix.truckFactor();
}

double Matrix::getScaleFactor() const
{
    return d->matrix.scaleFactor();
}

bool Matrix::getRotationExists() const
{
    return d->matrix.hasRotation();
}

bool Matrix::getConstantZ() const
{
    return d->matrix.isConstantZ();
}

bool Matrix::getTransform2d() const
{
    return d->matrix.isTransform2d();
}

bool Matrix::getPerspective() const
{
    return d->matrix.isPerspectiveProjection();
}

} // namespace OMC
