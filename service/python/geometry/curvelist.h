#pragma once

#include "core/host/math_point.h"
#include "service/python/classtable.h"

#include <string>

namespace brindle::python {

/// The repr() of a curve: its control points, those off the curve in square brackets. A long curve shows the first and
/// the last ones and their number.
template <typename HostCurve, typename IsOnCurve>
std::string curveText(const std::string& type, const HostCurve& curve, unsigned int count, const IsOnCurve& isOnCurve)
{
    constexpr unsigned int most = 12;
    constexpr unsigned int atStart = 8;
    constexpr unsigned int atEnd = 2;
    QString text;
    for (unsigned int index = 0; index < count; ++index) {
        if (count > most && index == atStart) {
            text += QStringLiteral(" ...");
            index = count - atEnd;
        }
        const Math::Point2d& point = curve.GetPoint(index);
        text +=
            (isOnCurve(index) ? QStringLiteral(" (%1, %2)") : QStringLiteral(" [%1, %2]")).arg(point.x).arg(point.y);
    }
    if (count > most)
        text += QStringLiteral(", %1 points").arg(count);
    return "<" + type + ":" + (count > 0 ? text.toStdString() : " empty") + ">";
}

/// The methods that a curve and a path of curves share.
template <typename Curve>
Class<Curve>& addCurveMethods(Class<Curve>& table)
{
    return table.items("Point2d")
        .property("from_tangent", "Vector2d")
        .property("to_tangent", "Vector2d")
        .property("bounding_box", "AllocatedRect2D")
        .template method<"equivalent_reverse", Form<&Curve::equivalentReverse, "other: CurveLike">>()
        .template method<"closest_point", Form<&Curve::closestPoint, "point: PointLike">>()
        .template method<"evaluate", Form<&Curve::evaluate, "parameter -> Point2d">>()
        .template method<"multiply", Form<&Curve::multiply, "matrix: MatrixLike">>()
        .template method<"reverse", Form<&Curve::reverse>>()
        .template method<"round", Form<&Curve::round, "step=1">>()
        .template method<"split", Form<&Curve::split, "parameter -> Self">>()
        .template method<"truncate", Form<&Curve::truncate, "start, end -> Self">>()
        .template method<"intersecting", Form<pick<>(&Curve::intersecting)>,
                         Form<pick<const QVariant&>(&Curve::intersecting), "other: CurveLike">>()
        .template method<"intersections", Form<pick<>(&Curve::intersections), "-> list[Point2d]">,
                         Form<pick<const QVariant&>(&Curve::intersections), "other: CurveLike -> list[Point2d]">>();
}

} // namespace brindle::python
