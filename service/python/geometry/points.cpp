#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "service/python/tables.h"

namespace brindle::python {

/// A list of the script's, to which points are added.
struct PointList {
    PyObject* list;
};

template <>
struct From<PointList> {
    static constexpr const char* type = "list[Point2d]";
    static bool accepts(PyObject* value) { return PyList_Check(value); }
    static PointList read(PyObject* value, unsigned int) { return {value}; }
};

namespace {

/// Adds the points that a value tells strictly.
void appendPoints(const QVariant& value, PointList points)
{
    std::vector<OMC::Point2d> read;
    OMC::Point2d::fromQVariant(value, read);
    for (const OMC::Point2d& point : read) {
        const Ref item(toPython(new OMC::Point2d(point)));
        if (PyList_Append(points.list, item.get()) < 0)
            throw PythonError{};
    }
}

QList<QVariant> strictPoint2d(const QVariant& value, double x, double y)
{
    OMC::Point2d::ConvertQVariant(value, x, y);
    return {x, y};
}

QList<QVariant> strictPoint3d(const QVariant& value, double x, double y, double z)
{
    OMC::Point3d::ConvertQVariant(value, x, y, z);
    return {x, y, z};
}

} // namespace

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
                "Adds a vector, a point, a list of numbers and of those, or a number for both coordinates.")
            .staticMethod<"from_qvariant", StaticForm<pick<const QVariant&>(&Point2d::fromQVariant), "value">,
                          StaticForm<&appendPoints, "value, points">>(
                "A new point of whatever Point2d(value) takes. With a list, adds to it the points that a value tells "
                "strictly: one, or those in a list and in the lists in it.")
            .staticMethod<"convert_qvariant", StaticForm<&strictPoint2d, "value, x=0, y=0">>(
                "[x, y] of a node, a point, a list of numbers, or a single number for x; what the value doesn't tell "
                "is as given. Fails for anything else."),
        Class<Point3d>("Point3d",
                       "A position in space, in the units of the operation that takes or gives it. A value is read as "
                       "for Point2d; in a list, a matrix transforms what stands ahead of it.")
            .constructors<Construct<&newOf<Point3d, QVariant>, "value">,
                          Construct<&newOf<Point3d, double, double, double>, "x=0, y=0, z=0">>()
            .member<&Point3d::x>("x", "To the right.")
            .member<&Point3d::y>("y", "The second coordinate.")
            .member<&Point3d::z>("z", "The depth.")
            .method<"translate", Form<&Point3d::translate, "vector">>(
                "Adds a vector, a point, a list of numbers and of those, or a number for all coordinates.")
            .staticMethod<"from_qvariant", StaticForm<&Point3d::fromQVariant, "value">>(
                "A new point of whatever Point3d(value) takes.")
            .staticMethod<"convert_qvariant", StaticForm<&strictPoint3d, "value, x=0, y=0, z=0">>(
                "[x, y, z] of a node's coordinates, a point, a list of numbers, or a single number for x; what the "
                "value doesn't tell is as given. Fails for anything else, a node included."),
    };
}

} // namespace brindle::python
