#include "core/nodes/readnode.h"

#include "core/host/mo_node.h"

namespace OMC {

ReadNode::ReadNode(MO_Node* node) : Node(node) {}

ReadNode::ReadNode(const ReadNode& other) : Node(other) {}

BaseObject* ReadNode::copy() const
{
    return new ReadNode(*this);
}

std::string ReadNode::__str__() const
{
    return textAs("ReadNode");
}

} // namespace OMC
