#pragma once

#include "core/host/cel_representation.h"

#include <QImage>

#include <algorithm>
#include <cstdint>

/// Pixels from one form into another, to the nearest value: exact where the other form can tell the value. Pictures
/// come in any form of Qt's and leave in the one that a CEL_Pixmap keeps; they are null where memory doesn't suffice.
namespace brindle::engine::pixels {

/// Whether a format is one of pixels with colours, or an alpha.
constexpr bool isOfPixels(CEL_Representation::CelFormat format)
{
    return format == CEL_Representation::PIXMAP_AREA_RGBA16 ||
           (format >= CEL_Representation::PIXMAP_RGBA16 && format <= CEL_Representation::PIXMAP_RGBA_FLOAT);
}

QImage toRgba8(const QImage& image);   ///< Format_RGBA8888, black where it is transparent.
QImage toRgba16(const QImage& image);  ///< Format_RGBA64_Premultiplied
QImage toFloat(const QImage& image);   ///< Format_RGBA32FPx4_Premultiplied
QImage toMatte8(const QImage& image);  ///< Format_Alpha8
QImage toMatte16(const QImage& image); ///< Format_Grayscale16

/// The product of two shares of 65535, to the nearest one.
constexpr std::uint16_t product(std::uint32_t a, std::uint32_t b)
{
    const std::uint32_t sum = a * b + 32768u;
    return static_cast<std::uint16_t>((sum + (sum >> 16)) >> 16);
}

/// A share of 65535 as one of 255, to the nearest one.
constexpr std::uint8_t byteOf(std::uint32_t share)
{
    return static_cast<std::uint8_t>((share * 255u + 32895u) >> 16);
}

} // namespace brindle::engine::pixels
