#pragma once

#include "service/python/classtable.h"

namespace brindle::python {

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
