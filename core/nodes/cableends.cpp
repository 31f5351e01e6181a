#include "core/nodes/cableends.h"

#include "core/frame/found.h"
#include "core/nodes/node.h"

namespace OMC {

namespace {

Obj nodeOf(const Port& end, const QMetaObject& texts)
{
    const MO_Port& port =
        found(end.getPort(), [&] { return texts.tr("Unable to find corresponding ports.", nullptr); });
    // Required: the one sentence serves both ends.
    MO_Node& node = found(port.node(), [&] { return texts.tr("Unable to find the source node.", nullptr); });
    return Obj(Node::getWrapped(&node));
}

} // namespace

CableEnds::CableEnds(const OutPort* source, const InPort* destination) : m_source(source), m_destination(destination) {}

void CableEnds::validate(const View& view) const
{
    if (!areSet())
        BaseObject::throwInvalid();
    const MO_Port* destination = m_destination->getPort();
    const MO_Port& source = found(m_source->getPort());
    if ((found(destination).*view.source)() != &source)
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
