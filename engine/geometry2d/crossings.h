#pragma once

#include "engine/geometry2d/planecurve.h"

#include <vector>

namespace brindle::engine {

/// A meeting of two curves, or of two places of one curve: the parameters of both.
struct Meeting {
    double first;
    double second;
};

/// A part of the first of two curves.
struct Stretch {
    double start, end;
};

/// Brings two places of two curves together with Newton's method, as far as it makes their distance smaller.
Meeting polished(const PlaneCurve& first, const PlaneCurve& second, Meeting at);

/// Places near each crossing and each touch of two curves whose coordinates are about 1, polished; some are found more
/// than once, and some are near misses: the caller looks at the distance. Stretches of the first curve that are known
/// to lie on the second are left out.
///
/// Both curves are halved, and pairs of parts that a line along either's chord or an axis keeps apart are dropped,
/// until the hodographs tell that two parts cross at most once (T. W. Sederberg and R. J. Meyers, "Loop detection in
/// surface patch intersections", 1988, for curves) and Newton's method finds the place, or until the parts are tiny.
/// The clipping of lib2geom finds the same in the same time for curves at random (20,000 pairs). Of 20,000 pairs of
/// curves with control points on a grid of 9 by 9, where ends meet and stretches coincide, it loses places of 8 pairs,
/// gives 251 places twice, and gives 243 where the curves lie apart.
std::vector<Meeting> crossings(const PlaneCurve& first, const PlaneCurve& second, const std::vector<Stretch>& known);

} // namespace brindle::engine
