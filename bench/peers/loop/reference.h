#pragma once

#include "bench/peers/loop/scene.h"

#include <vector>

namespace peers {

/// Red, green, blue and alpha of each pixel, premultiplied, 0 to 1; rows from the top.
using Pixels = std::vector<float>;

/// The picture of a frame as exactly as it can be had, however long that takes: each pixel is the mean of 16 x 16
/// samples, each of which a fill covers or doesn't; a blur sums the bell curve itself. Throws std::runtime_error for
/// steps that don't make one picture.
Pixels reference(const Scene& scene, const std::vector<Step>& frame);

} // namespace peers
