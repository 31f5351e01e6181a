#include "core/host/ca_celcache.h"

#include "core/host/celio_manager.h"
#include "core/host/sc_session.h"
#include "engine/drawings/drawingcontents.h"
#include "engine/elements/elementmanager.h"
#include "engine/folder/folderio.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QMutex>
#include <QTemporaryFile>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace brindle::engine {

namespace {

class VectorRepresentation final : public CELVEC_Brd {
public:
    explicit VectorRepresentation(LiveDrawing& drawing) : m_drawing(&drawing) {}

    QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> getDrawingObject() const override { return m_drawing; }

private:
    QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> m_drawing;
};

CA_CelPtr celOf(LiveDrawing* drawing)
{
    return drawing ? CA_CelPtr(new CEL_Cel(std::make_shared<VectorRepresentation>(*drawing))) : CA_CelPtr();
}

/// What a key names in the open project; no drawing where it names nothing.
struct NamedDrawing {
    explicit NamedDrawing(const CA_CelKey& key)
    {
        const SC_SessionContext* session = PLUG_Services::getSessionContext();
        const SC_ProjectCommon* project = session ? session->projectCommon() : nullptr;
        elements = project ? engineElements(project->elementManager()) : nullptr;
        element = elements && key.isValid() ? elements->find(key.element().elementId()) : nullptr;
        drawing = element ? element->drawings().find(key.element().drawingId()) : nullptr;
    }

    ElementManager* elements = nullptr;
    Element* element = nullptr;
    Drawing* drawing = nullptr;
};

/// Calls a function, whose failure to read a file becomes one sentence.
template <typename Function>
auto reading(const Drawing& drawing, Function function)
{
    try {
        return function();
    } catch (const FolderFailure& failure) {
        const QString sentence = QStringLiteral("Cannot read drawing ") + quoted(drawing.name()) + QLatin1String(": ") +
                                 failure.reason + u'.';
        throw std::runtime_error(sentence.toStdString());
    }
}

/// The picture in a file. Throws `FolderFailure`.
CA_CelPtr pictureIn(const QString& path, const CEL_Context& context)
{
    QDateTime modified;
    std::vector<CEL_RepresentationPtr> representations;
    QString reason;
    QByteArray profile;
    if (!CELIO_Manager::getInstance()->read(path, modified, context, representations, &reason, &profile)) {
        if (reason.endsWith(u'.'))
            reason.chop(1); // A reason stands within a sentence.
        throw FolderFailure{reason};
    }
    CA_CelPtr cel(new CEL_Cel);
    for (const CEL_RepresentationPtr& representation : representations) {
        if (&representation == &representations.front())
            cel.cel()->setRepresentation(representation);
        else
            cel.cel()->addRepresentation(representation);
    }
    cel.cel()->impl().setColorProfile(profile);
    return cel;
}

/// Pictures in files that were read last, of at most so many bytes of pixels. A file that was written since is read
/// anew.
class KnownPictures {
public:
    /// The picture in a file. Throws `FolderFailure`, for one that is gone too.
    CA_CelPtr in(const QString& path, const CEL_Context& context)
    {
        const QFileInfo file(path);
        const Place place{path, file.lastModified(), file.size()};
        const QMutexLocker lock(&m_mutex);
        const auto known = std::find_if(m_pictures.begin(), m_pictures.end(),
                                        [&place](const Known& picture) { return picture.place == place; });
        if (known != m_pictures.end() && file.exists()) {
            std::rotate(m_pictures.begin(), known, known + 1);
            return m_pictures.front().cel;
        }
        CA_CelPtr cel = pictureIn(path, context);
        const CEL_PixmapPtr pixmap = cel.cel()->findBestPixmapRepresentation();
        const qsizetype bytes = pixmap ? pixmap->image().sizeInBytes() : 0;
        m_pictures.insert(m_pictures.begin(), {place, cel, bytes});
        qsizetype sum = 0;
        const auto over = std::find_if(m_pictures.begin(), m_pictures.end(),
                                       [&sum](const Known& picture) { return (sum += picture.bytes) > mostBytes; });
        m_pictures.erase(over, m_pictures.end());
        return cel;
    }

private:
    static constexpr qsizetype mostBytes = qsizetype(64) << 20;

    struct Place {
        QString path;
        QDateTime modified;
        qint64 size;

        bool operator==(const Place&) const = default;
    };
    struct Known {
        Place place;
        CA_CelPtr cel;
        qsizetype bytes;
    };

    QMutex m_mutex;
    std::vector<Known> m_pictures; ///< The one that was asked for last first.
};

/// The picture of a drawing of an element without vector drawings; one that is in memory is read from a file that goes
/// again. Throws `FolderFailure`.
CA_CelPtr picture(const NamedDrawing& named, EM_LayerId layer, const CEL_Context& context)
{
    const ContentPointer content = named.drawing->content(layer);
    if (!content)
        return CA_CelPtr(new CEL_Cel);
    if (content->isOnDisk() && named.elements->contents().folder()) {
        static KnownPictures known;
        return known.in(named.elements->contents().folder()->pathOf(content->place()), context);
    }
    QTemporaryFile file(QDir::tempPath() + QLatin1String("/brindle-XXXXXX.") + named.element->extension());
    const QByteArray bytes = content->bytes();
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        throw FolderFailure{quoted(file.fileName()) + " cannot be written"};
    return pictureIn(file.fileName(), context);
}

} // namespace

} // namespace brindle::engine

namespace engine = brindle::engine;

CA_CelPtr CA_CelCache::findItem(const CA_CelKey& key, const CEL_Context&)
{
    const engine::Drawing* drawing = engine::NamedDrawing(key).drawing;
    return drawing ? engine::celOf(drawing->live(key.element().layerId(), drawing->version)) : CA_CelPtr();
}

CA_CelPtr CA_CelCache::insertItemBis(const CA_CelKey& key, const CEL_Context& context)
{
    const engine::NamedDrawing named(key);
    if (!named.drawing)
        return {};
    return engine::reading(*named.drawing, [&] {
        if (named.element->vectorType() == TUElement::kNoVector)
            return engine::picture(named, key.element().layerId(), context);
        engine::LiveDrawing* vector = engine::vectorDrawing(*named.elements, key);
        return vector ? engine::celOf(vector) : CA_CelPtr(new CEL_Cel);
    });
}

CA_CelPtr CA_CelCache::createVectorDrawing(const CA_CelKey& key)
{
    const engine::NamedDrawing named(key);
    if (!named.drawing)
        return {};
    return engine::reading(*named.drawing,
                           [&] { return engine::celOf(engine::createVectorDrawing(*named.elements, key)); });
}
