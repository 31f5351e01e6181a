#pragma once

#include "engine/curves/curvepoints.h"

namespace brindle::engine {

/// The cubic Bezier curve between two neighbouring control points, in the plane of frame and value.
///
/// Its x must grow with the parameter, so that each frame has one value. With the handles' distances a and c from their
/// points, in lengths of the segment, the derivative is 3(a(1-t)^2 + 2(1-a-c)t(1-t) + c t^2); it is nowhere negative
/// when a, c >= 0 and a + c - sqrt(ac) <= 1. A handle behind its point counts as at the point. Handles for which the
/// condition doesn't hold are drawn back into the segment, where it does. A part of such a curve fulfils it too, though
/// the handles of the part may reach beyond its ends: so a split keeps the shape.
class BezierSegment {
public:
    BezierSegment(const CurvePoint& from, const CurvePoint& to);

    /// The value at a frame between the points, to the precision of a double.
    double valueAt(double frame) const;

    struct Position {
        double x, y;
    };
    /// The control points of the two parts that a frame between the points divides the curve into (de Casteljau).
    struct Parts {
        Position fromRight, left, middle, right, toLeft;
    };
    Parts split(double frame) const;

private:
    double parameterAt(double frame) const;
    double valueOf(double parameter) const;

    double m_x[4];
    double m_y[4];
};

} // namespace brindle::engine
