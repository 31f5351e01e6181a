#include "core/geometry/bezierpath.h"

#include "core/host/gr_bezierpath.h"
#include "service/python/geometry/curvelist.h"
#include "service/python/statereader.h"
#include "service/python/tables.h"

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

} // namespace

std::vector<ClassTable> bezierPathTables()
{
    using namespace OMC;
    Class<BezierPath> table(
        "BezierPath", "A chain of curves in the plane, as the list of its control points (Point2d), in any unit, x "
                      "to the right and y up. Its parameter is the index of a curve plus the parameter on it. Made "
                      "without arguments it is empty, of a BezierPath a copy; of a list it takes its Beziers, and of "
                      "points in a row the first ones as one curve of the degree that ends at (0, 0).");
    addCurveMethods(table)
        .constructor<&newBezierPath, "curves=None, degree=3">()
        .value<&stateOf, &bezierPathOf, &textOf>()
        .property("closed",
                  "Whether the path leads back to its first point; writing True closes it, False does nothing.")
        .property("empty", "Whether there is no point; writing True clears the path, False does nothing.")
        .property("degenerate", "Whether there is no curve, or all points are in one place.")
        .property("polyline", "Whether all curves are straight lines.")
        .property("points_on_curve", "How many control points lie on the curve; the others are handles.")
        .property("bezier_count", "The number of curves.")
        .property("bounding_box", "The smallest AllocatedRect2D about the curves.")
        .property("bounding_box_inner", "The smallest AllocatedRect2D about the points on the curve.")
        .property("to_tangent", "The direction at the last point, a Vector2d of length 1.")
        .property("from_tangent", "The direction at the first point, a Vector2d of length 1.")
        .property("polygon_length", "The length along the straight lines from control point to control point.")
        .property("polygon_area", "The area within those lines.")
        .property("polygon_clockwise", "Whether those lines run clockwise.")
        .staticMethod<"create_circle", StaticForm<&BezierPath::createCircle, "x=0, y=0, r=1, arcs=4">>(
            "A circle about (x, y) from so many cubic curves; it starts above the centre and runs clockwise.")
        .staticMethod<"create_oval", StaticForm<&BezierPath::createOval, "x=0, y=0, rx=1, ry=1, arcs=4">>(
            "An ellipse about (x, y) with its radii along the axes; it starts above the centre and runs clockwise.")
        .staticMethod<"create_rectangle", StaticForm<&BezierPath::createRectangle, "x1=0, y1=0, x2=1, y2=1">>(
            "A rectangle between two opposite corners: from the first along x, then along y, and back.")
        .staticMethod<"create_bezier_fit",
                      StaticForm<&BezierPath::createBezierFit, "points, closed=False, one_bezier=False">>(
            "Curves that come within 1 of every point, open or closed, or one cubic curve in the directions of the "
            "ends that comes as near as it can.")
        .staticMethod<"get_bezier_path_from_qvariant", StaticForm<&readPath, "value, path, degree=3">>(
            "Puts a BezierPath in the place of a path, or adds the curves that Bezier.get_bezier_from_qvariant() reads "
            "at its end.")
        .method<"bezier", Form<&BezierPath::bezier, "index">>("One of the curves, from 0, as a Bezier.")
        .method<"bezier_degree", Form<&BezierPath::bezierDegree, "index">>("The degree of one of the curves, from 0.")
        .method<"bezier_append", Form<&BezierPath::bezierAppend, "curves">>(
            "Adds a Bezier, a BezierPath or a list of Beziers at the end, joined by a straight line where there is a "
            "gap.")
        .method<"bezier_append_front", Form<&BezierPath::bezierAppendFront, "curves">>(
            "Adds a Bezier, a BezierPath or a list of Beziers in front, each before the one added ahead of it.")
        .method<"bezier_set", Form<&BezierPath::bezierSet, "index, curves">>(
            "Replaces the curves from an index on; the ends of their neighbours move along.")
        .method<"clear", Form<&BezierPath::clear>>("Takes all points away.")
        .method<"close", Form<&BezierPath::close>>("Leads the path back to its first point, with a straight line.")
        .method<"erase", Form<&BezierPath::erase, "first, count=1">>("Takes control points away, from an index on.")
        .method<"insert_point", Form<&BezierPath::insertPoint, "parameter">>(
            "Makes a point on the curve at a parameter; the shape stays.")
        .method<"point_on_curve", Form<&BezierPath::pointOnCurve, "index">>(
            "Whether a control point lies on the curve; else it is a handle.")
        .method<"get_polygon_length", Form<pick<int>(&BezierPath::getPolygonLength), "index=-1">>(
            "The length along the control points up to an index, or of all for -1.")
        .method<"containing", Form<&BezierPath::containing, "point">>(
            "Whether a point, in any form that a Point2d is made from, lies in the area that the path fills, or on it.")
        .method<"inside", Form<&BezierPath::inside, "other">>(
            "Whether the path lies in the area that another path fills.")
        .method<"outside", Form<&BezierPath::outside, "other">>(
            "Whether no part of the path lies in the area that another path fills.")
        .method<"straighten", Form<&BezierPath::straighten>>("Puts straight lines in the place of all curves.")
        .method<"trim", Form<&BezierPath::trim, "count">>(
            "Pads the path to a number of control points by repeating the last; fails for fewer than it has.");
    return {table};
}

} // namespace brindle::python
