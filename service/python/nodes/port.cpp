#include "core/nodes/cable.h"
#include "core/nodes/cablelist.h"
#include "core/nodes/flatcable.h"
#include "core/nodes/inport.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/outport.h"
#include "core/nodes/portlist.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> portTables()
{
    using namespace OMC;
    return {
        Class<Port>("Port", "A connection point of a node; its id stays while its place changes.")
            .property("id", "The number that stays the port's own on its node.")
            .property("type", "\"IMAGE\" or \"PEG\".")
            .property("index", "The place on the node, from 0.")
            .property("node", "The port's Node.")
            .property("node_related", "The node that faces an in-port across the border of a group, or None.")
            .property("inport", "Whether it is an in-port.")
            .property("outport", "Whether it is an out-port.")
            .property("port_related", "The same port seen from the other side of a group's border, or None."),
        Class<InPort>("InPort", "A port that takes what another node gives.")
            .property("linked", "Whether the port has a source.")
            .property("matte_port", "Whether the port takes a matte.")
            .property("cable", "The Cable to the direct source, or None.")
            .property("cable_flat", "The Cable to the real source through groups, or None.")
            .property("source", "The OutPort that feeds the port, or None. Writing links; None changes nothing.")
            .property("source_node", "The node that feeds the port, or None. Writing links.")
            .property("source_flat", "The OutPort that really feeds the port, through groups, or None.")
            .property("source_node_flat", "The node that really feeds the port, through groups, or None.")
            .method<"link", Form<&InPort::link, "source">>("Links the port to a node, a path, an OutPort or [node or "
                                                           "path, index], in place of its source. Gives the Cable.")
            .method<"unlink", Form<&InPort::unlink>>("Cuts the link."),
        Class<OutPort>("OutPort", "A port that gives what its node makes to any number of in-ports.")
            .property("cables", "The links from the port, a CableList.")
            .property("cables_flat", "The real connections from the port through groups, a FlatCableList.")
            .property("destinations", "The in-ports that the port feeds, as a list.")
            .property("destination_nodes", "The nodes that the port feeds, as a list; one for each link.")
            .property("destinations_flat", "The in-ports that the port really feeds, through groups.")
            .property("destination_nodes_flat", "The nodes that the port really feeds, through groups.")
            .method<"link", Form<&OutPort::link, "destination">>(
                "Links the port to a node, a path, an InPort or [node or path, index]. Gives the Cable.")
            .method<"unlink", Form<&OutPort::unlink, "destination">>(
                "Cuts links: to an InPort, a Node, the link at an index, or to nodes by name or path."),
        Class<PortList>("PortList", "The in-ports or the out-ports of a node, by their places.")
            .property("dynamic", "Whether ports can be made and removed."),
        Class<InPortList>("InPortList", "The in-ports of a node whose number is fixed.")
            .property("matte_port", "The last matte port, or None."),
        Class<MultiPortList>("MultiPortList", "The ports of a node whose ports come and go.")
            .method<"create", Form<pick<const QString&>(&MultiPortList::create), "type=None">,
                    Form<pick<unsigned int, const QString&>(&MultiPortList::create), "index, type=None">,
                    Form<pick<const Obj&, bool, const QString&>(&MultiPortList::create), "port, before, type=None">>(
                "Makes a port at the end, at an index, or before or behind another port; type is \"image\" or \"peg\". "
                "Gives the port, or None when the node takes none.")
            .method<"remove", Form<pick<unsigned int>(&MultiPortList::remove), "index">,
                    Form<pick<const Obj&>(&MultiPortList::remove), "port">>("Cuts the port's links and takes it away."),
        Class<MultiInPortList>("MultiInPortList", "The in-ports of a node whose in-ports come and go.")
            .property("matte_port", "The last matte port, or None."),
        Class<Cable>("Cable", "A link between an out-port and an in-port; invalid once the two are no longer linked.")
            .property("source", "The OutPort; writing links another one.")
            .property("source_node", "The node that feeds; writing links another one.")
            .property("destination", "The InPort; writing moves the cable's end.")
            .property("destination_node", "The node that is fed; writing it changes the source.")
            .property("source_flat_node", "The node that really feeds, through groups.")
            .property("source_flat", "The OutPort that really feeds, through groups.")
            .method<"insert", Form<&Cable::insert, "node, in_port=None, out_port=None">>(
                "Puts a node into the cable and gives the cable to it. in_port is an InPort or an index; out_port only "
                "says that in_port counts for the way out, too.")
            .method<"unlink", Form<&Cable::unlink>>("Cuts the link."),
        Class<FlatCable>("FlatCable", "A real connection through groups, read-only.")
            .property("source", "The OutPort.")
            .property("source_node", "The node that feeds.")
            .property("destination", "The InPort.")
            .property("destination_node", "The node that is fed."),
        Class<CableList>("CableList", "The links of an out-port.")
            .method<"contains", Form<&CableList::contains, "object">>("Whether a link leads to a node or a port."),
        Class<FlatCableList>("FlatCableList", "The real connections of an out-port through groups.")
            .method<"contains", Form<&FlatCableList::contains, "object">>("Whether one leads to a node or a port."),
    };
}

} // namespace brindle::python
