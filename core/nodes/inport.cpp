#include "core/nodes/inport.h"

#include "core/frame/undo.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_node.h"
#include "core/nodes/cable.h"
#include "core/nodes/node.h"
#include "core/nodes/outport.h"
#include "core/nodes/portlink.h"

namespace OMC {

namespace {

QVariant null()
{
    return QVariant::fromValue(nullptr);
}

QVariant wrapped(const MO_Port* source)
{
    return source ? toVariant(new OutPort(source->node(), source->id())) : null();
}

Obj cable(const MO_Port* source, const InPort* destination)
{
    if (!source)
        return {};
    const OutPort port(source->node(), source->id());
    return Obj(new Cable(&port, destination));
}

} // namespace

InPort::InPort(MO_Node* node, unsigned int id) : Port(node, id, true) {}

Obj InPort::link(const QVariant& value)
{
    // Required: null and false disconnect the wrapper's own Qt connections and leave the link alone; scripts cut a link
    // with `unlink`.
    if (value.isNull() || (value.typeId() == QMetaType::Bool && !value.toBool())) {
        disconnect();
        return {};
    }
    return linkPort(*this, value);
}

void InPort::unlink()
{
    MO_Node* node = getNode();
    CO_CommandManager& manager = undo::manager(node->sceneCommon());
    const int index = inPortIdxFromPort(getPort());
    if (index < 0)
        throwUnexpected();
    auto command = std::make_unique<CO_AndCommand>();
    command->add(new tu_node::UnlinkInPortFromOutsideCmd(node, static_cast<unsigned int>(index)));
    undo::run(manager, command.release(), tr("Unlink Port"), tr("Failed to disconnect the port."));
}

Obj InPort::getCable() const
{
    return cable(portOr(QT_TR_NOOP("Invalid port."))->srcPort(), this);
}

Obj InPort::getCableFlat() const
{
    return cable(portOr(QT_TR_NOOP("Invalid port."))->realSrcPort(), this);
}

QVariant InPort::getSrc() const
{
    return wrapped(portOr(QT_TR_NOOP("Unable to find the port."))->srcPort());
}

void InPort::setSrc(const QVariant& value)
{
    validate();
    link(value);
}

QVariant InPort::getSrcNode() const
{
    const MO_Port* source = portOr(QT_TR_NOOP("Unable to find the node."))->srcPort();
    return source ? toVariant(Node::getWrapped(source->node())) : null();
}

void InPort::setSrcNode(const QVariant& value)
{
    link(value);
}

QVariant InPort::getSrcFlat() const
{
    return wrapped(portOr(QT_TR_NOOP("Unable to find the port."))->realSrcPort());
}

QVariant InPort::getSrcNodeFlat() const
{
    const MO_Port* source = portOr(QT_TR_NOOP("Unable to find the node."))->realSrcPort();
    return source ? toVariant(Node::getWrapped(source->node())) : null();
}

bool InPort::getLinked() const
{
    return portOr(QT_TR_NOOP("Unable to find the port."))->srcPort();
}

bool InPort::getMattePort() const
{
    return portOr(QT_TR_NOOP("Unable to find the port."))->isMattePort();
}

MO_Port* InPort::portOr(const char* failure) const
{
    MO_Port* port = getPort();
    if (!port)
        throw Exception(tr(failure));
    return port;
}

} // namespace OMC
