#include "core/frame/valuetypes.h"

#include "core/geometry/matrix.h"
#include "core/geometry/rectangles.h"
#include "core/geometry/transformation.h"
#include "core/geometry/vectors.h"

namespace OMC {

namespace {

/// The geometry that travels inside a QVariant by value.
[[maybe_unused]] const bool registered =
    registerValueTypes<Matrix, Point2d, Point3d, Vector2d, Vector3d, Rect2D, Rect2DI, Transformation, AllocatedRect2D,
                       AllocatedRect2DI>();

} // namespace

} // namespace OMC
