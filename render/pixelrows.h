#pragma once

#include <QImage>
#include <QRect>

#include <cstdint>
#include <cstring>
#include <stdexcept>

/// The pixels of pictures, row by row: four channels of 16 bits, multiplied by alpha.
namespace brindle::render {

constexpr int channelCount = 4;
constexpr int bytesPerPixel = 8;
constexpr std::uint16_t fullShare = 65535;

/// The product of two shares of 65535, to the nearest one.
constexpr std::uint16_t shareOf(std::uint32_t a, std::uint32_t b)
{
    const std::uint32_t sum = a * b + 32768u;
    return static_cast<std::uint16_t>((sum + (sum >> 16)) >> 16);
}

/// A share of 1 as one of 65535; what isn't between counts as the nearest, and what is no number as 0.
inline std::uint16_t shareOf(double share)
{
    return share > 0 ? static_cast<std::uint16_t>((share < 1 ? share : 1.0) * fullShare + 0.5) : std::uint16_t(0);
}

inline std::uint16_t* rowOf(QImage& pixels, int x, int y)
{
    return reinterpret_cast<std::uint16_t*>(pixels.scanLine(y)) + channelCount * x;
}
inline const std::uint16_t* rowOf(const QImage& pixels, int x, int y)
{
    return reinterpret_cast<const std::uint16_t*>(pixels.constScanLine(y)) + channelCount * x;
}

/// Transparent pixels. Throws std::bad_alloc where memory doesn't suffice.
inline QImage clearPixels(const QSize& size)
{
    QImage pixels(size, QImage::Format_RGBA64_Premultiplied);
    if (pixels.isNull() && !size.isEmpty())
        throw std::bad_alloc();
    for (int y = 0; y < pixels.height(); ++y)
        std::memset(pixels.scanLine(y), 0, std::size_t(bytesPerPixel) * std::size_t(pixels.width()));
    return pixels;
}

} // namespace brindle::render
