#include "core/drawings/drawingvectorjointlist.h"

namespace OMC {

DrawingVectorJointList::DrawingVectorJointList(DrawingLayerImplShared* layer) : LayerContents(layer) {}

std::string DrawingVectorJointList::__str__() const
{
    return "DrawingVectorJointList()";
}

std::vector<GR_Joint> DrawingVectorJointList::read(const GR_Layer& layer) const
{
    return layer.GetJoints();
}

void DrawingVectorJointList::set(int, const QVariant&)
{
    throw Exception(tr("Unable to set joints -- use Drawing Access instead."));
}

bool DrawingVectorJointList::contains(const QVariant& value) const
{
    validate();
    const auto* joint = objectFrom<DrawingVectorJoint>(value);
    return joint && joint->layerRecord() == layer().get() && !joint->validateJoint().IsEmpty();
}

} // namespace OMC
