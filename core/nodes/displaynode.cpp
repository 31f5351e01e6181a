#include "core/nodes/displaynode.h"

#include "core/host/mo_node.h"

namespace OMC {

DisplayNode::DisplayNode(TUDisplayModule* node) : Node(node) {}

std::string DisplayNode::__str__() const
{
    return textAs("DisplayNode");
}

} // namespace OMC
