#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "service/python/tables.h"

namespace brindle::python {

namespace {

OMC::Point2d* newPoint2d(double x, double y)
{
    return new OMC::Point2d(x, y);
}

OMC::Point3d* newPoint3d(double x, double y, double z)
{
    return new OMC::Point3d(x, y, z);
}

} // namespace

std::vector<ClassTable> pointTables()
{
    using namespace OMC;
    return {
        Class<Point2d>("Point2d", "A position in the plane, in the units of the operation that takes or gives it.")
            .constructor<&newPoint2d, "x=0, y=0">()
            .member<&Point2d::x>("x", "To the right.")
            .member<&Point2d::y>("y", "The second coordinate."),
        Class<Point3d>("Point3d", "A position in space, in the units of the operation that takes or gives it.")
            .constructor<&newPoint3d, "x=0, y=0, z=0">()
            .member<&Point3d::x>("x", "To the right.")
            .member<&Point3d::y>("y", "The second coordinate.")
            .member<&Point3d::z>("z", "The depth."),
    };
}

} // namespace brindle::python
