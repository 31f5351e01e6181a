#pragma once

#include "engine/clipboard/newnodes.h"
#include "engine/clipboard/nodematch.h"

#include <set>
#include <vector>

namespace brindle::engine {

/// What is pasted over which nodes.
struct PasteTargets {
    std::vector<Node*> nodes;
    std::set<const Column*> columns; ///< Only attributes that these drive take part; empty for all.
    NodeMatch match = NodeMatch::NamesAndTypes;
};

/// Pastes a drag scene over nodes of a scene, on up to `most` frames from `at` on: what drives an attribute of a copied
/// node, or its local value, goes to the same attribute of its target. One entry of the undo list. Gives the nodes that
/// were pasted over; none where it fails, and nothing has changed then.
std::vector<Node*> pasteOver(Scene& scene, const DragScene& content, const PasteTargets& targets,
                             const DD_DropMode& mode, const DD_SelectionUtil::CompositionOptions& options, int at,
                             int most);

} // namespace brindle::engine
