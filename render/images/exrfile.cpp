#include "render/images/imagefile.h"
#include "render/images/writeoptions.h"

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfHeader.h>
#include <ImfInputFile.h>
#include <ImfOutputFile.h>
#include <ImfStringAttribute.h>

#include <QFile>

#include <array>

namespace brindle::render {

namespace {

using Cel = CEL_Representation;

constexpr int channels = 4;

/// The compressions by their names, as the format numbers them.
constexpr std::array compressions = {"none", "rle", "zips", "zip", "piz", "pxr24", "b44", "b44a", "dwaa", "dwab"};

QString reasonOf(const std::exception& failure)
{
    return QString::fromUtf8(failure.what()).simplified();
}

/// The channels of a picture in a file; a grey picture has its one channel three times.
struct FileChannels {
    const char* names[channels] = {"R", "G", "B", "A"};
    bool hasDepth = false;

    explicit FileChannels(const Imf::ChannelList& list) : hasDepth(list.findChannel("Z") != nullptr)
    {
        if (!list.findChannel("R") && !list.findChannel("G") && !list.findChannel("B") && list.findChannel("Y"))
            names[0] = names[1] = names[2] = "Y";
    }
};

/// Puts the pixels of the data window into a picture of the display window.
class ReadWindow {
public:
    ReadWindow(Imf::InputFile& file, QString& error)
        : m_file(file),
          m_data(file.header().dataWindow()),
          m_shown(file.header().displayWindow())
    {
        m_isReadable = ImageFile::isReadable(width(m_shown), height(m_shown), error) &&
                       ImageFile::isReadable(width(m_data), height(m_data), error);
    }

    bool isReadable() const { return m_isReadable; }

    /// One channel after the other, each of four bytes.
    std::vector<float> read(const std::vector<const char*>& names, const std::vector<float>& fill) const
    {
        const std::size_t count = names.size();
        const std::size_t rowBytes = sizeof(float) * count * std::size_t(width(m_data));
        std::vector<float> pixels(count * std::size_t(width(m_data)) * std::size_t(height(m_data)));
        // A channel is taken once: one that is asked for again is copied behind.
        Imf::FrameBuffer buffer;
        for (std::size_t c = 0; c < count; ++c) {
            if (buffer.findSlice(names[c]))
                continue;
            char* const base = reinterpret_cast<char*>(pixels.data() + c) -
                               std::ptrdiff_t(m_data.min.x) * std::ptrdiff_t(sizeof(float) * count) -
                               std::ptrdiff_t(m_data.min.y) * std::ptrdiff_t(rowBytes);
            buffer.insert(names[c],
                          Imf::Slice(Imf::FLOAT, base, sizeof(float) * count, rowBytes, 1, 1, double(fill[c])));
        }
        m_file.setFrameBuffer(buffer);
        m_file.readPixels(m_data.min.y, m_data.max.y);
        for (std::size_t c = 1; c < count; ++c) {
            if (std::strcmp(names[c], names[0]) != 0)
                continue;
            for (std::size_t i = 0; i < pixels.size(); i += count)
                pixels[i + c] = pixels[i];
        }
        return pixels;
    }

    /// What lies in the display window; `outside` elsewhere.
    template <typename Put>
    void forShown(Put put) const
    {
        const int left = std::max(m_data.min.x, m_shown.min.x);
        const int right = std::min(m_data.max.x, m_shown.max.x);
        for (int y = std::max(m_data.min.y, m_shown.min.y); y <= std::min(m_data.max.y, m_shown.max.y); ++y) {
            for (int x = left; x <= right; ++x) {
                const std::size_t from =
                    std::size_t(y - m_data.min.y) * std::size_t(width(m_data)) + std::size_t(x - m_data.min.x);
                put(from, x - m_shown.min.x, y - m_shown.min.y);
            }
        }
    }

    int shownWidth() const { return int(width(m_shown)); }
    int shownHeight() const { return int(height(m_shown)); }

private:
    static qint64 width(const Imath::Box2i& box) { return qint64(box.max.x) - box.min.x + 1; }
    static qint64 height(const Imath::Box2i& box) { return qint64(box.max.y) - box.min.y + 1; }

