#include "core/host/tu_node.h"

#include "engine/graph/names.h"
#include "engine/graph/portcommands.h"
#include "engine/graph/scenegraph.h"

namespace brindle::engine {

namespace {

/// Changes one value of a node, which is kept in the command while the node has the other.
template <typename Value, Value (*valueOf)(const Node&), void (*setValue)(Node&, const Value&)>
class NodeValueCommand final : public CO_Command {
public:
    /// `merge` makes the new value from the node's present one.
    template <typename Merge>
    NodeValueCommand(MO_Node* node, Merge merge) : m_node(engineNode(node)),
                                                   m_merge(merge)
    {}

    Status execute() override
    {
        if (!m_node || !m_node->graph())
            return kFail;
        m_before = valueOf(*m_node);
        const Value after = m_merge(m_before);
        if (after == m_before)
            return kNoop;
        set(after);
        return kOk;
    }

    Status unexecute() override
    {
        if (!(valueOf(*m_node) == m_before))
            set(m_before);
        return kOk;
    }

private:
    void set(const Value& value)
    {
        setValue(*m_node, value);
        m_node->announceChange();
    }

    Node* m_node;
    std::function<Value(const Value&)> m_merge;
    Value m_before = {};
};

NodePosition positionOf(const Node& node)
{
    return node.position();
}

void setPositionOf(Node& node, const NodePosition& position)
{
    node.setPosition(position);
}

bool enabledOf(const Node& node)
{
    return node.isEnabled();
}

void setEnabledOf(Node& node, const bool& enabled)
{
    node.setEnabled(enabled);
}

QColor colourOf(const Node& node)
{
    return node.marks().colour;
}

void setColourOf(Node& node, const QColor& colour)
{
    NodeMarks marks = node.marks();
    marks.colour = colour;
    node.setMarks(marks);
}

bool isCached(const Node& node)
{
    return node.marks().cache.enabled;
}

void setCached(Node& node, const bool& cached)
{
    NodeMarks marks = node.marks();
    marks.cache.enabled = cached;
    node.setMarks(marks);
}

bool isLocked(const Node& node)
{
    return node.marks().locked;
}

void setLocked(Node& node, const bool& locked)
{
    NodeMarks marks = node.marks();
    marks.locked = locked;
    node.setMarks(marks);
}

bool showsThumbnails(const Node& node)
{
    return node.marks().thumbnails;
}

void setThumbnails(Node& node, const bool& shown)
{
    NodeMarks marks = node.marks();
    marks.thumbnails = shown;
    node.setMarks(marks);
}

using ColourCommand = NodeValueCommand<QColor, colourOf, setColourOf>;
using CachedCommand = NodeValueCommand<bool, isCached, setCached>;
using LockedCommand = NodeValueCommand<bool, isLocked, setLocked>;
using ThumbnailsCommand = NodeValueCommand<bool, showsThumbnails, setThumbnails>;

/// The modules of the engine have one version each.
class SetVersionCommand final : public CO_Command {
public:
    SetVersionCommand(MO_Module* module, int version) : m_module(module), m_version(version) {}

    Status execute() override
    {
        const Node* node = engineNode(m_module);
        if (!node || !node->graph() || m_version < 1 || m_version > m_module->versionMax())
            return kFail;
        return kNoop;
    }
    Status unexecute() override { return kNoop; }

private:
    MO_Module* m_module;
    int m_version;
};

using PositionCommand = NodeValueCommand<NodePosition, positionOf, setPositionOf>;
using EnabledCommand = NodeValueCommand<bool, enabledOf, setEnabledOf>;

class RenameNodeCommand final : public CO_Command {
public:
    RenameNodeCommand(MO_Node* node, const QString& name) : m_node(engineNode(node)), m_name(name) {}

    Status execute() override
    {
        if (!m_node || !m_node->graph() || !m_node->parent() || !isValidNodeName(m_name))
            return kFail;
        m_before = m_node->name();
        if (m_name == m_before)
            return kNoop;
        if (m_node->parent()->subNodes().find(m_name))
            return kFail;
        rename(m_name);
        return kOk;
    }

    Status unexecute() override
    {
        if (m_node->name() != m_before)
            rename(m_before);
        return kOk;
    }

private:
    void rename(const QString& name)
    {
        m_node->graph()->rename(*m_node, name);
        m_node->announceChange();
    }

    Node* m_node;
    QString m_name;
    QString m_before;
};

class AddSubNodeCommand final : public CO_Command {
public:
    AddSubNodeCommand(TUGroup* group, MO_Node* node) : m_group(engineGroup(group)), m_node(engineNode(node))
    {
        // A node that has a place already is not this command's to take.
        if (!m_node || !(m_node->parent() || m_node->graph()))
            m_host.reset(node);
    }

