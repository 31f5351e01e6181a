#include "core/nodes/portlist.h"

#include "core/nodes/inport.h"
#include "core/nodes/outport.h"
#include "core/nodes/portside.h"

namespace OMC {

PortList::PortList(MO_Node* node, bool isInPort) : CountedList(node), m_isInPort(isInPort) {}

std::string PortList::__str__() const
{
    const QString path = target().qualifiedName();
    const QString format = m_isInPort ? QStringLiteral("InPorts(%1)[%2]") : QStringLiteral("OutPorts(%1)[%2]");
    return format.arg(path, QString::number(size())).toStdString();
}

std::size_t PortList::size() const
{
    return (target().*side().count)();
}

Obj PortList::get(int index) const
{
    return Obj(newItem(index));
}

Port* PortList::newItem(int index) const
{
    const MO_Node& node = target();
    const auto count = static_cast<int>((node.*side().count)());
    const MO_Port* port = index < count ? (node.*side().at)(static_cast<unsigned int>(index)) : nullptr;
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
    const MO_Node& node = target();
    std::vector<Obj> ports;
    ports.reserve((node.*side().count)());
    for (unsigned int index = 0; index < (node.*side().count)(); ++index)
        ports.emplace_back(wrapped((node.*side().at)(index)));
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

void PortList::beforeStep() const
{
    validate();
}

const PortSide& PortList::side() const
{
    return portSide(m_isInPort);
}

Port* PortList::wrapped(const MO_Port* port) const
{
    if (!port)
        return nullptr;
    if (m_isInPort)
        return new InPort(findTarget(), port->id());
    return new OutPort(findTarget(), port->id());
}

// Required: from the last to the first, so that of two matte ports the last one counts.
Obj PortList::lastMattePort() const
{
    const MO_Node& node = target();
    for (unsigned int index = node.nInPorts(); index-- > 0;) {
        const MO_Port* port = node.inPort(index);
        if (port && port->isMattePort())
            return Obj(wrapped(port));
    }
    return {};
}

InPortList::InPortList(MO_Node* node) : PortList(node, true) {}

Obj InPortList::getMattePort() const
{
    return lastMattePort();
}

} // namespace OMC
