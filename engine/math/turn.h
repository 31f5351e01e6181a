#pragma once

#include "core/host/math_matrix4x4.h"

#include <array>

/// Turns in space about the origin.
namespace brindle::engine {

/// The direction of a vector, with length 1; (0, 0, 0) where it has none. Exact for the largest and smallest numbers.
Math::Vector3d directionOf(const Math::Vector3d& vector);

/// Three axes at right angles, right-handed, each of length 1: where a turn puts x, y and z.
struct Turn {
    std::array<Math::Vector3d, 3> axes{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

    /// About an axis, by the sine and cosine of the angle (Rodrigues' formula). No turn about an axis without length.
    static Turn about(const Math::Vector3d& axis, double sine, double cosine);
    /// The shortest turn that brings an axis (0 is x, 1 is y, 2 is z) to a direction; none to one without length. To
    /// the opposite direction, half a turn: about z in the picture's plane for x and y, about y for z, so that y stays
    /// up.
    static Turn shortest(std::size_t axis, const Math::Vector3d& direction);

    Math::Matrix4x4 matrix() const;
};

} // namespace brindle::engine
