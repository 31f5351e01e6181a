#pragma once

#include "bench/peers/loop/scene.h"

#include <QString>

namespace peers {

/// Draws all frames by QPainter into 8 or 16 bits a channel, so many at a time, and saves each as
/// "<folder>/<number>.png" where there is a folder. Throws std::runtime_error for a scene that needs more than fills,
/// and for a file that can't be written.
void drawByQt(const Scene& scene, int bits, int threads, const QString& folder);

} // namespace peers
