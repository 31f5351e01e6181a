#include "engine/curves/beziersegment.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace brindle::engine {

BezierSegment::BezierSegment(const CurvePoint& from, const CurvePoint& to)
    : m_x{from.frame, std::max(from.rightX, from.frame), std::min(to.leftX, to.frame), to.frame},
      m_y{from.value, from.rightHandleY(), to.leftHandleY(), to.value}
{
    if (m_x[1] <= m_x[3] && m_x[2] >= m_x[0])
        return;
    const double length = m_x[3] - m_x[0];
    const double a = (m_x[1] - m_x[0]) / length;
    const double c = (m_x[3] - m_x[2]) / length;
    constexpr double rounding = 1e-9; // what a split may be off by
    if (a + c - std::sqrt(a * c) > 1 + rounding) {
        m_x[1] = std::min(m_x[1], m_x[3]);
        m_x[2] = std::max(m_x[2], m_x[0]);
    }
}

/// The root of x(t) = frame in [0, 1]: Newton's method, with a step to the middle of the bracket where it would leave
/// it.
double BezierSegment::parameterAt(double frame) const
{
    const double length = m_x[3] - m_x[0];
    const double wanted = (frame - m_x[0]) / length;
    const double a = (m_x[1] - m_x[0]) / length;
    const double b = (m_x[2] - m_x[0]) / length;
    const double c1 = 3 * a;
    const double c2 = 3 * (b - 2 * a);
    const double c3 = 1 + 3 * (a - b);

    constexpr int steps = 128; // more than a bisection of [0, 1] needs
    double low = 0;
    double high = 1;
    double t = wanted;
    for (int step = 0; step < steps; ++step) {
        const double distance = ((c3 * t + c2) * t + c1) * t - wanted;
        if (distance == 0)
            break;
        (distance > 0 ? high : low) = t;
        const double slope = (3 * c3 * t + 2 * c2) * t + c1;
        double next = t - distance / slope;
        if (!(next > low && next < high))
            next = low + (high - low) / 2;
        const double moved = std::abs(next - t);
        t = next;
        if (moved <= 1e-16 || next == low || next == high)
            break;
    }
    return t;
}

double BezierSegment::valueOf(double t) const
{
    const double s = 1 - t;
    const double relative =
        m_y[0] + t * (3 * s * (s * (m_y[1] - m_y[0]) + t * (m_y[2] - m_y[0])) + t * t * (m_y[3] - m_y[0]));
    if (std::isfinite(relative))
        return relative;
    // Values at the end of what a double holds: a weighted mean of quarters stays within.
    const double quarter = s * s * s * (m_y[0] / 4) + 3 * s * s * t * (m_y[1] / 4) + 3 * s * t * t * (m_y[2] / 4) +
                           t * t * t * (m_y[3] / 4);
    constexpr double limit = std::numeric_limits<double>::max() / 4;
    return std::clamp(quarter, -limit, limit) * 4;
}

double BezierSegment::valueAt(double frame) const
{
    return valueOf(parameterAt(frame));
}

BezierSegment::Parts BezierSegment::split(double frame) const
{
    const double t = parameterAt(frame);
    const auto between = [t](const Position& one, const Position& other) {
        return Position{std::lerp(one.x, other.x, t), std::lerp(one.y, other.y, t)};
    };
    const Position points[4] = {{m_x[0], m_y[0]}, {m_x[1], m_y[1]}, {m_x[2], m_y[2]}, {m_x[3], m_y[3]}};
    Parts parts;
    parts.fromRight = between(points[0], points[1]);
    const Position top = between(points[1], points[2]);
    parts.toLeft = between(points[2], points[3]);
    parts.left = between(parts.fromRight, top);
    parts.right = between(top, parts.toLeft);
    parts.middle = {frame, valueOf(t)};
    return parts;
}

} // namespace brindle::engine
