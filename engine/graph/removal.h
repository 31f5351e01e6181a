#pragma once

#include "core/host/co_command.h"
#include "core/host/tu_node.h"

#include <memory>
#include <vector>

namespace brindle::engine {

class ColumnList;
class Node;
class SceneGraph;

/// Takes nodes out of a scene with their links, the links of their attributes to columns and, for groups, all that is
/// in them. A node that is the scene's default camera or display is unset as such. It costs as much as there is to
/// remove, whatever else the scene holds.
///
/// Nodes go in the order in which they were made, so that a removal does the same each time. A node that lies in a
/// group that goes too is left to that group. Removing a multi-port node leaves the ports of its group.
class RemoveNodes final : public CO_Command {
public:
    RemoveNodes(SceneGraph& graph, ColumnList& columns, const std::vector<Node*>& nodes,
                const SU_CleanUpCommands::DeleteStrategy& strategy, bool bridge);

    Status execute() override;
    Status unexecute() override;

private:
    bool plan();
    bool unsetDefaults();
    bool unlinkColumns();
    bool cutLinks(Node& node);
    bool takeNodes();
    bool run(std::unique_ptr<CO_Command> step);

    SceneGraph& m_graph;
    ColumnList& m_columns;
    const SU_CleanUpCommands::DeleteStrategy m_strategy;
    const bool m_bridge;
    std::vector<Node*> m_nodes; ///< Without those that are in another one.
    std::vector<std::unique_ptr<CO_Command>> m_steps;
};

} // namespace brindle::engine
