#include "core/host/cm_color.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QtEndian>

namespace {

/// Pixels of the largest picture: 128 MB in memory, beyond which Qt refuses to read one.
constexpr qint64 mostPixels = 32LL * 1024 * 1024;

bool fits(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width <= BM_Bitmap::largestSide && height <= BM_Bitmap::largestSide &&
           width * height <= mostPixels;
}

/// The size in the head of a PNG that has its end; 0 x 0 for anything else. A PNG begins with its signature and the
/// chunk "IHDR", which begins with width and height, and ends with the chunk "IEND" (RFC 2083, chapters 3 and 4).
QSize sizeOfPng(const QByteArray& png)
{
    constexpr qsizetype widthPlace = 16;
    constexpr qsizetype heightPlace = 20;
    const bool isWhole = png.startsWith("\x89PNG\r\n\x1a\n") && png.sliced(8).indexOf("IHDR") == 4 &&
                         png.lastIndexOf("IEND") > heightPlace;
    if (!isWhole)
        return {0, 0};
    const auto side = [&](qsizetype place) { return qFromBigEndian<qint32>(png.constData() + place); };
    return {side(widthPlace), side(heightPlace)};
}

/// The picture in an image file's bytes; null when there is none, or it is too large. `isPng` tells the format.
QImage decoded(const QByteArray& bytes, bool& isPng)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    isPng = reader.format() == "png";
    const QSize size = isPng ? sizeOfPng(bytes) : reader.size(); // Of a damaged one libpng would print its own line.
    return size.isValid() && !fits(size.width(), size.height()) ? QImage() : reader.read();
}

QByteArray pngOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return image.convertToFormat(QImage::Format_RGBA8888).save(&buffer, "PNG") ? buffer.data() : QByteArray();
}

} // namespace

std::shared_ptr<const BM_Bitmap> BM_Bitmap::FromFile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) // A pipe would keep the process waiting.
        return nullptr;
    const QByteArray bytes = file.readAll();
    bool isPng = false;
    const QImage image = decoded(bytes, isPng);
    if (!fits(image.width(), image.height()))
        return nullptr;
    return std::shared_ptr<const BM_Bitmap>(new BM_Bitmap(isPng ? bytes : pngOf(image),
                                                          static_cast<unsigned int>(image.width()),
                                                          static_cast<unsigned int>(image.height())));
}

std::shared_ptr<const BM_Bitmap> BM_Bitmap::FromPng(const QByteArray& png)
{
    const QSize size = sizeOfPng(png);
    if (!fits(size.width(), size.height()))
        return nullptr;
    return std::shared_ptr<const BM_Bitmap>(
        new BM_Bitmap(png, static_cast<unsigned int>(size.width()), static_cast<unsigned int>(size.height())));
}

std::shared_ptr<const BM_Bitmap> BM_Bitmap::Scaled(unsigned int width, unsigned int height) const
{
    if (!fits(width, height))
        return nullptr;
    bool isPng = false;
    const QImage image = decoded(m_png, isPng).convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (image.isNull())
        return nullptr;
    const QSize size(static_cast<int>(width), static_cast<int>(height));
    const QByteArray png = pngOf(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return png.isEmpty() ? nullptr : std::shared_ptr<const BM_Bitmap>(new BM_Bitmap(png, width, height));
}

CM_Texture::CM_Texture(const QString& name, const QString& path, bool tile)
    : CM_Texture(name, UT_Id::Generate(), BM_Bitmap::FromFile(path), tile)
{}

CM_Texture::CM_Texture(const QString& name, const UT_Id& id, std::shared_ptr<const BM_Bitmap> bitmap, bool tile)
    : CM_BaseColorObj(id, name),
      m_bitmap(std::move(bitmap)),
      m_tile(tile)
{}

std::shared_ptr<CM_BaseColorObj> CM_Texture::Clone(bool newId) const
{
    auto clone = std::make_shared<CM_Texture>(*this);
    if (newId)
        clone->m_id = UT_Id::Generate();
    return clone;
}

bool CM_Texture::ChangeTexture(const QString& path)
{
    auto bitmap = BM_Bitmap::FromFile(path);
    if (!bitmap)
        return false;
    m_bitmap = std::move(bitmap);
    return true;
}

void CM_Texture::ModifyTexture(const CM_Texture& other)
{
    m_bitmap = other.m_bitmap;
    m_tile = other.m_tile;
}
