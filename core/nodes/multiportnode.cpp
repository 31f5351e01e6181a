#include "core/nodes/multiportnode.h"

#include "core/host/mo_node.h"

namespace OMC {

MultiPortNode::MultiPortNode(MO_Node* node) : Node(node) {}

std::string MultiPortNode::__str__() const
{
    return {};
}

Port* MultiPortNode::addPort(unsigned int, bool)
{
    return nullptr;
}

Port* MultiPortNode::addPort(const Port*, bool)
{
    return nullptr;
}

bool MultiPortNode::removePort(unsigned int)
{
    return false;
}

bool MultiPortNode::removePort(const Port*)
{
    return false;
}

MultiPortInNode::MultiPortInNode(MO_Node* node) : MultiPortNode(node) {}

MultiPortOutNode::MultiPortOutNode(MO_Node* node) : MultiPortNode(node) {}

} // namespace OMC
