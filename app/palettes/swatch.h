#pragma once

#include "core/host/cm_color.h"

#include <QImage>

namespace app {

/// What a colour looks like on an area of this size in pixels, on a chequered ground where it is transparent: a linear
/// gradient runs from left to right, a radial one from the middle to the nearer sides, and a texture shows its upper
/// left corner, or is fitted in where it is larger.
QImage swatch(const CM_BaseColorObj& colour, int width, int height);

} // namespace app
