#include "core/nodes/displaynode.h"

#include "core/nodes/activenode.h"

namespace OMC {

namespace {

TUDisplayModule* defaultDisplay(const SC_SceneCommon& scene)
{
    return scene.defaultDisplay();
}

} // namespace

DisplayNode::DisplayNode(TUDisplayModule* node) : Node(node) {}

std::string DisplayNode::__str__() const
{
    return textAs("DisplayNode");
}

bool DisplayNode::getActive() const
{
    const MO_Node& node = target();
    const SC_SceneCommon* scene = node.sceneCommon();
    return scene && static_cast<const MO_Node*>(scene->defaultDisplay()) == &node;
}

void DisplayNode::setActive(bool active)
{
    active_node::set<TUDisplayModule, SC_SceneCmds::SetDefaultDisplayCmd>(
        target(), active, &defaultDisplay,
        {tr("Invalid node-type: %1 (%2)"), tr("Setting %1 as default display."), tr("Unsetting default display."),
         tr("Failed to set default display."), tr("Failed to unset default display.")});
}

} // namespace OMC
