#include "core/drawings/drawingvalues.h"

#include "core/drawings/objectsin.h"
#include "core/frame/finite.h"
#include "core/geometry/point3d.h"
#include "core/geometry/transformation.h"
#include "core/geometry/vectors.h"
#include "core/host/math_matrix4x4.h"

#include <memory>

namespace OMC::drawingvalues {

namespace {

/// Whether Matrix reads a value as something else than the identity that it gives for all it doesn't know.
bool isMatrix(const QVariant& value)
{
    if (const QObject* object = BaseObject::QVariantToPointer(value))
        return dynamic_cast<const Matrix*>(object) || dynamic_cast<const Transformation*>(object) ||
               Point3d::coordinatesOf(object);
    if (value.typeId() == QMetaType::QVariantList) {
        const QVariantList items = value.toList();
        const qsizetype count = items.size();
        return (count == 2 || count == 3 || count == 9 || count == 16) &&
               std::ranges::all_of(items, [](const QVariant& item) { return item.canConvert<double>(); });
    }
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

Math::Matrix2x3 finite(const Math::Matrix2x3& matrix)
{
    for (const Math::Vector2d& axis : {matrix.xAxis(), matrix.yAxis()}) {
        requireFinite(axis.x, 0);
        requireFinite(axis.y, 0);
    }
    requireFinite(matrix.origin().x, 0);
    requireFinite(matrix.origin().y, 0);
    return matrix;
}

} // namespace

Matrix* newMatrix(const Math::Matrix2x3& matrix)
{
    std::array<double, 16> cells = Math::Matrix4x4().cells();
    cells[0] = matrix.xAxis().x;
    cells[1] = matrix.xAxis().y;
    cells[4] = matrix.yAxis().x;
    cells[5] = matrix.yAxis().y;
    cells[12] = matrix.origin().x;
    cells[13] = matrix.origin().y;
    return new Matrix(Math::Matrix4x4(cells.data()));
}

Math::Matrix2x3 matrixArgument(const QVariant& value)
{
    if (!isMatrix(value))
        BaseObject::throwInvalidArgument(0);
    const std::unique_ptr<Matrix> matrix(Matrix::fromQVariant(value));
    return finite(matrix->getMatrix().getTransform2d());
}

Math::Matrix2x3 translationArgument(const QVariant& value)
{
    double x = 0;
    double y = 0;
    try {
        Point2d::ConvertQVariant(value, x, y);
    } catch (const Exception&) { // Its sentence speaks of a point.
        BaseObject::throwInvalidArgument(0);
    }
    const std::unique_ptr<Vector2d> way(Vector2d::fromQVariant(value));
    return finite(Math::Matrix2x3().Translate({way->x, way->y}));
}

} // namespace OMC::drawingvalues
