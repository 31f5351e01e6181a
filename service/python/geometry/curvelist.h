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
    return table
        .template method<"equivalent_reverse", Form<&Curve::equivalentReverse, "other">>(
            "Whether another curve, in any form that the constructor takes, is this one run backwards, exactly.")
        .template method<"closest_point", Form<&Curve::closestPoint, "point">>(
            "The parameter of the nearest point of the curve; the point is a Point2d, [x, y], a node, ...")
        .template method<"evaluate", Form<&Curve::evaluate, "parameter">>("The Point2d at a parameter.")
        .template method<"multiply", Form<&Curve::multiply, "matrix">>(
            "Transforms the control points by whatever a Matrix is made from.")
        .template method<"reverse", Form<&Curve::reverse>>("Lets the curve run backwards.")
        .template method<"round", Form<&Curve::round, "step=1">>(
            "Moves the control points to the nearest multiples of a step above 0.")
        .template method<"split", Form<&Curve::split, "parameter">>(
            "Keeps what is before a parameter and gives what is behind it.")
        .template method<"truncate", Form<&Curve::truncate, "start, end">>(
            "The stretch between two parameters as a new curve, backwards where start > end; this one stays.")
        .template method<"intersecting", Form<pick<>(&Curve::intersecting)>,
                         Form<pick<const QVariant&>(&Curve::intersecting), "other">>(
            "Whether the curve meets itself, or another in any form that the constructor takes.")
        .template method<"intersections", Form<pick<>(&Curve::intersections)>,
                         Form<pick<const QVariant&>(&Curve::intersections), "other">>(
            "Where the curve meets itself, or another: a list of Point2d in the order of this curve.");
}

} // namespace brindle::python
