#pragma once

#include "core/host/mo_node.h"
#include "core/host/mo_port.h"
#include "engine/graph/port.h"

#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace brindle::engine {

class AttributeSet;
class Group;
class SceneGraph;

/// Position in the node view: y grows downwards, z orders what is drawn.
struct NodePosition {
    int x = 0;
    int y = 0;
    int z = 0;
    bool operator==(const NodePosition&) const = default;
};

/// The common part of all nodes: name, place, ports and attributes. HostNode gives it the host class of its type.
///
/// A node belongs to its group, or to the undo list while it is out of the scene, or to its maker before that. The
/// setters here change it at once and record nothing: commands call them.
class Node : public MO_AutoInPortsModule {
public:
    Node(const NodeType& type, MO_Node& host);
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    ~Node() override;

    MO_Node& host() const { return m_host; }
    const NodeType& type() const { return m_type; }
    Group* asGroup() const;                           ///< The node as a group, or null.
    std::uint64_t serial() const { return m_serial; } ///< Grows in the order in which nodes are made.

    Group* parent() const { return m_parent; }
    bool isBefore(const Node& other) const { return m_order < other.m_order; } ///< Both are nodes of one group.
    SceneGraph* graph() const { return m_graph; } ///< Null while the node is not in a scene.
    SC_SceneCommon* scene() const { return m_scene; }
    void setScene(SC_SceneCommon* scene); ///< The node is in no scene yet.
    /// Tells whoever shows the scene that a value of the node changed.
    void announceChange() const;

    const QString& name() const { return m_name; }
    bool setName(const QString& name); ///< The node is in no group yet; false when the name is not valid.
    QString path() const;
    bool isNameAcceptable(const QString& name) const;

    const NodePosition& position() const { return m_position; }
    void setPosition(const NodePosition& position) { m_position = position; }
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }

    std::size_t portCount(PortSide side) const { return ports(side).size(); }
    Port* port(PortSide side, std::size_t place) const; ///< Null when there is none.
    Port* portFromId(PortSide side, unsigned int id) const;
    int portPlace(PortSide side, const MO_Port* port) const; ///< -1 when it is not there.
    bool takesPorts(PortSide side) const;
    bool takesPort(PortSide side, const Port& port) const;
    bool hasImageOutput() const;
    /// Puts a port at a place up to the count. A port that is new gets the next id, one that comes back keeps its own.
    void insertPort(PortSide side, std::size_t place, std::unique_ptr<Port> port);
    std::unique_ptr<Port> takePort(PortSide side, std::size_t place);
    /// The side of the node across the group's border that has a port for each port of this side; null without one.
    Node* facingNode(PortSide side) const;
    static PortSide facingSide(PortSide side) { return side == PortSide::In ? PortSide::Out : PortSide::In; }

    CO_Command* addInPortCommand(unsigned int index) override;

    /// The attributes are made when they are first asked for: many nodes of a scene are never looked at.
    AttributeSet& attributes() const;
    bool hasAttributes() const { return m_attributes != nullptr; } ///< Whether they have been asked for.

    /// The mark that a walk left here, one for walks of each direction.
    std::uint64_t& mark(PortSide direction) const { return m_marks[direction == PortSide::In ? 0 : 1]; }

private:
    friend class Port;
    friend class SceneGraph;
    friend class SubNodes;
    friend class CircleWalk;

    const std::vector<std::unique_ptr<Port>>& ports(PortSide side) const
    {
        return side == PortSide::In ? m_inPorts : m_outPorts;
    }

    const NodeType& m_type;
    MO_Node& m_host;
    const std::uint64_t m_serial;
    Group* m_parent = nullptr;
    SceneGraph* m_graph = nullptr;
    SC_SceneCommon* m_scene = nullptr;
    QString m_name;
    NodePosition m_position;
    bool m_enabled = true;
    std::vector<std::unique_ptr<Port>> m_inPorts;
    std::vector<std::unique_ptr<Port>> m_outPorts;
    unsigned int m_nextInId = 0;
    unsigned int m_nextOutId = 0;
    std::size_t m_sources = 0;      ///< In-ports with a source.
    std::size_t m_destinations = 0; ///< Links of all out-ports.
    std::int64_t m_order = 0;       ///< Grows along the sub-nodes of a group; kept while the node is out of it.
    mutable std::array<std::uint64_t, 2> m_marks = {}; ///< The walks that came here last, one a direction.
    mutable std::unique_ptr<AttributeSet> m_attributes;
};

/// The engine's node behind a host node, or null for null and for a node that is not the engine's.
Node* engineNode(MO_Node* node);

/// A number that no walk has had: nodes carry it while the walk goes on, instead of being collected in a set.
std::uint64_t nextWalkMark();

} // namespace brindle::engine
