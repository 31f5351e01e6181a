#pragma once

#include "core/host/export.h"
#include "core/host/math_point.h"

namespace Math {

/// A rectangle with sides along the axes that grows with what is put into it. Empty at first: its corners are (0, 0)
/// and its size is 0. A box about one point isn't empty, though it has no size.
class BRINDLE_HOST_EXPORT Box2d {
public:
    Box2d() = default;
    /// The box about two opposite corners, in any order.
    Box2d(const Point2d& corner, const Point2d& opposite)
    {
        AddClosed(corner);
        AddClosed(opposite);
    }

    /// Grows to hold a point. A point with a coordinate that is no number is left out.
    Box2d& AddClosed(const Point2d& point);
    /// Grows to hold another box; an empty one changes nothing.
    Box2d& AddClosed(const Box2d& box);

    /// Moves the sides outwards by a margin each: left and right by `x`, bottom and top by `y`. A negative margin moves
    /// them inwards, at most to where they meet. An empty box stays empty.
    Box2d& Enlarge(double x, double y);

    bool isEmpty() const { return m_empty; }
    double minX() const { return m_min.x; }
    double minY() const { return m_min.y; }
    double maxX() const { return m_max.x; }
    double maxY() const { return m_max.y; }
    const Point2d& min() const { return m_min; }
    const Point2d& max() const { return m_max; }
    double width() const { return m_max.x - m_min.x; }
    double height() const { return m_max.y - m_min.y; }

    /// Whether a point lies inside or on the border.
    bool contains(const Point2d& point) const
    {
        return !m_empty && point.x >= m_min.x && point.x <= m_max.x && point.y >= m_min.y && point.y <= m_max.y;
    }
    bool operator==(const Box2d&) const = default;

private:
    Point2d m_min;
    Point2d m_max;
    bool m_empty = true;
};

} // namespace Math
