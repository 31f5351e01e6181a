#pragma once

#include "engine/drawings/planarmap.h"

namespace brindle::engine {

/// The paths of a contour's half-edges in one closed path, in the order of its walk. Strokes with both sides on the
/// contour are passed there and back.
GR_BezierPath2d contourPath(const PlanarMap& map, int contour);

/// Whether all of the contour lies in the area that a path fills, whether the path lies in the area that the contour
/// goes around, and whether neither lies in the other's area. Edges count as GR_BezierPath2d says; an open path is
/// closed by a straight line. All are false for an empty path.
bool contourIsInside(const PlanarMap& map, int contour, const GR_BezierPath2d& path, Math::Constants::FillType fill);
bool contourIsContaining(const PlanarMap& map, int contour, const GR_BezierPath2d& path,
                         Math::Constants::FillType fill);
bool contourIsOutside(const PlanarMap& map, int contour, const GR_BezierPath2d& path, Math::Constants::FillType fill);

} // namespace brindle::engine
