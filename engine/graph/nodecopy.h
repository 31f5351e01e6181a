#pragma once

#include "engine/graph/group.h"

#include <memory>
#include <unordered_map>

namespace brindle::engine {

/// Which node was made like which one.
using NodeCopies = std::unordered_map<const Node*, Node*>;

/// A new node like another one, in no group, for a scene or, where that is null, for none yet: of its type, with its name, place, enabled flag, marks, local
/// values, ports (under their ids) and, for a group, its backdrops and all that is in it with the links in there. The
/// attributes are linked to no column. The node and those in it are added to `copies`.
///
/// A multi-port node comes without ports: it shows those of the group that it is put in.
std::unique_ptr<MO_Node> copyNode(const Node& top, NodeCopies& copies, SC_SceneCommon* scene);

} // namespace brindle::engine
