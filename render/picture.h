#pragma once

#include "core/host/cel_cel.h"

#include <QImage>
#include <QRect>
#include <QSize>

namespace brindle::render {

/// A picture on its way through the graph: its size in pixels, and the box of it that isn't empty, with the pixels in
/// there. x runs to the right and y down, from (0, 0) at the top left of the picture. The box may reach beyond the
/// picture: what lies outside may come in again by a blur.
///
/// Pixels have 16 bits a channel, multiplied by alpha (Format_RGBA64_Premultiplied). A value: copies share them.
class Picture {
public:
    Picture() = default;
    explicit Picture(const QSize& size) : m_size(size) {} ///< An empty one.
    /// The pixels of a box, in any form of Qt's.
    Picture(const QSize& size, const QPoint& place, const QImage& pixels);
    /// The pixels of a cel; of one without pixels an empty picture.
    static Picture of(CEL_Cel& cel);

    const QSize& size() const { return m_size; }
    QRect box() const { return QRect(m_place, m_pixels.size()); }
    bool isEmpty() const { return m_pixels.isNull(); }
    const QImage& pixels() const { return m_pixels; }
    /// To be written; the pixels are this picture's alone then.
    QImage& pixels() { return m_pixels; }

    /// The part inside a box, which is a copy where that is smaller.
    Picture cropped(const QRect& box) const;
    /// The same picture with pixels in all of a box; transparent ones where it had none.
    Picture grown(const QRect& box) const;
    /// The pixels of the whole picture.
    QImage whole() const;
    /// The picture as a cel has it.
    CEL_PixmapAreaPtr area() const;

private:
    QSize m_size;
    QPoint m_place;
    QImage m_pixels;
};

} // namespace brindle::render
