#include "render/images/imagefile.h"

#include <new>

namespace brindle::render {

const ImageFile& ImageFile::of(const QString& formatKey)
{
    if (formatKey == QStringLiteral("PNG"))
        return pngFile();
    if (formatKey == QStringLiteral("JPEG"))
        return jpegFile();
    return formatKey == QStringLiteral("OPENEXR") ? exrFile() : otherFile();
}

bool ImageFile::isReadable(qint64 width, qint64 height, QString& error)
{
    if (width >= 1 && height >= 1 && width <= mostPixels && height <= mostPixels)
        return true;
    error = QStringLiteral("Its size of %1 x %2 pixels is not between 1 and %3 a side")
                .arg(width)
                .arg(height)
                .arg(mostPixels);
    return false;
}

QImage ImageFile::pixelsOf(const CEL_Pixmap& picture, CEL_Representation::CelFormat format)
{
    const CEL_PixmapPtr converted = picture.format() == format ? nullptr : picture.converted(format);
    const QImage image = converted ? converted->image() : picture.format() == format ? picture.image() : QImage();
    if (image.isNull())
        throw std::bad_alloc();
    return image;
}

} // namespace brindle::render
