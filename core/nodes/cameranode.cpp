#include "core/nodes/cameranode.h"

#include "core/host/mo_node.h"

namespace OMC {

CameraNode::CameraNode(TUCameraModule* node) : Node(node) {}

std::string CameraNode::__str__() const
{
    return textAs("CameraNode");
}

} // namespace OMC
