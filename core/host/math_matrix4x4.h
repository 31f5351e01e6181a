#pragma once

#include "core/host/export.h"
#include "core/host/math_matrix2x3.h"
#include "core/host/math_point.h"

#include <array>

namespace Math {

/// A 4 by 4 homogeneous matrix in double precision, the identity at first.
///
/// The sixteen cells: 0 to 2 are the x axis, 4 to 6 the y axis, 8 to 10 the z axis, 12 to 14 the origin; 3, 7 and 11
/// the perspective and 15 the homogeneous scale. A point (x, y, z) goes to x * xAxis + y * yAxis + z * zAxis + origin,
/// divided by x * c3 + y * c7 + z * c11 + c15. In a product the right-hand matrix acts first, and translate, scale,
/// rotate, skew, the projections and lookAt multiply from the right: what is added last acts first on a point.
///
/// Cells that are no numbers or infinite go through the arithmetic as usual; hasNan and hasInfinity tell of them.
class BRINDLE_HOST_EXPORT Matrix4x4 {
public:
    constexpr Matrix4x4() : m_cells{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}
    explicit Matrix4x4(const double* cells);
    /// The frame at an origin whose y axis points along a direction: the shortest turn from (0, 1, 0), half a turn
    /// about the z axis for the opposite one, none for a direction of no length.
    Matrix4x4(const Vector3d& axis, const Point3d& origin);

    void getValues(double* cells) const;
    const std::array<double, 16>& cells() const { return m_cells; }
    Vector3d axis(int index) const; ///< 0 is x, 1 is y, 2 is z; any other gives (0, 0, 0).
    Point3d origin() const { return {m_cells[12], m_cells[13], m_cells[14]}; }

    Matrix4x4 operator*(const Matrix4x4& first) const;
    /// A point that goes to infinity (its divisor is 0) is given undivided: the direction in which it goes.
    Point3d operator*(const Point3d& point) const;

    void clear() { *this = Matrix4x4(); } ///< Back to the identity.
    void normalize();                     ///< Homogeneous scale 1, axes of length 1; what is 0 stays 0.
    void transpose();
    void translate(double x, double y, double z);
    void scale(double x, double y, double z);
    /// Leans the y axis towards the x axis by an angle in degrees; heights stay: x grows by y * tan(angle).
    void skew(double degrees);
    /// Turn about an axis through (0, 0, 0), counter-clockwise where it points at the eye. No turn about an axis of no
    /// length. Multiples of 90 degrees are exact.
    void rotateDegrees(double degrees, const Vector3d& axis);
    void rotateRadians(double radians, const Vector3d& axis);
    /// Bring what an eye sees in front of it, towards `target`, with `up` upwards, to an eye at (0, 0, 0) that looks
    /// along -z with y upwards. With no direction to look in, or none that is up, the nearest turn that there is.
    void lookAt(const Point3d& eye, const Point3d& target, const Vector3d& up);
    /// Bring a box of the space in front of the eye to the cube from -1 to 1; false, and nothing changes, where it has
    /// no volume.
    bool orthogonalProject(double left, double right, double bottom, double top, double zNear, double zFar);
    /// The same for the stump of a pyramid with its tip at the eye: its rectangle at zNear, or its height as an angle
    /// in degrees and its width as a multiple of its height. Distances must be positive.
    bool perspectiveProject(double left, double right, double bottom, double top, double zNear, double zFar);
    bool perspectiveProject(double fieldOfView, double aspect, double zNear, double zFar);

    /// Throws std::domain_error where isSingular; the matrix is unchanged then.
    void inverse();
    Matrix4x4 getInverse() const;
    /// The turn alone, as extractParameters finds it.
    Matrix4x4 rotation() const;
    /// The part that acts in the plane z = 0, seen along z.
    Matrix2x3 getTransform2d() const;

    bool hasNan() const;
    bool hasInfinity() const;
    bool isIdentity() const { return compare(Matrix4x4()); }
    bool isSingular() const; ///< No inverse, as far as double precision can tell; also with a cell that isn't finite.
    bool hasRotation() const;
    bool isConstantZ() const;             ///< The plane z = 0 keeps one depth all over.
    bool isTransform2d() const;           ///< Acts on x and y alone, by x and y alone.
    bool isPerspectiveProjection() const; ///< The divisor of a point depends on the point.
    bool compare(const Matrix4x4& other) const { return m_cells == other.m_cells; } ///< Cell by cell, exactly.
    bool operator==(const Matrix4x4& other) const { return compare(other); }

    /// How much larger the origin's depth makes things for the standard camera, which stands at the distance
    /// `cameraDistance` from the plane z = 0: cameraDistance / (cameraDistance - z); 0 at and behind the camera.
    double truckFactor() const;
    /// How much lengths grow in the plane z = 0: the square root of how much areas do.
    double scaleFactor() const;

    /// Takes the matrix apart in the plane, about a pivot: it is
    ///     translate(tx, ty, tz) translate(pivot) rotate(rotation) skew(skew) scale(sx, sy, 1) translate(-pivot),
    /// angles in degrees. A matrix that mirrors has one negative scale: y's, or x's with `negativeX`. One that doesn't
    /// has none, or two with either flag. The homogeneous scale is divided out. False where the parts don't give the
    /// matrix back (it reaches out of the plane, or maps the plane onto a slanted line): they are the nearest ones
    /// then, and the identity's where a cell isn't finite.
    bool extractParameters(bool negativeX, bool negativeY, double pivotX, double pivotY, double& tx, double& ty,
                           double& tz, double& sx, double& sy, double& rotation, double& skew) const;
    /// Takes the matrix apart in space, about a pivot: it is
    ///     translate(tx, ty, tz) translate(pivot) rotateZ(rz) rotateY(ry) rotateX(rx) scale(sx, sy, sz)
    ///     translate(-pivot),
    /// angles in degrees. A matrix that mirrors has a negative sy. False where the parts don't give the matrix back
    /// (its axes aren't at right angles, or it is a projection): as above.
    bool extractParameters(double pivotX, double pivotY, double pivotZ, double& tx, double& ty, double& tz, double& sx,
                           double& sy, double& sz, double& rx, double& ry, double& rz) const;

    /// Writes the text and the cells, four a line, to the standard output.
    void print(const char* text) const;

    /// From the eye of the standard camera to the plane z = 0, where a field two units high fills its view.
    static constexpr double cameraDistance = 8.0 / 3.0;

private:
    std::array<double, 16> m_cells;
};

} // namespace Math
