#include "core/geometry/bezier.h"

#include "core/host/gr_bezier.h"
#include "service/python/geometry/curvelist.h"
#include "service/python/statereader.h"
#include "service/python/tables.h"

namespace brindle::python {

namespace {

OMC::Bezier* newBezier(const QVariant& points, unsigned int degree)
{
    if (!points.isValid())
        return new OMC::Bezier;
    if (const auto* curve = OMC::objectFrom<OMC::Bezier>(points))
        return new OMC::Bezier(*curve);
    return new OMC::Bezier(points, degree);
}

std::vector<OMC::Obj> readCurves(const QVariant& value, unsigned int degree)
{
    std::vector<GR_Bezier2d> curves;
    OMC::Bezier::getBezierFromQVariant(value, curves, degree);
    std::vector<OMC::Obj> objects;
    for (const GR_Bezier2d& curve : curves)
        objects.emplace_back(new OMC::Bezier(curve));
    return objects;
}

QVariantList stateOf(const OMC::Bezier& bezier)
{
    const GR_Bezier2d& curve = bezier.getBezier();
    QVariantList state = {bezier.getDegree()};
    for (unsigned int index = 0; index <= GR_Bezier2d::maxDegree; ++index)
        state << curve.GetPoint(index).x << curve.GetPoint(index).y;
    state << (curve.GetFromBoundary() == Math::Constants::Closed) << (curve.GetToBoundary() == Math::Constants::Closed)
          << curve.GetFromParameter() << curve.GetToParameter();
    return state;
}

OMC::Bezier* bezierOf(const QVariantList& state)
{
    StateReader reader(state);
    const int degree = reader.take<int>();
    if (degree < 0 || degree > int(GR_Bezier2d::maxDegree))
        StateReader::refuse();
    GR_Bezier2d curve(static_cast<unsigned int>(degree), Math::Constants::Closed, Math::Constants::Closed);
    for (unsigned int index = 0; index <= GR_Bezier2d::maxDegree; ++index)
        curve.SetPoint(index, reader.takePoint());
    const auto boundary = [&] { return reader.take<bool>() ? Math::Constants::Closed : Math::Constants::Open; };
    curve.SetFromBoundary(boundary());
    curve.SetToBoundary(boundary());
    curve.SetFromParameter(reader.take<double>());
    curve.SetToParameter(reader.take<double>());
    reader.finish();
    return new OMC::Bezier(curve);
}

std::string textOf(const OMC::Bezier& bezier, const std::string& type)
{
    const unsigned int degree = bezier.getBezier().GetDegree();
    return curveText(type, bezier.getBezier(), degree + 1,
                     [degree](unsigned int index) { return index == 0 || index == degree; });
}

} // namespace

std::vector<ClassTable> bezierTables()
{
    using namespace OMC;
    Class<Bezier> table(
        "Bezier", "A curve of degree 0 to 3 in the plane, as the list of its degree + 1 control points (Point2d), in "
                  "any unit, x to the right and y up. Its parameter runs from 0 to 1. Made without arguments it is a "
                  "cubic at (0, 0), of a Bezier a copy; of a list it takes its first Bezier, or its first three "
                  "points as a cubic that ends at (0, 0), and a list of fewer than four items makes no curve. The "
                  "degree is not looked at.");
    addCurveMethods(table)
        .constructor<&newBezier, "points=None, degree=3">()
        .value<&stateOf, &bezierOf, &textOf>()
        .property("degree", "0 to 3; a higher degree brings back the points that a lower one left out.")
        .property("from_boundary", "Whether the first point belongs to the curve: \"Closed\" or \"Open\".")
        .property("from_parameter", "Where on a longer curve this one begins; 0 unless it was cut.")
        .property("from_tangent", "The direction at the first point, a Vector2d of length 1.")
        .property("to_boundary", "Whether the last point belongs to the curve: \"Closed\" or \"Open\".")
        .property("to_parameter", "Where on a longer curve this one ends; 1 unless it was cut.")
        .property("to_tangent", "The direction at the last point, a Vector2d of length 1.")
        .property("bounding_box", "The smallest AllocatedRect2D about the curve.")
        .property("line", "Whether the curve is a straight line, or a point.")
        .property("cusp", "Whether the curve comes to a point between its ends.")
        .property("inflections", "How often the curve changes the side to which it bends: 0, 1 or 2.")
        .staticMethod<"get_bezier_from_qvariant", StaticForm<&readCurves, "value, degree=3">>(
            "The curves of a degree in a list with more items than that: its Beziers, and of plain points the first "
            "ones in a row as a curve that ends at (0, 0).")
        .method<"derivative", Form<&Bezier::derivative>>(
            "The curve of the derivatives by the parameter, one degree lower.")
        .method<"evaluate_and_round", Form<&Bezier::evaluateAndRound, "parameter">>(
            "The Point2d at a parameter, in whole numbers.")
        .method<"straighten", Form<&Bezier::straighten>>("Becomes the straight line between its ends.");
    return {table};
}

} // namespace brindle::python
