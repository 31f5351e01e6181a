#include "engine/elements/drawing.h"

#include "core/host/msg_scope.h"
#include "engine/drawings/drawingcontents.h"
#include "engine/drawings/livedrawing.h"
#include "engine/folder/folderio.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace brindle::engine {

namespace {

EM_DrawingId newDrawingId()
{
    static EM_DrawingId last = EM_InvalidDrawingId;
    return ++last;
}

} // namespace

Drawing::Drawing(const QString& name) : m_id(newDrawingId()), m_name(name) {}

Drawing::~Drawing()
{
    for (const Live& live : m_live)
        live.drawing->drop();
}

ContentPointer Drawing::content(EM_LayerId layer, int version) const
{
    if (const LiveDrawing* shown = live(layer, version))
        return shown->content();
    for (const DrawingFile& file : m_files) {
        if (file.layer == layer && file.version == version)
            return file.content;
    }
    return nullptr;
}

ContentPointer Drawing::setContent(EM_LayerId layer, int version, ContentPointer content)
{
    ContentPointer before = this->content(layer, version);
    if (LiveDrawing* shown = live(layer, version))
        shown->setContent(content);
    store(layer, version, std::move(content));
    return before;
}

bool Drawing::takesContent(EM_LayerId layer, int version, const ContentPointer& content) const
{
    if (!live(layer, version))
        return true;
    try {
        drawingValueOf(content);
        return true;
    } catch (const FolderFailure& failure) {
        MSG_Scope(QStringLiteral("Cannot read drawing ") + quoted(m_name) + QLatin1String(": ") + failure.reason + u'.',
                  MSG_Scope::kError);
        return false;
    }
}

void Drawing::setStanding(EM_LayerId layer, int version, ContentPointer content)
{
    if (LiveDrawing* shown = live(layer, version))
        shown->setStanding(content);
    store(layer, version, std::move(content));
}

void Drawing::saved()
{
    for (const Live& live : m_live)
        live.drawing->saved();
}

void Drawing::store(EM_LayerId layer, int version, ContentPointer content) const
{
    const auto key = std::tuple(layer, version);
    const auto place =
        std::lower_bound(m_files.begin(), m_files.end(), key, [](const DrawingFile& file, const auto& sought) {
            return std::tuple(file.layer, file.version) < sought;
        });
    const bool isThere = place != m_files.end() && std::tuple(place->layer, place->version) == key;
    if (content && isThere)
        place->content = std::move(content);
    else if (content)
        m_files.insert(place, {layer, version, std::move(content)});
    else if (isThere)
        m_files.erase(place);
}

void Drawing::settle() const
{
    for (const Live& live : m_live)
        store(live.layer, live.version, live.drawing->content());
}

const std::vector<DrawingFile>& Drawing::files() const
{
    settle();
    return m_files;
}

bool Drawing::hasVersion(int version) const
{
    settle();
    return std::any_of(m_files.begin(), m_files.end(),
                       [version](const DrawingFile& file) { return file.version == version; });
}

LiveDrawing* Drawing::live(EM_LayerId layer, int version) const
{
    for (const Live& live : m_live) {
        if (live.layer == layer && live.version == version)
            return live.drawing.data();
    }
    return nullptr;
}

void Drawing::setLive(EM_LayerId layer, int version, const LiveDrawingPointer& live)
{
    m_live.push_back({layer, version, live});
}

void Drawing::setGone(bool isGone)
{
    for (const Live& live : m_live)
        live.drawing->setGone(isGone);
}

bool Drawing::isUnderEdit() const
{
    return std::any_of(m_live.begin(), m_live.end(), [](const Live& live) { return live.drawing->isUnderEdit(); });
}

bool Drawing::isUnderEdit(EM_LayerId layer, int version) const
{
    const LiveDrawing* shown = live(layer, version);
    return shown && shown->isUnderEdit();
}

} // namespace brindle::engine
