#include "render/images/pngrows.h"
#include "render/images/qtfile.h"
#include "render/images/writeoptions.h"

#include <QColorSpace>
#include <QFile>

#include <png.h>
#include <bit>
#include <deque>

namespace brindle::render {

namespace {

using Cel = CEL_Representation;

/// Texts as a file has them: a keyword of 1 to 79 characters of Latin 1, and UTF-8.
class PngTexts {
public:
    explicit PngTexts(const CELIO_WriteContext::Texts& texts)
    {
        constexpr int longestKey = 79;
        for (auto text = texts.begin(); text != texts.end(); ++text) {
            QByteArray& key = m_bytes.emplace_back(text.key().simplified().toLatin1().left(longestKey));
            QByteArray& value = m_bytes.emplace_back(text.value().toUtf8());
            if (key.isEmpty())
                continue;
            png_text entry{};
            entry.compression = PNG_ITXT_COMPRESSION_NONE;
            entry.key = key.data();
            entry.text = value.data();
            entry.itxt_length = static_cast<png_size_t>(value.size());
            m_entries.push_back(entry);
        }
    }

    const std::vector<png_text>& entries() const { return m_entries; }

private:
    std::deque<QByteArray> m_bytes;
    std::vector<png_text> m_entries;
};

/// Writes a file by libpng.
class PngStream {
public:
    explicit PngStream(const QString& path)
        : m_file(path),
          m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, this, fail, ignore))
    {
        m_info = m_png ? png_create_info_struct(m_png) : nullptr;
        if (!m_info) {
            png_destroy_write_struct(&m_png, nullptr);
            throw std::bad_alloc();
        }
    }
    PngStream(const PngStream&) = delete;
    PngStream& operator=(const PngStream&) = delete;
    ~PngStream() { png_destroy_write_struct(&m_png, &m_info); }

    bool write(PngRows& rows, int level, const QByteArray& profile, const PngTexts& texts, QString& error)
    {
        if (m_file.open(QIODevice::WriteOnly) && writeRows(rows, level, profile, texts) && m_file.flush())
            return true;
        error = m_file.error() != QFileDevice::NoError ? m_file.errorString() : m_error;
        return false;
    }

private:
    /// libpng leaves this function by longjmp() where it fails, so it has no local objects with destructors.
    bool writeRows(PngRows& rows, int level, const QByteArray& profile, const PngTexts& texts)
    {
        if (setjmp(png_jmpbuf(m_png)))
            return false;
        png_set_write_fn(m_png, &m_file, put, nullptr);
        png_set_compression_buffer_size(m_png, 1 << 16);
        png_set_compression_level(m_png, level);
        png_set_filter(m_png, PNG_FILTER_TYPE_BASE, filtersOf(level));
        png_set_IHDR(m_png, m_info, png_uint_32(rows.size().width()), png_uint_32(rows.size().height()), rows.bits(),
                     rows.isGrey() ? PNG_COLOR_TYPE_GRAY : PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (!profile.isEmpty()) {
            png_set_iCCP(m_png, m_info, "ICC", PNG_COMPRESSION_TYPE_BASE, png_const_bytep(profile.constData()),
                         png_uint_32(profile.size()));
            if (!png_get_valid(m_png, m_info, PNG_INFO_iCCP))
                png_error(m_png, "The colour profile can't go into the file");
        }
        if (!texts.entries().empty())
            png_set_text(m_png, m_info, texts.entries().data(), int(texts.entries().size()));
        png_write_info(m_png, m_info);
        if (rows.bits() == 16 && std::endian::native == std::endian::little)
            png_set_swap(m_png);
        for (int y = 0; y < rows.size().height(); ++y)
            png_write_row(m_png, rows.row(y));
        png_write_end(m_png, m_info);
        return true;
    }

    /// Above level 1 libpng tries all five filters on each row and takes the best one. Level 1 has the difference to
    /// the row above alone: a third of the time, and nearly the same size for drawn pictures.
    static int filtersOf(int level)
    {
        return level == 0 ? PNG_FILTER_NONE : level == 1 ? PNG_FILTER_UP : PNG_ALL_FILTERS;
    }

    static void put(png_structp png, png_bytep bytes, png_size_t count)
    {
        auto* file = static_cast<QFile*>(png_get_io_ptr(png));
        if (file->write(reinterpret_cast<const char*>(bytes), qint64(count)) != qint64(count))
            png_error(png, "It can't be written");
    }

    static void fail(png_structp png, png_const_charp reason)
    {
        static_cast<PngStream*>(png_get_error_ptr(png))->m_error = QString::fromLatin1(reason);
        png_longjmp(png, 1);
    }

    static void ignore(png_structp, png_const_charp) {}

    QFile m_file;
    QString m_error;
    png_structp m_png;
    png_infop m_info;
};

class PngFile final : public ImageFile {
public:
    bool read(const QString& path, FileContent& content, QString& error) const override
    {
        return readByQt("png", path, content, error);
    }

    bool write(const QString& path, const CEL_Pixmap& picture, const CELIO_WriteContext& context,
               QString& error) const override
    {
        WriteOptions options(context.option(), {"compression", "depth"});
        const int level = options.number("compression", 1, 0, 9);
        const int bits = options.word("depth", depthsOf(picture, context.depth())).toInt();
        error = options.failure();
        const bool hasColours =
            context.colorProfile().isEmpty() || QColorSpace::fromIccProfile(context.colorProfile()).isValid();
        if (error.isEmpty() && !hasColours)
            error = QStringLiteral("The colour profile can't go into the file");
        if (!error.isEmpty())
            return false;
        PngRows rows(picture, bits);
        return PngStream(path).write(rows, level, rows.isGrey() ? QByteArray() : context.colorProfile(),
                                     PngTexts(context.texts()), error);
    }

private:
    /// The bits a channel, those that are asked for first, or those that the picture has itself.
    static std::initializer_list<const char*> depthsOf(const CEL_Pixmap& picture, int asked)
    {
        static constexpr std::initializer_list<const char*> shallow = {"8", "16"};
        static constexpr std::initializer_list<const char*> deep = {"16", "8"};
        if (asked != 0)
            return asked == 8 ? shallow : deep;
        switch (picture.format()) {
        case Cel::PIXMAP_RGBA8:
        case Cel::PIXMAP_RGBA8_THUMBNAIL:
        case Cel::PIXMAP_MATTE8:
            return shallow;
        default:
            return deep;
        }
    }
};

} // namespace

const ImageFile& pngFile()
{
    static const PngFile file;
    return file;
}

} // namespace brindle::render
