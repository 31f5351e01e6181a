#pragma once

#include "core/host/gr_bezierpath.h"
#include "engine/drawings/linesections.h"

#include <vector>

namespace brindle::engine {

/// Where a line's path turns: the angle from the direction in front of it to the one behind it, in radians, to the left
/// above 0, and none where the directions agree to 1e-9.
double cornerAngle(const LineSection& before, const LineSection& behind);

/// A sector around a corner: it turns from one way to another by less than a whole turn, to the left when `angle` > 0.
struct CornerSector {
    Math::Point2d centre;
    Math::Vector2d from; ///< To where its arc begins; as long as its radius.
    double angle;
};

/// The sectors that fill the outer side of a corner: one, or two where the path turns back. Those of no radius too.
std::vector<CornerSector> cornerSectors(const LineSection& before, const LineSection& behind);

/// The tips of a line, from the section at its start and the one at its end. Empty paths for none.
GR_BezierPath2d startTip(const LineForm& form, const LineSection& start);
GR_BezierPath2d endTip(const LineForm& form, const LineSection& end);

/// The sections that the tips of a path in one place stand on.
LineSection placeSection(const LineForm& form, double share);

} // namespace brindle::engine
