#include "core/attributes/attributelist.h"
#include "core/elements/metadatahandler.h"
#include "core/geometry/rectangles.h"
#include "core/nodes/backdrop.h"
#include "core/nodes/backdroplist.h"
#include "core/nodes/cameranode.h"
#include "core/nodes/displaynode.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/multiportnode.h"
#include "core/nodes/node_colour.h"
#include "core/nodes/node_coordinates.h"
#include "core/nodes/nodelist.h"
#include "core/nodes/nodesubselection.h"
#include "core/nodes/nodesubselectionlist.h"
#include "core/nodes/pegnode.h"
#include "core/nodes/portlist.h"
#include "core/nodes/readnode.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

void match(OMC::Backdrop& backdrop, const OMC::Obj& other)
{
    const auto* model = OMC::objectIn<OMC::Backdrop>(other);
    if (!model)
        OMC::BaseObject::throwInvalidArgument(0);
    backdrop.match(*model);
}

int sizeOf(const OMC::NodeSubselectionList& handles)
{
    return handles.handleCount();
}

QStringList pathsOf(const OMC::NodeList& nodes)
{
    QStringList paths;
    for (const OMC::Obj& item : nodes.list()) {
        if (const auto* node = OMC::objectIn<OMC::Node>(item))
            paths.append(node->getPath());
    }
    return paths;
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Node>()
            .copiedBy(
                "scene.clipboard.copy(node) copies it, and scene.clipboard.paste_new_nodes(copy, group) makes new "
                "nodes of the copy")
            .property<&Node::newAttributes>("attributes")
            .property<&Node::newPortsIn>("ports_in", "InPortList | MultiInPortList")
            .property<&Node::newPortsOut>("ports_out", "PortList[OutPort] | MultiPortList[OutPort]")
            .property<&Node::newMetadata>("metadata")
            .property<&Node::newPosition>("position", "Node_Coordinates",
                                          "Point2d | Point3d | Node_Coordinates | Sequence[float] | float")
            .property<&Node::newSubselections>("subselections")
            .property<&Node::newRect>("rect")
            .property<&Node::newColour>("colour", "Node_Colour", "ColourLike")
            .property("matte_port", "InPort | None")
            .property("data", "object")
            .method<"parent_scene", Form<&Node::parentScene, "-> Scene">>()
            .method<"parent_group", Form<&Node::parentGroup, "-> GroupNode">>()
            .method<"move_to", Form<pick<const QString&, int, int>(&Node::moveTo), "target, x=0, y=0">,
                    Form<pick<const Obj&, int, int>(&Node::moveTo), "target: Node | None, x=0, y=0">>(),
        Class<Node_Coordinates>(),
        Class<Node_Colour>().method<"reset", Form<&Node_Colour::reset>>(),
        Class<GroupNode>()
            .property("multi_port_in", "Node | None")
            .property("multi_port_out", "Node | None")
            .property<&GroupNode::newNodes>("nodes", "NodeList")
            .property<&GroupNode::newBackdrops>("backdrops")
            .method<"explode", Form<&GroupNode::explode, "-> list[Node]">>(),
        Class<PegNode>()
            .method<"matrix", Form<&PegNode::matrix, "frame -> Matrix">>()
            .method<"pivot", Form<&PegNode::pivot, "frame, in_use=False -> Point3d">>()
            .method<"rotation", Form<&PegNode::rotation, "frame -> Vector3d">>()
            .method<"scale", Form<&PegNode::scale, "frame -> Vector3d">>()
            .method<"skew", Form<&PegNode::skew, "frame">>()
            .method<"translation", Form<&PegNode::translation, "frame -> Vector3d">>()
            .method<"set_matrix", Form<&PegNode::setMatrix, "frame, matrix: MatrixLike, adjust_column=False">>()
            .method<"set_pivot", Form<&PegNode::setPivot, "frame, point: PointLike, keep_place=False">>()
            .method<"set_rotation",
                    Form<&PegNode::setRotation, "frame, value: float | PointLike, adjust_column=False">>()
            .method<"set_scale", Form<&PegNode::setScale, "frame, value: PointLike, adjust_column=False">>()
            .method<"set_skew", Form<&PegNode::setSkew, "frame, value: float, adjust_column=False">>()
            .method<"set_translation", Form<&PegNode::setTranslation, "frame, value: PointLike, adjust_column=False">>()
            .method<"apply_matrix",
                    Form<&PegNode::applyMatrix, "range: float | str | Sequence[float], matrix: MatrixLike">>()
            .method<"apply_rotation",
                    Form<&PegNode::applyRotation, "range: float | str | Sequence[float], value: float | PointLike">>()
            .method<"apply_scale",
                    Form<&PegNode::applyScale, "range: float | str | Sequence[float], value: PointLike">>()
            .method<"apply_skew", Form<&PegNode::applySkew, "range: float | str | Sequence[float], value">>()
            .method<"apply_translation",
                    Form<&PegNode::applyTranslation, "range: float | str | Sequence[float], value: PointLike">>(),
        Class<CameraNode>().method<"matrix", Form<&CameraNode::matrix, "frame -> Matrix">>(),
        Class<DisplayNode>(),
        Class<ReadNode>(),
        Class<MultiPortNode>(),
        Class<MultiPortInNode>(),
        Class<MultiPortOutNode>(),
        Class<Backdrop>()
            .property("title_font_colour", "Colour", "ColourLike")
            .property("description_font_colour", "Colour", "ColourLike")
            .property("colour", "Colour", "ColourLike")
            .method<"match", Form<&match, "other: Backdrop">>()
            .method<"contained_nodes", Form<&Backdrop::containedNodes, "-> list[Node]">>(),
        Class<BackdropList>()
            .items("Backdrop")
            .method<"contains", Form<&BackdropList::contains, "backdrop: Backdrop">>()
            .method<"create",
                    Form<&BackdropList::create,
                         "value: str | Backdrop | AllocatedRect2D | Sequence[object] | None=None -> Backdrop">>()
            .method<"remove", Form<&BackdropList::remove, "backdrop: Backdrop">>(),
        Class<NodeSubselection>(),
        Class<NodeSubselectionList>().items("NodeSubselection").method<"size", Form<&sizeOf>>(),
        Class<NodeList>()
            .alias("NodesLike", "Node | NodeList | str | int | Sequence[object]",
                   "A node or several: objects, paths, names or indexes, or a list of these.")
            .items("Node")
            .keys<&pathsOf>()
            .method<"find", Form<&NodeList::find, "filter: str | Sequence[str] | dict[str, str | Sequence[str]] | "
                                                  "Callable[[Node], object] -> list[Node]">>()
            .method<"create", Form<pick<const QString&, const QString&>(&NodeList::create), "type, name='' -> Node">,
                    Form<pick<const QString&, const QVariant&, const QString&>(&NodeList::create),
                         "type, group: NodesLike, name='' -> Node">>()
            .method<"contains", Form<&NodeList::contains, "name">>()
            .method<"move", Form<&NodeList::move, "nodes: NodesLike, x=0, y=0 -> Node | list[Node]">>()
            .method<"remove", Form<&NodeList::remove, "nodes: NodesLike, delete_columns=False, bridge=False">>(),
    };
});

} // namespace

} // namespace brindle::python
