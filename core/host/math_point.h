#pragma once

#include <cmath>

/// Points and vectors in double precision: plain records. A point is a place, a vector the way between two places.
namespace Math {

struct Vector2d {
    double x = 0.0;
    double y = 0.0;

    constexpr Vector2d operator+(const Vector2d& other) const { return {x + other.x, y + other.y}; }
    constexpr Vector2d operator-(const Vector2d& other) const { return {x - other.x, y - other.y}; }
    constexpr Vector2d operator-() const { return {-x, -y}; }
    constexpr Vector2d operator*(double factor) const { return {x * factor, y * factor}; }
    constexpr bool operator==(const Vector2d&) const = default;

    constexpr double dot(const Vector2d& other) const { return x * other.x + y * other.y; }
    constexpr double cross(const Vector2d& other) const { return x * other.y - y * other.x; }
    double length() const { return std::hypot(x, y); }
};

struct Point2d {
    double x = 0.0;
    double y = 0.0;

    constexpr Point2d operator+(const Vector2d& way) const { return {x + way.x, y + way.y}; }
    constexpr Point2d operator-(const Vector2d& way) const { return {x - way.x, y - way.y}; }
    constexpr Vector2d operator-(const Point2d& other) const { return {x - other.x, y - other.y}; }
    constexpr bool operator==(const Point2d&) const = default;
};

struct Vector3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr Vector3d operator+(const Vector3d& other) const { return {x + other.x, y + other.y, z + other.z}; }
    constexpr Vector3d operator-(const Vector3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
    constexpr Vector3d operator-() const { return {-x, -y, -z}; }
    constexpr Vector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    constexpr bool operator==(const Vector3d&) const = default;

    constexpr double dot(const Vector3d& other) const { return x * other.x + y * other.y + z * other.z; }
    constexpr Vector3d cross(const Vector3d& other) const
    {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }
    double length() const { return std::hypot(x, y, z); }
};

struct Point3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr Point3d operator+(const Vector3d& way) const { return {x + way.x, y + way.y, z + way.z}; }
    constexpr Point3d operator-(const Vector3d& way) const { return {x - way.x, y - way.y, z - way.z}; }
    constexpr Vector3d operator-(const Point3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
    constexpr bool operator==(const Point3d&) const = default;
};

} // namespace Math
