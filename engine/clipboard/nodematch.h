#pragma once

#include "core/host/dd_dragdrop.h"
#include "engine/graph/group.h"

#include <utility>
#include <vector>

namespace brindle::engine {

/// A copied node, and the one of the same type that it is pasted over.
using NodePair = std::pair<const Node*, Node*>;

enum class NodeMatch {
    Names,         ///< Nodes of one name, wherever they are among what was copied.
    NamesAndTypes, ///< The same; then those whose names nothing has by their types, in their order.
    Types          ///< By their types, in their order.
};

/// Which nodes below a root are pasted over which of some targets, in the order of the targets. The nodes in two groups
/// that go together do so by their names. Nodes of kinds that the options leave out, and what is in such groups, take
/// no part; neither do multi-port nodes.
std::vector<NodePair> matchNodes(const Group& copied, const std::vector<Node*>& targets, NodeMatch match,
                                 const DD_SelectionUtil::CompositionOptions& options);

} // namespace brindle::engine
