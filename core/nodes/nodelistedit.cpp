#include "core/nodes/nodelist.h"

#include "core/frame/undo.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_node.h"
#include "core/nodes/indexargument.h"
#include "core/nodes/node.h"
#include "core/nodes/node_coordinates.h"
#include "core/nodes/nodemove.h"

#include <QStringList>

#include <optional>

namespace OMC {

namespace {

/// The index that a value tells, if it is a number.
std::optional<int> indexIn(const QVariant& value)
{
    bool isNumber = false;
    const int index = value.toInt(&isNumber);
    if (!isNumber)
        return std::nullopt;
    if (!fitsIndex(value))
        ListObj::throwIndexOutOfRange();
    return index;
}

} // namespace

Obj NodeList::create(const QString& type, const QVariant& group, const QString& name)
{
    validate();
    std::set<MO_Node*> nodes;
    nodesFromQVariant(group, nodes);
    // Required: among several nodes the last one of the set decides; scripts give one.
    if (TUGroup* parent = nodes.empty() ? nullptr : (*nodes.rbegin())->group()) {
        SC_SceneCommon* scene = parent->sceneCommon();
        if (!scene)
            throw Exception(tr("Invalid group specified."));
        return Obj(Node::getWrapped(addNodeHelper(scene, parent, name, type, 0, 0, 0)));
    }
    if (m_mode == SceneNodes && nodes.empty())
        throw Exception(tr("Unable to find specified group."));
    throw Exception(tr("Unable to find the specified group."));
}

Obj NodeList::create(const QString& type, const QString& name)
{
    validate();
    if (name.contains(QLatin1Char('/'))) {
        QStringList parts = name.split(QLatin1Char('/'));
        const QString last = parts.takeLast();
        return create(type, QVariant(parts.join(QLatin1Char('/'))), last);
    }
    TUGroup* group = nullptr;
    if (m_mode == SceneNodes)
        group = m_scene.get()->getRootGroup();
    else if (m_mode == GroupNodes)
        group = m_group.get();
    if (!group)
        throw Exception(tr("Unable to add nodes to this list."));
    SC_SceneCommon* scene = group->sceneCommon();
    if (!scene)
        throw Exception(tr("Invalid group specified."));
    return Obj(Node::getWrapped(addNodeHelper(scene, group, name, type, 0, 0, 0)));
}

QVariant NodeList::move(const QVariant& nodes, int, int)
{
    validate();
    std::vector<MO_Node*> moving;
    nodesFromQVariant(nodes, moving);
    TUGroup* group = m_mode == GroupNodes ? m_group.get() : nullptr;
    if (!group)
        throw Exception(tr("Unable to move nodes into this list."));
    if (!group->sceneCommon())
        throwInvalid();
    if (moving.empty())
        throw Exception(tr("No valid nodes specified."));
    if (moving.size() == 1) {
        MO_Node& node = *moving.front();
        std::unique_ptr<Node> wrapper(Node::getWrapped(&node));
        wrapper->moveNode(group, node.x(), node.y());
        return toVariant(wrapper.release());
    }
    QVariantList moved;
    for (MO_Node* node : moveNodesToGroup(group, moving))
        moved.append(toVariant(Node::getWrapped(node)));
    return moved;
}

void NodeList::remove(const QVariant& nodes, bool deleteTimedValues, bool bridge)
{
    validate();
    std::set<MO_Node*> removed;
    nodesFromQVariant(nodes, removed);
    if (!removeNodesHelper(removed, deleteTimedValues, bridge))
        throw Exception(tr("Failed to remove nodes."));
}

template <typename Add>
void NodeList::forNodesIn(const QVariant& value, const Add& add) const
{
    const auto addIn = [&](const Obj& object) {
        const Node* wrapper = objectIn<Node>(object);
        if (MO_Node* node = wrapper ? wrapper->getNode() : nullptr)
            add(node);
    };
    // The values still to be read, the next one last, so that lists inside lists need no stack.
    std::vector<const QVariant*> pending = {&value};
    while (!pending.empty()) {
        const QVariant& next = *pending.back();
        pending.pop_back();
        if (const QObject* object = QVariantToPointer(next)) {
            if (const auto* wrapper = dynamic_cast<const Node*>(object)) {
                if (MO_Node* node = wrapper->getNode())
                    add(node);
            } else if (const auto* nodeList = dynamic_cast<const NodeList*>(object)) {
                for (const Obj& item : nodeList->list())
                    addIn(item);
            }
        } else if (next.typeId() == QMetaType::QVariantList) {
            const auto& items = *static_cast<const QList<QVariant>*>(next.constData());
            for (auto item = items.rbegin(); item != items.rend(); ++item)
                pending.push_back(&*item);
        } else if (next.typeId() == QMetaType::QString) {
            addIn(get(next.toString()));
        } else if (next.typeId() == QMetaType::QStringList) {
            for (const QString& name : next.toStringList())
                addIn(get(name));
        } else if (const std::optional<int> index = indexIn(next)) {
            addIn(get(*index));
        }
    }
}

void NodeList::nodesFromQVariant(const QVariant& value, std::set<MO_Node*>& nodes) const
{
    forNodesIn(value, [&](MO_Node* node) { nodes.insert(node); });
}

void NodeList::nodesFromQVariant(const QVariant& value, std::vector<MO_Node*>& nodes) const
{
    forNodesIn(value, [&](MO_Node* node) { nodes.push_back(node); });
}

MO_Node* NodeList::addNodeHelper(SC_SceneCommon* scene, TUGroup* group, const QString& name, const QString& type, int x,
                                 int y, int z)
{
    CO_CommandManager& manager = undo::manager(scene, unexpected::ErrorHasOccurred);
    const int engineY = y + Node_Coordinates::networkOffset;
    std::unique_ptr<MO_Node> node;
    if (type == QLatin1String("GROUP")) {
        node.reset(TUGroup::create());
        node->setX(x);
        node->setY(engineY);
        node->setZ(z);
    } else {
        bool flag = true;
        node.reset(TUGroup::createNode(type, x, engineY, z, flag, nullptr));
    }
    if (!node)
        return nullptr;
    node->setScene(scene);
    QString validName = TUModuleNameValidator::getValidName(name.isEmpty() ? node->defaultInstanceName() : name);
    if (type == QLatin1String("DISPLAY") && !node->isNameAcceptable(validName))
        validName = scene->generateNodeName(validName, group);
    if (!node->setInstanceName(validName))
        return nullptr;
    MO_Node* const added = node.release();
    // The label has the name as it was given, also when the engine chose one: required as it is.
    return manager.execute(new tu_node::AddSubNodeCmd(group, added), tr("Add ") + name) ? added : nullptr;
}

std::vector<MO_Node*> NodeList::moveNodesToGroup(TUGroup* group, const std::vector<MO_Node*>& nodes)
{
    const node_move::Terms terms{
        .makesMultiPort = false,
        .selectsAsBatch = true,
        .oneNodeOnly = false,
        .failsSilently = false,
        .noMultiPort = tr("Group must contain a multi-port-in."),
        .missingPart = unexpected::ErrorHasOccurred,
        .entersItself = tr("Invalid move - source contains the target group or multiport."),
        .failed = tr("Failed to move the nodes to the group."),
        .severalNodes = {},
    };
    return nodes.empty() ? std::vector<MO_Node*>() : node_move::moveNodes(nodes, group->sceneCommon(), *group, terms);
}

bool NodeList::removeNodesHelper(const std::set<MO_Node*>& nodes, bool deleteTimedValues, bool bridge)
{
    if (nodes.empty())
        throw Exception(tr("No valid nodes specified."));
    TUScene* scene = m_scene.get();
    if (!scene) {
        const MO_Node* member = m_group.get() ? m_group.get() : *nodes.begin();
        const SC_SceneCommon* common = member ? member->sceneCommon() : nullptr;
        scene = common ? dynamic_cast<TUScene*>(common->timedValues()) : nullptr;
    }
    if (!scene)
        throw Exception(tr("Invalid node specified."));
    SU_CleanUpCommands::DeleteStrategy strategy;
    strategy.deleteTimedValues = deleteTimedValues;
    return SU_CleanUpCommands::removeNodes(scene, nodes, strategy, bridge);
}

} // namespace OMC
