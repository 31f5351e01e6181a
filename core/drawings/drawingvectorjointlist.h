#pragma once

#include "core/drawings/drawingvectorjoint.h"
#include "core/drawings/layercontents.h"

namespace OMC {

/// The joints of a layer, each once, seen from the end of the stroke with the least id. The list is live: it tells
/// where the strokes of the layer meet now.
class BRINDLE_CORE_EXPORT DrawingVectorJointList : public LayerContents<DrawingVectorJoint, GR_Joint> {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorJointList)

public:
    explicit DrawingVectorJointList(DrawingLayerImplShared* layer);

    std::string __str__() const override;

    DrawingVectorJoint* newItem(int index) const { return LayerContents::newItem(index); }
    using LayerContents::set;
    void set(int index, const QVariant& value) override; ///< Always refused: joints come of the strokes.
    bool
    contains(const QVariant& joint) const override; ///< Whether a joint is in the layer, from whichever end it is seen.

protected:
    std::vector<GR_Joint> read(const GR_Layer& layer) const override;
};

} // namespace OMC
