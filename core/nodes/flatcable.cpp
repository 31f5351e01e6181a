#include "core/nodes/flatcable.h"

#include "core/nodes/cableends.h"

namespace OMC {

namespace {

const CableEnds::View flat{&MO_Port::realSrcPort, FlatCable::staticMetaObject};

} // namespace

FlatCable::FlatCable(const OutPort* source, const InPort* destination)
    : m_ends(std::make_unique<CableEnds>(source, destination))
{}

FlatCable::FlatCable(const FlatCable& other) : BaseObject(other), m_ends(std::make_unique<CableEnds>(*other.m_ends)) {}

FlatCable::~FlatCable() = default;

BaseObject* FlatCable::copy() const
{
    return new FlatCable(*this);
}

std::string FlatCable::__str__() const
{
    validate();
    return m_ends->text();
}

void FlatCable::validate() const
{
    if (!m_ends->areSet())
        throwInvalid();
    validateThreadLock();
    m_ends->validate(flat);
}

Obj FlatCable::getSource() const
{
    validate();
    return Obj(new OutPort(m_ends->source()));
}

Obj FlatCable::getSourceNode() const
{
    validate();
    return m_ends->sourceNode(flat);
}

Obj FlatCable::getDestination() const
{
    validate();
    return Obj(new InPort(m_ends->destination()));
}

Obj FlatCable::getDestinationNode() const
{
    validate();
    return m_ends->destinationNode(flat);
}

} // namespace OMC
