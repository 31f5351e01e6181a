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
class TransformationMemory;

/// Position in the node view: y grows downwards, z orders what is drawn.
struct NodePosition {
    int x = 0;
    int y = 0;
    int z = 0;
    bool operator==(const NodePosition&) const = default;
};

/// What a person marks a node with. It changes nothing that the node computes.
struct NodeMarks {
    QColor colour; ///< In the node view; invalid for that of the type.
    MO_CacheConfig cache;
    bool locked = false;
    bool thumbnails = false; ///< The timeline shows its pictures in small.
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
    void setEnabled(bool enabled);

    /// The marks that a person gives a node.
    const NodeMarks& marks() const { return m_marks; }
    void setMarks(const NodeMarks& marks);
    /// The colour in the node view: one that was shown last (`showColour`), or the node's own. Invalid for that of its
    /// type. Setting the marks shows the own one again.
    const QColor& shownColour() const { return m_shownColour; }
    void showColour(const QColor& colour) { m_shownColour = colour; }
    bool isCacheable() const;
    bool canLock() const { return m_parent != nullptr; }

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
    std::uint64_t& mark(PortSide direction) const { return m_walkMarks[direction == PortSide::In ? 0 : 1]; }

    /// What the node took when the scene was shown last; made when it is first asked for.
    const std::shared_ptr<TIR_PerformanceTimer>& performanceTimer() const;
    void resetPerformanceTimer() const;

    /// What the node remembers of its transformations; null while it remembers nothing.
    std::unique_ptr<TransformationMemory>& transformationMemory() const { return m_transformations; }

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
    NodeMarks m_marks;
    QColor m_shownColour;
    std::vector<std::unique_ptr<Port>> m_inPorts;
    std::vector<std::unique_ptr<Port>> m_outPorts;
    unsigned int m_nextInId = 0;
    unsigned int m_nextOutId = 0;
    std::size_t m_sources = 0;      ///< In-ports with a source.
    std::size_t m_destinations = 0; ///< Links of all out-ports.
    std::int64_t m_order = 0;       ///< Grows along the sub-nodes of a group; kept while the node is out of it.
    mutable std::array<std::uint64_t, 2> m_walkMarks = {}; ///< The walks that came here last, one a direction.
    mutable std::unique_ptr<AttributeSet> m_attributes;
    mutable std::unique_ptr<TransformationMemory> m_transformations;
    mutable std::shared_ptr<TIR_PerformanceTimer> m_timer;
};

/// The engine's node behind a host node, or null for null and for a node that is not the engine's.
Node* engineNode(MO_Node* node);

/// A number that no walk has had: nodes carry it while the walk goes on, instead of being collected in a set.
std::uint64_t nextWalkMark();

} // namespace brindle::engine
