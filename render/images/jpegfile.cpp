#include "render/images/qtfile.h"
#include "render/images/writeoptions.h"
#include "render/pixelrows.h"

#include <QColorSpace>
#include <QFile>
#include <QImageWriter>

namespace brindle::render {

namespace {

constexpr char kFormat[] = "jpeg";

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

class JpegFile final : public ImageFile {
public:
    bool read(const QString& path, FileContent& content, QString& error) const override
    {
        return readByQt(kFormat, path, content, error);
    }

    bool write(const QString& path, const CEL_Pixmap& picture, const CELIO_WriteContext& context,
               QString& error) const override
    {
        WriteOptions options(context.option(), {"quality"});
        const int quality = options.number("quality", 90, 1, 100);
        error = options.failure();
        if (!error.isEmpty())
            return false;
        QImage image = overBlack(pixelsOf(picture, CEL_Representation::PIXMAP_RGBA16));
        if (!context.colorProfile().isEmpty()) {
            image.setColorSpace(QColorSpace::fromIccProfile(context.colorProfile()));
            if (!image.colorSpace().isValid()) {
                error = QStringLiteral("The colour profile can't go into the file");
                return false;
            }
        }
        QFile file(path);
        QImageWriter writer(&file, kFormat);
        writer.setQuality(quality);
        for (auto text = context.texts().begin(); text != context.texts().end(); ++text)
            writer.setText(text.key(), text.value());
        // The flush writes what the file has buffered, and can fail as well.
        if (writer.write(image) && file.flush())
            return true;
        error = file.error() != QFileDevice::NoError ? file.errorString() : writer.errorString();
        return false;
    }
};

} // namespace

const ImageFile& jpegFile()
{
    static const JpegFile file;
    return file;
}

} // namespace brindle::render
