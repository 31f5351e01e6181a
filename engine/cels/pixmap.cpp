#include "core/host/cel_pixmap.h"
#include "engine/cels/pixels.h"

#include <stdexcept>

namespace pixels = brindle::engine::pixels;

namespace {

constexpr int thumbnailSide = 128;

/// A picture brought to the form of its format; null where memory doesn't suffice.
QImage inForm(CEL_Representation::CelFormat format, const QImage& image)
{
    switch (format) {
    case CEL_Representation::PIXMAP_RGBA16:
    case CEL_Representation::PIXMAP_AREA_RGBA16:
        return pixels::toRgba16(image);
    case CEL_Representation::PIXMAP_RGBA8:
        return pixels::toRgba8(image);
    case CEL_Representation::PIXMAP_RGBA8_THUMBNAIL: {
        const bool fits = std::max(image.width(), image.height()) <= thumbnailSide;
        const QImage deep = fits ? image : pixels::toRgba16(image);
        return pixels::toRgba8(
            fits ? deep : deep.scaled(thumbnailSide, thumbnailSide, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    }
    case CEL_Representation::PIXMAP_RGBA_FLOAT:
        return pixels::toFloat(image);
    case CEL_Representation::PIXMAP_MATTE8:
        return pixels::toMatte8(image);
    case CEL_Representation::PIXMAP_MATTE16:
        return pixels::toMatte16(image);
    default:
        return {};
    }
}

/// The whole of a picture of which an area is a part.
QImage wholeOf(const CEL_PixmapArea& area)
{
    QImage whole(area.width(), area.height(), QImage::Format_RGBA64_Premultiplied);
    if (whole.isNull())
        return whole;
    whole.fill(Qt::transparent);
    const QRect box(QPoint(area.allocatedX1(), area.allocatedY1()), area.image().size());
    const QRect shown = box & whole.rect();
    constexpr int bytesPerPixel = 8;
    for (int y = shown.top(); y <= shown.bottom(); ++y) {
        std::memcpy(whole.scanLine(y) + bytesPerPixel * shown.left(),
                    area.image().constScanLine(y - box.top()) + bytesPerPixel * (shown.left() - box.left()),
                    std::size_t(bytesPerPixel) * std::size_t(shown.width()));
    }
    return whole;
}

} // namespace

CEL_Pixmap::CEL_Pixmap(CelFormat format, const QImage& image) : CEL_Pixmap(format, inForm(format, image), Exact()) {}

CEL_PixmapPtr CEL_Pixmap::converted(CelFormat format) const
{
    if (!pixels::isOfPixels(format))
        return nullptr;
    if (format == PIXMAP_AREA_RGBA16) {
        auto area = std::make_shared<CEL_PixmapArea>(m_image, QPoint(), m_image.size());
        return area->image().isNull() ? nullptr : area;
    }
    const auto* area = dynamic_cast<const CEL_PixmapArea*>(this);
    const QImage whole = area ? wholeOf(*area) : m_image;
    CEL_PixmapPtr made;
    if (format == PIXMAP_RGBA8 || format == PIXMAP_RGBA8_THUMBNAIL)
        made = std::make_shared<CEL_PixmapRGBA8>(whole, format);
    else
        made = std::make_shared<CEL_Pixmap>(format, whole);
    return made->image().isNull() ? nullptr : made;
}

CEL_PixmapArea::CEL_PixmapArea(const QImage& box, const QPoint& place, const QSize& picture)
    : CEL_Pixmap(PIXMAP_AREA_RGBA16, box),
      m_place(place),
      m_picture(picture)
{}

CEL_PixmapZBuf::CEL_PixmapZBuf(int width, int height, std::vector<float> depths)
    : m_width(width),
      m_height(height),
      m_depths(std::move(depths))
{
    if (width < 0 || height < 0 || m_depths.size() != std::size_t(width) * std::size_t(height))
        throw std::invalid_argument("a depth for each pixel");
}
