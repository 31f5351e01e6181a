#include "core/host/sl_selection.h"
#include "engine/graph/linkcommands.h"
#include "engine/graph/removal.h"
#include "engine/graph/scenegraph.h"
#include "engine/session/scene.h"

namespace brindle::engine {

namespace {

/// Moves nodes of one group, given in its order, behind those of another. They stay in the scene all the while.
class MoveNodes final : public CO_Command {
public:
    MoveNodes(SceneGraph& graph, Group& from, Group& to, std::vector<Node*> nodes)
        : m_graph(graph),
          m_from(from),
          m_to(to),
          m_nodes(std::move(nodes))
    {}

    Status execute() override
    {
        m_seats = m_graph.move(m_from, m_to, m_nodes, m_seats);
        return kOk;
    }

    Status unexecute() override
    {
        m_seats = m_graph.move(m_to, m_from, m_nodes, m_seats);
        return kOk;
    }

private:
    SceneGraph& m_graph;
    Group& m_from;
    Group& m_to;
    std::vector<Node*> m_nodes;
    std::vector<NodeSeat> m_seats; ///< In the group where they are not; empty before the first move.
};

/// Puts the content of a group in its place.
class ExplodeGroup final : public CO_Command {
public:
    ExplodeGroup(Scene& scene, Group& group) : m_scene(scene), m_group(group) {}

    const std::vector<Node*>& content() const { return m_content; }

    Status execute() override
    {
        if (!m_steps.empty()) {
            for (auto& step : m_steps)
                step->execute();
        } else if (!plan()) {
            unexecute();
            m_steps.clear();
            return kFail;
        }
        m_scene.graph().announceStructure();
        return kOk;
    }

    Status unexecute() override
    {
        for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step)
            (*step)->unexecute();
        m_scene.graph().announceStructure();
        return kOk;
    }

private:
    using Link = std::pair<Port*, Port*>;

    bool plan()
    {
        Group* parent = m_group.parent();
        if (!parent)
            return false;
        const std::vector<Link> links = linksThrough();
        for (Node* border : {static_cast<Node*>(&m_group), m_group.multiPortIn(), m_group.multiPortOut()}) {
            if (border && !cutAll(*border))
                return false;
        }
        for (std::size_t place = 0; place < m_group.subNodes().size(); ++place) {
            Node& node = m_group.subNodes().at(place);
            if (&node != m_group.multiPortIn() && &node != m_group.multiPortOut())
                m_content.push_back(&node);
        }
        SceneGraph& graph = m_scene.graph();
        if (!run(std::make_unique<MoveNodes>(graph, m_group, *parent, m_content)) ||
            !run(std::make_unique<RemoveNodes>(graph, m_scene.columnList(), std::vector<Node*>{&m_group},
                                               SU_CleanUpCommands::DeleteStrategy(), false)))
            return false;
        for (const auto& [out, in] : links) {
            if (!run(std::make_unique<LinkPorts>(*out, *in)))
                return false;
        }
        return true;
    }

    /// The links that lead into the group, out of it, and right through it, without the group's own ports.
    std::vector<Link> linksThrough() const
    {
        std::vector<Link> links;
        const Node& group = m_group;
        for (std::size_t place = 0; place < group.portCount(PortSide::In); ++place) {
            const Port& in = *group.port(PortSide::In, place);
            if (const Port* inside = in.source() ? in.facing() : nullptr)
                follow(*in.source(), *inside, links);
        }
        for (std::size_t place = 0; place < group.portCount(PortSide::Out); ++place) {
            const Port* inside = group.port(PortSide::Out, place)->facing();
            Port* source = inside ? inside->source() : nullptr;
            if (source && source->owner() != m_group.multiPortIn())
                follow(*source, *group.port(PortSide::Out, place), links);
        }
        return links;
    }

    /// The links from a port to what is fed through another one.
    void follow(Port& source, const Port& through, std::vector<Link>& links) const
    {
        for (std::size_t index = 0; index < through.destinationCount(); ++index) {
            Port* in = through.destination(index);
            if (in->owner() != m_group.multiPortOut())
                links.emplace_back(&source, in);
            else if (const Port* outside = in->facing())
                follow(source, *outside, links);
        }
    }

    bool cutAll(const Node& node)
    {
        for (const PortSide side : {PortSide::In, PortSide::Out}) {
            for (std::size_t place = 0; place < node.portCount(side); ++place) {
                Port* port = node.port(side, place);
                if (port->isLinked() && !run(std::make_unique<CutAllLinks>(*port)))
                    return false;
            }
        }
        return true;
    }

    bool run(std::unique_ptr<CO_Command> step)
    {
        if (step->execute() == kFail)
            return false;
        m_steps.push_back(std::move(step));
        return true;
    }

    Scene& m_scene;
    Group& m_group;
    std::vector<Node*> m_content;
    std::vector<std::unique_ptr<CO_Command>> m_steps;
};

/// The nodes of a group that was taken apart; none for what can't be.
std::vector<MO_Node*> explode(MO_Node* host)
{
    std::vector<MO_Node*> content;
    Group* group = host ? engineGroup(host->group()) : nullptr;
    Scene* scene = group && group->graph() ? engineScene(group->scene()) : nullptr;
    if (!scene)
        return content;
    auto* command = new ExplodeGroup(*scene, *group);
    if (!scene->commandManager()->execute(command, QStringLiteral("Explode Group")))
        return content;
    for (const Node* node : command->content())
        content.push_back(&node->host());
    return content;
}

} // namespace

} // namespace brindle::engine

bool modulenetwork_utils::selExplodeGroups(SC_SessionContext*, SL_Selection* selection)
{
    std::vector<MO_Node*> selected;
    bool exploded = false;
    for (MO_Node* host : SL_SelectionUtil::getNodes(*selection)) {
        const bool isGroup = host->group() && host->parentGroup();
        const std::vector<MO_Node*> content = isGroup ? brindle::engine::explode(host) : std::vector<MO_Node*>{host};
        selected.insert(selected.end(), content.begin(), content.end());
        exploded = exploded || isGroup;
    }
    const SL_Selection::BatchSelectionModeScope batch(selection);
    SL_SelectionUtil::clear(*selection);
    for (MO_Node* node : selected)
        SL_SelectionUtil::addToSelection(*selection, node);
    return exploded;
}
