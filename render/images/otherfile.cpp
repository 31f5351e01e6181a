#include "core/host/application.h"
#include "render/imageio/imageio.h"
#include "render/images/imagefile.h"
#include "render/images/writeoptions.h"

#include <QFile>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>
#include <array>
#include <cerrno>

namespace brindle::render {

namespace {

using Cel = CEL_Representation;

struct Module {
    const BrindleImageIO* functions = nullptr;
    QString error;
};

/// The module's own libraries stay among themselves (RTLD_LOCAL): their symbols are none of the process's.
Module load()
{
    const QByteArray path = QFile::encodeName(oswUtil::getBinDir() + QStringLiteral("/libBrindleImageIO.so"));
    void* file = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
    void* entry = file ? dlsym(file, "brindleImageIO") : nullptr;
    if (!entry) {
        return {nullptr, QStringLiteral("Files of this format need OpenImageIO, Debian's package libopenimageio2.4: %1")
                             .arg(QString::fromLocal8Bit(dlerror()))};
    }
    return {reinterpret_cast<BrindleImageIOEntry>(entry)(BrindleImageIOVersion),
            QStringLiteral("The module for this format is of another version")};
}

const Module& module()
{
    static const Module loaded = load();
    return loaded;
}

/// What is read, while the module works.
struct Reading {
    FileContent& content;
    QString& error;
    QImage image;
    std::vector<char> bytes; ///< The pixels as the module gives them.
};

void* beginReading(void* caller, const BrindleImage* image)
{
    auto& reading = *static_cast<Reading*>(caller);
    if (!ImageFile::isReadable(image->width, image->height, reading.error))
        return nullptr;
    const bool isMultiplied = image->isMultiplied != 0;
    const QImage::Format form =
        image->depth == BrindleImageBytes
            ? (isMultiplied ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBA8888)
        : image->depth == BrindleImageWords
            ? (isMultiplied ? QImage::Format_RGBA64_Premultiplied : QImage::Format_RGBA64)
            : (isMultiplied ? QImage::Format_RGBA32FPx4_Premultiplied : QImage::Format_RGBA32FPx4);
    reading.image = QImage(image->width, image->height, form);
    if (reading.image.isNull())
        reading.error =
            QStringLiteral("Memory doesn't suffice for %1 x %2 pixels").arg(image->width).arg(image->height);
    return reading.image.isNull() ? nullptr : reading.image.bits();
}

void takeProfile(void* caller, const void* bytes, std::size_t size)
{
    static_cast<Reading*>(caller)->content.colorProfile = QByteArray(static_cast<const char*>(bytes), qsizetype(size));
}

CEL_PixmapPtr pixmapOf(const QImage& image)
{
    if (image.depth() <= 32 && image.format() == QImage::Format_RGBA8888)
        return std::make_shared<CEL_PixmapRGBA8>(image);
    const bool isFloat = image.depth() > 64;
    return std::make_shared<CEL_Pixmap>(isFloat ? Cel::PIXMAP_RGBA_FLOAT : Cel::PIXMAP_RGBA16, image);
}

/// The pixels of a picture as the module takes them.
QImage imageOf(const CEL_Pixmap& picture, BrindleImage& image, const QImage& pixels)
{
    image = {pixels.width(), pixels.height(), BrindleImageWords, 1, nullptr};
    if (picture.format() == Cel::PIXMAP_RGBA8 || picture.format() == Cel::PIXMAP_RGBA8_THUMBNAIL) {
        image.depth = BrindleImageBytes;
        image.isMultiplied = 0;
    } else if (picture.format() == Cel::PIXMAP_RGBA_FLOAT) {
        image.depth = BrindleImageFloats;
    }
    image.pixels = const_cast<uchar*>(pixels.constBits());
    return pixels;
}

/// The texts of a file, in the form that the module takes.
class Texts {
public:
    explicit Texts(const CELIO_WriteContext::Texts& texts)
    {
        for (auto text = texts.begin(); text != texts.end(); ++text) {
            m_bytes.push_back(text.key().toUtf8());
            m_bytes.push_back(text.value().toUtf8());
        }
        for (std::size_t i = 0; i < m_bytes.size(); i += 2)
            m_rows.push_back({m_bytes[i].constData(), m_bytes[i + 1].constData()});
    }

    const std::vector<BrindleImageText>& rows() const { return m_rows; }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<BrindleImageText> m_rows;
};

/// Whether there is room for more behind a file that was written. Not all of OpenImageIO's formats notice that a disk
/// is full: they say that all is well, and the file ends in the middle.
bool hasRoomLeft(const QByteArray& path, QString& error)
{
    const std::vector<char> more(65536);
    const int file = open(path.constData(), O_WRONLY | O_APPEND | O_CLOEXEC);
    const off_t size = file < 0 ? 0 : lseek(file, 0, SEEK_END);
    errno = ENOSPC;
    const bool hasRoom = file >= 0 && ::write(file, more.data(), more.size()) == ssize_t(more.size());
    if (!hasRoom)
        error = qt_error_string(errno);
    const bool isBack = file >= 0 && ftruncate(file, size) == 0;
    if (hasRoom && !isBack)
        error = qt_error_string(errno);
    if (file >= 0)
        close(file);
    return hasRoom && isBack;
}

class OtherFile final : public ImageFile {
public:
    bool read(const QString& path, FileContent& content, QString& error) const override
    {
        if (!isLoaded(error))
            return false;
        std::array<char, 512> reason{};
        Reading reading{content, error, {}, {}};
        if (!module().functions->read(QFile::encodeName(path).constData(), &reading, beginReading, takeProfile,
                                      reason.data(), reason.size())) {
            if (error.isEmpty())
                error = QString::fromUtf8(reason.data());
            return false;
        }
        content.representations.push_back(pixmapOf(reading.image));
        return true;
    }

    bool write(const QString& path, const CEL_Pixmap& picture, const CELIO_WriteContext& context,
               QString& error) const override
    {
        WriteOptions options(context.option(), {"compression", "quality"});
        const int quality = options.number("quality", 0, 1, 100);
        const QByteArray compression = options.text("compression").value_or(QString()).toUtf8();
        error = options.failure();
        if (!error.isEmpty() || !isLoaded(error))
            return false;
        BrindleImage image{};
        const QImage pixels = imageOf(picture, image, pixelsOf(picture, writtenFormat(picture.format())));
        const Texts texts(context.texts());
        std::array<char, 512> reason{};
        const QByteArray& profile = context.colorProfile();
        if (module().functions->write(QFile::encodeName(path).constData(), &image, compression.constData(), quality,
                                      profile.constData(), std::size_t(profile.size()), texts.rows().data(),
                                      texts.rows().size(), reason.data(), reason.size()))
            return hasRoomLeft(QFile::encodeName(path), error);
        error = QString::fromUtf8(reason.data());
        return false;
    }

private:
    static bool isLoaded(QString& error)
    {
        if (!module().functions)
            error = module().error;
        return module().functions != nullptr;
    }

    /// Mattes go out as pictures.
    static Cel::CelFormat writtenFormat(Cel::CelFormat format)
    {
        const bool isAsItIs =
            format == Cel::PIXMAP_RGBA8 || format == Cel::PIXMAP_RGBA8_THUMBNAIL || format == Cel::PIXMAP_RGBA_FLOAT;
        return isAsItIs ? format : Cel::PIXMAP_RGBA16;
    }
};

} // namespace

const ImageFile& otherFile()
{
    static const OtherFile file;
    return file;
}

} // namespace brindle::render
