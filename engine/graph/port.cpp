#include "engine/graph/port.h"

#include "engine/graph/links.h"
#include "engine/graph/node.h"
#include "engine/transformations/nodetransformation.h"

namespace brindle::engine {

Port::Port(PortSpec spec) : m_spec(spec) {}

MO_Node* Port::node() const
{
    return m_owner ? &m_owner->host() : nullptr;
}

QString Port::typeName() const
{
    return sharedText(portKindName(m_spec.kind));
}

std::unique_ptr<MO_Port> Port::clone() const
{
    return std::make_unique<Port>(m_spec);
}

bool Port::isLinkable(const MO_Port* other) const
{
    const auto* end = dynamic_cast<const Port*>(other);
    if (!end || end->m_side == m_side)
        return false;
    return m_side == PortSide::Out ? isLinkAllowed(*this, *end) : isLinkAllowed(*end, *this);
}

Port* Port::facing() const
{
    const Node* across = m_owner ? m_owner->facingNode(m_side) : nullptr;
    return across ? across->port(Node::facingSide(m_side), m_place) : nullptr;
}

MO_Port* Port::realSrcPort() const
{
    if (m_side != PortSide::In)
        return nullptr;
    const Port* in = this;
    for (;;) {
        Port* source = in->m_source;
        if (!source)
            return nullptr;
        const NodeClass kind = source->m_owner->type().nodeClass;
        if (kind != NodeClass::Group && kind != NodeClass::MultiPortIn)
            return source;
        in = source->facing();
        if (!in)
            return nullptr;
    }
}

MO_Node* Port::realSrcNode() const
{
    const MO_Port* source = realSrcPort();
    return source ? source->node() : nullptr;
}

void Port::realDstPorts(std::vector<MO_Port*>& ports) const
{
    ports.clear();
    if (m_side != PortSide::Out)
        return;
    std::vector<MO_Port*> ahead;
    const auto expand = [&](const Port& out) {
        for (std::size_t i = out.m_destinations.size(); i > 0; --i)
            ahead.push_back(out.m_destinations[i - 1]);
    };
    expand(*this);
    while (!ahead.empty()) {
        auto* in = static_cast<Port*>(ahead.back());
        ahead.pop_back();
        const NodeClass kind = in->m_owner->type().nodeClass;
        if (kind != NodeClass::Group && kind != NodeClass::MultiPortOut)
            ports.push_back(in);
        else if (const Port* out = in->facing())
            expand(*out);
    }
}

void Port::link(Port& out, Port& in, std::size_t place)
{
    in.m_source = &out;
    out.m_destinations.insert(out.m_destinations.begin() + static_cast<std::ptrdiff_t>(place), &in);
    ++in.m_owner->m_sources;
    ++out.m_owner->m_destinations;
    forgetTransformationsBehind(in);
}

std::size_t Port::unlink(Port& in)
{
    Port& out = *in.m_source;
    auto& all = out.m_destinations;
    // From both ends: links are mostly cut in the order in which they were made, or against it.
    std::size_t first = 0;
    std::size_t last = all.size() - 1;
    while (all[first] != &in && all[last] != &in) {
        ++first;
        --last;
    }
    const std::size_t place = all[first] == &in ? first : last;
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(place));
    in.m_source = nullptr;
    --in.m_owner->m_sources;
    --out.m_owner->m_destinations;
    forgetTransformationsBehind(in);
    return place;
}

} // namespace brindle::engine

std::unique_ptr<MO_Port> MO_Port::createImagePort()
{
    return std::make_unique<brindle::engine::Port>(brindle::engine::PortSpec{brindle::engine::PortKind::Image, false});
}

std::unique_ptr<MO_Port> MO_Port::createMatrixPort()
{
    return std::make_unique<brindle::engine::Port>(brindle::engine::PortSpec{brindle::engine::PortKind::Peg, false});
}
