#include "core/nodes/multiportnode.h"

#include "core/host/mo_node.h"

namespace OMC {

MultiPortNode::MultiPortNode(MO_Node* node) : Node(node) {}

MultiPortNode::MultiPortNode(const MultiPortNode& other) : Node(other) {}

BaseObject* MultiPortNode::copy() const
{
    return new MultiPortNode(*this);
}

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

MultiPortInNode::MultiPortInNode(const MultiPortInNode& other) : MultiPortNode(other) {}

BaseObject* MultiPortInNode::copy() const
{
    return new MultiPortInNode(*this);
}

MultiPortOutNode::MultiPortOutNode(MO_Node* node) : MultiPortNode(node) {}

MultiPortOutNode::MultiPortOutNode(const MultiPortOutNode& other) : MultiPortNode(other) {}

BaseObject* MultiPortOutNode::copy() const
{
    return new MultiPortOutNode(*this);
}

} // namespace OMC
