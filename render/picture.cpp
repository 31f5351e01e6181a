#include "render/picture.h"

#include "render/pixelrows.h"

namespace brindle::render {

namespace {

/// Copies the part that two boxes share.
void copyShared(const QImage& from, const QRect& fromBox, QImage& to, const QRect& toBox)
{
    const QRect shared = fromBox & toBox;
    for (int y = shared.top(); y <= shared.bottom(); ++y) {
        std::memcpy(rowOf(to, shared.left() - toBox.left(), y - toBox.top()),
                    rowOf(from, shared.left() - fromBox.left(), y - fromBox.top()),
                    std::size_t(bytesPerPixel) * std::size_t(shared.width()));
    }
}

} // namespace

Picture::Picture(const QSize& size, const QPoint& place, const QImage& pixels)
    : m_size(size),
      m_place(place),
      m_pixels(CEL_PixmapArea(pixels, place, size).image())
{}

Picture Picture::of(CEL_Cel& cel)
{
    auto area = std::dynamic_pointer_cast<const CEL_PixmapArea>(cel.convertTo(CEL_Representation::PIXMAP_AREA_RGBA16));
    if (!area)
        return {};
    return {QSize(area->width(), area->height()), QPoint(area->allocatedX1(), area->allocatedY1()), area->image()};
}

Picture Picture::cropped(const QRect& box) const
{
    const QRect part = this->box() & box;
    if (part == this->box())
        return *this;
    Picture result(m_size);
    if (part.isEmpty())
        return result;
    result.m_place = part.topLeft();
    result.m_pixels = m_pixels.copy(part.translated(-m_place));
    return result;
}

Picture Picture::grown(const QRect& box) const
{
    const QRect all = isEmpty() ? box : this->box() | box;
    if (all == this->box() || all.isEmpty())
        return *this;
    Picture result(m_size);
    result.m_place = all.topLeft();
    result.m_pixels = clearPixels(all.size());
    copyShared(m_pixels, this->box(), result.m_pixels, all);
    return result;
}

QImage Picture::whole() const
{
    QImage result = clearPixels(m_size);
    copyShared(m_pixels, box(), result, QRect(QPoint(), m_size));
    return result;
}

CEL_PixmapAreaPtr Picture::area() const
{
    return std::make_shared<CEL_PixmapArea>(m_pixels, m_place, m_size);
}

} // namespace brindle::render
