#pragma once

#include "core/geometry/matrix.h"
#include "core/geometry/rectangles.h"
#include "core/host/math_box2d.h"
#include "core/host/math_matrix2x3.h"

#include <QVariant>

/// Values of drawings on their way to a script and back.
namespace OMC::drawingvalues {

/// An AllocatedRect2D; of size 0 at (0, 0) for an empty box.
inline QVariant rectangle(const Math::Box2d& box)
{
    return QVariant::fromValue(AllocatedRect2D(box.width(), box.height(), box.minX(), box.minY()));
}
/// The same, for a caller that takes the object itself.
inline AllocatedRect2D* newRectangle(const Math::Box2d& box)
{
    return new AllocatedRect2D(box.width(), box.height(), box.minX(), box.minY());
}

/// The matrix of space that acts on x and y as this one does.
Matrix* newMatrix(const Math::Matrix2x3& matrix);

/// What an argument tells of the plane: a Matrix, a Transformation, a place or way to move by, a list of 2, 3, 9 or 16
/// numbers, or a number that scales. Throws "Invalid argument at index 0." for anything else, and for numbers that are
/// not finite.
Math::Matrix2x3 matrixArgument(const QVariant& value);
/// The same for a way to move by: what Point2d reads strictly.
Math::Matrix2x3 translationArgument(const QVariant& value);

} // namespace OMC::drawingvalues
