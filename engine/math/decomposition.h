#pragma once

#include "core/host/math_matrix4x4.h"
#include "engine/math/turn.h"

namespace brindle::engine {

/// A matrix taken apart in the plane z = 0: its linear part is rotate(angle) skew(skew) scale(scaleX, scaleY).
///
/// The QR factorisation of a 2 by 2 matrix (Golub and Van Loan, Matrix Computations, 5.2), the upper triangle divided
/// into scale and lean: the x axis shows the angle, what the y axis has along x the lean.
struct PlaneParts {
    double angle = 0.0; ///< In degrees, as is the skew.
    double skew = 0.0;
    double scaleX = 1.0;
    double scaleY = 1.0;
    bool exact = true; ///< Whether they give the linear part back.

    PlaneParts(const Math::Vector2d& xAxis, const Math::Vector2d& yAxis, bool negativeX, bool negativeY);
};

/// A matrix taken apart in space: its linear part is the turn times the scales, where its axes are at right angles.
///
/// Gram and Schmidt's procedure from x to z (Golub and Van Loan, 5.2.7). An axis that has nothing left once what lies
/// along those before it is taken off has the scale 0, and the turn puts it where it completes the others. Where the
/// matrix mirrors, y has the negative scale: always y, so that the parts of a mirrored picture that turns don't jump.
struct SpaceParts {
    Turn turn;
    Math::Vector3d scale{1, 1, 1};
    bool exact = true; ///< Whether they give the linear part back.

    explicit SpaceParts(const std::array<Math::Vector3d, 3>& axes);
};

} // namespace brindle::engine
