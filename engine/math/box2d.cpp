#include "core/host/math_box2d.h"

#include <algorithm>

namespace Math {

namespace {

/// Moves two ends apart by a margin each; a negative one brings them together, at most to their middle.
void widen(double& low, double& high, double margin)
{
    if (high - low + 2 * margin >= 0) {
        low -= margin;
        high += margin;
    } else {
        low = high = low + (high - low) / 2;
    }
}

} // namespace

Box2d& Box2d::AddClosed(const Point2d& point)
{
    if (std::isnan(point.x) || std::isnan(point.y))
        return *this;
    if (m_empty) {
        m_min = m_max = point;
        m_empty = false;
        return *this;
    }
    m_min = {std::min(m_min.x, point.x), std::min(m_min.y, point.y)};
    m_max = {std::max(m_max.x, point.x), std::max(m_max.y, point.y)};
    return *this;
}

Box2d& Box2d::AddClosed(const Box2d& box)
{
    if (!box.m_empty) {
        AddClosed(box.m_min);
        AddClosed(box.m_max);
    }
    return *this;
}

Box2d& Box2d::Enlarge(double x, double y)
{
    if (!m_empty) {
        widen(m_min.x, m_max.x, x);
        widen(m_min.y, m_max.y, y);
    }
    return *this;
}

} // namespace Math
