#pragma once

#include "core/frame/export.h"
#include "core/host/ca_celcache.h"
#include "core/host/gr_drawing.h"
#include "core/host/ut_sharedweak.h"

#include <QExplicitlySharedDataPointer>

#include <memory>
#include <vector>

namespace OMC {

/// What the wrappers of one layer of a drawing share: the leaf of the layer, and the drawing that it is in.
///
/// There is one for a leaf at a time, so that all wrappers of the layer and of what it holds become invalid together:
/// when the layer left the drawing, when the session in which it was erased ends, and when the drawing is gone. That is
/// for good, also where an undo brings the layer back.
class BRINDLE_CORE_EXPORT DrawingLayerImplShared final : public UT_SharedWeakBase,
                                                         public std::enable_shared_from_this<DrawingLayerImplShared> {
public:
    using Pointer = std::shared_ptr<DrawingLayerImplShared>;

    /// The record of a leaf: the one that wrappers hold already, or a new one, which the open session then knows too.
    /// Without a drawing or a leaf it is invalid from the start.
    static Pointer of(GR_VectorDrawingObj* drawing, UT_Node* layer, const CA_DrawingLayerKey& key);
    /// The records that wrappers hold of the layers of a drawing.
    static std::vector<Pointer> allOf(const GR_VectorDrawingObj* drawing);

    ~DrawingLayerImplShared() override;

    /// Makes all wrappers invalid.
    void invalidate();
    /// Follows the layer into another art layer of its drawing.
    void moveTo(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key);

    /// Throws "Object is no longer valid." where the drawing is gone or the leaf is not in its tree; then it stays
    /// invalid. The tree is walked once for each revision of the drawing. A layer that the open session erased counts
    /// as there until the session ends.
    void update() const;
    /// The leaf; throws as `update` does.
    UT_Node* getLayer() const;
    bool hasStrokes() const; ///< Whether it is a layer of strokes; throws as `update` does.
    /// The layer of strokes; throws as `update` does, and where the leaf has none.
    GR_Layer& strokes() const;

    GR_VectorDrawingObj* drawing() const { return m_drawing.data(); } ///< Null once it is invalid.
    const CA_DrawingLayerKey& key() const { return m_key; }
    quint32 layerId() const { return m_layerId; }
    /// The revision of the drawing, which grows with each change of it; -1 without a drawing.
    int revision() const { return m_drawing ? m_drawing->GetRevision() : -1; }

private:
    DrawingLayerImplShared(GR_VectorDrawingObj* drawing, UT_Node* layer, const CA_DrawingLayerKey& key);

    void dropDrawing() const;

    mutable QExplicitlySharedDataPointer<GR_VectorDrawingObj> m_drawing;
    CA_DrawingLayerKey m_key;
    mutable int m_seenRevision = -1;
    UT_Node* m_layer;
    quint32 m_layerId;
};

} // namespace OMC
