#include "core/nodes/port.h"

#include "core/nodes/groupnode.h"
#include "core/nodes/inport.h"
#include "core/nodes/multiportlist.h"
#include "core/nodes/outport.h"
#include "core/nodes/portargument.h"
#include "core/nodes/portside.h"

namespace OMC {

namespace {

MO_Port* lookUp(const MO_Node* node, unsigned int id, bool isInPort)
{
    return node ? (node->*portSide(isInPort).withId)(id) : nullptr;
}

int placeOf(const MO_Port* port, const PortSide& side)
{
    const MO_Node* node = port ? port->node() : nullptr;
    return node ? (node->*side.place)(port) : -1;
}

/// The inside face of a group's port. `inside` is the node that has it, or null for the group to be given one.
Obj insideFace(TUGroup& group, MO_Node* inside, bool isInPort, int place)
{
    if (inside) {
        const MO_Port* port = (inside->*portSide(!isInPort).at)(static_cast<unsigned int>(place));
        if (!port)
            throw Exception(Port::tr("Multiport-in node doesn't have a corresponding port."));
        if (isInPort)
            return Obj(new OutPort(inside, port->id()));
        return Obj(new InPort(inside, port->id()));
    }
    const GroupNode outside(&group);
    const Obj made = isInPort ? outside.getMultiPortIn() : outside.getMultiPortOut();
    const auto* node = objectIn<Node>(made);
    if (!node)
        throw Exception(Port::tr("Multiport-in node doesn't have a corresponding port."));
    if (isInPort)
        return MultiPortList(node->getNode(), false).get(place);
    return MultiInPortList(node->getNode()).get(place);
}

/// The port of the parent group that a port of an inside node faces.
template <typename Face>
Obj outsideFace(const MO_Node& inside, const PortSide& side, int place)
{
    TUGroup* parent = inside.parentGroup();
    const MO_Port* port = parent ? (parent->*side.at)(static_cast<unsigned int>(place)) : nullptr;
    if (!port)
        BaseObject::throwUnexpected();
    return Obj(new Face(parent, port->id()));
}

} // namespace

Port::Port(MO_Node* node, unsigned int id, bool isInPort)
    : EngineView(node),
      m_id(id),
      m_isInPort(isInPort),
      m_remembered(lookUp(node, id, isInPort))
{}

std::string Port::__str__() const
{
    const QString format = getIsInport() ? QStringLiteral("InPort(%1, %2)") : QStringLiteral("OutPort(%1, %2)");
    return format.arg(getNode()->qualifiedName(), QString::number(getIndex())).toStdString();
}

MO_Node* Port::getNode() const
{
    return &target();
}

MO_Port* Port::getPort() const
{
    MO_Port* port = lookUp(getNode(), m_id, m_isInPort);
    if (port != m_remembered)
        throwInvalid();
    return port;
}

MO_Port* Port::findPort() const
{
    MO_Port* port = lookUp(findTarget(), m_id, m_isInPort);
    return port == m_remembered ? port : nullptr;
}

unsigned int Port::getPortId() const
{
    validate();
    return m_id;
}

unsigned int Port::getIndex() const
{
    const MO_Port* port = getPort();
    if (!port)
        throw Exception(tr("Unable to find the port."));
    if (!port->node())
        throw Exception(tr("Unable to find the node."));
    const int place = m_isInPort ? inPortIdxFromPort(port) : outPortIdxFromPort(port);
    if (place < 0)
        throw Exception(tr("Unable to find the port on the node."));
    return static_cast<unsigned int>(place);
}

bool Port::getIsInport() const
{
    validate();
    return m_isInPort;
}

bool Port::getIsOutport() const
{
    validate();
    return !m_isInPort;
}

QString Port::getType() const
{
    const MO_Port* port = getPort();
    if (!port)
        throw Exception(tr("Unable to find the port."));
    return port->typeName();
}

Obj Port::getWrappedNode() const
{
    return Obj(Node::getWrapped(getNode()));
}

Obj Port::getRelatedNode() const
{
    MO_Node* node = getNode();
    if (!m_isInPort)
        return {};
    if (TUGroup* group = node->group()) {
        if (TUMultiPortIn* inside = group->getOutMultiPort())
            return Obj(Node::getWrapped(inside));
        return GroupNode(group).getMultiPortIn();
    }
    if (!dynamic_cast<TUMultiPortIn*>(node) && !dynamic_cast<TUMultiPortOut*>(node))
        return {};
    TUGroup* parent = node->parentGroup();
    if (!parent)
        throwUnexpected();
    return Obj(new GroupNode(parent));
}

Obj Port::getRelatedPort() const
{
    const MO_Port* port = getPort();
    MO_Node* node = getNode();
    const int place = (node->*portSide(m_isInPort).place)(port);
    if (TUGroup* group = node->group()) {
        MO_Node* inside = nullptr;
        if (m_isInPort)
            inside = group->getOutMultiPort();
        else
            inside = group->getInMultiPort();
        return insideFace(*group, inside, m_isInPort, place);
    }
    if (dynamic_cast<TUMultiPortIn*>(node))
        return outsideFace<InPort>(*node, inPortSide, place);
    if (dynamic_cast<TUMultiPortOut*>(node))
        return outsideFace<OutPort>(*node, outPortSide, place);
    return {};
}

MO_Port* Port::QVariantToInPort(const QVariant& value, QString& error, bool createIfNeeded) const
{
    return portFromArgument(*this, value, true, error, createIfNeeded);
}

MO_Port* Port::QVariantToOutPort(const QVariant& value, QString& error, bool createIfNeeded) const
{
    return portFromArgument(*this, value, false, error, createIfNeeded);
}

int Port::inPortIdxFromPort(const MO_Port* port)
{
    return placeOf(port, inPortSide);
}

int Port::outPortIdxFromPort(const MO_Port* port)
{
    return placeOf(port, outPortSide);
}

} // namespace OMC
