#pragma once

#include "core/drawings/drawingvectorcontour.h"
#include "core/drawings/layercontents.h"

namespace OMC {

/// The contours of a layer, in the order of their ids. The list is live: it tells what the strokes of the layer enclose
/// now.
class BRINDLE_CORE_EXPORT DrawingVectorContourList : public LayerContents<DrawingVectorContour, const GR_Contour*> {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorContourList)

public:
    explicit DrawingVectorContourList(DrawingLayerImplShared* layer);

    std::string __str__() const override;

    DrawingVectorContour* newItem(int index) const { return LayerContents::newItem(index); }
    using LayerContents::set;
    void set(int index, const QVariant& value) override;   ///< Always refused: contours come of the strokes.
    bool contains(const QVariant& contour) const override; ///< Whether a contour is in the layer.

protected:
    std::vector<const GR_Contour*> read(const GR_Layer& layer) const override;
};

} // namespace OMC
