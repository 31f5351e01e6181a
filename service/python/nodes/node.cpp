#include "core/nodes/cameranode.h"
#include "core/nodes/displaynode.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/multiportnode.h"
#include "core/nodes/node_coordinates.h"
#include "core/nodes/nodelist.h"
#include "core/nodes/pegnode.h"
#include "core/nodes/readnode.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> nodeTables()
{
    using namespace OMC;
    return {
        Class<Node>("Node", "A node of a scene's graph. A script's object follows the node through a rename and is "
                            "invalid for ever once the node is gone.")
            .property("attributes", "The node's parameters, an AttributeList.")
            .property("ports_in", "The in-ports, an InPortList or MultiInPortList.")
            .property("ports_out", "The out-ports, a PortList or MultiPortList.")
            .property("name", "The name within the group; what the project can't hold in it is changed.")
            .property("path", "The names from the root group down: \"Top/Group/Node\". Writing it moves the node to "
                              "that group and names it.")
            .property("type", "The kind of node: \"PEG\", \"READ\", \"COMPOSITE\", ...")
            .property("position", "The place in the node view, y growing downwards: Node_Coordinates when read; when "
                                  "written a list of two or three numbers, a point or another node's coordinates.")
            .property("enabled", "Whether the node takes part; a disabled node lets its input through.")
            .property("valid", "Whether the node is still there; never fails.")
            .method<"parent_scene", Form<&Node::parentScene>>("The node's Scene.")
            .method<"parent_group", Form<&Node::parentGroup>>(
                "The GroupNode around the node; an invalid one at the root.")
            .method<"move_to", Form<pick<const QString&, int, int>(&Node::moveTo), "target, x=0, y=0">,
                    Form<pick<const Obj&, int, int>(&Node::moveTo), "target, x=0, y=0">>(
                "Moves the node to a group, or beside a node that is no group; the target is a node or its path. The "
                "place in the node view is kept: x and y are not used. This object goes on with the moved node, all "
                "others of it are invalid."),
        Class<Node_Coordinates>("Node_Coordinates", "A live view of a node's place in the node view.")
            .property("x", "To the right.")
            .property("y", "Downwards.")
            .property("z", "The order of overlapping nodes."),
        Class<GroupNode>("GroupNode", "A node that holds nodes.")
            .property("multi_port_in", "The node inside that faces the in-ports; it is made when there is none.")
            .property("multi_port_out", "The node inside that faces the out-ports; it is made when there is none.")
            .property("nodes", "The nodes directly in the group, a NodeList."),
        Class<PegNode>("PegNode", "A node that moves, turns, scales and skews what hangs on it."),
        Class<CameraNode>("CameraNode", "A camera."),
        Class<DisplayNode>("DisplayNode", "A node whose picture a view shows."),
        Class<ReadNode>("ReadNode", "A node that shows the drawings of an element."),
        Class<MultiPortNode>("MultiPortNode", "Base of the nodes that face a group's ports from inside."),
        Class<MultiPortInNode>("MultiPortInNode", "The inside face of a group's in-ports."),
        Class<MultiPortOutNode>("MultiPortOutNode", "The inside face of a group's out-ports."),
        Class<NodeList>("NodeList", "The nodes of a scene or of a group. list[\"Top/Arm\"] finds a node by its path, "
                                    "in constant time; a loop goes over the nodes that there were when it began.")
            .method<"find", Form<&NodeList::find, "filter">>(
                "The nodes that a filter lets through: a regular expression or a list of them, searched for in name, "
                "type and path, or a dict with the keys \"name\", \"type\" and \"path\"; or a function that is called "
                "with "
                "each node and says whether it is one of them.")
            .method<
                "create", Form<pick<const QString&, const QString&>(&NodeList::create), "type, name=''">,
                Form<pick<const QString&, const QVariant&, const QString&>(&NodeList::create), "type, group, name=''">>(
                "Makes a node, in this list's group or in the group that is named; an empty name lets the project "
                "choose one. Gives the node, or None for a type that isn't known.")
            .method<"contains", Form<&NodeList::contains, "name">>("Whether a node of that path or name is there.")
            .method<"move", Form<&NodeList::move, "nodes, x=0, y=0">>(
                "Moves nodes into the group of the list: one, a list of them, or their paths. The places in the node "
                "view are kept: x and y are not used. Gives the moved node, or a list of them.")
            .method<"remove", Form<&NodeList::remove, "nodes, delete_columns=False, bridge=False">>(
                "Removes nodes: one, a list of them, or their paths. delete_columns also removes the columns that only "
                "they used; bridge connects what they connected."),
    };
}

} // namespace brindle::python
