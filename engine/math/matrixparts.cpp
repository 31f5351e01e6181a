#include "core/host/math_matrix4x4.h"
#include "engine/math/angle.h"
#include "engine/math/decomposition.h"

#include <algorithm>
#include <cmath>

namespace Math {

namespace {

/// A matrix that isn't exactly in the plane may count as there, up to this part of its size.
constexpr double inPlane = 1e-9;

/// The axes and the origin with the homogeneous scale divided out.
struct Frame {
    explicit Frame(const Matrix4x4& matrix)
    {
        const auto& cells = matrix.cells();
        const double divisor = cells[15] == 0.0 ? 1.0 : cells[15];
        for (std::size_t i = 0; i < 3; ++i)
            axes[i] = {cells[4 * i] / divisor, cells[4 * i + 1] / divisor, cells[4 * i + 2] / divisor};
        origin = {cells[12] / divisor, cells[13] / divisor, cells[14] / divisor};
        affine = cells[15] != 0.0 && !matrix.isPerspectiveProjection();
        finite = std::all_of(cells.begin(), cells.end(), [](double cell) { return std::isfinite(cell); });
    }

    std::array<Vector3d, 3> axes;
    Vector3d origin;
    bool affine;
    bool finite;
};

} // namespace

bool Matrix4x4::hasRotation() const
{
    return !rotation().isIdentity();
}

Matrix4x4 Matrix4x4::rotation() const
{
    const Frame frame(*this);
    return frame.finite ? brindle::engine::SpaceParts(frame.axes).turn.matrix() : Matrix4x4();
}

bool Matrix4x4::extractParameters(bool negativeX, bool negativeY, double pivotX, double pivotY, double& tx, double& ty,
                                  double& tz, double& sx, double& sy, double& rotation, double& skew) const
{
    const Frame frame(*this);
    if (!frame.finite) {
        tx = ty = tz = rotation = skew = 0.0;
        sx = sy = 1.0;
        return false;
    }
    const auto& [x, y, z] = frame.axes;
    const brindle::engine::PlaneParts parts({x.x, x.y}, {y.x, y.y}, negativeX, negativeY);
    rotation = parts.angle;
    skew = parts.skew;
    sx = parts.scaleX;
    sy = parts.scaleY;
    // The way that the pivot goes.
    tx = frame.origin.x + x.x * pivotX + y.x * pivotY - pivotX;
    ty = frame.origin.y + x.y * pivotX + y.y * pivotY - pivotY;
    tz = frame.origin.z;
    const double size = inPlane * std::max({1.0, x.length(), y.length()});
    const bool plane = std::abs(x.z) <= size && std::abs(y.z) <= size && (z - Vector3d{0, 0, 1}).length() <= size;
    return frame.affine && plane && parts.exact;
}

bool Matrix4x4::extractParameters(double pivotX, double pivotY, double pivotZ, double& tx, double& ty, double& tz,
                                  double& sx, double& sy, double& sz, double& rx, double& ry, double& rz) const
{
    const Frame frame(*this);
    if (!frame.finite) {
        tx = ty = tz = rx = ry = rz = 0.0;
        sx = sy = sz = 1.0;
        return false;
    }
    const brindle::engine::SpaceParts parts(frame.axes);
    sx = parts.scale.x;
    sy = parts.scale.y;
    sz = parts.scale.z;

    // The angles of rotateZ(rz) rotateY(ry) rotateX(rx) (Shoemake, Euler Angle Conversion, in Graphics Gems IV). Where
    // x points along z, only the difference of the two others shows: it all goes to the turn about x.
    const auto& [x, y, z] = parts.turn.axes;
    const double flat = std::hypot(x.x, x.y);
    constexpr double vertical = 1e-12;
    rz = flat <= vertical ? 0.0 : std::atan2(x.y, x.x) * brindle::engine::degreesPerRadian;
    ry = std::atan2(0.0 - x.z, flat) * brindle::engine::degreesPerRadian; // No turn reads as 0, not as -0.
    // Turned back about z, the y axis shows the turn about x.
    const auto [sine, cosine] = brindle::engine::SineCosine::ofDegrees(rz);
    rx = std::atan2(z.x * sine - z.y * cosine, y.y * cosine - y.x * sine) * brindle::engine::degreesPerRadian;

    const Vector3d pivot{pivotX, pivotY, pivotZ};
    const Vector3d way =
        frame.axes[0] * pivotX + frame.axes[1] * pivotY + frame.axes[2] * pivotZ + frame.origin - pivot;
    tx = way.x;
    ty = way.y;
    tz = way.z;
    return frame.affine && parts.exact;
}

} // namespace Math
