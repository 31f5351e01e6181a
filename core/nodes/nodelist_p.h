#pragma once

#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/nodes/nodelist.h"

#include <QList>

#include <utility>

namespace OMC {

/// Where the nodes of a list come from, and how far a loop over it is.
struct NodeList::Private : Recycled {
    enum Mode { SceneNodes, GroupNodes, Handles, Unknown };

    TUScene* liveScene() const { return static_cast<TUScene*>(scene.get()); }
    TUGroup* liveGroup() const { return static_cast<TUGroup*>(group.get()); }
    MO_Node* handle(qsizetype index) const { return static_cast<MO_Node*>(nodes.at(index).get()); }
    void append(MO_Node* node)
    {
        UT_SharedWeakPtrBase handle;
        handle.assign(node);
        nodes.append(std::move(handle));
    }

    Mode mode = Unknown;
    UT_SharedWeakPtrBase scene;
    UT_SharedWeakPtrBase group;
    std::size_t cursor = 0;
    QList<UT_SharedWeakPtrBase> nodes; ///< Shared by copies of the list, until one of them adds a node.
    bool atEnd = true;
};

} // namespace OMC
