#include "core/nodes/cameranode.h"

#include "core/geometry/matrix.h"
#include "core/host/mo_port.h"
#include "core/host/mo_porttransform.h"
#include "core/nodes/activenode.h"

namespace OMC {

namespace {

TUCameraModule* defaultCamera(const SC_SceneCommon& scene)
{
    return scene.camera(false);
}

} // namespace

CameraNode::CameraNode(TUCameraModule* node) : Node(node) {}

std::string CameraNode::__str__() const
{
    return textAs("CameraNode");
}

bool CameraNode::getActive() const
{
    const MO_Node& node = target();
    const SC_SceneCommon* scene = node.sceneCommon();
    return scene && static_cast<const MO_Node*>(scene->camera(false)) == &node;
}

void CameraNode::setActive(bool active)
{
    // The small letter of the second label is required: undo lists have always shown it.
    active_node::set<TUCameraModule, SC_SceneCmds::SetDefaultCameraCmd>(
        target(), active, &defaultCamera,
        {tr("Invalid node-type: %1 (%2)"), tr("Setting %1 as default camera."), tr("unsetting default camera."),
         tr("Failed to set default camera."), tr("Failed to unset default camera.")});
}

Obj CameraNode::matrix(int frame) const
{
    const MO_Port* in = target().inPort(0);
    MO_Node* peg = in ? in->realSrcNode() : nullptr;
    const MO_Module* module = peg ? peg->module() : nullptr;
    const MO_PortTransform* transform =
        module ? module->getPortTransformation(MO_BaseContext(MO_FrameKey(frame), 0)) : nullptr;
    return Obj(transform ? new Matrix(transform->transformation().matrix(false)) : new Matrix);
}

} // namespace OMC
