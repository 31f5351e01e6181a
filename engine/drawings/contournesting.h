#pragma once

#include "engine/drawings/planarmap.h"

#include <span>
#include <vector>

namespace brindle::engine {

/// How many times a contour runs around a place anticlockwise. Strokes that it passes there and back count for nothing.
int turnsAround(const PlanarMap& map, int contour, const Math::Point2d& place);

/// For each component the contour of another one that encloses it most closely, or PlanarMap::none. A component's
/// leftmost place decides: an extremum of its curves. The contours whose boxes hold it are looked at in the order of
/// their areas, and the first one that runs around it is the parent. Where components cross, one of the right answers
/// comes. `inner`: the contours that may enclose others.
std::vector<int> parentsOfComponents(const PlanarMap& map, std::span<const int> inner);

} // namespace brindle::engine
