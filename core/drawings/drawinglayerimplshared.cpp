#include "core/drawings/drawinglayerimplshared.h"

#include "core/drawings/drawingaccessimpl.h"
#include "core/drawings/drawingpresence.h"
#include "core/frame/found.h"

#include <mutex>
#include <unordered_map>

namespace OMC {

namespace {

/// The records that are alive, by drawing and leaf. A record may go on any thread.
class Records {
public:
    DrawingLayerImplShared::Pointer find(const GR_VectorDrawingObj* drawing, const UT_Node* layer)
    {
        const std::lock_guard lock(m_mutex);
        const auto records = m_records.find(drawing);
        if (records == m_records.end())
            return nullptr;
        const auto record = records->second.find(layer);
        return record == records->second.end() ? nullptr : record->second->weak_from_this().lock();
    }

    std::vector<DrawingLayerImplShared::Pointer> allOf(const GR_VectorDrawingObj* drawing)
    {
        const std::lock_guard lock(m_mutex);
        std::vector<DrawingLayerImplShared::Pointer> all;
        if (const auto records = m_records.find(drawing); records != m_records.end()) {
            for (const auto& [layer, record] : records->second) {
                if (auto held = record->weak_from_this().lock())
                    all.push_back(std::move(held));
            }
        }
        return all;
    }

    void add(const GR_VectorDrawingObj* drawing, const UT_Node* layer, DrawingLayerImplShared* record)
    {
        const std::lock_guard lock(m_mutex);
        m_records[drawing].insert_or_assign(layer, record);
    }

    /// Another record may have come in the place of this one.
    void remove(const GR_VectorDrawingObj* drawing, const UT_Node* layer, const DrawingLayerImplShared* record)
    {
        const std::lock_guard lock(m_mutex);
        const auto records = m_records.find(drawing);
        if (records == m_records.end())
            return;
        const auto entry = records->second.find(layer);
        if (entry == records->second.end() || entry->second != record)
            return;
        records->second.erase(entry);
        if (records->second.empty())
            m_records.erase(records);
    }

private:
    std::mutex m_mutex;
    std::unordered_map<const GR_VectorDrawingObj*, std::unordered_map<const UT_Node*, DrawingLayerImplShared*>>
        m_records;
};

/// Never destroyed: wrappers that scripts hold outlive the library's statics.
Records& records()
{
    static auto* all = new Records;
    return *all;
}

} // namespace

DrawingLayerImplShared::Pointer DrawingLayerImplShared::of(GR_VectorDrawingObj* drawing, UT_Node* layer,
                                                           const CA_DrawingLayerKey& key)
{
    const bool isThere = drawing && layer;
    Pointer record = isThere ? records().find(drawing, layer) : nullptr;
    if (!record) {
        record.reset(new DrawingLayerImplShared(isThere ? drawing : nullptr, layer, key));
        if (isThere)
            records().add(drawing, layer, record.get());
    }
    DrawingAccessImpl::get().addActiveLayer(drawing, layer, record.get());
    return record;
}

std::vector<DrawingLayerImplShared::Pointer> DrawingLayerImplShared::allOf(const GR_VectorDrawingObj* drawing)
{
    return records().allOf(drawing);
}

DrawingLayerImplShared::DrawingLayerImplShared(GR_VectorDrawingObj* drawing, UT_Node* layer,
                                               const CA_DrawingLayerKey& key)
    : m_drawing(drawing),
      m_key(key),
      m_layer(layer),
      m_layerId(layer ? layer->id() : 0)
{}

DrawingLayerImplShared::~DrawingLayerImplShared()
{
    dropDrawing();
}

void DrawingLayerImplShared::dropDrawing() const
{
    if (!m_drawing)
        return;
    records().remove(m_drawing.data(), m_layer, this);
    m_drawing.reset();
    m_seenRevision = -1;
}

void DrawingLayerImplShared::invalidate()
{
    dropDrawing();
}

void DrawingLayerImplShared::moveTo(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key)
{
    if (!m_drawing || !drawing)
        return;
    if (drawing != m_drawing.data()) {
        records().remove(m_drawing.data(), m_layer, this);
        m_drawing.reset(drawing);
        records().add(drawing, m_layer, this);
    }
    m_key = key;
    m_seenRevision = -1;
}

void DrawingLayerImplShared::update() const
{
    if (!drawingpresence::isThere(m_drawing)) {
        dropDrawing();
        BaseObject::throwInvalid();
    }
    const int revision = m_drawing->GetRevision();
    if (revision == m_seenRevision)
        return;
    if (!m_drawing->HasLeaf(m_layer)) {
        if (DrawingAccessImpl::get().isErased(*this))
            return;
        dropDrawing();
        BaseObject::throwInvalid();
    }
    m_seenRevision = revision;
}

UT_Node* DrawingLayerImplShared::getLayer() const
{
    update();
    return m_layer;
}

bool DrawingLayerImplShared::hasStrokes() const
{
    return dynamic_cast<GR_LayerNode*>(getLayer());
}

GR_Layer& DrawingLayerImplShared::strokes() const
{
    return found(foundAs<GR_LayerNode>(getLayer()).GetLayer());
}

} // namespace OMC
