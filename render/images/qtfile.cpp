#include "render/images/qtfile.h"

#include <QColorSpace>
#include <QImageReader>

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

} // namespace

bool readByQt(const char* format, const QString& path, FileContent& content, QString& error)
{
    liftLimit();
    QImageReader reader(path, format);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isEmpty() && !ImageFile::isReadable(size.width(), size.height(), error))
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

} // namespace brindle::render
