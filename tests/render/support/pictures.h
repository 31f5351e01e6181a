#pragma once

#include "render/picture.h"
#include "render/pixelrows.h"

#include <array>
#include <vector>

/// Pictures for tests.
namespace pictures {

/// A small picture, and all of it.
constexpr QSize size(8, 8);
constexpr QRect all(0, 0, 8, 8);

using Pixel = std::array<std::uint16_t, 4>;

/// A pixel of a picture, transparent outside of its box; multiplied by alpha, 16 bits.
inline Pixel at(const brindle::render::Picture& picture, int x, int y)
{
    if (!picture.box().contains(x, y))
        return {};
    const auto* pixel = brindle::render::rowOf(picture.pixels(), x - picture.box().left(), y - picture.box().top());
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

/// A box of one colour, given multiplied by alpha.
inline brindle::render::Picture filled(const QSize& size, const QRect& box, const Pixel& pixel)
{
    QImage pixels = brindle::render::clearPixels(box.size());
    for (int y = 0; y < box.height(); ++y) {
        for (int x = 0; x < box.width(); ++x)
            std::copy(pixel.begin(), pixel.end(), brindle::render::rowOf(pixels, x, y));
    }
    return {size, box.topLeft(), pixels};
}

} // namespace pictures
