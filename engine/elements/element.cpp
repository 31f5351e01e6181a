#include "engine/elements/element.h"

#include "core/host/tu_pixmapformat.h"
#include "engine/elements/elementmanager.h"
#include "engine/elements/names.h"
#include "engine/elements/pixmapformats.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brindle::engine {

bool isAcceptable(const ElementFields& fields)
{
    return isElementName(fields.name) && fields.scanType >= TUElement::kColor &&
           fields.scanType <= TUElement::kBlackAndWhite && std::isfinite(fields.fieldChart) && fields.fieldChart > 0 &&
           pixmapFormatOf(fields.pixmapFormat) && fields.vectorType >= TUElement::kNoVector &&
           fields.vectorType <= TUElement::kBvg && fields.opacity >= 0 && fields.opacity <= 100;
}

Element::Element(ElementManager& manager, int id, const ElementFields& fields)
    : m_manager(manager),
      m_id(id),
      m_fields(fields)
{}

bool Element::hasFiles() const
{
    for (std::size_t place = 0; place < m_drawings.size(); ++place) {
        if (!m_drawings.at(place).files().empty())
            return true;
    }
    return false;
}

bool Element::isUnderEdit() const
{
    for (std::size_t place = 0; place < m_drawings.size(); ++place) {
        if (m_drawings.at(place).isUnderEdit())
            return true;
    }
    return false;
}

void Element::addLayer(const EM_LayerInfo& layer)
{
    const auto place = std::upper_bound(m_layers.begin(), m_layers.end(), layer.id,
                                        [](EM_LayerId id, const EM_LayerInfo& other) { return id < other.id; });
    m_layers.insert(place, layer);
}

void Element::removeLayer(EM_LayerId id)
{
    std::erase_if(m_layers, [id](const EM_LayerInfo& layer) { return layer.id == id; });
}

QString Element::folder() const
{
    return QStringLiteral("elements/") + m_physicalName;
}

QString Element::extension() const
{
    switch (m_fields.vectorType) {
    case kPnt:
        return QStringLiteral("pnt");
    case kBvg:
        return QStringLiteral("bvg");
    default:
        return pixmapFormatOf(m_fields.pixmapFormat)->extension();
    }
}

QString Element::fileNamePart(const Drawing& drawing, EM_LayerId layer) const
{
    const QString part = folder() + u'/' + drawing.stem();
    return layer == EM_DefaultLayerId ? part : part + u'+' + QString::number(layer);
}

QString Element::fileName(const Drawing& drawing, EM_LayerId layer, int version) const
{
    return celcache_util::buildDrawingName(VFS_Path(fileNamePart(drawing, layer)), extension(), version).filepath();
}

QStringList Element::getAllDrawingNames() const
{
    QStringList names;
    names.reserve(static_cast<qsizetype>(m_drawings.size()));
    for (const EM_DrawingInfo* drawing : getMap())
        names.append(static_cast<const Drawing*>(drawing)->name());
    return names;
}

std::vector<EM_LayerId> Element::layerIds() const
{
    std::vector<EM_LayerId> ids{EM_DefaultLayerId};
    for (const EM_LayerInfo& layer : m_layers)
        ids.push_back(layer.id);
    return ids;
}

const EM_LayerInfo* Element::findLayer(const QString& name) const
{
    const auto found = std::find_if(m_layers.begin(), m_layers.end(),
                                    [&name](const EM_LayerInfo& layer) { return layer.name == name; });
    return found == m_layers.end() ? nullptr : &*found;
}

const EM_LayerInfo* Element::findLayer(EM_LayerId id) const
{
    const auto found =
        std::find_if(m_layers.begin(), m_layers.end(), [id](const EM_LayerInfo& layer) { return layer.id == id; });
    return found == m_layers.end() ? nullptr : &*found;
}

void Element::setDrawingType(EM_DrawingId id, EM_MarkType type)
{
    if (Drawing* drawing = m_drawings.find(id)) {
        drawing->type = type;
        m_manager.tellChanged();
    }
}

void Element::setDrawingFileExists(EM_DrawingId id, bool exists)
{
    Drawing* drawing = m_drawings.find(id);
    if (!drawing || !exists || drawing->content(EM_DefaultLayerId))
        return;
    const QString place = fileName(*drawing, EM_DefaultLayerId, drawing->version);
    drawing->setContent(EM_DefaultLayerId, drawing->version, m_manager.contents().fromForeignFile(place));
    m_manager.tellChanged();
}

bool Element::isDrawingDeleted(EM_DrawingId id) const
{
    return m_fields.isDeleted && m_drawings.find(id);
}

bool Element::isDrawingRenamed(EM_DrawingId id) const
{
    const Drawing* drawing = m_drawings.find(id);
    return drawing && std::any_of(drawing->files().begin(), drawing->files().end(), [&](const DrawingFile& file) {
               return file.content->isOnDisk() && file.content->place() != fileName(*drawing, file.layer, file.version);
           });
}

bool Element::drawingFileExists(EM_DrawingId id, EM_LayerId layer) const
{
    const Drawing* drawing = m_drawings.find(id);
    const ContentPointer content = drawing ? drawing->content(layer) : nullptr;
    return content && content->isThere();
}

bool Element::isDrawingUsed(EM_DrawingId id) const
{
    const Drawing* drawing = m_drawings.find(id);
    return drawing && m_manager.isShown(*this, drawing->name());
}

} // namespace brindle::engine
