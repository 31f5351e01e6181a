#pragma once

#include "engine/geometry2d/planecurve.h"

namespace brindle::engine {

/// How often, and in which sense, a curve crosses the ray from a point to the right: +1 upwards, -1 downwards. A place
/// at the height of the point counts as above it, so that chains of curves count each crossing once. The sum over a
/// closed chain is how many times it runs around the point anticlockwise. Curves with finite points only.
int rayCrossings(const PlaneCurve& curve, const Math::Point2d& point);

} // namespace brindle::engine
