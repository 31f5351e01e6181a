#include "core/nodes/flatcable.h"

namespace OMC {

namespace {

const CableEnds::View flat{&MO_Port::realSrcPort, FlatCable::staticMetaObject};

} // namespace

FlatCable::FlatCable(const OutPort* source, const InPort* destination) : m_ends(source, destination) {}

std::string FlatCable::__str__() const
{
    validate();
    return m_ends.text();
}

void FlatCable::validate() const
{
    if (!m_ends.areSet())
        throwInvalid();
    validateThreadLock();
    m_ends.validate(flat);
}

Obj FlatCable::getSource() const
{
    validate();
    return Obj(new OutPort(m_ends.source()));
}

Obj FlatCable::getSourceNode() const
{
    validate();
    return m_ends.sourceNode(flat);
}

Obj FlatCable::getDestination() const
{
    validate();
    return Obj(new InPort(m_ends.destination()));
}

Obj FlatCable::getDestinationNode() const
{
    validate();
    return m_ends.destinationNode(flat);
}

} // namespace OMC
