#include "core/drawings/drawingvectorcontourlist.h"

namespace OMC {

DrawingVectorContourList::DrawingVectorContourList(DrawingLayerImplShared* layer) : LayerContents(layer) {}

std::string DrawingVectorContourList::__str__() const
{
    return "DrawingVectorContourList()";
}

std::vector<const GR_Contour*> DrawingVectorContourList::read(const GR_Layer& layer) const
{
    return layer.GetContours();
}

void DrawingVectorContourList::set(int, const QVariant&)
{
    throw Exception(tr("Unable to set contours -- use Drawing Access instead."));
}

bool DrawingVectorContourList::contains(const QVariant& value) const
{
    validate();
    const auto* contour = objectFrom<DrawingVectorContour>(value);
    return contour && contour->layerRecord() == layer().get() && contour->validateContour();
}

} // namespace OMC
