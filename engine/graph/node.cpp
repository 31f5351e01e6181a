#include "engine/graph/node.h"

#include "core/host/ut_performance.h"
#include "core/host/sc_scene.h"
#include "engine/attributes/attributeset.h"
#include "engine/attributes/attributetable.h"
#include "engine/enginepart.h"
#include "engine/graph/group.h"
#include "engine/graph/names.h"
#include "engine/graph/portcommands.h"
#include "engine/graph/scenegraph.h"
#include "engine/transformations/nodetransformation.h"

#include <algorithm>
#include <atomic>

namespace brindle::engine {

namespace {

std::uint64_t nextSerial()
{
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

} // namespace

Node::Node(const NodeType& type, MO_Node& host) : m_type(type), m_host(host), m_serial(nextSerial())
{
    for (int i = 0; i < type.inPortCount; ++i)
        insertPort(PortSide::In, m_inPorts.size(), std::make_unique<Port>(type.inPorts[static_cast<std::size_t>(i)]));
    for (int i = 0; i < type.outPortCount; ++i)
        insertPort(PortSide::Out, m_outPorts.size(),
                   std::make_unique<Port>(type.outPorts[static_cast<std::size_t>(i)]));
}

Node::~Node() = default;

Group* Node::asGroup() const
{
    return m_type.nodeClass == NodeClass::Group ? static_cast<Group*>(const_cast<Node*>(this)) : nullptr;
}

void Node::setScene(SC_SceneCommon* scene)
{
    if (!m_graph)
        m_scene = scene;
}

void Node::announceChange() const
{
    if (m_graph)
        m_graph->announceNode(m_host);
}

bool Node::setName(const QString& name)
{
    if (m_parent || m_graph || !isValidNodeName(name))
        return false;
    m_name = name;
    return true;
}

void Node::setEnabled(bool enabled)
{
    m_enabled = enabled;
    forgetTransformations(*this);
}

void Node::setMarks(const NodeMarks& marks)
{
    m_marks = marks;
    m_shownColour = marks.colour;
}

bool Node::isCacheable() const
{
    switch (m_type.nodeClass) {
    case NodeClass::Group:
    case NodeClass::MultiPortIn:
    case NodeClass::MultiPortOut:
        return false;
    default:
        return hasImageOutput();
    }
}

QString Node::path() const
{
    qsizetype length = m_name.size();
    for (const Group* group = m_parent; group; group = group->parent())
        length += group->name().size() + 1;

    QString path(length, Qt::Uninitialized);
    QChar* end = path.data() + length;
    for (const Node* node = this; node; node = node->m_parent) {
        end = std::copy_backward(node->m_name.cbegin(), node->m_name.cend(), end);
        if (node->m_parent)
            *--end = u'/';
    }
    return path;
}

bool Node::isNameAcceptable(const QString& name) const
{
    if (!isValidNodeName(name))
        return false;
    if (m_type.nodeClass == NodeClass::Display && !(m_graph && name == m_name)) {
        const SceneGraph* graph = m_graph ? m_graph : SceneGraph::of(m_scene);
        if (graph && graph->hasDisplay(name))
            return false;
    }
    const Node* sibling = m_parent ? m_parent->subNodes().find(name) : nullptr;
    return !sibling || sibling == this;
}

Port* Node::port(PortSide side, std::size_t place) const
{
    const auto& all = ports(side);
    return place < all.size() ? all[place].get() : nullptr;
}

Port* Node::portFromId(PortSide side, unsigned int id) const
{
    const auto& all = ports(side);
    // As long as no port was removed or put between others, an id is a place.
    if (id < all.size() && all[id]->id() == id)
        return all[id].get();
    const auto found = std::find_if(all.begin(), all.end(), [id](const auto& port) { return port->id() == id; });
    return found == all.end() ? nullptr : found->get();
}

int Node::portPlace(PortSide side, const MO_Port* port) const
{
    const auto* own = dynamic_cast<const Port*>(port);
    return own && own->owner() == this && own->side() == side ? static_cast<int>(own->place()) : -1;
}

bool Node::takesPorts(PortSide side) const
{
    return side == PortSide::In ? m_type.takesInPorts() : m_type.takesOutPorts();
}

bool Node::takesPort(PortSide side, const Port& port) const
{
    return takesPorts(side) && (!m_type.imagePortsOnly || port.kind() == PortKind::Image);
}

bool Node::hasImageOutput() const
{
    return std::any_of(m_outPorts.begin(), m_outPorts.end(),
                       [](const auto& port) { return port->kind() == PortKind::Image; });
}

void Node::insertPort(PortSide side, std::size_t place, std::unique_ptr<Port> port)
{
    auto& all = side == PortSide::In ? m_inPorts : m_outPorts;
    port->m_side = side;
    port->m_owner = this;
    unsigned int& nextId = side == PortSide::In ? m_nextInId : m_nextOutId;
    if (!std::exchange(port->m_hasId, true))
        port->m_id = nextId;
    nextId = std::max(nextId, port->m_id + 1);
    all.insert(all.begin() + static_cast<std::ptrdiff_t>(place), std::move(port));
    for (; place < all.size(); ++place)
        all[place]->m_place = place;
    forgetTransformations(*this);
}

std::unique_ptr<Port> Node::takePort(PortSide side, std::size_t place)
{
    auto& all = side == PortSide::In ? m_inPorts : m_outPorts;
    std::unique_ptr<Port> port = std::move(all[place]);
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(place));
    port->m_owner = nullptr;
    for (; place < all.size(); ++place)
        all[place]->m_place = place;
    forgetTransformations(*this);
    return port;
}

Node* Node::facingNode(PortSide side) const
{
    switch (m_type.nodeClass) {
    case NodeClass::Group: {
        const Group* group = asGroup();
        return side == PortSide::In ? group->multiPortIn() : group->multiPortOut();
    }
    case NodeClass::MultiPortIn:
        return side == PortSide::Out ? m_parent : nullptr;
    case NodeClass::MultiPortOut:
        return side == PortSide::In ? m_parent : nullptr;
    default:
        return nullptr;
    }
}

CO_Command* Node::addInPortCommand(unsigned int index)
{
    return newInPortCommand(*this, index).release();
}

const std::shared_ptr<TIR_PerformanceTimer>& Node::performanceTimer() const
{
    if (!m_timer)
        m_timer = std::make_shared<TIR_PerformanceTimer>();
    return m_timer;
}

void Node::resetPerformanceTimer() const
{
    if (m_timer)
        m_timer->reset();
}

AttributeSet& Node::attributes() const
{
    if (!m_attributes)
        m_attributes = std::make_unique<AttributeSet>(m_host, attributeTable(sharedText(m_type.name)));
    return *m_attributes;
}

Node* engineNode(MO_Node* node)
{
    return enginePart<Node>(node);
}

std::uint64_t nextWalkMark()
{
    static std::uint64_t last = 0;
    return ++last;
}

} // namespace brindle::engine

MO_AutoInPortsModule* MO_AutoInPortsModule::castTo(MO_Node* node)
{
    brindle::engine::Node* own = brindle::engine::engineNode(node);
    return own && own->type().makesInPorts ? own : nullptr;
}