    Imf::InputFile& m_file;
    Imath::Box2i m_data;
    Imath::Box2i m_shown;
    bool m_isReadable;
};

CEL_RepresentationPtr readPicture(const ReadWindow& window, const FileChannels& names)
{
    const std::vector<float> pixels = window.read({names.names, names.names + channels}, {0.0f, 0.0f, 0.0f, 1.0f});
    QImage image(window.shownWidth(), window.shownHeight(), QImage::Format_RGBA32FPx4_Premultiplied);
    if (image.isNull())
        throw std::bad_alloc();
    image.fill(Qt::transparent);
    window.forShown([&](std::size_t from, int x, int y) {
        std::copy_n(&pixels[from * channels], channels,
                    reinterpret_cast<float*>(image.scanLine(y)) + qsizetype(channels) * x);
    });
    return std::make_shared<CEL_Pixmap>(Cel::PIXMAP_RGBA_FLOAT, image);
}

CEL_RepresentationPtr readDepths(const ReadWindow& window)
{
    const std::vector<float> read = window.read({"Z"}, {0.0f});
    std::vector<float> depths(std::size_t(window.shownWidth()) * std::size_t(window.shownHeight()));
    window.forShown([&](std::size_t from, int x, int y) {
        depths[std::size_t(y) * std::size_t(window.shownWidth()) + std::size_t(x)] = read[from];
    });
    return std::make_shared<CEL_PixmapZBuf>(window.shownWidth(), window.shownHeight(), std::move(depths));
}

class ExrFile final : public ImageFile {
public:
    bool read(const QString& path, FileContent& content, QString& error) const override
    {
        try {
            Imf::InputFile file(QFile::encodeName(path).constData());
            const FileChannels names(file.header().channels());
            const ReadWindow window(file, error);
            if (!window.isReadable())
                return false;
            content.representations.push_back(readPicture(window, names));
            if (names.hasDepth)
                content.representations.push_back(readDepths(window));
            return true;
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& failure) {
            error = reasonOf(failure);
            return false;
        }
    }

    bool write(const QString& path, const CEL_Pixmap& picture, const CELIO_WriteContext& context,
               QString& error) const override
    {
        WriteOptions options(context.option(), {"depth", "compression"});
        const bool isHalf = options.word("depth", {"half", "float"}) == QStringLiteral("half");
        const QString compression =
            options.word("compression", {"zip", "none", "rle", "zips", "piz", "pxr24", "b44", "b44a", "dwaa", "dwab"});
        error = options.failure();
        if (!error.isEmpty())
            return false;
        const QImage image = pixelsOf(picture, Cel::PIXMAP_RGBA_FLOAT);
        Imf::Header header(image.width(), image.height());
        const auto number = std::find(compressions.begin(), compressions.end(), compression.toStdString());
        header.compression() = Imf::Compression(number - compressions.begin());
        for (auto text = context.texts().begin(); text != context.texts().end(); ++text)
            header.insert(text.key().toStdString(), Imf::StringAttribute(text.value().toStdString()));
        try {
            writePixels(path, image, header, isHalf);
            return true;
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& failure) {
            error = reasonOf(failure);
            return false;
        }
    }

private:
    static void writePixels(const QString& path, const QImage& image, Imf::Header& header, bool isHalf)
    {
        const Imf::PixelType type = isHalf ? Imf::HALF : Imf::FLOAT;
        std::vector<half> halves;
        const std::size_t count = std::size_t(image.width()) * std::size_t(image.height()) * channels;
        const auto* const floats = reinterpret_cast<const float*>(image.constBits());
        if (isHalf)
            halves.assign(floats, floats + count);
        const auto* const pixels =
            isHalf ? reinterpret_cast<const char*>(halves.data()) : reinterpret_cast<const char*>(floats);
        const std::size_t size = isHalf ? sizeof(half) : sizeof(float);
        Imf::FrameBuffer buffer;
        for (int c = 0; c < channels; ++c) {
            const char* const name = std::array{"R", "G", "B", "A"}[std::size_t(c)];
            header.channels().insert(name, Imf::Channel(type));
            buffer.insert(name, Imf::Slice(type, const_cast<char*>(pixels) + std::size_t(c) * size, size * channels,
                                           size * channels * std::size_t(image.width())));
        }
        Imf::OutputFile file(QFile::encodeName(path).constData(), header);
        file.setFrameBuffer(buffer);
        file.writePixels(image.height());
    }
};

} // namespace

const ImageFile& exrFile()
{
    static const ExrFile file;
    return file;
}

} // namespace brindle::render
