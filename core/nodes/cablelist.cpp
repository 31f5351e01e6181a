#include "core/nodes/cablelist.h"

#include "core/frame/found.h"
#include "core/nodes/cable.h"
#include "core/nodes/flatcable.h"
#include "core/nodes/node.h"

#include <algorithm>

namespace OMC {

namespace {

MO_Port* portOf(const OutPort& wrapper)
{
    return &found(wrapper.getPort());
}

std::string text(const QString& format, const OutPort& port)
{
    return format.arg(port.getNode()->qualifiedName(), QString::number(port.getIndex())).toStdString();
}

template <typename List>
Obj atText(const List& list, const QString& index)
{
    bool isNumber = false;
    const int number = index.toInt(&isNumber, 10);
    return isNumber ? list.get(number) : Obj();
}

template <typename CableT>
Obj cable(const OutPort* source, const MO_Port* destination)
{
    const InPort end(destination->node(), destination->id());
    return Obj(new CableT(source, &end));
}

} // namespace

CableList::CableList(const OutPort* port) : m_port(port) {}

std::string CableList::__str__() const
{
    validate();
    return text(QStringLiteral("CableList(%1, %2)"), *m_port);
}

std::size_t CableList::size() const
{
    return checkedPort()->nDstPorts();
}

Obj CableList::get(int index) const
{
    const MO_Port* port = checkedPort();
    if (static_cast<unsigned int>(index) >= port->nDstPorts())
        throw Exception(tr("Cable index is out of range."));
    return cable<Cable>(&*m_port, port->dstPortsBegin()[index]);
}

void CableList::set(int, const Obj&)
{
    throw Exception(tr("Cable lists cannot be set."));
}

std::vector<Obj> CableList::list() const
{
    const MO_Port* port = checkedPort();
    std::vector<Obj> cables;
    cables.reserve(port->nDstPorts());
    for (auto end = port->dstPortsBegin(); end != port->dstPortsEnd(); ++end)
        cables.push_back(cable<Cable>(&*m_port, *end));
    return cables;
}

bool CableList::contains(const Obj& object) const
{
    const MO_Port* source = checkedPort();
    // Looks from the other end of the cable, as an out-port may feed thousands of nodes.
    if (const auto* node = objectIn<Node>(object))
        return node->getNode() && !m_port->destinationsOn(*node->getNode()).empty();
    if (const auto* port = objectIn<Port>(object))
        return port->findPort() && port->findPort()->srcPort() == source;
    throw Exception(tr("Cable lists can only check for existing nodes or ports."));
}

Obj CableList::operator()(const QString& index) const
{
    return atText(*this, index);
}

void CableList::validate() const
{
    if (!m_port)
        throwInvalid();
    validateThreadLock();
    m_port->getNode();
}

void CableList::beforeStep() const
{
    validate();
}

MO_Port* CableList::checkedPort() const
{
    validate();
    return portOf(*m_port);
}

FlatCableList::FlatCableList(const OutPort* port) : m_port(port) {}

std::string FlatCableList::__str__() const
{
    validate();
    return text(QStringLiteral("FlatCableList(%1, %2)"), *m_port);
}

void FlatCableList::beforeStep() const
{
    validate();
}

void FlatCableList::startIteration()
{
    std::vector<MO_Port*> ports;
    checkedPort()->realDstPorts(ports);
    std::vector<InPort> ends;
    ends.reserve(ports.size());
    for (const MO_Port* port : ports)
        ends.emplace_back(port->node(), port->id());
    m_snapshot.take(std::move(ends));
}

std::size_t FlatCableList::size() const
{
    const MO_Port* port = checkedPort();
    if (m_snapshot.isTaken())
        return m_snapshot.size();
    std::vector<MO_Port*> ports;
    port->realDstPorts(ports);
    return ports.size();
}

Obj FlatCableList::get(int index) const
{
    const MO_Port* port = checkedPort();
    std::vector<MO_Port*> ports;
    if (!m_snapshot.isTaken())
        port->realDstPorts(ports);
    const auto place = static_cast<std::size_t>(index);
    if (index < 0 || place >= (m_snapshot.isTaken() ? m_snapshot.size() : ports.size()))
        throw Exception(tr("Cable index is out of range."));
    return cableTo(m_snapshot.isTaken() ? m_snapshot[place].findPort() : ports[place]);
}

void FlatCableList::set(int, const Obj&)
{
    throw Exception(tr("Flat Cable lists cannot be set."));
}

std::vector<Obj> FlatCableList::list() const
{
    std::vector<Obj> cables;
    for (const MO_Port* end : destinations())
        cables.push_back(cableTo(end));
    return cables;
}

bool FlatCableList::contains(const Obj& object) const
{
    const std::vector<MO_Port*> ends = destinations();
    if (const auto* node = objectIn<Node>(object)) {
        const MO_Node* target = node->getNode();
        return target && std::any_of(ends.begin(), ends.end(),
                                     [target](const MO_Port* port) { return port && port->node() == target; });
    }
    if (const auto* port = objectIn<Port>(object)) {
        const MO_Port* target = port->findPort();
        return target && std::find(ends.begin(), ends.end(), target) != ends.end();
    }
    throw Exception(tr("Cable lists can only check for existing nodes or ports."));
}

Obj FlatCableList::operator()(const QString& index) const
{
    return atText(*this, index);
}

void FlatCableList::validate() const
{
    if (!m_port)
        throwInvalid();
    m_port->getNode();
}

MO_Port* FlatCableList::checkedPort() const
{
    validate();
    return portOf(*m_port);
}

std::vector<MO_Port*> FlatCableList::destinations() const
{
    const MO_Port* port = checkedPort();
    std::vector<MO_Port*> ends;
    if (!m_snapshot.isTaken()) {
        port->realDstPorts(ends);
        return ends;
    }
    ends.reserve(m_snapshot.size());
    for (const InPort& end : m_snapshot)
        ends.push_back(end.findPort());
    return ends;
}

Obj FlatCableList::cableTo(const MO_Port* port) const
{
    if (!port || !port->node())
        unexpected::fail(unexpected::ErrorHasOccurred);
    return cable<FlatCable>(&*m_port, port);
}

} // namespace OMC
