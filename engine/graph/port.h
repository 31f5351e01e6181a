#pragma once

#include "core/host/mo_port.h"
#include "engine/graph/nodetype.h"

#include <cstddef>
#include <vector>

namespace brindle::engine {

class Node;

enum class PortSide { In, Out };

/// A port of a node. It belongs to its node, or to the undo list while it is taken off.
///
/// An out-port keeps its destinations in the order of linking; cutting and restoring a link names the place there, so
/// that undo restores the order exactly. The places of ports on their nodes are kept at hand, which makes crossing a
/// group's border cost the same whatever the number of ports.
class Port final : public MO_Port {
public:
    explicit Port(PortSpec spec);

    unsigned int id() const override { return m_id; }
    MO_Node* node() const override;
    QString typeName() const override;
    bool isMattePort() const override { return m_spec.matte; }
    std::unique_ptr<MO_Port> clone() const override;

    bool isLinkable(const MO_Port* other) const override;

    MO_Port* srcPort() const override { return m_source; }
    PortIterator dstPortsBegin() const override { return m_destinations.data(); }
    PortIterator dstPortsEnd() const override { return m_destinations.data() + m_destinations.size(); }

    MO_Port* realSrcPort() const override;
    MO_Node* realSrcNode() const override;
    void realDstPorts(std::vector<MO_Port*>& ports) const override;

    /// Gives a new port the id that it was saved with; it keeps it on the node that it is put on.
    void setId(unsigned int id)
    {
        m_id = id;
        m_hasId = true;
    }

    PortKind kind() const { return m_spec.kind; }
    PortSide side() const { return m_side; }
    Node* owner() const { return m_owner; }       ///< Null while the port is on no node.
    std::size_t place() const { return m_place; } ///< On its side of its node.
    Port* source() const { return m_source; }
    std::size_t destinationCount() const { return m_destinations.size(); }
    Port* destination(std::size_t index) const { return static_cast<Port*>(m_destinations[index]); }
    bool isLinked() const { return m_source || !m_destinations.empty(); }

    /// Links an out-port to an in-port without a source, at a place of the out-port's destinations.
    static void link(Port& out, Port& in, std::size_t place);
    /// Cuts the in-port's link and tells its place among the destinations of its source.
    static std::size_t unlink(Port& in);

    /// The port that is the same connection on the other side of a group's border, or null.
    Port* facing() const;

private:
    friend class Node;

    PortSpec m_spec;
    PortSide m_side = PortSide::In;
    bool m_hasId = false;
    unsigned int m_id = 0;
    Node* m_owner = nullptr;
    std::size_t m_place = 0;
    Port* m_source = nullptr;
    std::vector<MO_Port*> m_destinations; ///< All are of this class.
};

} // namespace brindle::engine
