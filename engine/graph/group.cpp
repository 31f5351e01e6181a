#include "engine/graph/group.h"

#include "engine/graph/scenegraph.h"

#include <typeinfo>

namespace brindle::engine {

Group::Group() : HostNode(groupNodeType()), m_subNodes(*this) {}

void Group::noteMultiPort(Node& node, bool present)
{
    if (node.type().nodeClass == NodeClass::MultiPortIn)
        m_multiPortIn = present ? &node : nullptr;
    else if (node.type().nodeClass == NodeClass::MultiPortOut)
        m_multiPortOut = present ? &node : nullptr;
}

MO_Node* Group::subNode(unsigned int index) const
{
    return index < m_subNodes.size() ? m_subNodes.begin()[index] : nullptr;
}

MO_Node* Group::subNode(const QString& name) const
{
    const Node* node = m_subNodes.find(name);
    return node ? &node->host() : nullptr;
}

void Group::getRecursiveSubNodeList(std::vector<MO_Node*>& nodes) const
{
    nodes.clear();
    for (std::size_t i = 0; i < m_subNodes.size(); ++i)
        forEachFrom(m_subNodes.at(i), [&nodes](Node& node) { nodes.push_back(&node.host()); });
}

std::size_t Group::nRecursiveSubNodes() const
{
    if (graph() && &graph()->root() == this)
        return graph()->nodeCount();
    std::vector<MO_Node*> nodes;
    getRecursiveSubNodeList(nodes);
    return nodes.size();
}

MO_Node* Group::recursiveSubNode(std::size_t index) const
{
    if (graph() && &graph()->root() == this)
        return graph()->nodeAt(index);
    std::vector<MO_Node*> nodes;
    getRecursiveSubNodeList(nodes);
    return index < nodes.size() ? nodes[index] : nullptr;
}

TUMultiPortIn* Group::getOutMultiPort() const
{
    return static_cast<HostModule<TUMultiPortIn>*>(m_multiPortIn);
}

TUMultiPortOut* Group::getInMultiPort() const
{
    return static_cast<HostModule<TUMultiPortOut>*>(m_multiPortOut);
}

TUGroup* parentHost(const Node& node)
{
    return node.parent();
}

namespace {

/// Nothing derives from Group, so that its name says all: a cast compares names from class to class.
bool isEngineGroup(const TUGroup* group)
{
    return group && typeid(*group) == typeid(Group);
}

} // namespace

Group* engineGroup(TUGroup* group)
{
    return isEngineGroup(group) ? static_cast<Group*>(group) : nullptr;
}

const Group* engineGroup(const TUGroup* group)
{
    return isEngineGroup(group) ? static_cast<const Group*>(group) : nullptr;
}

std::vector<Node*> topNodes(const std::vector<Node*>& nodes)
{
    // Each group on the way up is looked at once: `inside` marks the nodes and what lies in them, `outside` the others.
    const std::uint64_t inside = nextWalkMark();
    const std::uint64_t outside = nextWalkMark();
    for (const Node* node : nodes)
        node->mark(PortSide::In) = inside;
    std::vector<Node*> tops;
    for (Node* node : nodes) {
        const Node* group = node->parent();
        while (group && group->mark(PortSide::In) != inside && group->mark(PortSide::In) != outside)
            group = group->parent();
        const bool isTop = !group || group->mark(PortSide::In) == outside;
        for (const Node* way = node->parent(); way && way != group; way = way->parent())
            way->mark(PortSide::In) = isTop ? outside : inside;
        if (isTop)
            tops.push_back(node);
    }
    return tops;
}

} // namespace brindle::engine
