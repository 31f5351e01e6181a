#include "core/nodes/cableends.h"

#include "core/nodes/node.h"

namespace OMC {

namespace {

template <typename PortT>
std::unique_ptr<PortT> ownCopy(const PortT* port)
{
    if (!port)
        return nullptr;
    auto copy = std::make_unique<PortT>(*port);
    copy->setOwnership(OwnedByNative);
    return copy;
}

Obj nodeOf(const Port& end, const QMetaObject& texts)
{
    const MO_Port* port = end.getPort();
    if (!port)
        throw Exception(texts.tr("Unable to find corresponding ports.", nullptr));
    // Required: the one sentence serves both ends.
    if (!port->node())
        throw Exception(texts.tr("Unable to find the source node.", nullptr));
    return Obj(Node::getWrapped(port->node()));
}

} // namespace

CableEnds::CableEnds(const OutPort* source, const InPort* destination)
    : m_source(ownCopy(source)),
      m_destination(ownCopy(destination))
{}

CableEnds::CableEnds(const CableEnds& other) : CableEnds(other.m_source.get(), other.m_destination.get()) {}

void CableEnds::setSource(const OutPort& source)
{
    m_source = ownCopy(&source);
}

void CableEnds::setDestination(const InPort& destination)
{
    m_destination = ownCopy(&destination);
}

void CableEnds::validate(const View& view) const
{
    if (!areSet())
        BaseObject::throwInvalid();
    const MO_Port* destination = m_destination->getPort();
    const MO_Port* source = m_source->getPort();
    if (!destination || !source)
        BaseObject::throwInvalid();
    if ((destination->*view.source)() != source)
        throw Exception(view.texts.tr("These ports are no longer connected.", nullptr));
}

Obj CableEnds::sourceNode(const View& view) const
{
    return nodeOf(*m_source, view.texts);
}

Obj CableEnds::destinationNode(const View& view) const
{
    return nodeOf(*m_destination, view.texts);
}

std::string CableEnds::text() const
{
    return QStringLiteral("Cable(%1, %2, %3, %4)")
        .arg(m_source->getNode()->qualifiedName(), QString::number(m_source->getPortId()),
             m_destination->getNode()->qualifiedName(), QString::number(m_destination->getPortId()))
        .toStdString();
}

} // namespace OMC
