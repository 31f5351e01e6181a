#pragma once

#include "core/drawings/drawingvectorstroke.h"
#include "core/drawings/layercontents.h"

namespace OMC {

/// The strokes of a layer, bottom first. The list is live: it tells what the layer holds now.
///
/// A change is one undo step, or a part of the open edit session (DrawingAccess).
class BRINDLE_CORE_EXPORT DrawingVectorStrokeList : public LayerContents<DrawingVectorStroke, const GR_VectorStroke*> {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorStrokeList)

public:
    explicit DrawingVectorStrokeList(DrawingLayerImplShared* layer);

    std::string __str__() const override;

    DrawingVectorStroke* newItem(int index) const { return LayerContents::newItem(index); }
    using LayerContents::set;
    /// Makes a stroke like another one, or gives it another path. It stays the same stroke.
    void set(int index, const QVariant& value) override;
    bool contains(const QVariant& stroke) const override; ///< Whether a stroke is in the layer.

    /// Adds copies of strokes, or a stroke of a path, and gives it, or a list of them for a list of strokes.
    QVariant add(const QVariant& strokes);

protected:
    std::vector<const GR_VectorStroke*> read(const GR_Layer& layer) const override;
};

} // namespace OMC
