#pragma once

#include "core/host/co_command.h"
#include "engine/graph/port.h"

namespace brindle::engine {

/// Links two ports of the scene. Fails where `isLinkAllowed` says no, and when the in-port has a source.
class LinkPorts final : public CO_Command {
public:
    LinkPorts(Port& out, Port& in) : m_out(out), m_in(in) {}
    Status execute() override;
    Status unexecute() override;

private:
    Port& m_out;
    Port& m_in;
};

/// Cuts all links of a port. It does nothing on a port without links.
class CutAllLinks final : public CO_Command {
public:
    explicit CutAllLinks(Port& port) : m_port(port) {}
    Status execute() override;
    Status unexecute() override;

private:
    struct Link {
        Port* out;
        Port* in;
        std::size_t place; ///< The in-port's place among the destinations.
    };
    void cut(Port& in);

    Port& m_port;
    std::vector<Link> m_links; ///< In the order of cutting.
};

} // namespace brindle::engine
