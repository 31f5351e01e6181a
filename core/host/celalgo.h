#pragma once

#include "core/host/export.h"

/// Colours between red, green, blue and hue, saturation, lightness. Hues are in degrees, everything else is on the
/// scale 0 to 1. What lies beyond the scale, or is no number, counts as its nearest end, or as 0; any hue is one of the
/// circle.
class BRINDLE_HOST_EXPORT CelAlgo {
public:
    static void hslToRgb(const double& h, const double& s, const double& l, double& r, double& g, double& b);
    /// The hue is at least 0 and below 360; a grey has hue 0 and saturation 0.
    static void rgbToHsl(const double& r, const double& g, const double& b, double& h, double& s, double& l);
};
