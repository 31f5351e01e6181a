#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"
#include "service/python/family.h"

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

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Point2d>()
            .alias("PointLike",
                   "Point2d | Point3d | Matrix | Node | Node_Coordinates | ColumnValue | Sequence[object] | float",
                   "A position: [x, y], [x, y, z], a point, a vector, a node, ...")
            .constructors<Construct<&newOf<Point2d, QVariant>, "value: PointLike">,
                          Construct<&newOf<Point2d, double, double>, "x=0, y=0">>()
            .member<&Point2d::x>("x")
            .member<&Point2d::y>("y")
            .method<"translate", Form<&Point2d::translate, "vector: PointLike">>()
            .staticMethod<"from_qvariant", StaticForm<pick<const QVariant&>(&Point2d::fromQVariant), "value">,
                          StaticForm<&appendPoints, "value: PointLike | Sequence[PointLike], points">>()
            .staticMethod<"convert_qvariant",
                          StaticForm<&strictPoint2d, "value: PointLike, x=0, y=0 -> list[float]">>(),
        Class<Point3d>()
            .constructors<Construct<&newOf<Point3d, QVariant>, "value: PointLike">,
                          Construct<&newOf<Point3d, double, double, double>, "x=0, y=0, z=0">>()
            .member<&Point3d::x>("x")
            .member<&Point3d::y>("y")
            .member<&Point3d::z>("z")
            .method<"translate", Form<&Point3d::translate, "vector: PointLike">>()
            .staticMethod<"from_qvariant", StaticForm<&Point3d::fromQVariant, "value">>()
            .staticMethod<"convert_qvariant",
                          StaticForm<&strictPoint3d, "value: PointLike, x=0, y=0, z=0 -> list[float]">>(),
    };
});

} // namespace

} // namespace brindle::python
