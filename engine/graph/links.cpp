#include "engine/graph/links.h"

#include "engine/graph/group.h"

#include <utility>

namespace brindle::engine {

/// One of the two walks of a search for circles, a link a step.
class CircleWalk {
public:
    /// `side` In goes against the flow, Out with it.
    CircleWalk(const Node& from, PortSide side, const Node& wanted)
        : m_side(side),
          m_wanted(wanted),
          m_mark(nextWalkMark())
    {
        visit(from);
    }

    bool isExhausted() const { return m_current == m_nodes.size(); }
    bool hasMet() const { return m_met; }

    void step()
    {
        const Node& node = *m_nodes[m_current];
        const Port* port = node.port(m_side, m_port);
        if (!port) {
            ++m_current;
            m_port = 0;
            m_link = 0;
        } else if (m_side == PortSide::In) {
            if (port->source())
                visit(*port->source()->owner());
            ++m_port;
        } else if (m_link < port->destinationCount()) {
            visit(*port->destination(m_link++)->owner());
        } else {
            ++m_port;
            m_link = 0;
        }
    }

private:
    void visit(const Node& node)
    {
        if (&node == &m_wanted)
            m_met = true;
        if (std::exchange(node.mark(m_side), m_mark) == m_mark)
            return;
        // A node without links on this side is an end: walking its ports would find nothing.
        if ((m_side == PortSide::In ? node.m_sources : node.m_destinations) > 0)
            m_nodes.push_back(&node);
    }

    PortSide m_side;
    const Node& m_wanted;
    std::uint64_t m_mark;
    std::vector<const Node*> m_nodes; ///< Reached; those before the current one are done.
    std::size_t m_current = 0;
    std::size_t m_port = 0;
    std::size_t m_link = 0;
    bool m_met = false;
};

bool closesCircle(const Node& from, const Node& to)
{
    if (&from == &to)
        return true;
    CircleWalk against(from, PortSide::In, to);
    if (against.isExhausted())
        return false;
    CircleWalk along(to, PortSide::Out, from);
    while (!against.isExhausted() && !along.isExhausted()) {
        against.step();
        along.step();
        if (against.hasMet() || along.hasMet())
            return true;
    }
    return false;
}

bool isLinkAllowed(const Port& out, const Port& in)
{
    if (out.side() != PortSide::Out || in.side() != PortSide::In || out.kind() != in.kind())
        return false;
    const Node* from = out.owner();
    const Node* to = in.owner();
    return from && to && from->parent() && from->parent() == to->parent() && !closesCircle(*from, *to);
}

} // namespace brindle::engine
