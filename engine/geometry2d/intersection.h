#pragma once

#include "engine/geometry2d/crossings.h"
#include "engine/geometry2d/planecurve.h"

#include <vector>

namespace brindle::engine {

/// The meetings of two curves, ascending by the first parameter: ends that touch count, and of stretches that coincide
/// both ends. Curves with finite points only. Curved ones are searched for crossings(); a straight one meets another by
/// the roots of the distance from its line. Places that are apart by more than `meetingTolerance` of the size of both
/// are no meeting.
std::vector<Meeting> meetings(const PlaneCurve& first, const PlaneCurve& second);
constexpr double meetingTolerance = 1e-9;
/// Parameters that differ by no more are the same place.
constexpr double sameParameter = 1e-9;

/// The crossing of a curve with itself; a cubic curve has at most one. Its loop's two parameters t and u make the
/// difference quotient (P(t) - P(u)) / (t - u) zero, which is linear in t + u and in tu - (t + u)^2.
std::vector<Meeting> selfMeetings(const PlaneCurve& curve);

} // namespace brindle::engine
