#pragma once

#include "core/host/gr_bezierpath.h"
#include "core/host/gr_stroke.h"

namespace brindle::engine {

/// One end of a line, as its tip is drawn on it. Lengths are in units of the drawing.
struct LineEnd {
    Math::Point2d place;    ///< Where the centre line ends.
    Math::Vector2d outward; ///< The direction in which the centre line would go on, of length 1.
    Math::Vector2d toLeft;  ///< To the left edge of the stroke: `outward` turned by 90 degrees, of length 1.
    GR_HalfWidths widths;
    double slopeLeft = 0; ///< By how much the left half-width grows for each unit outwards, and the right one.
    double slopeRight = 0;
};

/// The outline of a tip, from the left edge of the line round the end to the right edge. Empty for a line without
/// width.
///
/// With l and r the half-widths, d = (l + r) / 2 their mean, and coordinates x outward and y to the left from the
/// centre line's end; widths that would be below 0 are 0:
///
/// - Flat: straight from (0, l) to (0, -r).
/// - Round: from (0, l) to (d, 0), and from there to (0, -r), two cubics that leave the edges with their slopes s:
///   (0, l), (kd, l + s k d), (d, k l), (d, 0), where k = 4/3 (sqrt 2 - 1). Without slopes and with equal half-widths
///   it is the half circle, to 0.03% of its radius (Goldapp 1991); with other half-widths each quarter is an ellipse's.
/// - Bevel: (0, l), (d/2, w), (d, w/2), and the same on the right, joined by straight lines, where w = l + s d/2: the
///   edges go on with their slopes, and the corners are cut off.
/// - By a curve: its points (x, y) lie at x d, and y l above the centre line, y r below. It is joined to both edges by
///   straight lines.
GR_BezierPath2d tipOutline(const LineEnd& end, GR_TipType type);
GR_BezierPath2d tipOutline(const LineEnd& end, const GR_Bezier2d& curve);

} // namespace brindle::engine
