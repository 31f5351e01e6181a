#pragma once

#include "engine/graph/group.h"

#include <QHash>
#include <QString>

namespace brindle::engine {

/// What a node is in its group: its name, and its mark in the order of the nodes.
struct NodeSeat {
    QString name;
    std::int64_t order;
};

/// The nodes of a scene: the root group "Top" with all that is in it. It belongs to the scene.
///
/// A node that leaves the scene, with its group or alone, has its weak pointers expired: what scripts hold of it stays
/// gone, also when undo brings the same node back.
class SceneGraph {
public:
    explicit SceneGraph(SC_SceneCommon& scene);
    SceneGraph(const SceneGraph&) = delete;
    SceneGraph& operator=(const SceneGraph&) = delete;

    /// The graph of a scene, or null when the scene is not the engine's.
    static SceneGraph* of(const SC_SceneCommon* scene);

    SC_SceneCommon& scene() const { return m_scene; }
    Group& root() { return m_root; }
    std::size_t nodeCount() const { return m_nodeCount; } ///< Without the root.
    /// The node at a place, from 0, of a walk from the root that gives each group ahead of its content; null beyond the
    /// end.
    MO_Node* nodeAt(std::size_t place);

    /// Adds a node, which has a free name, behind the group's sub-nodes.
    void append(Group& group, std::unique_ptr<MO_Node> host, Node& node);
    /// Takes nodes of one group, given in its order, out of the scene; `putBack` undoes it.
    std::vector<std::unique_ptr<MO_Node>> take(Group& group, const std::vector<Node*>& nodes);
    void putBack(Group& group, std::vector<std::unique_ptr<MO_Node>> hosts, const std::vector<Node*>& nodes);
    void rename(Node& node, const QString& name);
    /// Moves nodes of one group, given in its order, to another without their leaving the scene: to seats that they had
    /// there, or behind its nodes and under free names where none are given. Gives the seats that they had.
    std::vector<NodeSeat> move(Group& from, Group& to, const std::vector<Node*>& nodes,
                               const std::vector<NodeSeat>& seats);

    /// Displays are picked by their name alone, wherever they are.
    bool hasDisplay(const QString& name) const { return m_displays.contains(name); }
    bool hasDisplays() const { return !m_displays.isEmpty(); }
    /// A name that nothing in the group has and no display of the scene.
    QString generateName(const QString& base, const Group& group) const;
    /// The name that a node gets in a group.
    QString freeName(const QString& name, const Group& group) const;

    void announceStructure() const;         ///< Nodes, links or ports came or went.
    void announceNode(MO_Node& node) const; ///< A value of the node changed.

private:
    void enter(Node& top);
    void leave(Node& top);
    void countDisplay(const Node& node, int change);

    SC_SceneCommon& m_scene;
    QHash<QString, int> m_displays; ///< How many displays have a name.
    std::size_t m_nodeCount = 0;
    std::vector<MO_Node*> m_walked; ///< The first nodes of a walk from the root, since nodes last came, went or moved.
    Group m_root;
};

} // namespace brindle::engine
