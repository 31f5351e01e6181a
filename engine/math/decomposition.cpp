#include "engine/math/decomposition.h"

#include "engine/math/angle.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace brindle::engine {

using Math::Vector2d;
using Math::Vector3d;

namespace {

/// A remainder of an axis up to this part of it is rounding.
constexpr double rounding = 8 * std::numeric_limits<double>::epsilon();
/// Axes count as at right angles up to this cosine.
constexpr double rightAngle = 1e-9;

} // namespace

PlaneParts::PlaneParts(const Vector2d& xAxis, const Vector2d& yAxis, bool negativeX, bool negativeY)
{
    scaleX = xAxis.length();
    scaleY = yAxis.length();
    if (scaleX == 0.0) {
        // Only the y axis is left to show the angle.
        const double sign = negativeY ? -1.0 : 1.0;
        scaleY *= sign;
        angle = yAxis == Vector2d{} ? 0.0 : std::atan2(-yAxis.x * sign, yAxis.y * sign) * degreesPerRadian;
        return;
    }
    Vector2d direction{xAxis.x / scaleX, xAxis.y / scaleX};
    double across = direction.cross(yAxis);
    double along = direction.dot(yAxis);
    const bool collapsed = std::abs(across) <= rounding * scaleY;
    const bool mirrors = !collapsed && across < 0.0;
    if (negativeX || (negativeY && !mirrors)) {
        scaleX = -scaleX;
        direction = -direction;
        across = -across;
        along = -along;
    }
    angle = std::atan2(direction.y, direction.x) * degreesPerRadian;
    exact = !collapsed || scaleY == 0.0;
    scaleY = collapsed ? 0.0 : across;
    skew = collapsed || along == 0.0 ? 0.0 : std::atan(along / across) * degreesPerRadian;
}

SpaceParts::SpaceParts(const std::array<Vector3d, 3>& axes)
{
    std::array<bool, 3> present{};
    std::array<double, 3> scales{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double length = axes[i].length();
        Vector3d rest = axes[i];
        for (std::size_t before = 0; before < i; ++before) {
            if (!present[before])
                continue;
            const double along = turn.axes[before].dot(axes[i]);
            exact = exact && std::abs(along) <= rightAngle * length;
            rest = rest - turn.axes[before] * turn.axes[before].dot(rest);
        }
        const double left = rest.length();
        present[i] = left > rounding * length;
        if (present[i]) {
            scales[i] = left;
            turn.axes[i] = directionOf(rest);
        }
    }

    auto& [x, y, z] = turn.axes;
    switch (std::count(present.begin(), present.end(), true)) {
    case 3:
        if (x.cross(y).dot(z) < 0.0) {
            y = -y;
            scales[1] = -scales[1];
        }
        break;
    case 2:
        if (!present[0])
            x = y.cross(z);
        else if (!present[1])
            y = z.cross(x);
        else
            z = x.cross(y);
        break;
    case 1: {
        const auto only = static_cast<std::size_t>(std::find(present.begin(), present.end(), true) - present.begin());
        turn = Turn::shortest(only, turn.axes[only]);
        break;
    }
    default:
        break;
    }
    scale = {scales[0], scales[1], scales[2]};
}

} // namespace brindle::engine
