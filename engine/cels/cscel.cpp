#include "core/host/cel_colorspace.h"
#include "engine/cels/pixels.h"

#include <QFile>

namespace pixels = brindle::engine::pixels;

namespace {

/// The pixels of a picture in other colours: in floats, of which an area keeps 16 bits.
CEL_PixmapPtr inOtherColours(const CEL_Pixmap& source, const CEL_ColorConverter& converter)
{
    QImage image = pixels::toFloat(source.image());
    constexpr int channels = 4;
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<float*>(image.scanLine(y));
        float* const end = row + qsizetype(channels) * image.width();
        // A curve of colours is one of the colours themselves, not of their product with alpha.
        for (float* pixel = row; pixel != end; pixel += channels) {
            for (int c = 0; c < 3 && pixel[3] > 0.0f; ++c)
                pixel[c] /= pixel[3];
        }
        converter.convert(row, image.width());
        for (float* pixel = row; pixel != end; pixel += channels) {
            for (int c = 0; c < 3; ++c)
                pixel[c] *= pixel[3];
        }
    }
    if (image.isNull())
        return nullptr;
    if (const auto* area = dynamic_cast<const CEL_PixmapArea*>(&source)) {
        return std::make_shared<CEL_PixmapArea>(image, QPoint(area->allocatedX1(), area->allocatedY1()),
                                                QSize(area->width(), area->height()));
    }
    return std::make_shared<CEL_Pixmap>(CEL_Representation::PIXMAP_RGBA_FLOAT, image);
}

} // namespace

CS_Cel::CS_Cel(CEL_Cel* cel, std::shared_ptr<const CEL_ColorConverter> converter, const QString& iccFilePath)
    : m_source(cel),
      m_converter(std::move(converter))
{
    QFile file(iccFilePath);
    if (!iccFilePath.isEmpty() && file.open(QIODevice::ReadOnly))
        impl().setColorProfile(file.readAll());
}

CEL_Representation::CelFormat CS_Cel::realFormat() const
{
    return m_source ? m_source->realFormat() : CEL_Representation::EMPTY;
}

CEL_RepresentationPtr CS_Cel::findRepresentation(CEL_Representation::CelFormat format) const
{
    if (pixels::isOfPixels(format) || !m_source)
        return CEL_Cel::findRepresentation(format);
    return m_source->findRepresentation(format);
}

std::shared_ptr<const CELVEC_Brd> CS_Cel::findBestVectorRepresentation() const
{
    return m_source ? m_source->findBestVectorRepresentation() : nullptr;
}

CEL_RepresentationPtr CS_Cel::make(CEL_Representation::CelFormat format)
{
    if (!m_source || !m_converter || !pixels::isOfPixels(format))
        return nullptr;
    if (!m_isConverted) {
        m_isConverted = true;
        auto source = m_source->findRepresentation(CEL_Representation::PIXMAP_AREA_RGBA16);
        if (!source || m_source->realFormat() != CEL_Representation::PIXMAP_AREA_RGBA16)
            source = m_source->convertTo(CEL_Representation::PIXMAP_RGBA_FLOAT);
        if (const auto* pixmap = dynamic_cast<const CEL_Pixmap*>(source.get()))
            setRepresentation(inOtherColours(*pixmap, *m_converter));
    }
    if (auto present = CEL_Cel::findRepresentation(format))
        return present;
    return CEL_Cel::make(format);
}
