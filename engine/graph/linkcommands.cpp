#include "engine/graph/linkcommands.h"

#include "core/host/tu_node.h"
#include "engine/graph/links.h"
#include "engine/graph/scenegraph.h"

namespace brindle::engine {

namespace {

void announce(const Port& port)
{
    port.owner()->graph()->announceStructure();
}

/// Finds the two ports when it is executed, and links them.
class LinkCommand final : public CO_Command {
public:
    LinkCommand(MO_Node* inNode, unsigned int inIndex, MO_Node* outNode, unsigned int outIndex)
        : m_inNode(engineNode(inNode)),
          m_outNode(engineNode(outNode)),
          m_inIndex(inIndex),
          m_outIndex(outIndex)
    {}

    Status execute() override
    {
        Port* in = m_inNode ? m_inNode->port(PortSide::In, m_inIndex) : nullptr;
        Port* out = m_outNode ? m_outNode->port(PortSide::Out, m_outIndex) : nullptr;
        if (!in || !out)
            return kFail;
        m_link.emplace(*out, *in);
        return m_link->execute();
    }

    Status unexecute() override { return m_link->unexecute(); }

private:
    Node* m_inNode;
    Node* m_outNode;
    unsigned int m_inIndex;
    unsigned int m_outIndex;
    std::optional<LinkPorts> m_link;
};

/// Finds a port when it is executed, and cuts its links.
class UnlinkCommand final : public CO_Command {
public:
    UnlinkCommand(MO_Node* node, PortSide side, unsigned int index)
        : m_node(engineNode(node)),
          m_side(side),
          m_index(index)
    {}

    Status execute() override
    {
        Port* port = m_node && m_node->graph() ? m_node->port(m_side, m_index) : nullptr;
        if (!port)
            return kFail;
        m_cut.emplace(*port);
        return m_cut->execute();
    }

    Status unexecute() override { return m_cut->unexecute(); }

private:
    Node* m_node;
    PortSide m_side;
    unsigned int m_index;
    std::optional<CutAllLinks> m_cut;
};

} // namespace

CO_Command::Status LinkPorts::execute()
{
    if (m_in.source() || !m_in.owner()->graph() || !isLinkAllowed(m_out, m_in))
        return kFail;
    Port::link(m_out, m_in, m_out.destinationCount());
    announce(m_in);
    return kOk;
}

CO_Command::Status LinkPorts::unexecute()
{
    Port::unlink(m_in);
    announce(m_in);
    return kOk;
}

CO_Command::Status CutAllLinks::execute()
{
    m_links.clear();
    if (m_port.source()) {
        cut(m_port);
    } else {
        m_links.reserve(m_port.destinationCount());
        while (m_port.destinationCount() > 0)
            cut(*m_port.destination(m_port.destinationCount() - 1));
    }
    if (m_links.empty())
        return kNoop;
    announce(m_port);
    return kOk;
}

CO_Command::Status CutAllLinks::unexecute()
{
    for (auto link = m_links.rbegin(); link != m_links.rend(); ++link)
        Port::link(*link->out, *link->in, link->place);
    if (!m_links.empty())
        announce(m_port);
    return kOk;
}

void CutAllLinks::cut(Port& in)
{
    Port* out = in.source();
    m_links.push_back({out, &in, Port::unlink(in)});
}

} // namespace brindle::engine

namespace tu_node {

LinkCmd::LinkCmd(MO_Node* inNode, unsigned int inIndex, MO_Node* outNode, unsigned int outIndex, MO_Port*)
    : CO_EngineCommand(std::make_unique<brindle::engine::LinkCommand>(inNode, inIndex, outNode, outIndex))
{}

UnlinkInPortFromOutsideCmd::UnlinkInPortFromOutsideCmd(MO_Node* node, unsigned int index)
    : CO_EngineCommand(std::make_unique<brindle::engine::UnlinkCommand>(node, brindle::engine::PortSide::In, index))
{}

UnlinkOutPortFromOutsideCmd::UnlinkOutPortFromOutsideCmd(MO_Node* node, unsigned int index)
    : CO_EngineCommand(std::make_unique<brindle::engine::UnlinkCommand>(node, brindle::engine::PortSide::Out, index))
{}

} // namespace tu_node
