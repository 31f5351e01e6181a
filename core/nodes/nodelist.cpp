#include "core/nodes/nodelist.h"

#include "core/nodes/node.h"
#include "core/nodes/nodecollector.h"
#include "core/nodes/nodelist_p.h"

namespace OMC {

NodeList::NodeList() : d(std::make_unique<Private>()) {}

NodeList::NodeList(TUScene* scene, bool topOnly) : NodeList()
{
    d->mode = topOnly ? Private::GroupNodes : Private::SceneNodes;
    d->scene.assign(scene);
    if (topOnly && scene)
        d->group.assign(scene->getRootGroup());
}

NodeList::NodeList(TUGroup* group) : NodeList()
{
    d->mode = Private::GroupNodes;
    d->group.assign(group);
}

NodeList::NodeList(const NodeList& other) : ListObj(other), IterableObj(other), d(std::make_unique<Private>(*other.d))
{}

NodeList::~NodeList() = default;

BaseObject* NodeList::copy() const
{
    return new NodeList(*this);
}

std::string NodeList::__str__() const
{
    validate();
    QString kind;
    switch (d->mode) {
    case Private::SceneNodes:
        kind = QStringLiteral("Scene");
        break;
    case Private::GroupNodes:
        kind = QStringLiteral("Group, ") + d->liveGroup()->qualifiedName();
        break;
    case Private::Handles:
        kind = QStringLiteral("Node");
        break;
    case Private::Unknown:
        kind = QStringLiteral("Unknown");
        break;
    }
    return QStringLiteral("NodeList(%1)[%2]").arg(kind, QString::number(size())).toStdString();
}

std::size_t NodeList::size() const
{
    validate();
    switch (d->mode) {
    case Private::SceneNodes:
        return engineNodes().size();
    case Private::GroupNodes:
        return d->liveGroup()->nSubNodes();
    case Private::Handles:
        return static_cast<std::size_t>(d->nodes.size());
    case Private::Unknown:
        break;
    }
    return 0;
}

Obj NodeList::get(const QString& name) const
{
    validate();
    return Obj(Node::getWrapped(findNode(name)));
}

Obj NodeList::get(int index) const
{
    validate();
    return Obj(Node::getWrapped(nodeAt(index)));
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

Obj NodeList::operator()(const QString& name) const
{
    return get(name);
}

std::vector<Obj> NodeList::find(const QVariant& filter) const
{
    validate();
    NodeCollector collector(filter);
    switch (d->mode) {
    case Private::SceneNodes:
        if (TUGroup* root = d->liveScene()->getRootGroup())
            root->accept(collector);
        break;
    case Private::GroupNodes:
        d->liveGroup()->accept(collector);
        break;
    case Private::Handles:
        for (qsizetype index = 0; index < d->nodes.size(); ++index) {
            if (MO_Node* node = d->handle(index))
                node->accept(collector);
        }
        break;
    case Private::Unknown:
        break;
    }
    std::vector<Obj> wrappers;
    wrappers.reserve(collector.modules().size());
    for (MO_Node* node : collector.modules())
        wrappers.emplace_back(Node::getWrapped(node));
    return wrappers;
}

void NodeList::addNode(MO_Node* node)
{
    d->mode = Private::Handles;
    d->append(node);
}

Obj NodeList::__iterItem__() const
{
    validate();
    std::vector<MO_Node*> walked;
    std::size_t count = 0;
    switch (d->mode) {
    case Private::SceneNodes:
        walked = engineNodes();
        count = walked.size();
        break;
    case Private::GroupNodes:
        count = d->liveGroup()->nSubNodes();
        break;
    case Private::Handles:
        count = static_cast<std::size_t>(d->nodes.size());
        break;
    case Private::Unknown:
        break;
    }
    if (d->cursor >= count)
        throw Exception(tr("Iteration item is out of range."));
    if (d->cursor + 1 == count)
        d->atEnd = true;
    if (d->mode == Private::SceneNodes)
        return Obj(Node::getWrapped(walked[d->cursor]));
    return Obj(Node::getWrapped(nodeAt(static_cast<int>(d->cursor))));
}

void NodeList::operator++()
{
    ++d->cursor;
}

void NodeList::operator--()
{
    if (d->cursor == 0)
        return;
    --d->cursor;
    d->atEnd = false;
}

bool NodeList::__atend__() const
{
    return d->atEnd;
}

Obj NodeList::__iter__() const
{
    validate();
    auto copy = std::make_unique<NodeList>(*this);
    Private& iteration = *copy->d;
    iteration.cursor = 0;
    if (iteration.mode == Private::SceneNodes) {
        const std::vector<MO_Node*> nodes = engineNodes();
        iteration.mode = Private::Handles;
        iteration.nodes.clear();
        iteration.nodes.reserve(static_cast<qsizetype>(nodes.size()));
        for (MO_Node* node : nodes)
            iteration.append(node);
    }
    iteration.atEnd =
        iteration.mode == Private::GroupNodes ? iteration.liveGroup()->nSubNodes() == 0 : iteration.nodes.isEmpty();
    return Obj(copy.release());
}

void NodeList::validate() const
{
    validateThreadLock();
    const bool valid = (d->mode == Private::SceneNodes && d->liveScene()) ||
                       (d->mode == Private::GroupNodes && d->liveGroup()) || d->mode == Private::Handles;
    if (!valid)
        throwInvalid();
}

/// The members in order; null for a handle whose node is gone.
std::vector<MO_Node*> NodeList::engineNodes() const
{
    std::vector<MO_Node*> nodes;
    switch (d->mode) {
    case Private::SceneNodes:
        if (const TUGroup* root = d->liveScene()->getRootGroup())
            root->getRecursiveSubNodeList(nodes);
        break;
    case Private::GroupNodes:
        nodes.assign(d->liveGroup()->subNodesBegin(), d->liveGroup()->subNodesEnd());
        break;
    case Private::Handles:
        nodes.reserve(static_cast<std::size_t>(d->nodes.size()));
        for (qsizetype index = 0; index < d->nodes.size(); ++index)
            nodes.push_back(d->handle(index));
        break;
    case Private::Unknown:
        break;
    }
    return nodes;
}

MO_Node* NodeList::findNode(const QString& name) const
{
    if (d->mode == Private::SceneNodes)
        return node_util::getNodeFromQualifiedName_optimized(d->liveScene()->sceneCommon(), name);
    if (d->mode == Private::GroupNodes) {
        TUGroup* group = d->liveGroup();
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
    for (qsizetype index = 0; index < d->nodes.size(); ++index) {
        MO_Node* node = d->handle(index);
        if (node && (node->instanceName() == name || node->qualifiedName() == name))
            return node;
    }
    return nullptr;
}

MO_Node* NodeList::nodeAt(int index) const
{
    const auto inRange = [index](std::size_t count) {
        if (index < 0 || static_cast<std::size_t>(index) >= count)
            throwIndexOutOfRange();
        return static_cast<std::size_t>(index);
    };
    switch (d->mode) {
    case Private::SceneNodes: {
        const std::vector<MO_Node*> nodes = engineNodes();
        return nodes[inRange(nodes.size())];
    }
    case Private::GroupNodes:
        return d->liveGroup()->subNode(static_cast<unsigned int>(inRange(d->liveGroup()->nSubNodes())));
    case Private::Handles:
        return d->handle(static_cast<qsizetype>(inRange(static_cast<std::size_t>(d->nodes.size()))));
    case Private::Unknown:
        break;
    }
    return nullptr;
}

} // namespace OMC
