#include "core/nodes/nodelist.h"

#include "core/bridges/pythonfunction.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/nodes/node.h"
#include "core/nodes/nodecollector.h"

#include <algorithm>

namespace OMC {

// A list that no loop goes through is at its end.
NodeList::NodeList()
{
    setAtEnd(true);
}

NodeList::NodeList(TUScene* scene, bool topOnly) : NodeList()
{
    m_mode = topOnly ? GroupNodes : SceneNodes;
    m_scene.assign(scene);
    if (topOnly && scene)
        m_group.assign(scene->getRootGroup());
}

NodeList::NodeList(TUGroup* group) : NodeList()
{
    m_mode = GroupNodes;
    m_group.assign(group);
}

std::string NodeList::__str__() const
{
    validate();
    QString kind;
    switch (m_mode) {
    case SceneNodes:
        kind = QStringLiteral("Scene");
        break;
    case GroupNodes:
        kind = QStringLiteral("Group, ") + m_group.get()->qualifiedName();
        break;
    case Handles:
        kind = QStringLiteral("Node");
        break;
    case Unknown:
        kind = QStringLiteral("Unknown");
        break;
    }
    return QStringLiteral("NodeList(%1)[%2]").arg(kind, QString::number(size())).toStdString();
}

std::size_t NodeList::size() const
{
    validate();
    switch (m_mode) {
    case SceneNodes: {
        const TUGroup* root = m_scene.get()->getRootGroup();
        return root ? root->nRecursiveSubNodes() : 0;
    }
    case GroupNodes:
        return m_group.get()->nSubNodes();
    case Handles:
        return static_cast<std::size_t>(m_nodes.size());
    case Unknown:
        break;
    }
    return 0;
}

Obj NodeList::get(const QString& name) const
{
    return Obj(newItem(name));
}

Obj NodeList::get(int index) const
{
    return Obj(newItem(index));
}

Node* NodeList::newItem(const QString& name) const
{
    validate();
    return Node::getWrapped(findNode(name));
}

Node* NodeList::newItem(int index) const
{
    validate();
    return Node::getWrapped(nodeAt(index));
}

void NodeList::set(int, const Obj&)
{
    throw Exception(tr("The node list cannot be set."));
}

std::vector<Obj> NodeList::list() const
{
    validate();
    const std::vector<MO_Node*> nodes = engineNodes();
    std::vector<Obj> wrappers;
    wrappers.reserve(nodes.size());
    for (MO_Node* node : nodes)
        wrappers.emplace_back(Node::getWrapped(node));
    return wrappers;
}

bool NodeList::contains(const QString& name) const
{
    return get(name).get() != nullptr;
}

bool NodeList::holds(const BaseObject& item) const
{
    validate();
    const auto* wrapper = dynamic_cast<const Node*>(&item);
    const MO_Node* node = wrapper ? wrapper->getNode() : nullptr;
    if (!node)
        return false;
    switch (m_mode) {
    case SceneNodes:
        return node->parentGroup() && node->sceneCommon() == m_scene.get()->sceneCommon();
    case GroupNodes:
        return node->parentGroup() == m_group.get();
    case Handles:
        return std::any_of(m_nodes.begin(), m_nodes.end(),
                           [node](const WeakHandle<MO_Node>& handle) { return handle.get() == node; });
    case Unknown:
        break;
    }
    return false;
}

Obj NodeList::operator()(const QString& name) const
{
    return get(name);
}

namespace {

bool isGone(const Obj& node)
{
    const auto* wrapper = dynamic_cast<const Node*>(node.get());
    return !wrapper || !wrapper->getValid();
}

/// Asks a function of a script about each node. It may change and remove nodes; those that are gone are left out.
void keepAccepted(std::vector<Obj>& nodes, const PythonFunction& predicate)
{
    std::erase_if(nodes, [&predicate](const Obj& node) {
        if (isGone(node))
            return true;
        std::vector<QVariant> arguments = {toVariant(Obj(node))};
        return !predicate.test(arguments);
    });
    std::erase_if(nodes, &isGone);
}

} // namespace

std::vector<Obj> NodeList::find(const QVariant& filter) const
{
    validate();
    const auto* predicate = objectFrom<PythonFunction>(filter);
    NodeCollector collector(predicate ? QVariant(QVariantMap()) : filter);
    switch (m_mode) {
    case SceneNodes:
        if (TUGroup* root = m_scene.get()->getRootGroup())
            root->accept(collector);
        break;
    case GroupNodes:
        m_group.get()->accept(collector);
        break;
    case Handles:
        for (qsizetype index = 0; index < m_nodes.size(); ++index) {
            if (MO_Node* node = m_nodes.at(index).get())
                node->accept(collector);
        }
        break;
    case Unknown:
        break;
    }
    std::vector<Obj> wrappers;
    wrappers.reserve(collector.modules().size());
    for (MO_Node* node : collector.modules())
        wrappers.emplace_back(Node::getWrapped(node));
    if (predicate)
        keepAccepted(wrappers, *predicate);
    return wrappers;
}

void NodeList::addNode(MO_Node* node)
{
    m_mode = Handles;
    append(node);
}

void NodeList::append(MO_Node* node)
{
    m_nodes.append(WeakHandle<MO_Node>(node));
}

void NodeList::beforeIteration() const
{
    validate();
}

void NodeList::startIteration()
{
    if (m_mode == SceneNodes) {
        const std::vector<MO_Node*> nodes = engineNodes();
        m_mode = Handles;
        m_nodes.clear();
        m_nodes.reserve(static_cast<qsizetype>(nodes.size()));
        for (MO_Node* node : nodes)
            append(node);
    }
    FlaggedList::startIteration();
}

void NodeList::validate() const
{
    validateThreadLock();
    const bool valid =
        (m_mode == SceneNodes && m_scene.get()) || (m_mode == GroupNodes && m_group.get()) || m_mode == Handles;
    if (!valid)
        throwInvalid();
}

/// The members in order; null for a handle whose node is gone.
std::vector<MO_Node*> NodeList::engineNodes() const
{
    std::vector<MO_Node*> nodes;
    switch (m_mode) {
    case SceneNodes:
        if (const TUGroup* root = m_scene.get()->getRootGroup())
            root->getRecursiveSubNodeList(nodes);
        break;
    case GroupNodes:
        nodes.assign(m_group.get()->subNodesBegin(), m_group.get()->subNodesEnd());
        break;
    case Handles:
        nodes.reserve(static_cast<std::size_t>(m_nodes.size()));
        for (qsizetype index = 0; index < m_nodes.size(); ++index)
            nodes.push_back(m_nodes.at(index).get());
        break;
    case Unknown:
        break;
    }
    return nodes;
}

MO_Node* NodeList::findNode(const QString& name) const
{
    if (m_mode == SceneNodes)
        return node_util::getNodeFromQualifiedName_optimized(m_scene.get()->sceneCommon(), name);
    if (m_mode == GroupNodes) {
        TUGroup* group = m_group.get();
        MO_Node* subNode = group->subNode(name);
        const QString path = group->qualifiedName();
        if (name == path)
            return group;
        if (subNode)
            return subNode;
        // The group's path is cut off wherever the name begins with it, also within a word: required as it is.
        const QString text = name.startsWith(path) ? name.mid(path.size()) : name;
        if (MO_Node* node = node_util::getNodeFromQualifiedName(group, text, true))
            return node;
        return node_util::getNodeFromQualifiedName(group, text, false);
    }
    for (qsizetype index = 0; index < m_nodes.size(); ++index) {
        MO_Node* node = m_nodes.at(index).get();
        if (node && (node->instanceName() == name || node->qualifiedName() == name))
            return node;
    }
    return nullptr;
}

MO_Node* NodeList::nodeAt(int index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    switch (m_mode) {
    case SceneNodes:
        return m_scene.get()->getRootGroup()->recursiveSubNode(static_cast<std::size_t>(index));
    case GroupNodes:
        return m_group.get()->subNode(static_cast<unsigned int>(index));
    case Handles:
        return m_nodes.at(index).get();
    case Unknown:
        break;
    }
    return nullptr;
}

} // namespace OMC
