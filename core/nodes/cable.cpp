#include "core/nodes/cable.h"

#include "core/frame/undo.h"
#include "core/host/sc_scene.h"
#include "core/nodes/node.h"

namespace OMC {

namespace {

const CableEnds::View direct{&MO_Port::srcPort, Cable::staticMetaObject};

QVariant asArgument(const BaseObject& object)
{
    return QVariant::fromValue(static_cast<QObject*>(const_cast<BaseObject*>(&object)));
}

/// The port that an argument gives on a node: a port of that class, or a place on the node. Null for anything else.
template <typename PortT>
std::unique_ptr<PortT> portIn(const QVariant& value, MO_Node* node, MO_Port* (MO_Node::*at)(unsigned int) const)
{
    if (const auto* port = objectFrom<PortT>(value))
        return std::make_unique<PortT>(*port);
    if (value.typeId() != QMetaType::Int)
        return nullptr;
    const MO_Port* port = (node->*at)(static_cast<unsigned int>(value.toInt()));
    return port ? std::make_unique<PortT>(node, port->id()) : nullptr;
}

/// Links one half of a split cable. A failure that is no sentence of the object model becomes `failure`.
template <typename PortT>
Obj linkHalf(PortT& port, const BaseObject& other, const QString& failure)
{
    try {
        return port.link(asArgument(other));
    } catch (const Exception&) {
        throw;
    } catch (...) {
        throw Exception(failure);
    }
}

} // namespace

Cable::Cable(const OutPort* source, const InPort* destination) : m_ends(source, destination) {}

std::string Cable::__str__() const
{
    validate();
    return m_ends.text();
}

void Cable::validate() const
{
    m_ends.validate(direct);
}

MO_Port* Cable::getOutPort() const
{
    validate();
    return m_ends.source().getPort();
}

MO_Port* Cable::getInPort() const
{
    validate();
    return m_ends.destination().getPort();
}

Obj Cable::insert(const Obj& node, const QVariant& inPort, const QVariant& outPort)
{
    validate();
    const auto* inserted = objectIn<Node>(node);
    if (!inserted)
        throw Exception(tr("Invalid node specififed."));
    MO_Node* target = inserted->getNode();
    CO_CommandManager& manager = undo::manager(target ? target->sceneCommon() : nullptr);
    const undo::Scope scope(manager, tr("Inserting a node."));

    try {
        m_ends.destination().unlink();
    } catch (...) {
        throw Exception(tr("Failed to disconnect the port."));
    }

    // Required: the sentence about the destination port serves both halves.
    const QString failure = tr("Failed to connect the destination port to the new node.");
    std::unique_ptr<Port> entry;
    if (!inPort.isNull()) {
        entry = portIn<InPort>(inPort, target, &MO_Node::inPort);
        if (!entry)
            throw Exception(tr("Unable to determine the inport."));
    }
    Obj front = linkHalf(m_ends.source(), entry ? static_cast<const BaseObject&>(*entry) : *inserted, failure);

    // Required: `outPort` counts only as being there or not. The out-port is looked for in `inPort`, so that one number
    // serves both sides.
    std::unique_ptr<Port> exit;
    if (!outPort.isNull()) {
        exit = portIn<OutPort>(inPort, target, &MO_Node::outPort);
        if (!exit)
            throw Exception(tr("Unable to determine the outport."));
    }
    const Obj back = linkHalf(m_ends.destination(), exit ? static_cast<const BaseObject&>(*exit) : *inserted, failure);

    const auto* backCable = objectIn<Cable>(back);
    if (!backCable || !objectIn<Cable>(front))
        throw Exception(std::string("An unexpeted error has occurred."));
    m_ends.setDestination(backCable->m_ends.destination());
    return front;
}

void Cable::unlink()
{
    validate();
    m_ends.destination().unlink();
}

QVariant Cable::getSource() const
{
    validate();
    return toVariant(new OutPort(m_ends.source()));
}

void Cable::setSource(const QVariant& value)
{
    validate();
    const Obj linked = m_ends.destination().link(value);
    const auto* cable = objectIn<Cable>(linked);
    if (!cable)
        throw Exception(tr("Failed to set the cable's source."));
    m_ends.setSource(cable->m_ends.source());
}

QVariant Cable::getSourceNode() const
{
    validate();
    return toVariant(m_ends.sourceNode(direct));
}

void Cable::setSourceNode(const QVariant& value)
{
    const undo::Scope scope(commandManager(), tr("Changing the cable's source node."));
    const Obj linked = m_ends.destination().link(value);
    const auto* cable = objectIn<Cable>(linked);
    if (!cable)
        throw Exception(tr("Failed to change the source node."));
    m_ends.setSource(cable->m_ends.source());
}

QVariant Cable::getDestination() const
{
    validate();
    return toVariant(new InPort(m_ends.destination()));
}

void Cable::setDestination(const QVariant& value)
{
    const undo::Scope scope(commandManager(), tr("Changing the cable's destination node."));
    m_ends.destination().unlink();
    const Obj linked = m_ends.source().link(value);
    const auto* cable = objectIn<Cable>(linked);
    // Required: the sentence about the source serves the destination too.
    if (!cable)
        throw Exception(tr("Failed to set the cable's source."));
    m_ends.setDestination(cable->m_ends.destination());
}

QVariant Cable::getDestinationNode() const
{
    validate();
    return toVariant(m_ends.destinationNode(direct));
}

Obj Cable::getSourceFlatNode() const
{
    MO_Node* node = destinationPort()->realSrcNode();
    if (!node)
        throw Exception(tr("Unable to find the flat source node."));
    return Obj(Node::getWrapped(node));
}

Obj Cable::getSourceFlat() const
{
    const MO_Port* source = destinationPort()->realSrcPort();
    if (!source)
        throw Exception(tr("Unable to find the flat source port."));
    return Obj(new OutPort(source->node(), source->id()));
}

CO_CommandManager& Cable::commandManager() const
{
    validate();
    return undo::manager(m_ends.destination().getNode()->sceneCommon());
}

MO_Port* Cable::destinationPort() const
{
    validate();
    MO_Port* port = m_ends.destination().getPort();
    if (!port)
        throw Exception(tr("Unable to find corresponding ports."));
    return port;
}

} // namespace OMC
