#pragma once

#include "core/host/mo_backdrop.h"
#include "engine/graph/hostnode.h"
#include "engine/graph/subnodes.h"

namespace brindle::engine {

/// A node that holds nodes. The multi-port nodes inside show the group's ports from within, one of each at most.
class Group final : public HostNode<TUGroup> {
public:
    Group();

    SubNodes& subNodes() { return m_subNodes; }
    const SubNodes& subNodes() const { return m_subNodes; }
    Node* multiPortIn() const { return m_multiPortIn; }   ///< Faces the group's in-ports; null while there is none.
    Node* multiPortOut() const { return m_multiPortOut; } ///< Faces the group's out-ports.
    void noteMultiPort(Node& node, bool present);         ///< A sub-node came or went.

    using Backdrops = std::vector<std::shared_ptr<MO_Backdrop>>;
    Backdrops& backdropList() { return m_backdrops; }
    const Backdrops& backdrops() const override { return m_backdrops; }

    NodeIterator subNodesBegin() const override { return m_subNodes.begin(); }
    NodeIterator subNodesEnd() const override { return m_subNodes.end(); }
    unsigned int nSubNodes() const override { return static_cast<unsigned int>(m_subNodes.size()); }
    MO_Node* subNode(unsigned int index) const override;
    MO_Node* subNode(const QString& name) const override;
    void getRecursiveSubNodeList(std::vector<MO_Node*>& nodes) const override;
    std::size_t nRecursiveSubNodes() const override;
    MO_Node* recursiveSubNode(std::size_t index) const override;
    TUMultiPortIn* getOutMultiPort() const override;
    TUMultiPortOut* getInMultiPort() const override;

private:
    SubNodes m_subNodes;
    Node* m_multiPortIn = nullptr;
    Node* m_multiPortOut = nullptr;
    Backdrops m_backdrops;
};

/// The engine's group behind a host group, or null for null and for a group that is not the engine's.
Group* engineGroup(TUGroup* group);
const Group* engineGroup(const TUGroup* group);

/// Those of some nodes that lie in no other one of them, in the same order.
std::vector<Node*> topNodes(const std::vector<Node*>& nodes);

/// Calls a function for a node and all nodes below it, depth first, each group ahead of its content, for as long as it
/// gives true.
template <typename Function>
void forEachFromWhile(Node& top, Function function)
{
    struct Level {
        const SubNodes* nodes;
        std::size_t next;
    };
    std::vector<Level> levels;
    const auto enter = [&](Node& node) {
        const bool goesOn = function(node);
        if (const Group* group = node.asGroup())
            levels.push_back({&group->subNodes(), 0});
        return goesOn;
    };
    bool goesOn = enter(top);
    while (goesOn && !levels.empty()) {
        Level& level = levels.back();
        if (level.next < level.nodes->size())
            goesOn = enter(level.nodes->at(level.next++));
        else
            levels.pop_back();
    }
}

/// The same for all of them.
template <typename Function>
void forEachFrom(Node& top, Function function)
{
    forEachFromWhile(top, [&function](Node& node) {
        function(node);
        return true;
    });
}

} // namespace brindle::engine
