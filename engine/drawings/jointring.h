#pragma once

#include "core/host/gr_bezierpath.h"
#include "engine/geometry2d/planecurve.h"

#include <vector>

namespace brindle::engine {

/// A half-edge as it leaves a joint.
struct Departure {
    int halfEdge;
    unsigned int id;             ///< Of its stroke.
    bool isLeft;                 ///< Whether it runs as the path does.
    const GR_BezierPath2d* path; ///< Of its stroke.
    PlaneCurve curve; ///< The first curve that isn't a point, run through from the joint; not too large to square.
};

/// The departures from one joint, anticlockwise, from the least (id, side) on; the right side is the lesser one.
///
/// They are in the order of their directions, compared exactly by quadrant and cross product. Directions within 1e-10
/// radians are those of strokes that touch in the joint, and differ by rounding. Of these, the one that bends further
/// to the left comes later, by the signed curvature at the joint. Where curvatures agree too, the order is that of the
/// places where the curves leave a circle around the joint; it is as large as the curves keep their sense of bending
/// and move away from the joint (the first inflection and the first right angle end that, as in Paper.js). What still
/// lies together are coincident strokes: they are in the order of their ids, which is turned round for those that
/// arrive, so that both ends of coincident strokes have them in the order of one bundle.
std::vector<int> ringOrder(std::vector<Departure> departures);

} // namespace brindle::engine
