#include "core/host/celalgo.h"

#include <algorithm>
#include <cmath>

// Hue, saturation and lightness are those of Joblove and Greenberg, "Color Spaces for Computer Graphics" (SIGGRAPH
// 1978). The arithmetic is that of the W3C's CSS Color Module Level 4, section 7, "HSL Colors".

namespace {

double onScale(double number)
{
    return number > 0.0 ? std::min(number, 1.0) : 0.0;
}

/// How much of a channel a hue has, where the channel's place on the circle is `offset` twelfths.
double channelOf(double offset, double hue, double saturation, double lightness)
{
    const double place = std::fmod(offset + hue / 30.0, 12.0);
    const double reach = saturation * std::min(lightness, 1.0 - lightness);
    return lightness - reach * std::clamp(std::min(place - 3.0, 9.0 - place), -1.0, 1.0);
}

} // namespace

void CelAlgo::hslToRgb(const double& h, const double& s, const double& l, double& r, double& g, double& b)
{
    const double turn = std::isfinite(h) ? std::fmod(h, 360.0) : 0.0;
    const double hue = turn < 0.0 ? turn + 360.0 : turn;
    const double saturation = onScale(s);
    const double lightness = onScale(l);
    r = channelOf(0.0, hue, saturation, lightness);
    g = channelOf(8.0, hue, saturation, lightness);
    b = channelOf(4.0, hue, saturation, lightness);
}

void CelAlgo::rgbToHsl(const double& r, const double& g, const double& b, double& h, double& s, double& l)
{
    const double red = onScale(r);
    const double green = onScale(g);
    const double blue = onScale(b);
    const double most = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    const double range = most - least;
    const double lightness = (least + most) / 2.0;
    double hue = 0.0;
    double saturation = 0.0;
    if (range > 0.0) {
        saturation = onScale((most - lightness) / std::min(lightness, 1.0 - lightness));
        if (most == red)
            hue = (green - blue) / range + (green < blue ? 6.0 : 0.0);
        else if (most == green)
            hue = (blue - red) / range + 2.0;
        else
            hue = (red - green) / range + 4.0;
    }
    h = std::fmod(hue * 60.0, 360.0);
    s = saturation;
    l = lightness;
}
