#include "engine/graph/removal.h"

#include "core/host/at_attr.h"
#include "core/host/tu_timedvalue.h"
#include "engine/curves/columnlist.h"
#include "engine/graph/linkcommands.h"
#include "engine/graph/links.h"
#include "engine/graph/scenegraph.h"
#include "engine/session/scene.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace brindle::engine {

namespace {

/// Takes nodes of one group, given in its order, out of the scene.
class TakeNodes final : public CO_Command {
public:
    TakeNodes(SceneGraph& graph, Group& group, std::vector<Node*> nodes)
        : m_graph(graph),
          m_group(group),
          m_nodes(std::move(nodes))
    {}

    Status execute() override
    {
        m_hosts = m_graph.take(m_group, m_nodes);
        return kOk;
    }

    Status unexecute() override
    {
        m_graph.putBack(m_group, std::move(m_hosts), m_nodes);
        return kOk;
    }

private:
    SceneGraph& m_graph;
    Group& m_group;
    std::vector<Node*> m_nodes;
    std::vector<std::unique_ptr<MO_Node>> m_hosts; ///< The nodes while they are out.
};

class TakeColumn final : public CO_Command {
public:
    TakeColumn(ColumnList& columns, TUTimedValue& column) : m_columns(columns), m_column(&column) {}

    Status execute() override
    {
        m_taken = m_columns.take(m_column, m_position);
        return m_taken ? kOk : kFail;
    }

    Status unexecute() override { return m_columns.insert(m_taken, m_position) ? kOk : kFail; }

private:
    ColumnList& m_columns;
    TUTimedValue* m_column;
    std::unique_ptr<TUTimedValue> m_taken;
    int m_position = -1;
};

/// Whether a link from one port to the other may take the place of the way through a node that goes.
bool canBridge(const Port& out, const Port& in)
{
    return out.kind() == in.kind() && !in.source() && isLinkAllowed(out, in);
}

} // namespace

RemoveNodes::RemoveNodes(SceneGraph& graph, ColumnList& columns, const std::vector<Node*>& nodes,
                         const SU_CleanUpCommands::DeleteStrategy& strategy, bool bridge)
    : m_graph(graph),
      m_columns(columns),
      m_strategy(strategy),
      m_bridge(bridge),
      m_nodes(topNodes(nodes))
{
    std::sort(m_nodes.begin(), m_nodes.end(), [](const Node* a, const Node* b) { return a->serial() < b->serial(); });
}

CO_Command::Status RemoveNodes::execute()
{
    if (m_nodes.empty())
        return kFail;
    if (m_steps.empty()) {
        if (!plan()) {
            unexecute();
            m_steps.clear();
            return kFail;
        }
    } else {
        for (auto& step : m_steps)
            step->execute();
    }
    m_graph.announceStructure();
    return kOk;
}

CO_Command::Status RemoveNodes::unexecute()
{
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step)
        (*step)->unexecute();
    m_graph.announceStructure();
    return kOk;
}

bool RemoveNodes::plan()
{
    if (!unsetDefaults() || !unlinkColumns())
        return false;
    for (Node* node : m_nodes) {
        if (!cutLinks(*node))
            return false;
    }
    return takeNodes();
}

bool RemoveNodes::unsetDefaults()
{
    SC_SceneCommon& scene = m_graph.scene();
    const MO_Node* camera = scene.camera(false);
    const MO_Node* display = scene.defaultDisplay();
    if (!camera && !display)
        return true;
    bool cameraLeaves = false;
    bool displayLeaves = false;
    for (Node* top : m_nodes) {
        forEachFrom(*top, [&](const Node& node) {
            cameraLeaves = cameraLeaves || &node.host() == camera;
            displayLeaves = displayLeaves || &node.host() == display;
        });
    }
    return (!cameraLeaves || run(std::make_unique<SC_SceneCmds::SetDefaultCameraCmd>(&scene, nullptr))) &&
           (!displayLeaves || run(std::make_unique<SC_SceneCmds::SetDefaultDisplayCmd>(&scene, nullptr)));
}

bool RemoveNodes::unlinkColumns()
{
    std::vector<TUTvSocket*> sockets;
    std::unordered_set<const MO_Node*> leaving;
    for (Node* top : m_nodes) {
        forEachFrom(*top, [&](Node& node) {
            if (!node.hasAttributes())
                return;
            const std::size_t before = sockets.size();
            const AttributeSet& attributes = node.attributes();
            for (int place = 0; place < attributes.count(); ++place) {
                TUTvSocket* socket = attributes.at(place).socket();
                if (socket && socket->isLinked())
                    sockets.push_back(socket);
            }
            if (sockets.size() > before)
                leaving.insert(&node.host());
        });
    }

    std::vector<TUTimedValue*> columns;
    if (m_strategy.deleteTimedValues) {
        std::unordered_set<const TUTimedValue*> seen;
        for (const TUTvSocket* socket : sockets) {
            TUTimedValue* column = socket->linkedTimedValue();
            if (!seen.insert(column).second)
                continue;
            const std::vector<MO_Node*> linked = column->linkedNodes();
            if (std::all_of(linked.begin(), linked.end(), [&](const MO_Node* node) { return leaving.contains(node); }))
                columns.push_back(column);
        }
    }
    for (TUTvSocket* socket : sockets) {
        if (!run(std::make_unique<tu_tv_socket::UnlinkCmd>(socket, 0)))
            return false;
    }
    for (TUTimedValue* column : columns) {
        if (!run(std::make_unique<TakeColumn>(m_columns, *column)))
            return false;
    }
    return true;
}

