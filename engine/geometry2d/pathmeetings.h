#pragma once

#include "core/host/gr_bezierpath.h"

#include <vector>

namespace brindle::engine {

/// Any: the search ends with the first pair of curves that meet.
enum class Wanted { All, Any };

/// The meetings of two paths, as parameters of the first: ascending, each once. Curves are compared where their boxes
/// meet, which a sweep from left to right finds. Throw std::domain_error when a point is not finite.
std::vector<double> pathMeetings(const GR_BezierPath2d& first, const GR_BezierPath2d& second,
                                 Wanted wanted = Wanted::All);

/// The meetings of a path with itself: the lowest parameter of each place, ascending.
std::vector<double> pathSelfMeetings(const GR_BezierPath2d& path, Wanted wanted = Wanted::All);

} // namespace brindle::engine
