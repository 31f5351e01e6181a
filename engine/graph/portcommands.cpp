#include "engine/graph/portcommands.h"

#include "core/host/tu_node.h"
#include "engine/graph/linkcommands.h"
#include "engine/graph/scenegraph.h"

namespace brindle::engine {

namespace {

/// The present or future place of a port.
struct PortPlace {
    Node* node = nullptr;
    PortSide side = PortSide::In;
    unsigned int index = 0;

    PortPlace facing() const { return {node->facingNode(side), Node::facingSide(side), index}; }
};

/// Puts a port on a node, and its facing port on the node across the group's border.
class AddPortCommand final : public CO_Command {
public:
    AddPortCommand(MO_Node* node, PortSide side, unsigned int index, std::unique_ptr<MO_Port> port)
        : m_place{engineNode(node), side, index}
    {
        // A port that is on a node has an owner already; one of another engine can't be linked here.
        if (auto* own = dynamic_cast<Port*>(port.get()); own && !own->owner()) {
            m_port.reset(own);
            static_cast<void>(port.release());
        }
    }

    Status execute() override
    {
        Node* node = m_place.node;
        if (!node || !node->graph() || !m_port || !node->takesPort(m_place.side, *m_port) ||
            m_place.index > node->portCount(m_place.side))
            return kFail;
        const PortPlace facing = m_place.facing();
        if (facing.node && !m_facing)
            m_facing = std::make_unique<Port>(PortSpec{m_port->kind(), false});
        node->insertPort(m_place.side, m_place.index, std::move(m_port));
        if (facing.node)
            facing.node->insertPort(facing.side, facing.index, std::move(m_facing));
        node->graph()->announceStructure();
        return kOk;
    }

    Status unexecute() override
    {
        const PortPlace facing = m_place.facing();
        m_port = m_place.node->takePort(m_place.side, m_place.index);
        if (facing.node)
            m_facing = facing.node->takePort(facing.side, facing.index);
        m_place.node->graph()->announceStructure();
        return kOk;
    }

private:
    PortPlace m_place;
    std::unique_ptr<Port> m_port; ///< The ports while they are on no node.
    std::unique_ptr<Port> m_facing;
};

/// Takes a port without links off a node, and its facing port with the links of that.
class DeletePortCommand final : public CO_Command {
public:
    DeletePortCommand(MO_Node* node, PortSide side, unsigned int index) : m_place{engineNode(node), side, index} {}

    Status execute() override
    {
        Node* node = m_place.node;
        const Port* port = node && node->graph() ? node->port(m_place.side, m_place.index) : nullptr;
        if (!port || port->isLinked() || !node->takesPorts(m_place.side))
            return kFail;
        const PortPlace facing = m_place.facing();
        if (facing.node) {
            m_cut.emplace(*facing.node->port(facing.side, facing.index));
            m_cut->execute();
            m_facing = facing.node->takePort(facing.side, facing.index);
        }
        m_port = node->takePort(m_place.side, m_place.index);
        node->graph()->announceStructure();
        return kOk;
    }

    Status unexecute() override
    {
        const PortPlace facing = m_place.facing();
        m_place.node->insertPort(m_place.side, m_place.index, std::move(m_port));
        if (facing.node) {
            facing.node->insertPort(facing.side, facing.index, std::move(m_facing));
            m_cut->unexecute();
        }
        m_place.node->graph()->announceStructure();
        return kOk;
    }

private:
    PortPlace m_place;
    std::unique_ptr<Port> m_port; ///< The ports while they are on no node.
    std::unique_ptr<Port> m_facing;
    std::optional<CutAllLinks> m_cut;
};

} // namespace

std::unique_ptr<CO_Command> newInPortCommand(Node& node, unsigned int index)
{
    const std::size_t count = node.portCount(PortSide::In);
    const PortSpec spec{count > 0 ? node.port(PortSide::In, count - 1)->kind() : PortKind::Image, false};
    return std::make_unique<AddPortCommand>(&node.host(), PortSide::In, index, std::make_unique<Port>(spec));
}

} // namespace brindle::engine

namespace tu_node {

AddInPortCmd::AddInPortCmd(MO_Node* node, unsigned int index, std::unique_ptr<MO_Port> port)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddPortCommand>(node, brindle::engine::PortSide::In, index,
                                                                         std::move(port)))
{}

AddOutPortCmd::AddOutPortCmd(MO_Node* node, unsigned int index, std::unique_ptr<MO_Port> port)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddPortCommand>(node, brindle::engine::PortSide::Out, index,
                                                                         std::move(port)))
{}

DeleteInPortCmd::DeleteInPortCmd(MO_Node* node, unsigned int index)
    : CO_EngineCommand(std::make_unique<brindle::engine::DeletePortCommand>(node, brindle::engine::PortSide::In, index))
{}

DeleteOutPortCmd::DeleteOutPortCmd(MO_Node* node, unsigned int index)
    : CO_EngineCommand(
          std::make_unique<brindle::engine::DeletePortCommand>(node, brindle::engine::PortSide::Out, index))
{}

} // namespace tu_node
