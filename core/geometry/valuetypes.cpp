#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"

namespace OMC {

namespace {

template <typename... Classes>
bool registerValueTypes()
{
    (BaseObject::registerValueType(qMetaTypeId<Classes>()), ...);
    return true;
}

/// The geometry that travels inside a QVariant by value, entered while the library is loaded.
[[maybe_unused]] const bool registered = registerValueTypes<Point2d, Point3d>();

} // namespace

} // namespace OMC
