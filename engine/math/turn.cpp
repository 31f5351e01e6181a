#include "engine/math/turn.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

using Math::Vector3d;

Vector3d directionOf(const Vector3d& vector)
{
    const double largest = std::max({std::abs(vector.x), std::abs(vector.y), std::abs(vector.z)});
    if (largest == 0.0)
        return {};
    const Vector3d bounded{vector.x / largest, vector.y / largest, vector.z / largest};
    const double length = bounded.length();
    return {bounded.x / length, bounded.y / length, bounded.z / length};
}

Turn Turn::about(const Vector3d& axis, double sine, double cosine)
{
    const Vector3d u = directionOf(axis);
    if (u == Vector3d{})
        return {};
    const auto turned = [&](const Vector3d& v) {
        return v * cosine + u.cross(v) * sine + u * (u.dot(v) * (1 - cosine));
    };
    const Turn none;
    return {{turned(none.axes[0]), turned(none.axes[1]), turned(none.axes[2])}};
}

Turn Turn::shortest(std::size_t axis, const Vector3d& direction)
{
    const Turn none;
    const Vector3d from = none.axes[axis];
    const Vector3d to = directionOf(direction);
    if (to == Vector3d{})
        return {};
    const Vector3d normal = from.cross(to);
    const double sine = normal.length();
    const double cosine = from.dot(to);
    if (sine == 0.0 && cosine < 0.0)
        return about(none.axes[axis == 2 ? 1 : 2], 0.0, -1.0);
    return about(normal, sine, cosine);
}

Math::Matrix4x4 Turn::matrix() const
{
    const auto& [x, y, z] = axes;
    const double cells[16] = {x.x, x.y, x.z, 0, y.x, y.y, y.z, 0, z.x, z.y, z.z, 0, 0, 0, 0, 1};
    return Math::Matrix4x4(cells);
}

} // namespace brindle::engine
