#pragma once

#include "render/picture.h"

#include <QRgba64>

namespace brindle::render {

/// Multiplies a picture by the alpha of a matte: only what lies under the matte stays. Inverted, only what doesn't.
void cut(Picture& picture, const Picture& matte, bool isInverted = false);

/// Multiplies a picture by an opacity from 0 to 1.
void fade(Picture& picture, double opacity);

/// A picture of one colour, which isn't multiplied by alpha.
Picture colourCard(const QSize& size, QRgba64 colour);

} // namespace brindle::render
