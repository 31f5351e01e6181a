#pragma once

#include "core/host/cel_pixmap.h"

#include <cstdint>
#include <vector>

namespace brindle::render {

/// The rows of a picture as a PNG file has them, made one after the other: making all of them first would take about as
/// long as the file's compression. Values of 16 bits are in this machine's byte order.
class PngRows {
public:
    /// `bits` a channel, 8 or 16. A matte is grey. Throws std::bad_alloc where memory doesn't suffice.
    PngRows(const CEL_Pixmap& picture, int bits);

    int bits() const { return m_bits; }
    bool isGrey() const { return m_isGrey; }
    const QSize& size() const { return m_size; }
    /// The bytes of a row, valid until the next call. Throws std::bad_alloc where memory doesn't suffice.
    const std::uint8_t* row(int y);

private:
    void copyRow(int y, std::uint16_t* to) const;
    const std::uint8_t* bytesAt(int y);
    const std::uint8_t* wordsAt(int y);

    int m_bits;
    bool m_isGrey;
    bool m_isReady; ///< Whether the image has its rows as they go into the file.
    QSize m_size;
    QImage m_image;
    QPoint m_place; ///< Of the image in the picture.
    QImage m_bytes; ///< Some rows, from m_first on.
    int m_first = 0;
    std::vector<std::uint16_t> m_words; ///< One row.
};

} // namespace brindle::render
