#include "render/images/imagefile.h"
#include "render/images/writeoptions.h"
#include "render/pixelrows.h"

#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>

#include <mutex>

namespace brindle::render {

namespace {

using Cel = CEL_Representation;

/// Qt refuses pictures above 256 MB, by a limit that all of the process shares.
void liftLimit()
{
    static std::once_flag once;
    std::call_once(once, [] {
        constexpr int megabytes = 8192; // 32768 x 32768 pixels of 8 bytes.
        if (QImageReader::allocationLimit() != 0 && QImageReader::allocationLimit() < megabytes)
            QImageReader::setAllocationLimit(megabytes);
    });
}

/// 16 bits a channel, not multiplied by alpha, as files have them.
QImage dividedByAlpha(const QImage& pixels)
{
    QImage result(pixels.size(), QImage::Format_RGBA64);
    if (result.isNull())
        throw std::bad_alloc();
    for (int y = 0; y < pixels.height(); ++y) {
        const std::uint16_t* from = rowOf(pixels, 0, y);
        std::uint16_t* to = rowOf(result, 0, y);
        for (int x = 0; x < pixels.width(); ++x, from += channelCount, to += channelCount) {
            const std::uint64_t alpha = from[3];
            for (int c = 0; c < 3; ++c)
                to[c] = alpha == 0 ? std::uint16_t(0) : std::uint16_t((from[c] * 65535ull + alpha / 2) / alpha);
            to[3] = from[3];
        }
    }
    return result;
}

/// A picture over black: what a format without alpha shows of it.
QImage overBlack(const QImage& pixels)
{
    QImage result(pixels.size(), QImage::Format_RGB888);
    if (result.isNull())
        throw std::bad_alloc();
    for (int y = 0; y < pixels.height(); ++y) {
        const std::uint16_t* from = rowOf(pixels, 0, y);
        uchar* to = result.scanLine(y);
        for (int x = 0; x < pixels.width(); ++x, from += channelCount, to += 3) {
            for (int c = 0; c < 3; ++c)
                to[c] = uchar((from[c] * 255u + 32895u) >> 16);
        }
    }
    return result;
}

class QtFile : public ImageFile {
public:
    explicit QtFile(const char* format) : m_format(format) {}

    bool read(const QString& path, FileContent& content, QString& error) const override
    {
        liftLimit();
        QImageReader reader(path, m_format);
        reader.setAutoTransform(true);
        const QSize size = reader.size();
        if (!size.isEmpty() && !isReadable(size.width(), size.height(), error))
            return false;
        QImage image = reader.read();
        if (image.isNull()) {
            error = reader.errorString();
            return false;
        }
        if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb))
            content.colorProfile = image.colorSpace().iccProfile();
        image.setColorSpace(QColorSpace());
        const bool isDeep = image.depth() > 32 || image.format() == QImage::Format_Grayscale16;
        // A file's grey is a colour, and no matte.
        const bool isGrey = image.format() == QImage::Format_Grayscale16;
        const QImage coloured = isGrey ? image.convertToFormat(QImage::Format_RGBX64) : image;
        CEL_PixmapPtr picture;
        if (isDeep)
            picture = std::make_shared<CEL_Pixmap>(Cel::PIXMAP_RGBA16, coloured);
        else
            picture = std::make_shared<CEL_PixmapRGBA8>(coloured);
        if (picture->image().isNull())
            throw std::bad_alloc();
        content.representations.push_back(picture);
        return true;
    }

protected:
    bool writeImage(const QString& path, QImage image, int quality, const CELIO_WriteContext& context,
                    QString& error) const
    {
        if (!context.colorProfile().isEmpty()) {
            const QColorSpace space = QColorSpace::fromIccProfile(context.colorProfile());
            if (!space.isValid()) {
                error = QStringLiteral("The colour profile can't go into the file");
                return false;
            }
            image.setColorSpace(space);
        }
        QFile file(path);
        QImageWriter writer(&file, m_format);
        writer.setQuality(quality);
        for (auto text = context.texts().begin(); text != context.texts().end(); ++text)
            writer.setText(text.key(), text.value());
        // What is still in the file's memory goes to the disk with the flush.
        if (writer.write(image) && file.flush())
            return true;
        error = file.error() != QFileDevice::NoError ? file.errorString() : writer.errorString();
        return false;
    }

private:
    QByteArray m_format;
};

class PngFile final : public QtFile {
public:
    PngFile() : QtFile("png") {}

    bool write(const QString& path, const CEL_Pixmap& picture, const CELIO_WriteContext& context,
               QString& error) const override
    {
        WriteOptions options(context.option(), {"compression"});
        // Of 9 steps, the first one that is worth the time: a third of the default's for a sixth more of size.
        const int level = options.number("compression", 1, 0, 9);
        error = options.failure();
        return error.isEmpty() && writeImage(path, imageOf(picture), qualityOf(level), context, error);
    }

private:
    /// Qt turns a quality from 0 to 100 into a level by (100 - quality) * 9 / 91.
    static int qualityOf(int level) { return 100 - (level * 91 + 8) / 9; }

    static QImage imageOf(const CEL_Pixmap& picture)
    {
        switch (picture.format()) {
        case Cel::PIXMAP_RGBA8:
        case Cel::PIXMAP_RGBA8_THUMBNAIL:
            return picture.image();
        case Cel::PIXMAP_MATTE8: {
            QImage grey = picture.image();
            grey.reinterpretAsFormat(QImage::Format_Grayscale8);
            return grey;
        }
        case Cel::PIXMAP_MATTE16:
            return picture.image();
        default:
            return dividedByAlpha(pixelsOf(picture, Cel::PIXMAP_RGBA16));
        }
    }
};

class JpegFile final : public QtFile {
public:
    JpegFile() : QtFile("jpeg") {}

    bool write(const QString& path, const CEL_Pixmap& picture, const CELIO_WriteContext& context,
               QString& error) const override
    {
        WriteOptions options(context.option(), {"quality"});
        const int quality = options.number("quality", 90, 1, 100);
        error = options.failure();
        return error.isEmpty() &&
               writeImage(path, overBlack(pixelsOf(picture, Cel::PIXMAP_RGBA16)), quality, context, error);
    }
};

} // namespace

const ImageFile& pngFile()
{
    static const PngFile file;
    return file;
}

const ImageFile& jpegFile()
{
    static const JpegFile file;
    return file;
}

} // namespace brindle::render
