#pragma once

#include "core/host/cel_representation.h"

#include <QImage>
#include <QPoint>
#include <QSize>

#include <vector>

class CEL_Pixmap;
class CEL_PixmapArea;
using CEL_PixmapPtr = std::shared_ptr<const CEL_Pixmap>;
using CEL_PixmapAreaPtr = std::shared_ptr<const CEL_PixmapArea>;

/// A picture as pixels. x runs to the right and y down, from (0, 0) at the top left.
///
/// The pixels are a QImage, whose memory copies share:
///
/// | format | QImage | a pixel |
/// |---|---|---|
/// | RGBA8, thumbnail | Format_RGBA8888 | 8 bits a channel, not multiplied by alpha; where alpha is 0, so are the
/// colours | | RGBA16, area | Format_RGBA64_Premultiplied | 16 bits a channel, multiplied by alpha | | float |
/// Format_RGBA32FPx4_Premultiplied | floats, multiplied by alpha; colours may lie beyond 0 to 1 | | matte 8, matte 16 |
/// Format_Alpha8, Format_Grayscale16 | alpha |
///
/// Going from RGBA8 to RGBA16 or float and back gives the same bytes.
class BRINDLE_HOST_EXPORT CEL_Pixmap : public CEL_Representation {
public:
    /// Of one of the formats in the table but the area's. The image is brought to the form that the table names.
    CEL_Pixmap(CelFormat format, const QImage& image);

    CelFormat format() const override { return m_format; }
    virtual int width() const { return m_image.width(); } ///< Of the whole picture, in pixels.
    virtual int height() const { return m_image.height(); }
    /// The pixels; of an area, those inside its box.
    const QImage& image() const { return m_image; }

    /// The same picture in another format. Null for one that is not of pixels, and where memory doesn't suffice. A
    /// matte becomes white under its alpha; floats beyond 0 to 1 are cut off. A picture without an area has one of its
    /// full size.
    CEL_PixmapPtr converted(CelFormat format) const;

protected:
    struct Exact {}; ///< The image is in the form of the table already.
    CEL_Pixmap(CelFormat format, const QImage& image, Exact) : m_format(format), m_image(image) {}

private:
    CelFormat m_format;
    QImage m_image;
};

/// RGBA8 or a thumbnail.
class BRINDLE_HOST_EXPORT CEL_PixmapRGBA8 final : public CEL_Pixmap {
public:
    explicit CEL_PixmapRGBA8(const QImage& image, CelFormat format = PIXMAP_RGBA8) : CEL_Pixmap(format, image) {}

    /// Red, green, blue and alpha of a pixel inside the picture.
    const unsigned char* pixel(int x, int y) const { return image().constScanLine(y) + 4 * x; }
};

/// The part of a picture that isn't empty: its box holds pixels, everything outside of it is transparent. The box may
/// lie anywhere, also beyond the picture.
class BRINDLE_HOST_EXPORT CEL_PixmapArea final : public CEL_Pixmap {
public:
    /// The pixels of a box whose top left corner stands at a place in a picture of a size.
    CEL_PixmapArea(const QImage& box, const QPoint& place, const QSize& picture);

    int width() const override { return m_picture.width(); }
    int height() const override { return m_picture.height(); }
    int allocatedX1() const { return m_place.x(); }
    int allocatedY1() const { return m_place.y(); }
    int allocatedWidth() const { return image().width(); }
    int allocatedHeight() const { return image().height(); }

private:
    QPoint m_place;
    QSize m_picture;
};

/// How far each pixel of a picture lies from the viewer, in the units of the file that it comes from.
class BRINDLE_HOST_EXPORT CEL_PixmapZBuf final : public CEL_Representation {
public:
    /// `depths` has width times height numbers, row by row from the top; else std::invalid_argument.
    CEL_PixmapZBuf(int width, int height, std::vector<float> depths);

    CelFormat format() const override { return PIXMAP_AREA_ZBUF; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    float depth(int x, int y) const { return m_depths[std::size_t(y) * std::size_t(m_width) + std::size_t(x)]; }
    const std::vector<float>& depths() const { return m_depths; }

private:
    int m_width;
    int m_height;
    std::vector<float> m_depths;
};
