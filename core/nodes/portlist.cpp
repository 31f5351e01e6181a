#include "core/nodes/portlist.h"

#include "core/nodes/inport.h"
#include "core/nodes/outport.h"
#include "core/nodes/portside.h"

namespace OMC {

PortList::PortList(MO_Node* node, bool isInPort) : m_node(node), m_isInPort(isInPort) {}

BaseObject* PortList::copy() const
{
    return new PortList(*this);
}

std::string PortList::__str__() const
{
    const QString path = checkedNode()->qualifiedName();
    const QString format = m_isInPort ? QStringLiteral("InPorts(%1)[%2]") : QStringLiteral("OutPorts(%1)[%2]");
    return format.arg(path, QString::number(size())).toStdString();
}

Obj PortList::__iterItem__() const
{
    return get(static_cast<int>(m_cursor));
}

void PortList::operator++()
{
    validate();
    if (m_cursor < size())
        ++m_cursor;
}

void PortList::operator--()
{
    validate();
    if (m_cursor > 0)
        --m_cursor;
}

bool PortList::__atend__() const
{
    return m_cursor >= size();
}

Obj PortList::__iter__() const
{
    auto* iterator = static_cast<PortList*>(copy());
    iterator->m_cursor = 0;
    return Obj(iterator);
}

std::size_t PortList::size() const
{
    return (checkedNode()->*side().count)();
}

Obj PortList::get(int index) const
{
    const MO_Node* node = checkedNode();
    const auto count = static_cast<int>((node->*side().count)());
    const MO_Port* port = index < count ? (node->*side().at)(static_cast<unsigned int>(index)) : nullptr;
    if (!port)
        throw Exception(tr("Port index is out of range."));
    return wrapped(port);
}

void PortList::set(int, const Obj&)
{
    throw Exception(tr("Port lists cannot be set."));
}

std::vector<Obj> PortList::list() const
{
    const MO_Node* node = checkedNode();
    std::vector<Obj> ports;
    ports.reserve((node->*side().count)());
    for (unsigned int index = 0; index < (node->*side().count)(); ++index)
        ports.push_back(wrapped((node->*side().at)(index)));
    return ports;
}

bool PortList::getDynamic() const
{
    return false;
}

Obj PortList::operator()(const QString& index) const
{
    bool isNumber = false;
    const int number = index.toInt(&isNumber, 10);
    return isNumber ? get(number) : Obj();
}

void PortList::validate() const
{
    if (!m_node.get())
        throwInvalid();
    validateThreadLock();
}

MO_Node* PortList::checkedNode() const
{
    validate();
    return m_node.get();
}

const PortSide& PortList::side() const
{
    return portSide(m_isInPort);
}

Obj PortList::wrapped(const MO_Port* port) const
{
    if (!port)
        return {};
    if (m_isInPort)
        return Obj(new InPort(m_node.get(), port->id()));
    return Obj(new OutPort(m_node.get(), port->id()));
}

// Required: from the last to the first, so that of two matte ports the last one counts.
Obj PortList::lastMattePort() const
{
    const MO_Node* node = checkedNode();
    for (unsigned int index = node->nInPorts(); index-- > 0;) {
        const MO_Port* port = node->inPort(index);
        if (port && port->isMattePort())
            return wrapped(port);
    }
    return {};
}

InPortList::InPortList(MO_Node* node) : PortList(node, true) {}

BaseObject* InPortList::copy() const
{
    return new InPortList(*this);
}

Obj InPortList::getMattePort() const
{
    return lastMattePort();
}

} // namespace OMC
