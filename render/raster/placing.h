#pragma once

#include "core/host/math_matrix2x3.h"
#include "render/raster/rasteriser.h"

namespace brindle::render {

QTransform transformOf(const Math::Matrix2x3& matrix);

/// The border of a rectangle from (0, 0) to (width, height), after a matrix.
GR_BezierPath2d rectanglePath(double width, double height, const Math::Matrix2x3& matrix = {});

/// The picture of a size with what `draw(Rasteriser&)` adds, as far as it lies in a box of the picture: pixels are made
/// for that alone. `place` leads to the pixels of the picture.
template <typename Draw>
Picture drawnInBox(const QSize& size, const QRect& box, const QTransform& place, const Draw& draw)
{
    if (box.isEmpty())
        return Picture(size);
    const std::unique_ptr<Rasteriser> rasteriser = Rasteriser::make();
    rasteriser->beginLayer(box.size(), place * QTransform::fromTranslate(-box.x(), -box.y()));
    draw(*rasteriser);
    const Picture drawn = rasteriser->endLayer();
    return drawn.isEmpty() ? Picture(size) : Picture(size, box.topLeft() + drawn.box().topLeft(), drawn.pixels());
}

} // namespace brindle::render
