#pragma once

#include <algorithm>
#include <array>
#include <cmath>

namespace brindle::engine {

/// The lengths along a piece of a curve whose parameter goes from 0 to 1, and the way back from a length to the
/// parameter. Lengths are Gauss-Legendre integrals of the speed, to the precision of a double for smooth curves; the
/// parameters between the steps come from a monotone cubic interpolation through them.
class ArcLength {
public:
    ArcLength() = default;

    /// `speed(t)` is the length of the derivative. A curve with a length that no double holds counts as having none.
    template <typename Speed>
    explicit ArcLength(Speed speed)
    {
        // Abscissae and weights of five points on [-1, 1] (Abramowitz and Stegun, table 25.4).
        constexpr double places[] = {0, 0.5384693101056831, 0.9061798459386640};
        constexpr double weights[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
        constexpr double half = 0.5 / steps;
        for (int step = 0; step < steps; ++step) {
            const double middle = (2 * step + 1) * half;
            double sum = weights[0] * speed(middle);
            for (int i = 1; i < 3; ++i)
                sum += weights[i] * (speed(middle - places[i] * half) + speed(middle + places[i] * half));
            m_lengths[static_cast<std::size_t>(step) + 1] = m_lengths[static_cast<std::size_t>(step)] + half * sum;
        }
        if (!std::isfinite(length())) {
            m_lengths.fill(0);
            return;
        }
        for (int step = 0; step <= steps; ++step)
            m_slopes[static_cast<std::size_t>(step)] = slope(step, speed(static_cast<double>(step) / steps));
    }

    double length() const { return m_lengths[steps]; }

    /// `distance` between 0 and the length, which is above 0.
    double parameterAt(double distance) const
    {
        const auto after = std::upper_bound(m_lengths.begin() + 1, m_lengths.end() - 1, distance);
        const auto step = static_cast<std::size_t>(after - m_lengths.begin()) - 1;
        constexpr double rise = 1.0 / steps;
        const double width = m_lengths[step + 1] - m_lengths[step];
        if (width <= 0)
            return static_cast<double>(step) * rise;
        const double s = (distance - m_lengths[step]) / width;
        const double u = 1 - s;
        const double start = width * m_slopes[step];
        const double end = width * m_slopes[step + 1];
        return static_cast<double>(step) * rise + s * (u * u * start + s * ((3 - 2 * s) * rise - u * end));
    }

private:
    static constexpr int steps = 32;

    /// The slope of the parameter over the length at a step, held to three times the secants beside it: so the
    /// interpolation grows all the way (F. N. Fritsch and R. E. Carlson, "Monotone Piecewise Cubic Interpolation",
    /// SIAM J. Numer. Anal. 17, 1980).
    double slope(int step, double speed) const
    {
        const auto at = static_cast<std::size_t>(step);
        double steepest = INFINITY;
        for (const std::size_t from : {at - 1, at}) {
            if ((from == at || step > 0) && from < steps && m_lengths[from + 1] > m_lengths[from])
                steepest = std::min(steepest, 3.0 / (steps * (m_lengths[from + 1] - m_lengths[from])));
        }
        const double own = 1 / speed;
        return std::isfinite(steepest) ? std::min(own, steepest) : 0;
    }

    std::array<double, steps + 1> m_lengths{};
    std::array<double, steps + 1> m_slopes{};
};

} // namespace brindle::engine
