#include "core/geometry/bezier.h"

#include "core/host/gr_bezier.h"
#include "service/python/family.h"
#include "service/python/geometry/curvelist.h"
#include "service/python/statereader.h"

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

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    Class<Bezier> table;
    addCurveMethods(table)
        .alias("CurveLike", "Bezier | BezierPath | Sequence[object]", "A curve, or a list of curves or of points.")
        .constructor<&newBezier, "points: CurveLike | None=None, degree=3">()
        .value<&stateOf, &bezierOf, &textOf>()
        .staticMethod<"get_bezier_from_qvariant",
                      StaticForm<&readCurves, "value: Sequence[object], degree=3 -> list[Bezier]">>()
        .method<"derivative", Form<&Bezier::derivative, "-> Bezier">>()
        .method<"evaluate_and_round", Form<&Bezier::evaluateAndRound, "parameter -> Point2d">>()
        .method<"straighten", Form<&Bezier::straighten>>();
    return {table};
});

} // namespace

} // namespace brindle::python
