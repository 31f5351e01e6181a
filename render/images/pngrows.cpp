#include "render/images/pngrows.h"

#include "render/images/imagefile.h"
#include "render/pixelrows.h"

#include <algorithm>
#include <cstring>

namespace brindle::render {

namespace {

using Cel = CEL_Representation;

bool isMatte(const CEL_Pixmap& picture)
{
    return picture.format() == Cel::PIXMAP_MATTE8 || picture.format() == Cel::PIXMAP_MATTE16;
}

/// The picture's pixels in the format that rows are made from.
QImage pixelsFor(const CEL_Pixmap& picture, int bits)
{
    if (isMatte(picture))
        return ImageFile::pixelsOf(picture, bits == 8 ? Cel::PIXMAP_MATTE8 : Cel::PIXMAP_MATTE16);
    if (picture.format() == Cel::PIXMAP_AREA_RGBA16)
        return picture.image();
    const bool isOfBytes = picture.image().format() == QImage::Format_RGBA8888;
    return isOfBytes && bits == 8 ? picture.image() : ImageFile::pixelsOf(picture, Cel::PIXMAP_RGBA16);
}

/// Divides the colours of a row by alpha. Drawn pictures have runs of one colour, which is divided once.
void divideByAlpha(std::uint16_t* pixel, int width)
{
    std::uint64_t last = 0;
    std::uint64_t divided = 0;
    for (; width > 0; --width, pixel += channelCount) {
        std::uint64_t same;
        std::memcpy(&same, pixel, sizeof same);
        if (same != last) {
            last = same;
            const std::uint64_t alpha = pixel[3];
            for (int c = 0; c < 3; ++c)
                pixel[c] = alpha == 0 ? std::uint16_t(0) : std::uint16_t((pixel[c] * 65535ull + alpha / 2) / alpha);
            std::memcpy(&divided, pixel, sizeof divided);
        }
        std::memcpy(pixel, &divided, sizeof divided);
    }
}

} // namespace

PngRows::PngRows(const CEL_Pixmap& picture, int bits)
    : m_bits(bits),
      m_isGrey(isMatte(picture)),
      m_size(picture.width(), picture.height()),
      m_image(pixelsFor(picture, bits))
{
    m_isReady = m_isGrey || m_image.format() == QImage::Format_RGBA8888;
    if (const auto* area = dynamic_cast<const CEL_PixmapArea*>(&picture))
        m_place = QPoint(area->allocatedX1(), area->allocatedY1());
}

const std::uint8_t* PngRows::row(int y)
{
    if (m_isReady)
        return m_image.constScanLine(y);
    return m_bits == 8 ? bytesAt(y) : wordsAt(y);
}

/// The row's colours, multiplied by alpha.
void PngRows::copyRow(int y, std::uint16_t* to) const
{
    const QRect box(m_place, m_image.size());
    const QRect shown = box & QRect(0, y, m_size.width(), 1);
    const auto channelsOf = [](int pixels) { return static_cast<std::size_t>(pixels) * channelCount; };
    if (shown.isEmpty()) {
        std::fill_n(to, channelsOf(m_size.width()), std::uint16_t(0));
        return;
    }
    std::fill_n(to, channelsOf(shown.left()), std::uint16_t(0));
    std::copy_n(rowOf(m_image, shown.left() - box.left(), y - box.top()), channelsOf(shown.width()),
                to + channelsOf(shown.left()));
    std::fill_n(to + channelsOf(shown.right() + 1), channelsOf(m_size.width() - 1 - shown.right()), std::uint16_t(0));
}

const std::uint8_t* PngRows::wordsAt(int y)
{
    m_words.resize(static_cast<std::size_t>(m_size.width()) * channelCount);
    copyRow(y, m_words.data());
    divideByAlpha(m_words.data(), m_size.width());
    return reinterpret_cast<const std::uint8_t*>(m_words.data());
}

const std::uint8_t* PngRows::bytesAt(int y)
{
    constexpr int most = 32; // Rows that are converted at a time.
    if (m_bytes.isNull() || y < m_first || y >= m_first + m_bytes.height()) {
        QImage rows(m_size.width(), std::min(most, m_size.height() - y), QImage::Format_RGBA64_Premultiplied);
        if (rows.isNull())
            throw std::bad_alloc();
        for (int i = 0; i < rows.height(); ++i)
            copyRow(y + i, rowOf(rows, 0, i));
        m_bytes = CEL_PixmapRGBA8(rows).image();
        m_first = y;
        if (m_bytes.isNull())
            throw std::bad_alloc();
    }
    return m_bytes.constScanLine(y - m_first);
}

} // namespace brindle::render
