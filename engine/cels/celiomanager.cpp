#include "core/host/celio_manager.h"

#include "core/host/msg_scope.h"
#include "engine/cels/renderlibrary.h"

#include <QFileInfo>

#include <array>

namespace brindle::engine {

namespace {

/// The files of one format.
class Handler final : public CELIO_Handler {
public:
    constexpr Handler(const char* key, bool writes) : m_key(key), m_writes(writes) {}

    QString formatKey() const override { return QString::fromLatin1(m_key); }
    bool canWrite() const override { return m_writes; }

private:
    const char* m_key;
    bool m_writes;
};

struct Format {
    Handler handler;
    std::array<const char*, 2> suffixes; ///< The second one is null where there is one.
};

/// The formats by the endings of their files.
std::array<Format, 14> formats = {{
    {{"PNG", true}, {"png"}},
    {{"JPEG", true}, {"jpg", "jpeg"}},
    {{"OPENEXR", true}, {"exr"}},
    {{"TIFF", true}, {"tif", "tiff"}},
    {{"TGA", true}, {"tga"}},
    {{"BMP", true}, {"bmp"}},
    {{"PPM", true}, {"ppm", "pnm"}},
    {{"PSD", false}, {"psd"}},
    {{"DPX", true}, {"dpx"}},
    {{"HDR", true}, {"hdr"}},
    {{"SGI", true}, {"sgi", "rgb"}},
    {{"WEBP", true}, {"webp"}},
    {{"JPEG2000", true}, {"jp2", "j2k"}},
    {{CELIO_3dFormat, false}, {"osb"}},
}};

Handler* handlerOfKey(const QString& key)
{
    for (Format& format : formats) {
        if (format.handler.formatKey() == key)
            return &format.handler;
    }
    return nullptr;
}

/// Whether a picture of 8 bits a channel is converted to bytes before it is written. PNG converts row by row itself,
/// and the two others hold floats.
bool takesBytes(const QString& formatKey)
{
    return formatKey != u"PNG" && formatKey != u"OPENEXR" && formatKey != u"HDR";
}

/// The pixels of a cel that are written: those asked for, else those that the cel is made of.
CEL_RepresentationPtr writtenOf(CEL_Cel& cel, const CELIO_WriteContext& context, const QString& formatKey)
{
    if (context.depth() == 8 && !context.format() && takesBytes(formatKey)) {
        if (auto bytes = std::dynamic_pointer_cast<const CEL_Pixmap>(cel.convertTo(CEL_Representation::PIXMAP_RGBA8)))
            return bytes;
    }
    if (context.format()) {
        if (auto asked = std::dynamic_pointer_cast<const CEL_Pixmap>(cel.findRepresentation(*context.format())))
            return asked;
    }
    if (auto own = std::dynamic_pointer_cast<const CEL_Pixmap>(cel.convertTo(cel.realFormat())))
        return own;
    return cel.findBestPixmapRepresentation();
}

class Manager final : public CELIO_Manager {
public:
    CELIO_Handler* findHandler(const QString& suffix) const override
    {
        const QByteArray lower = suffix.toLower().toUtf8();
        for (Format& format : formats) {
            for (const char* known : format.suffixes) {
                if (known && lower == known)
                    return &format.handler;
            }
        }
        return nullptr;
    }

    bool read(const QString& path, QDateTime& modified, const CEL_Context&,
              std::vector<CEL_RepresentationPtr>& representations, QString* error, QByteArray* colorProfile) override
    {
        QString reason;
        std::vector<CEL_RepresentationPtr> found;
        QByteArray profile;
        const bool isRead = readFile(path, found, profile, reason);
        if (error && !isRead)
            *error = reason;
        if (!isRead)
            return false;
        modified = QFileInfo(path).lastModified();
        representations = std::move(found);
        if (colorProfile)
            *colorProfile = profile;
        return true;
    }

    bool write(CEL_Cel* cel, const CELIO_WriteContext& context, const QString& suffix,
               const QString& formatKey) override
    {
        QString reason;
        if (writeFile(*cel, context, suffix, formatKey, reason))
            return true;
        if (context.failure())
            *context.failure() = reason;
        else
            MSG_Scope(reason, MSG_Scope::kError);
        return false;
    }

private:
    bool readFile(const QString& path, std::vector<CEL_RepresentationPtr>& found, QByteArray& profile,
                  QString& error) const
    {
        const QFileInfo file(path);
        if (!file.isFile()) {
            error = file.exists() ? QStringLiteral("%1 is no file.").arg(path)
                                  : QStringLiteral("There is no file %1.").arg(path);
            return false;
        }
        const CELIO_Handler* handler = findHandler(file.suffix());
        if (!handler || handler->formatKey() == QLatin1String(CELIO_3dFormat)) {
            error = QStringLiteral("%1 is in no format of pictures that is known.").arg(path);
            return false;
        }
        const RenderLibrary* library = RenderLibrary::find(error);
        return library && library->read(path, handler->formatKey(), found, profile, error);
    }

    bool writeFile(CEL_Cel& cel, const CELIO_WriteContext& context, const QString& suffix, const QString& formatKey,
                   QString& error) const
    {
        const CELIO_Handler* handler = formatKey.isEmpty() ? findHandler(suffix) : handlerOfKey(formatKey);
        if (!handler || !handler->canWrite()) {
            error = QStringLiteral("%1 is in no format that pictures can be written in.").arg(context.path());
            return false;
        }
        const CEL_RepresentationPtr written = writtenOf(cel, context, handler->formatKey());
        if (!written) {
            error = QStringLiteral("There is no picture to write as %1.").arg(context.path());
            return false;
        }
        const RenderLibrary* library = RenderLibrary::find(error);
        return library &&
               library->write(static_cast<const CEL_Pixmap&>(*written), context, handler->formatKey(), error);
    }
};

} // namespace

} // namespace brindle::engine

CELIO_Manager* CELIO_Manager::getInstance()
{
    static brindle::engine::Manager manager;
    return &manager;
}
