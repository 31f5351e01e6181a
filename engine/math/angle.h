#pragma once

#include <cmath>
#include <numbers>

namespace brindle::engine {

inline constexpr double degreesPerRadian = 180.0 / std::numbers::pi;

/// The sine and cosine of an angle.
struct SineCosine {
    double sine;
    double cosine;

    static SineCosine ofRadians(double angle) { return {std::sin(angle), std::cos(angle)}; }

    /// Exact at multiples of 90 degrees, however many turns away: the turns are taken off before anything is rounded.
    static SineCosine ofDegrees(double angle)
    {
        int quarters = 0;
        const double rest = std::remquo(angle, 90.0, &quarters) / degreesPerRadian; // within 45 degrees
        const double sine = std::sin(rest);
        const double cosine = std::cos(rest);
        switch (quarters & 3) {
        case 0:
            return {sine, cosine};
        case 1:
            return {cosine, -sine};
        case 2:
            return {-sine, -cosine};
        default:
            return {-cosine, sine};
        }
    }
};

} // namespace brindle::engine
