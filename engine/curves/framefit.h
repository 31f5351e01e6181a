#pragma once

#include "core/host/tu_timedvalue.h"

#include <vector>

namespace brindle::engine {

/// Curves through values that stand one a frame: `values[i]` at frame `first` + i.

/// A point at each frame, with the value to the last bit. The handles are a third of a frame long and lie on the chord
/// of the neighbours (Catmull and Rom); beside a frame with the same value they are flat.
std::vector<BezierCtrlPt> curveThrough(const std::vector<double>& values, int first);

/// As few points as lead the curve within a tolerance of the value at each frame: from each point to the furthest frame
/// up to which one piece, the cubic polynomial of least squares through both ends, comes so near.
std::vector<BezierCtrlPt> curveNear(const std::vector<double>& values, int first, double tolerance);

} // namespace brindle::engine
