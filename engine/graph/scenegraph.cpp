#include "engine/graph/scenegraph.h"

#include "core/host/sc_scene.h"

#include <algorithm>
#include <string_view>

namespace brindle::engine {

SceneGraph::SceneGraph(SC_SceneCommon& scene) : m_scene(scene)
{
    m_root.setScene(&scene);
    m_root.Node::setName(QStringLiteral("Top"));
    enter(m_root);
    m_nodeCount = 0; // The root isn't counted.
}

SceneGraph* SceneGraph::of(const SC_SceneCommon* scene)
{
    Group* root = scene ? engineGroup(scene->rootGroup()) : nullptr;
    return root ? root->graph() : nullptr;
}

MO_Node* SceneGraph::nodeAt(std::size_t place)
{
    if (place >= m_nodeCount)
        return nullptr;
    if (place >= m_walked.size()) {
        // Twice as far as the last walk, so that a loop over all places costs two walks; and not to the end, so that
        // one that removes the first node again and again costs no more.
        const std::size_t wanted = std::max(place + 1, 2 * m_walked.size());
        m_walked.clear();
        forEachFromWhile(m_root, [this, wanted](Node& node) {
            if (&node != &m_root)
                m_walked.push_back(&node.host());
            return m_walked.size() < wanted;
        });
    }
    return m_walked[place];
}

void SceneGraph::append(Group& group, std::unique_ptr<MO_Node> host, Node& node)
{
    m_walked.clear();
    group.subNodes().append(std::move(host), node);
    enter(node);
}

std::vector<std::unique_ptr<MO_Node>> SceneGraph::take(Group& group, const std::vector<Node*>& nodes)
{
    m_walked.clear();
    for (Node* node : nodes)
        leave(*node);
    return group.subNodes().take(nodes);
}

void SceneGraph::putBack(Group& group, std::vector<std::unique_ptr<MO_Node>> hosts, const std::vector<Node*>& nodes)
{
    m_walked.clear();
    group.subNodes().putBack(std::move(hosts), nodes);
    for (Node* node : nodes)
        enter(*node);
}

void SceneGraph::rename(Node& node, const QString& name)
{
    countDisplay(node, -1);
    node.parent()->subNodes().rename(node, name);
    countDisplay(node, +1);
}

std::vector<NodeSeat> SceneGraph::move(Group& from, Group& to, const std::vector<Node*>& nodes,
                                       const std::vector<NodeSeat>& seats)
{
    m_walked.clear();
    std::vector<NodeSeat> before;
    before.reserve(nodes.size());
    for (const Node* node : nodes) {
        countDisplay(*node, -1);
        before.push_back({node->name(), node->m_order});
    }
    std::vector<std::unique_ptr<MO_Node>> hosts = from.subNodes().take(nodes);
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        Node& node = *nodes[index];
        if (seats.empty()) {
            node.m_name = freeName(node.m_name, to);
            to.subNodes().append(std::move(hosts[index]), node);
        } else {
            node.m_name = seats[index].name;
            node.m_order = seats[index].order;
        }
    }
    if (!seats.empty())
        to.subNodes().putBack(std::move(hosts), nodes);
    for (const Node* node : nodes)
        countDisplay(*node, +1);
    return before;
}

QString SceneGraph::generateName(const QString& base, const Group& group) const
{
    return group.subNodes().freeName(base, [this](const QString& name) { return hasDisplay(name); });
}

QString SceneGraph::freeName(const QString& name, const Group& group) const
{
    return group.subNodes().freeName(name, [](const QString&) { return false; });
}

void SceneGraph::announceStructure() const
{
    if (TUSceneChangeManager* changes = m_scene.changeManager())
        changes->notify();
}

void SceneGraph::announceNode(MO_Node& node) const
{
    if (TUSceneChangeManager* changes = m_scene.changeManager())
        changes->emitNodeChanged(&node);
}

void SceneGraph::enter(Node& top)
{
    forEachFrom(top, [this](Node& node) {
        node.m_graph = this;
        node.m_scene = &m_scene;
        ++m_nodeCount;
        countDisplay(node, +1);
    });
}

void SceneGraph::leave(Node& top)
{
    forEachFrom(top, [this](Node& node) {
        countDisplay(node, -1);
        node.m_graph = nullptr;
        --m_nodeCount;
        node.host().expireWeakPointers();
        if (const Group* group = node.asGroup()) {
            for (const std::shared_ptr<MO_Backdrop>& backdrop : group->backdrops())
                backdrop->expireWeakPointers();
        }
    });
}

void SceneGraph::countDisplay(const Node& node, int change)
{
    if (node.type().nodeClass != NodeClass::Display)
        return;
    int& count = m_displays[node.name()];
    count += change;
    if (count == 0)
        m_displays.remove(node.name());
}

} // namespace brindle::engine

namespace {

/// Takes the first name off a path, with the slash behind it. The path is null behind the last name.
std::u16string_view takeName(QStringView& path)
{
    const char16_t* const begin = path.utf16();
    const char16_t* const end = begin + path.size();
    const char16_t* const slash = std::find(begin, end, u'/');
    path = slash == end ? QStringView() : QStringView(slash + 1, end);
    return {begin, slash};
}

const brindle::engine::Node* walkPath(const brindle::engine::Node* from, QStringView path)
{
    do {
        const brindle::engine::Group* group = from->asGroup();
        from = group ? group->subNodes().find(takeName(path)) : nullptr;
    } while (from && !path.isNull());
    return from;
}

MO_Node* hostOf(const brindle::engine::Node* node)
{
    return node ? &node->host() : nullptr;
}

MO_Node* fromRoot(const brindle::engine::Node& root, QStringView path)
{
    const QStringView rootName = root.name();
    if (takeName(path) != std::u16string_view(rootName.utf16(), static_cast<std::size_t>(rootName.size())))
        return nullptr;
    return hostOf(path.isNull() ? &root : walkPath(&root, path));
}

} // namespace

MO_Node* node_util::getNodeFromQualifiedName_optimized(const SC_SceneCommon* scene, const QString& path)
{
    brindle::engine::SceneGraph* graph = brindle::engine::SceneGraph::of(scene);
    return graph ? fromRoot(graph->root(), path) : nullptr;
}

MO_Node* node_util::getNodeFromQualifiedName(const TUGroup* base, const QString& path, bool absolute)
{
    const brindle::engine::Group* group = brindle::engine::engineGroup(base);
    if (!group)
        return nullptr;
    if (absolute)
        return group->graph() ? fromRoot(group->graph()->root(), path) : nullptr;
    // A slash ahead of the first name is what a path keeps when the group's own path is cut off it.
    const QStringView relative = path;
    return hostOf(walkPath(group, relative.startsWith(u'/') ? relative.mid(1) : relative));
}
