#include "core/nodes/outport.h"

#include "core/frame/undo.h"
#include "core/geometry/transformation.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/nodes/cable.h"
#include "core/nodes/cablelist.h"
#include "core/nodes/inport.h"
#include "core/nodes/node.h"
#include "core/nodes/portlink.h"

#include <QStringList>

namespace OMC {

namespace {

QVariant portsOf(const std::vector<MO_Port*>& destinations)
{
    QVariantList list;
    list.reserve(static_cast<qsizetype>(destinations.size()));
    for (const MO_Port* port : destinations)
        list.append(toVariant(new InPort(port->node(), port->id())));
    return list;
}

/// The port inside a group that really feeds an out-port of the group.
const MO_Port* sourceInside(MO_Node& node, const MO_Port& port)
{
    const TUGroup* group = node.group();
    const TUMultiPortOut* inside = group ? group->getInMultiPort() : nullptr;
    if (!inside)
        throw Exception(std::string("An unexpected error has occurred."));
    const int place = node.outPortId(&port);
    const MO_Port* in = place < 0 ? nullptr : inside->inPort(static_cast<unsigned int>(place));
    const MO_Port* source = in ? in->realSrcPort() : nullptr;
    MO_Node* sourceNode = source ? source->node() : nullptr;
    if (!sourceNode || !sourceNode->module())
        throw Exception(OutPort::tr("Failed to find corresponding port."));
    return source;
}

QVariant nodesOf(const std::vector<MO_Port*>& destinations)
{
    QVariantList list;
    list.reserve(static_cast<qsizetype>(destinations.size()));
    for (const MO_Port* port : destinations)
        list.append(toVariant(Node::getWrapped(port->node())));
    return list;
}

/// Cuts, from the last destination to the first, those that the condition picks; how many these were.
template <typename Condition>
int unlinkIf(const std::vector<MO_Port*>& destinations, Condition picks)
{
    int count = 0;
    for (auto port = destinations.rbegin(); port != destinations.rend(); ++port) {
        if (MO_Node* node = (*port)->node(); node && picks(*node)) {
            InPort(node, (*port)->id()).unlink();
            ++count;
        }
    }
    return count;
}

} // namespace

OutPort::OutPort(MO_Node* node, unsigned int id) : Port(node, id, false) {}

Obj OutPort::link(const QVariant& value)
{
    return linkPort(*this, value);
}

void OutPort::unlink(const QVariant& value)
{
    MO_Node* node = getNode();
    CO_CommandManager& manager = undo::manager(node->sceneCommon());
    if (const QObject* object = QVariantToPointer(value))
        unlinkObject(object, manager);
    else if (value.typeId() == QMetaType::Int)
        unlinkAt(value.toInt());
    else if (value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QStringList)
        unlinkNamed(value.toStringList(), manager);
    else
        throw Exception(tr("Unable to find the cable to disconnect."));
}

QVariant OutPort::getDst() const
{
    return portsOf(destinations());
}

QVariant OutPort::getDstNodes() const
{
    return nodesOf(destinations());
}

QVariant OutPort::getDstFlat() const
{
    std::vector<MO_Port*> ports;
    requiredPort()->realDstPorts(ports);
    return portsOf(ports);
}

QVariant OutPort::getDstNodesFlat() const
{
    std::vector<MO_Port*> ports;
    requiredPort()->realDstPorts(ports);
    return nodesOf(ports);
}

Obj OutPort::getCables() const
{
    validate();
    return Obj(new CableList(this));
}

Obj OutPort::getCablesFlat() const
{
    validate();
    return Obj(new FlatCableList(this));
}

Obj OutPort::transformation(int frame) const
{
    const MO_Port* port = getPort();
    if (!port)
        throwInvalid();
    MO_Node* node = port->node();
    if (!node)
        throw Exception(std::string("An unexpected error has occurred."));
    const MO_Module* module = node->module();
    if (!module) {
        port = sourceInside(*node, *port);
        module = port->node()->module();
    }
    if (module->outPort(0) != port)
        throw Exception(tr("Output transformation is only supported on the first output port."));
    return Obj(new Transformation(module->getPortTransformation(MO_BaseContext(MO_FrameKey(frame), 0))));
}

MO_Port* OutPort::requiredPort() const
{
    MO_Port* port = getPort();
    if (!port)
        throw Exception(tr("Unable to find the port."));
    return port;
}

std::vector<MO_Port*> OutPort::destinations() const
{
    const MO_Port* port = requiredPort();
    return {port->dstPortsBegin(), port->dstPortsEnd()};
}

std::vector<MO_Port*> OutPort::destinationsOn(const MO_Node& node) const
{
    const MO_Port* own = requiredPort();
    std::vector<MO_Port*> ports;
    for (unsigned int place = 0; place < node.nInPorts(); ++place) {
        MO_Port* port = node.inPort(place);
        if (port->srcPort() == own)
            ports.push_back(port);
    }
    return ports;
}

void OutPort::unlinkObject(const QObject* object, CO_CommandManager& manager)
{
    if (const auto* inPort = dynamic_cast<const InPort*>(object)) {
        const MO_Port* port = inPort->getPort();
        if (!port)
            throw Exception(tr("Invalid port argument."));
        const MO_Port* own = requiredPort();
        if (port->srcPort() != own && port->realSrcPort() != own)
            throw Exception(tr("The provided port is not connected to this one."));
        InPort(*inPort).unlink();
    } else if (const auto* node = dynamic_cast<const Node*>(object)) {
        const undo::Scope scope(manager, tr("Unlinking ports."));
        if (const MO_Node* end = node->getNode())
            unlinkIf(destinationsOn(*end), [](const MO_Node&) { return true; });
    } else if (const auto* cable = dynamic_cast<const Cable*>(object)) {
        if (cable->getOutPort() != getPort())
            throw Exception(tr("Cable is not attached to this port."));
        // Required: only the wrapper's own Qt connections go, and the link stays; scripts cut it with Cable::unlink.
        cable->disconnect();
    } else {
        throw Exception(tr("Unable to find the cable to disconnect."));
    }
}

void OutPort::unlinkAt(int index)
{
    if (index < 0)
        throw Exception(tr("Invalid link index supplied."));
    const MO_Port* port = requiredPort();
    if (static_cast<unsigned int>(index) >= port->nDstPorts())
        throw Exception(tr("Cable index is out of range."));
    const MO_Port* destination = port->dstPortsBegin()[index];
    if (!destination->node())
        throw Exception(tr("Unable to find the destination node."));
    InPort(destination->node(), destination->id()).unlink();
}

void OutPort::unlinkNamed(const QStringList& names, CO_CommandManager& manager)
{
    const undo::Scope scope(manager, tr("Disconnecting ports."));
    const int count = unlinkIf(destinations(), [&names](const MO_Node& end) {
        return names.contains(end.qualifiedName()) || names.contains(end.instanceName());
    });
    if (!count)
        throw Exception(tr("Unable to find node to unlink."));
}

} // namespace OMC
