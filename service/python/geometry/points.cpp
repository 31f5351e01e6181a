#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> pointTables()
{
    using namespace OMC;
    return {
        Class<Point2d>("Point2d",
                       "A position in the plane, in the units of the operation that takes or gives it. A value is a "
                       "point, a vector, a matrix (its origin), a node, a column's value at a frame, a number for "
                       "all coordinates, or a list, which is added up; anything else is (0, 0).")
            .constructors<Construct<&newOf<Point2d, QVariant>, "value">,
                          Construct<&newOf<Point2d, double, double>, "x=0, y=0">>()
            .member<&Point2d::x>("x", "To the right.")
            .member<&Point2d::y>("y", "The second coordinate.")
            .method<"translate", Form<&Point2d::translate, "vector">>(
                "Adds a vector, a point, a list of numbers and of those, or a number for both coordinates."),
        Class<Point3d>("Point3d",
                       "A position in space, in the units of the operation that takes or gives it. A value is read as "
                       "for Point2d; in a list, a matrix transforms what stands ahead of it.")
            .constructors<Construct<&newOf<Point3d, QVariant>, "value">,
                          Construct<&newOf<Point3d, double, double, double>, "x=0, y=0, z=0">>()
            .member<&Point3d::x>("x", "To the right.")
            .member<&Point3d::y>("y", "The second coordinate.")
            .member<&Point3d::z>("z", "The depth.")
            .method<"translate", Form<&Point3d::translate, "vector">>(
                "Adds a vector, a point, a list of numbers and of those, or a number for all coordinates."),
    };
}

} // namespace brindle::python