    Status execute() override
    {
        SceneGraph* graph = m_group ? m_group->graph() : nullptr;
        if (!graph || !m_node || !m_host || !isWelcome(*graph))
            return kFail;
        if (!std::exchange(m_isNamed, true)) {
            const QString& name = m_node->name();
            m_node->setName(graph->freeName(name.isEmpty() ? m_host->defaultInstanceName() : name, *m_group));
            addFacingPorts();
        }
        graph->append(*m_group, std::move(m_host), *m_node);
        graph->announceStructure();
        return kOk;
    }

    Status unexecute() override
    {
        SceneGraph* graph = m_node->graph();
        m_host = std::move(graph->take(*m_group, {m_node}).front());
        graph->announceStructure();
        return kOk;
    }

private:
    bool isWelcome(const SceneGraph& graph) const
    {
        if (m_node->scene() && m_node->scene() != &graph.scene())
            return false;
        switch (m_node->type().nodeClass) {
        case NodeClass::MultiPortIn:
            return !m_group->multiPortIn();
        case NodeClass::MultiPortOut:
            return !m_group->multiPortOut();
        default:
            return true;
        }
    }

    /// A multi-port node that comes to a group with ports shows each of them.
    void addFacingPorts()
    {
        const NodeClass kind = m_node->type().nodeClass;
        if (kind != NodeClass::MultiPortIn && kind != NodeClass::MultiPortOut)
            return;
        const PortSide outside = kind == NodeClass::MultiPortIn ? PortSide::In : PortSide::Out;
        for (std::size_t place = 0; place < m_group->portCount(outside); ++place) {
            const PortKind portKind = m_group->Node::port(outside, place)->kind();
            m_node->insertPort(Node::facingSide(outside), place, std::make_unique<Port>(PortSpec{portKind, false}));
        }
    }

    Group* m_group;
    Node* m_node;
    std::unique_ptr<MO_Node> m_host; ///< The node while it is not in the group.
    bool m_isNamed = false;
};

} // namespace

} // namespace brindle::engine

namespace tu_node {

SetXYCmd::SetXYCmd(MO_Node* node, int x, int y)
    : CO_EngineCommand(
          std::make_unique<brindle::engine::PositionCommand>(node, [x, y](const brindle::engine::NodePosition& before) {
              return brindle::engine::NodePosition{x, y, before.z};
          }))
{}

SetXYZCmd::SetXYZCmd(MO_Node* node, int x, int y, int z)
    : CO_EngineCommand(
          std::make_unique<brindle::engine::PositionCommand>(node, [x, y, z](const brindle::engine::NodePosition&) {
              return brindle::engine::NodePosition{x, y, z};
          }))
{}

SetInstanceNameCmd::SetInstanceNameCmd(MO_Node* node, const QString& name)
    : CO_EngineCommand(std::make_unique<brindle::engine::RenameNodeCommand>(node, name))
{}

EnabledNodeCmd::EnabledNodeCmd(MO_Node* node, bool enabled)
    : CO_EngineCommand(std::make_unique<brindle::engine::EnabledCommand>(node, [enabled](bool) { return enabled; }))
{}

SetNodeColorCmd::SetNodeColorCmd(MO_Node* node, const QColor& colour)
    : CO_EngineCommand(
          std::make_unique<brindle::engine::ColourCommand>(node, [colour](const QColor&) { return colour; }))
{}

CacheNodeCmd::CacheNodeCmd(MO_Node* node, bool cached)
    : CO_EngineCommand(std::make_unique<brindle::engine::CachedCommand>(node && node->isCacheable() ? node : nullptr,
                                                                        [cached](bool) { return cached; }))
{}

LockNodeCmd::LockNodeCmd(MO_Node* node, bool locked)
    : CO_EngineCommand(std::make_unique<brindle::engine::LockedCommand>(node && node->canLock() ? node : nullptr,
                                                                        [locked](bool) { return locked; }))
{}

ShowHideTimelineThumb::ShowHideTimelineThumb(MO_Node* node, bool shown)
    : CO_EngineCommand(std::make_unique<brindle::engine::ThumbnailsCommand>(node, [shown](bool) { return shown; }))
{}

AddSubNodeCmd::AddSubNodeCmd(TUGroup* group, MO_Node* node)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddSubNodeCommand>(group, node))
{}

} // namespace tu_node

tu_module::SetVersionCmd::SetVersionCmd(MO_Module* module, int version)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetVersionCommand>(module, version))
{}
