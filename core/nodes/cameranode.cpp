#include "core/nodes/cameranode.h"

#include "core/host/mo_node.h"

namespace OMC {

CameraNode::CameraNode(TUCameraModule* node) : Node(node) {}

CameraNode::CameraNode(const CameraNode& other) : Node(other) {}

BaseObject* CameraNode::copy() const
{
    return new CameraNode(*this);
}

std::string CameraNode::__str__() const
{
    return textAs("CameraNode");
}

} // namespace OMC