bool RemoveNodes::cutLinks(Node& node)
{
    const Port* firstIn = node.port(PortSide::In, 0);
    const Port* firstOut = node.port(PortSide::Out, 0);
    Port* fed = m_bridge && firstIn && firstOut ? firstIn->source() : nullptr;
    std::vector<Port*> feeds;
    for (std::size_t i = 0; fed && i < firstOut->destinationCount(); ++i)
        feeds.push_back(firstOut->destination(i));

    for (const PortSide side : {PortSide::In, PortSide::Out}) {
        for (std::size_t place = node.portCount(side); place > 0; --place) {
            Port* port = node.port(side, place - 1);
            if (port && port->isLinked() && !run(std::make_unique<CutAllLinks>(*port)))
                return false;
        }
    }
    for (Port* in : feeds) {
        if (canBridge(*fed, *in) && !run(std::make_unique<LinkPorts>(*fed, *in)))
            return false;
    }
    return true;
}

bool RemoveNodes::takeNodes()
{
    // Groups in the order in which they were made, for the same result each time.
    std::map<std::uint64_t, std::vector<Node*>> byGroup;
    for (Node* node : m_nodes)
        byGroup[node->parent()->serial()].push_back(node);
    for (auto& [serial, nodes] : byGroup) {
        Group& group = *nodes.front()->parent();
        std::sort(nodes.begin(), nodes.end(), [](const Node* a, const Node* b) { return a->isBefore(*b); });
        if (!run(std::make_unique<TakeNodes>(m_graph, group, std::move(nodes))))
            return false;
    }
    return true;
}

bool RemoveNodes::run(std::unique_ptr<CO_Command> step)
{
    if (step->execute() == kFail)
        return false;
    m_steps.push_back(std::move(step));
    return true;
}

} // namespace brindle::engine

bool SU_CleanUpCommands::removeNodes(TUScene* scene, const std::set<MO_Node*>& nodes, const DeleteStrategy& strategy,
                                     bool bridge)
{
    auto* own = dynamic_cast<brindle::engine::Scene*>(scene);
    if (!own || nodes.empty())
        return false;
    std::vector<brindle::engine::Node*> leaving;
    leaving.reserve(nodes.size());
    for (MO_Node* host : nodes) {
        brindle::engine::Node* node = brindle::engine::engineNode(host);
        if (!node || node->graph() != &own->graph() || !node->parent())
            return false;
        leaving.push_back(node);
    }
    return own->commandManager()->execute(
        new brindle::engine::RemoveNodes(own->graph(), own->columnList(), leaving, strategy, bridge),
        QStringLiteral("Delete Nodes"));
}

bool SU_CleanUpCommands::removeColumns(TUScene* scene, const std::set<TUTimedValue*>& columns)
{
    auto* own = dynamic_cast<brindle::engine::Scene*>(scene);
    if (!own || columns.empty())
        return false;
    // In the order of the scene, from the end forwards, which is the quickest; not in that of the pointers.
    std::vector<std::pair<int, TUTimedValue*>> leaving;
    leaving.reserve(columns.size());
    for (TUTimedValue* column : columns) {
        leaving.emplace_back(own->columnList().placeOf(column), column);
        if (leaving.back().first < 0)
            return false;
    }
    std::sort(leaving.rbegin(), leaving.rend());
    auto steps = std::make_unique<CO_AndCommand>();
    for (const auto& [place, column] : leaving) {
        for (unsigned int link = 0; link < column->getNumLinks(); ++link)
            steps->add(new tu_tv_socket::UnlinkCmd(column->linkedAttr(link)->socket(), 0));
        steps->add(new brindle::engine::TakeColumn(own->columnList(), *column));
    }
    return own->commandManager()->execute(steps.release(), QStringLiteral("Delete Columns"));
}

bool SU_CleanUpCommands::removeNodes(TUScene* scene, const std::set<MO_Node*>& nodes, bool deleteTimedValues)
{
    DeleteStrategy strategy;
    strategy.deleteTimedValues = deleteTimedValues;
    return removeNodes(scene, nodes, strategy, false);
}
