#include "core/host/export.h"
#include "engine/cels/renderlibrary.h"
#include "render/colour/configuration.h"
#include "render/images/imagefile.h"
#include "render/images/newfile.h"
#include "render/renderer.h"

namespace brindle::render {

namespace {

QString outOfMemory()
{
    return QStringLiteral("Memory doesn't suffice");
}

/// The library as the engine sees it.
class Library final : public engine::RenderLibrary {
public:
    bool read(const QString& path, const QString& formatKey, std::vector<CEL_RepresentationPtr>& representations,
              QByteArray& colorProfile, QString& error) const override
    {
        FileContent content;
        QString reason;
        try {
            if (ImageFile::of(formatKey).read(path, content, reason)) {
                representations = std::move(content.representations);
                colorProfile = content.colorProfile;
                return true;
            }
        } catch (const std::bad_alloc&) {
            reason = outOfMemory();
        }
        error = QStringLiteral("The picture %1 can't be read: %2").arg(path, sentence(reason));
        return false;
    }

    bool write(const CEL_Pixmap& picture, const CELIO_WriteContext& context, const QString& formatKey,
               QString& error) const override
    {
        QString reason;
        try {
            NewFile file(context.path());
            if (file.writtenPath().isEmpty())
                reason = file.error();
            else if (ImageFile::of(formatKey).write(file.writtenPath(), picture, context, reason) &&
                     file.commit(reason))
                return true;
        } catch (const std::bad_alloc&) {
            reason = outOfMemory();
        }
        error = QStringLiteral("The picture %1 can't be written: %2").arg(context.path(), sentence(reason));
        return false;
    }

    std::shared_ptr<const engine::ColourConfiguration> configuration(const QString& path, QString& error) const override
    {
        return colourConfiguration(path, error);
    }

    std::unique_ptr<CEL_Renderer> renderer() const override { return std::make_unique<Renderer>(); }

private:
    static QString sentence(const QString& reason) { return reason.endsWith(u'.') ? reason : reason + u'.'; }
};

} // namespace

} // namespace brindle::render

extern "C" BRINDLE_HOST_EXPORT const brindle::engine::RenderLibrary* brindleRenderLibrary()
{
    static const brindle::render::Library library;
    return &library;
}
