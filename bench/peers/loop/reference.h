#pragma once

#include "bench/peers/loop/scene.h"

#include <vector>

namespace peers {

/// Red, green, blue and alpha of each pixel, premultiplied, 0 to 1; rows from the top.
using Pixels = std::vector<float>;

/// A frame as it is told, at the cost of time: the mean of 16 x 16 samples of a pixel, each of which a fill covers or
/// doesn't; a blur by the bell curve itself.
Pixels reference(const Scene& scene, const std::vector<Step>& frame);

} // namespace peers
