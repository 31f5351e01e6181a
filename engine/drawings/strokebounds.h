#pragma once

#include "core/host/gr_stroke.h"

namespace brindle::engine {

/// The largest full width of a stroke's line, in units of the drawing: twice the greatest half-width of its thickness
/// path, or the thickness of its line style where it has none. A line one pixel wide has none.
double visibleThickness(const GR_StrokeData& stroke);

/// The smallest box about the line of a stroke with its thickness and tips, whether its style shows it or not. A line
/// one pixel wide counts as its path.
Math::Box2d visibleBox(const GR_StrokeData& stroke);

} // namespace brindle::engine
