#pragma once

#include "core/host/math_point.h"

namespace Math {

/// An affine map of the plane: a point (x, y) goes to x * xAxis + y * yAxis + origin. The identity at first.
class Matrix2x3 {
public:
    constexpr Matrix2x3() = default;
    constexpr Matrix2x3(const Vector2d& xAxis, const Vector2d& yAxis, const Point2d& origin)
        : m_xAxis(xAxis),
          m_yAxis(yAxis),
          m_origin(origin)
    {}

    /// Let a step follow what the matrix does already: Scale, then Translate, is a place scaled about (0, 0) and then
    /// moved.
    constexpr Matrix2x3& Scale(const Vector2d& factors)
    {
        m_xAxis = {m_xAxis.x * factors.x, m_xAxis.y * factors.y};
        m_yAxis = {m_yAxis.x * factors.x, m_yAxis.y * factors.y};
        m_origin = {m_origin.x * factors.x, m_origin.y * factors.y};
        return *this;
    }
    constexpr Matrix2x3& Translate(const Vector2d& way)
    {
        m_origin = m_origin + way;
        return *this;
    }

    constexpr Point2d operator*(const Point2d& point) const
    {
        return {point.x * m_xAxis.x + point.y * m_yAxis.x + m_origin.x,
                point.x * m_xAxis.y + point.y * m_yAxis.y + m_origin.y};
    }
    /// A vector has no place: the origin plays no part.
    constexpr Vector2d operator*(const Vector2d& way) const { return m_xAxis * way.x + m_yAxis * way.y; }
    /// The map that does `first` and then this one.
    constexpr Matrix2x3 operator*(const Matrix2x3& first) const
    {
        return {*this * first.m_xAxis, *this * first.m_yAxis, *this * first.m_origin};
    }
    constexpr bool operator==(const Matrix2x3&) const = default;

    constexpr const Vector2d& xAxis() const { return m_xAxis; }
    constexpr const Vector2d& yAxis() const { return m_yAxis; }
    constexpr const Point2d& origin() const { return m_origin; }
    /// By how much areas grow; negative where the map mirrors.
    constexpr double determinant() const { return m_xAxis.cross(m_yAxis); }

private:
    Vector2d m_xAxis{1.0, 0.0};
    Vector2d m_yAxis{0.0, 1.0};
    Point2d m_origin;
};

} // namespace Math
