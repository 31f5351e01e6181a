#pragma once

#include "engine/geometry2d/planecurve.h"

#include <vector>

namespace engine {

/// Where two curves, or two places of one curve, come together: the parameters of both.
struct Meeting {
    double first;
    double second;
};

/// The meetings of two curves, ascending by the first parameter: ends that touch count, and of stretches that coincide
/// both ends. Curves with finite points only. Curved ones are intersected by lib2geom's Bezier clipping (Sederberg and
/// Nishita 1990), whose results are brought onto both curves with Newton's method; straight ones by the roots of the
/// distance from their line. Places that are apart by more than `meetingTolerance` of the size of both are no meeting.
std::vector<Meeting> meetings(const PlaneCurve& first, const PlaneCurve& second);
constexpr double meetingTolerance = 1e-9;
/// Parameters that differ by no more are the same place.
constexpr double sameParameter = 1e-9;

/// Where a curve crosses itself; a cubic curve does so at most once. Its loop's two parameters t and u make the
/// difference quotient (P(t) - P(u)) / (t - u) zero, which is linear in t + u and in tu - (t + u)^2.
std::vector<Meeting> selfMeetings(const PlaneCurve& curve);

} // namespace engine
