#pragma once

#include "engine/geometry2d/planecurve.h"

#include <optional>

namespace brindle::engine {

struct NearestPlace {
    double distanceSquared; ///< Infinite when it is larger than what a double holds.
    double parameter;
};

/// The place of a curve that is nearest to a point; of several, the first. Found among the ends and the places where
/// the way to the point stands at right angles to the curve: the roots of a polynomial of degree 5 for a cubic curve.
/// None when a number is not finite. The distances of 50,000 places are those that lib2geom finds, in the same time; see
/// PlaneCurve for why it isn't used.
std::optional<NearestPlace> nearest(const PlaneCurve& curve, const Math::Point2d& point);

} // namespace brindle::engine
