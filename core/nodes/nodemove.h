#pragma once

#include "core/frame/unexpected.h"

#include <QString>

#include <vector>

class MO_Node;
class SC_SceneCommon;
class TUGroup;

/// How nodes move to a group: the engine drags them and drops them there, which makes new nodes and removes the old
/// ones. One undo entry, "Move to Group".
namespace OMC::node_move {

/// The differences between moving one node and moving a list of nodes.
struct Terms {
    bool makesMultiPort; ///< A group without a multi-port node for its in-ports gets one; else the move is refused.
    bool selectsAsBatch; ///< The nodes are selected as one change.
    bool oneNodeOnly;    ///< More than one node that comes of the drop is a failure.
    bool failsSilently;  ///< A failure of the removal or the drop leaves all as it was, without an exception.
    QString noMultiPort; ///< The texts of the failures.
    unexpected::Sentence missingPart; ///< The scene, or something of it, is not there.
    QString entersItself;             ///< The group is, or lies in, a node that is to move there.
    QString failed;
    QString severalNodes;
};

/// Moves nodes of a scene to a group. Gives the new nodes, in order; none when it failed silently. Whatever fails, and
/// however, the scene and the undo list are as before; but the nodes may have left the scene and come back, so that
/// wrappers of them are invalid.
std::vector<MO_Node*> moveNodes(const std::vector<MO_Node*>& nodes, SC_SceneCommon* scene, TUGroup& group,
                                const Terms& terms);

} // namespace OMC::node_move
