#pragma once

#include "core/host/dd_dragdrop.h"
#include "core/host/mo_node.h"
#include "engine/curves/column.h"
#include "engine/graph/port.h"

#include <memory>
#include <vector>

namespace brindle::engine {

class DragScene;
class SceneGraph;

/// The end of a dragged node's link: at a dragged node, or at one that stays.
struct DraggedEnd {
    const Node* dragged = nullptr; ///< The copy in the drag object; null for one that stays.
    UT_SharedWeakPtrBase staying;  ///< An MO_Node, null once it is gone.
    std::size_t place = 0;         ///< The port's place on its side of the node.
};

struct DraggedLink {
    DraggedEnd from; ///< An out-port.
    DraggedEnd to;   ///< An in-port.
    PortKind kind;
};

/// A column that drives an attribute of a dragged node, or of a node in it.
struct DraggedDrive {
    const Node* node = nullptr;  ///< The copy in the drag object.
    int place = 0;               ///< The attribute's, in the node's AttributeSet.
    UT_SharedWeakPtrBase column; ///< A TUTimedValue, null once it is gone.
    Socket::Order order = 0;     ///< The link's place among those of the column.
};

/// A port of a dropped node that was linked, where it came from, to a node that is not in its new group.
struct LostLink {
    Node* node;
    PortSide side;
    std::size_t place;
    PortKind kind;
};

} // namespace brindle::engine

struct DD_DragObject::Private {
    struct Top {
        std::unique_ptr<MO_Node> host; ///< A copy, in no scene.
        const brindle::engine::Node* node;
    };
    /// Of nodes that are copied; null for nodes that are moved, which the rest tells of.
    std::shared_ptr<const brindle::engine::DragScene> scene;

    std::vector<Top> tops; ///< In the order of the selection.
    std::vector<brindle::engine::DraggedLink> links;
    std::vector<brindle::engine::DraggedDrive> drives;
    const brindle::engine::Node* camera =
        nullptr; ///< The copy of the default camera, where it is among what is dragged.
    const brindle::engine::Node* display = nullptr; ///< The same of the default display.
};

struct DD_Selection::Private {
    std::vector<MO_Node*> nodes;
    std::vector<brindle::engine::LostLink> lost; ///< The lost links of nodes that a drop made.
    MO_Node* camera = nullptr;                   ///< The copy that a drop made of the default camera.
    int firstFrame = 1;
    int frameCount = 0;
};
