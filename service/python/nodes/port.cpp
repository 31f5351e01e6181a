#include "core/nodes/cable.h"
#include "core/nodes/cablelist.h"
#include "core/nodes/flatcable.h"
#include "core/nodes/inport.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/outport.h"
#include "core/nodes/portlist.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Port>()
            .alias("PortLike", "Port | Node | str | Sequence[object] | None",
                   "The other end of a link: a port, a node, a path, or [node or path, index].")
            .property("node", "Node")
            .property("node_related", "Node | None")
            .property("port_related", "Port | None"),
        Class<InPort>()
            .property("cable", "Cable | None")
            .property("cable_flat", "Cable | None")
            .property("source", "OutPort | None", "PortLike")
            .property("source_node", "Node | None", "PortLike")
            .property("source_flat", "OutPort | None")
            .property("source_node_flat", "Node | None")
            .method<"link", Form<&InPort::link, "source: PortLike -> Cable">>()
            .method<"unlink", Form<&InPort::unlink>>(),
        Class<OutPort>()
            .property("cables", "CableList")
            .property("cables_flat", "FlatCableList")
            .property("destinations", "list[InPort]")
            .property("destination_nodes", "list[Node]")
            .property("destinations_flat", "list[InPort]")
            .property("destination_nodes_flat", "list[Node]")
            .method<"link", Form<&OutPort::link, "destination: PortLike -> Cable">>()
            .method<"unlink", Form<&OutPort::unlink, "destination: InPort | NodesLike">>()
            .method<"transformation", Form<&OutPort::transformation, "frame -> Transformation">>(),
        Class<PortList>().items("Item"),
        Class<InPortList>().items("InPort").property("matte_port", "InPort | None"),
        Class<MultiPortList>()
            .items("Item")
            .method<"create", Form<pick<const QString&>(&MultiPortList::create), "type: str | None=None -> Item">,
                    Form<pick<unsigned int, const QString&>(&MultiPortList::create),
                         "index, type: str | None=None -> Item">,
                    Form<pick<const Obj&, bool, const QString&>(&MultiPortList::create),
                         "port: Port | None, before, type: str | None=None -> Item">>()
            .method<"remove", Form<pick<unsigned int>(&MultiPortList::remove), "index">,
                    Form<pick<const Obj&>(&MultiPortList::remove), "port: Port | None">>(),
        Class<MultiInPortList>().items("InPort").property("matte_port", "InPort | None"),
        Class<Cable>()
            .property("source", "OutPort", "PortLike")
            .property("source_node", "Node", "PortLike")
            .property("destination", "InPort", "PortLike")
            .property("destination_node", "Node", "PortLike")
            .property("source_flat_node", "Node | None")
            .property("source_flat", "OutPort | None")
            .method<"insert",
                    Form<&Cable::insert,
                         "node: Node | None, in_port: InPort | int | None=None, out_port: object=None -> Cable">>()
            .method<"unlink", Form<&Cable::unlink>>(),
        Class<FlatCable>()
            .property("source", "OutPort")
            .property("source_node", "Node")
            .property("destination", "InPort")
            .property("destination_node", "Node"),
        Class<CableList>()
            .items("Cable")
            .method<"contains", Form<&CableList::contains, "object: Node | InPort | None">>(),
        Class<FlatCableList>()
            .items("FlatCable")
            .method<"contains", Form<&FlatCableList::contains, "object: Node | InPort | None">>(),
    };
});

} // namespace

} // namespace brindle::python
