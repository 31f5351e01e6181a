#include "core/geometry/bezierpath.h"

#include "core/host/gr_bezierpath.h"
#include "service/python/family.h"
#include "service/python/geometry/curvelist.h"
#include "service/python/statereader.h"

#include <stdexcept>

namespace brindle::python {

namespace {

OMC::BezierPath* newBezierPath(const QVariant& curves, unsigned int degree)
{
    return curves.isValid() ? new OMC::BezierPath(curves, degree) : new OMC::BezierPath;
}

void readPath(const QVariant& value, const OMC::Obj& path, unsigned int degree)
{
    auto* target = dynamic_cast<OMC::BezierPath*>(path.get());
    if (!target)
        OMC::BaseObject::throwInvalidArgument(1);
    OMC::BezierPath::getBezierPathFromQVariant(value, *target, degree);
}

QVariantList stateOf(const OMC::BezierPath& bezierPath)
{
    const GR_BezierPath2d& path = bezierPath.getBezier();
    QVariantList state;
    for (unsigned int index = 0; index < path.GetNumPoints(); ++index)
        state << path.GetPoint(index).x << path.GetPoint(index).y << path.IsOnCurve(index);
    return state;
}

OMC::BezierPath* bezierPathOf(const QVariantList& state)
{
    GR_BezierPath2d path;
    StateReader reader(state);
    try {
        while (!reader.atEnd()) {
            const Math::Point2d point = reader.takePoint();
            path.Append(point, reader.take<bool>());
        }
    } catch (const std::logic_error&) { // Handles where no curve has any.
        StateReader::refuse();
    }
    return new OMC::BezierPath(path);
}

std::string textOf(const OMC::BezierPath& bezierPath, const std::string& type)
{
    const GR_BezierPath2d& path = bezierPath.getBezier();
    return curveText(type, path, path.GetNumPoints(), [&path](unsigned int index) { return path.IsOnCurve(index); });
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    Class<BezierPath> table;
    addCurveMethods(table)
        .property("bounding_box_inner", "AllocatedRect2D")
        .constructor<&newBezierPath, "curves: CurveLike | None=None, degree=3">()
        .value<&stateOf, &bezierPathOf, &textOf>()
        .staticMethod<"create_circle", StaticForm<&BezierPath::createCircle, "x=0, y=0, r=1, arcs=4 -> BezierPath">>()
        .staticMethod<"create_oval",
                      StaticForm<&BezierPath::createOval, "x=0, y=0, rx=1, ry=1, arcs=4 -> BezierPath">>()
        .staticMethod<"create_rectangle",
                      StaticForm<&BezierPath::createRectangle, "x1=0, y1=0, x2=1, y2=1 -> BezierPath">>()
        .staticMethod<"create_bezier_fit",
                      StaticForm<&BezierPath::createBezierFit,
                                 "points: Sequence[PointLike], closed=False, one_bezier=False -> BezierPath">>()
        .staticMethod<"get_bezier_path_from_qvariant",
                      StaticForm<&readPath, "value: CurveLike, path: BezierPath, degree=3">>()
        .method<"bezier", Form<&BezierPath::bezier, "index -> Bezier">>()
        .method<"bezier_degree", Form<&BezierPath::bezierDegree, "index">>()
        .method<"bezier_append", Form<&BezierPath::bezierAppend, "curves: CurveLike">>()
        .method<"bezier_append_front", Form<&BezierPath::bezierAppendFront, "curves: CurveLike">>()
        .method<"bezier_set", Form<&BezierPath::bezierSet, "index, curves: CurveLike">>()
        .method<"clear", Form<&BezierPath::clear>>()
        .method<"close", Form<&BezierPath::close>>()
        .method<"erase", Form<&BezierPath::erase, "first, count=1">>()
        .method<"insert_point", Form<&BezierPath::insertPoint, "parameter">>()
        .method<"point_on_curve", Form<&BezierPath::pointOnCurve, "index">>()
        .method<"get_polygon_length", Form<pick<int>(&BezierPath::getPolygonLength), "index=-1">>()
        .method<"containing", Form<&BezierPath::containing, "point: PointLike">>()
        .method<"inside", Form<&BezierPath::inside, "other: CurveLike">>()
        .method<"outside", Form<&BezierPath::outside, "other: CurveLike">>()
        .method<"straighten", Form<&BezierPath::straighten>>()
        .method<"trim", Form<&BezierPath::trim, "count">>();
    return {table};
});

} // namespace

} // namespace brindle::python
