#pragma once

#include "render/picture.h"

namespace brindle::render {

/// Softens a picture by a bell curve of a standard deviation of half the radius, in pixels, across and down; 0 leaves
/// it sharp in that direction. The box grows by what the blur reaches.
///
/// The curve is three running means in a row, of widths by which their variances add up to its own (P. Kovesi, Fast
/// Almost-Gaussian Filtering, 2010), in floats: the time doesn't depend on the radius. A radius below 0, or one that is
/// no number, counts as 0; one above 4096 as that.
void blur(Picture& picture, double radiusAcross, double radiusDown);

} // namespace brindle::render
