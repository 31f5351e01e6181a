#include "engine/drawings/livedrawing.h"

#include "core/host/cm_palettemanager.h"
#include "engine/drawings/drawingcontents.h"
#include "engine/elements/contentstore.h"
#include "engine/history/commandmanager.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

namespace brindle::engine {

namespace {

/// Contours are named by twice a stroke's id.
constexpr quint32 highestId = std::numeric_limits<quint32>::max() / 2;

quint32 nextId(quint32& last)
{
    if (last >= highestId)
        throw std::length_error("The drawing has given all ids of layers or strokes.");
    return ++last;
}

} // namespace

LiveDrawing* liveDrawing(const GR_CompositeVectorDrawingObj* drawing)
{
    return const_cast<LiveDrawing*>(dynamic_cast<const LiveDrawing*>(drawing));
}

LiveDrawing::LiveDrawing(GR_ColorDict* dict) : m_value(DrawingValue::blank())
{
    if (dict)
        m_dict = dict;
    makeArts();
}

LiveDrawing::LiveDrawing(ContentStore& store, CommandManager& history, const ContentPointer& content)
    : m_value(drawingValueOf(content)),
      m_store(&store),
      m_content(content),
      m_contentValue(m_value),
      m_savedContent(content && content->isOnDisk() ? content : nullptr),
      m_history(&history)
{
    makeArts();
}

void LiveDrawing::makeArts()
{
    for (int index = 0; index < kArtCount; ++index)
        m_arts[static_cast<std::size_t>(index)] = QExplicitlySharedDataPointer<LiveArt>(new LiveArt(*this, index));
    show();
}

LiveDrawing::~LiveDrawing()
{
    drop();
    *m_link = nullptr;
    for (const auto& art : m_arts)
        art->drawingIsGone();
}

void LiveDrawing::drop()
{
    m_isGone = m_isGone || m_store != nullptr;
    m_store = nullptr;
    m_history = nullptr;
    m_content.reset();
    m_savedContent.reset();
    m_contentValue.reset();
    m_scale = nullptr;
}

// --- Its value ------------------------------------------------------------------------------------------------------

/// Gives the whole tree the present value.
void LiveDrawing::show()
{
    m_info = m_value->info;
    m_lastLayerId = std::max(m_lastLayerId, m_value->lastLayerId);
    m_lastStrokeId = std::max(m_lastStrokeId, m_value->lastStrokeId);
    for (std::size_t index = 0; index < m_arts.size(); ++index)
        showArt(index);
    ++m_revision;
}

void LiveDrawing::showArt(std::size_t index)
{
    static const ArtValue none;
    const ArtValue& art = m_value->arts[index] ? *m_value->arts[index] : none;
    std::vector<LiveLeaf*> leaves;
    leaves.reserve(art.layers.size());
    for (const LayerPointer& layer : art.layers)
        leaves.push_back(&leafOf(*layer));
    m_arts[index]->show(art, std::move(leaves));
}

LiveLeaf& LiveDrawing::leafOf(const LayerValue& layer)
{
    std::unique_ptr<LiveLeaf>& leaf = m_leaves[layer.id];
    if (leaf && !leaf->isFor(layer.type)) {
        leaf->leave();
        m_formerLeaves.push_back(std::move(leaf));
    }
    if (!leaf)
        leaf = LiveLeaf::make(layer.id, layer.type);
    return *leaf;
}

void LiveDrawing::setValue(const DrawingPointer& value)
{
    if (value == m_value)
        return;
    m_value = value;
    show();
}

LiveDrawing::State LiveDrawing::state() const
{
    return {m_value, content()};
}

void LiveDrawing::setArts(const State& state)
{
    if (state.value->info == m_value->info) {
        m_content = state.content;
        m_contentValue = state.value;
        setValue(state.value);
        return;
    }
    auto mixed = std::make_shared<DrawingValue>(*state.value);
    mixed->info = m_value->info;
    setValue(mixed);
}

ContentPointer LiveDrawing::content() const
{
    if (!isSettled() && m_store) {
        m_content = m_store->fromValue(m_value);
        m_contentValue = m_value;
    }
    return m_content;
}

void LiveDrawing::setContent(const ContentPointer& content)
{
    if (content == m_content && isSettled())
        return;
    DrawingPointer value = drawingValueOf(content);
    m_content = content;
    m_contentValue = value;
    setValue(value);
}

// --- Edits ----------------------------------------------------------------------------------------------------------

DrawingValue& LiveDrawing::editValue()
{
    ++m_revision;
    if (m_sessions > 0 && !m_isEditNoted && m_history) {
        m_history->noteEdit();
        m_isEditNoted = true;
    }
    DrawingValue& value = unshared(m_value);
    value.lastLayerId = m_lastLayerId;
    value.lastStrokeId = m_lastStrokeId;
    return value;
}

LayerValue& LiveDrawing::edit(LiveLeaf& leaf)
{
    ArtValue& art = unshared(editValue().arts[static_cast<std::size_t>(leaf.art()->index())]);
    LayerPointer& held = art.layers[leaf.place()];
    LayerValue& layer = unshared(held);
    leaf.follow(layer);
    return layer;
}

LiveLeaf& LiveDrawing::insert(LiveArt& art, std::size_t place, const LayerPointer& layer)
{
    const auto index = static_cast<std::size_t>(art.index());
    ArtValue& value = unshared(editValue().arts[index]);
    value.layers.insert(value.layers.begin() + static_cast<std::ptrdiff_t>(place), layer);
    LiveLeaf& leaf = leafOf(*layer);
    art.insert(leaf, place, *layer);
    return leaf;
}

LayerPointer LiveDrawing::take(LiveLeaf& leaf)
{
    const auto index = static_cast<std::size_t>(leaf.art()->index());
    ArtValue& value = unshared(editValue().arts[index]);
    const auto place = value.layers.begin() + static_cast<std::ptrdiff_t>(leaf.place());
    LayerPointer taken = std::move(*place);
    value.layers.erase(place);
    leaf.art()->remove(leaf, taken);
    m_removedLeaves.push_back(&leaf);
    return taken;
}

quint32 LiveDrawing::newLayerId()
{
    return nextId(m_lastLayerId);
}

quint32 LiveDrawing::newStrokeId()
{
    return nextId(m_lastStrokeId);
}

// --- Sessions -------------------------------------------------------------------------------------------------------

void LiveDrawing::saved()
{
    m_savedContent = m_content;
    m_isEditNoted = false;
}

bool LiveDrawing::endEdits(bool differs)
{
    m_isEditNoted = false;
    return m_history && m_history->endEdits(differs);
}

void LiveDrawing::closeSession()
{
    --m_sessions;
    for (LiveLeaf* leaf : std::exchange(m_removedLeaves, {})) {
        if (!leaf->isInTree())
            leaf->forget();
    }
    if (std::exchange(m_isEditNoted, false) && m_history)
        m_history->loseEdits();
}

void LiveDrawing::stepIsSaved() const
{
    if (m_history)
        m_history->stepIsSaved();
}

// --- What the host shows --------------------------------------------------------------------------------------------

GR_DrawingBase* LiveDrawing::GetArt(int index) const
{
    const bool isThere = index >= 0 && index < kArtCount && m_value->arts[static_cast<std::size_t>(index)];
    return isThere ? m_arts[static_cast<std::size_t>(index)].data() : nullptr;
}

GR_CompositeDrawingInfo* LiveDrawing::GetDrawingInfo()
{
    return &m_info;
}

void LiveDrawing::InfoChanged()
{
    if (m_info == m_value->info)
        return;
    const Math::Point2d& pivot = m_info.GetPivotPoint();
    if (!std::isfinite(pivot.x) || !std::isfinite(pivot.y) || !std::isfinite(m_info.pointQuantum) ||
        m_info.pointQuantum < 0) {
        m_info = m_value->info;
        throw std::invalid_argument("A pivot is finite, and a point quantum finite and not negative.");
    }
    // No id is given here, also none that was taken back: an undo of this brings the same file back.
    const quint32 lastLayerId = m_value->lastLayerId;
    const quint32 lastStrokeId = m_value->lastStrokeId;
    DrawingValue& value = editValue();
    value.info = m_info;
    value.lastLayerId = lastLayerId;
    value.lastStrokeId = lastStrokeId;
}

/// The lists of palettes of the open project, which stay as long as what was given of them.
GR_ColorDict::PaletteInfo LiveDrawing::GetPaletteInfo() const
{
    if (m_dict->paletteInfo())
        return m_dict->paletteInfo();
    struct Lists {
        std::vector<std::shared_ptr<CM_PaletteList>> held;
        std::vector<CM_PaletteList*> shown;
    };
    auto lists = std::make_shared<Lists>();
    lists->held = CM_PaletteManager::GetInstance()->paletteLists();
    for (const auto& list : lists->held)
        lists->shown.push_back(list.get());
    return {lists, &lists->shown};
}

bool LiveDrawing::IsDrawingModified() const
{
    return m_store && (!isSettled() || m_content != m_savedContent);
}

double LiveDrawing::GetMaxThickness() const
{
    double thickness = 0;
    for (const auto& art : m_arts)
        thickness = std::max(thickness, art->GetMaxThickness());
    return thickness;
}

Math::Box2d LiveDrawing::GetWorldBBox() const
{
    Math::Box2d box;
    for (const auto& art : m_arts)
        box.AddClosed(art->GetWorldBBox());
    return box;
}

Math::Box2d LiveDrawing::GetVisibleWorldBBox() const
{
    Math::Box2d box;
    for (const auto& art : m_arts)
        box.AddClosed(art->GetVisibleWorldBBox());
    return box;
}

Math::Matrix2x3 LiveDrawing::GetImplicitScalingMatrix() const
{
    constexpr double unitsOfStandardChart = 1200;
    const double scale = (m_scale ? m_scale() : 1) / unitsOfStandardChart;
    return Math::Matrix2x3().Scale({scale, scale});
}

Math::Matrix2x3 LiveDrawing::GetImplicitScalingMatrixInverse() const
{
    const double scale = 1 / GetImplicitScalingMatrix().xAxis().x;
    return Math::Matrix2x3().Scale({scale, scale});
}

} // namespace brindle::engine

QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> GR_CompositeVectorDrawingObj::Create(GR_ColorDict* dict)
{
    return QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj>(new brindle::engine::LiveDrawing(dict));
}

bool GR_StrokeData::operator==(const GR_StrokeData& other) const
{
    const auto equal = [](const GR_ColorPtr& first, const GR_ColorPtr& second) {
        return first == second || (first && second && *first == *second);
    };
    return (m_path == other.m_path || *m_path == *other.m_path) && equal(m_colours[0], other.m_colours[0]) &&
           equal(m_colours[1], other.m_colours[1]) && m_lineStyle == other.m_lineStyle &&
           m_thickness == other.m_thickness && m_tips[0] == other.m_tips[0] && m_tips[1] == other.m_tips[1] &&
           m_cut[0] == other.m_cut[0] && m_cut[1] == other.m_cut[1];
}

bool GR_TextLayer::Data::operator==(const Data& other) const
{
    const bool sameColour = colour == other.colour || (colour && other.colour && *colour == *other.colour);
    return sameColour && text == other.text && font == other.font && size == other.size && matrix == other.matrix &&
           width == other.width && fixedWidth == other.fixedWidth && alignment == other.alignment &&
           marginLeft == other.marginLeft && marginRight == other.marginRight && indent == other.indent &&
           lineSpace == other.lineSpace && selectionFrom == other.selectionFrom && selectionTo == other.selectionTo;
}

bool GR_BitmapLayer::Data::operator==(const Data& other) const
{
    return width == other.width && height == other.height && matrix == other.matrix && pixels == other.pixels;
}
