#include "core/nodes/readnode.h"

#include "core/host/mo_node.h"

namespace OMC {

ReadNode::ReadNode(MO_Node* node) : Node(node) {}

std::string ReadNode::__str__() const
{
    return textAs("ReadNode");
}

} // namespace OMC
