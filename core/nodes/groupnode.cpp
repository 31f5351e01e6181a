#include "core/nodes/groupnode.h"

#include "core/frame/undo.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_node.h"
#include "core/nodes/backdroplist.h"
#include "core/nodes/nodelist.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace OMC {

namespace {

/// The average x of the sub-nodes, in single precision and cut to an integer; 0 in an empty group.
int averageX(const TUGroup& group)
{
    const unsigned int count = group.nSubNodes();
    if (count == 0)
        return 0;
    float sum = 0.0f;
    for (auto node = group.subNodesBegin(); node != group.subNodesEnd(); ++node)
        sum += static_cast<float>((*node)->x());
    const float average = sum / static_cast<float>(count);
    // Single precision rounds the greatest integers up to one that is no integer of the engine.
    constexpr float beyond = 2147483648.0f;
    return average < beyond ? static_cast<int>(average) : std::numeric_limits<int>::max();
}

/// 40 below the topmost sub-node, or below 0 where all stand lower; 0 in an empty group.
int topY(const TUGroup& group)
{
    if (group.nSubNodes() == 0)
        return 0;
    int top = 0;
    for (auto node = group.subNodesBegin(); node != group.subNodesEnd(); ++node)
        top = std::min(top, (*node)->y());
    return top + 40;
}

/// Adds a new multi-port node to its group, undoably; empty when its name or the command is refused.
Obj added(TUGroup& group, std::unique_ptr<MO_Node> node, int x, int y, CO_CommandManager& manager, const QString& verb)
{
    node->setX(x);
    node->setY(y);
    node->setZ(0);
    node->setScene(group.sceneCommon());
    const QString name = TUModuleNameValidator::getValidName(node->defaultInstanceName());
    if (!node->setInstanceName(name))
        return Obj();
    MO_Node* const added = node.release();
    if (!manager.execute(new tu_node::AddSubNodeCmd(&group, added), verb + name))
        return Obj();
    return Obj(Node::getWrapped(added));
}

} // namespace

GroupNode::GroupNode(TUGroup* group) : Node(group) {}

std::string GroupNode::__str__() const
{
    return textAs("Group");
}

Obj GroupNode::getMultiPortIn() const
{
    TUGroup* group = target().group();
    if (!group)
        return Obj();
    if (TUMultiPortIn* node = group->getOutMultiPort())
        return Obj(getWrapped(node));
    CO_CommandManager& manager = undo::manager(group->sceneCommon());
    return added(*group, std::unique_ptr<MO_Node>(TUMultiPortIn::create()), 0, 0, manager, tr("Add "));
}

Obj GroupNode::getMultiPortOut() const
{
    TUGroup* group = target().group();
    if (!group)
        return Obj();
    if (TUMultiPortOut* node = group->getInMultiPort())
        return Obj(getWrapped(node));
    CO_CommandManager& manager = undo::manager(group->sceneCommon());
    return added(*group, std::unique_ptr<MO_Node>(TUMultiPortOut::create()), averageX(*group), topY(*group), manager,
                 tr("Add "));
}

Obj GroupNode::getNodes() const
{
    return Obj(newNodes());
}

NodeList* GroupNode::newNodes() const
{
    TUGroup* group = target().group();
    return group ? new NodeList(group) : nullptr;
}

Obj GroupNode::getBackdrops() const
{
    return Obj(newBackdrops());
}

BackdropList* GroupNode::newBackdrops() const
{
    TUGroup* group = target().group();
    return group ? new BackdropList(group) : nullptr;
}

QList<QVariant> GroupNode::explode()
{
    MO_Node& node = target();
    const SC_SceneCommon* scene = node.sceneCommon();
    if (!scene)
        throw Exception(tr("An unknown exception has occurred."));
    SL_Selection selection(scene->changeManager());
    SL_SelectionUtil::clear(selection);
    SL_SelectionUtil::addToSelection(selection, &node);
    modulenetwork_utils::selExplodeGroups(PLUG_Services::getSessionContext(), &selection);
    QList<QVariant> nodes;
    for (MO_Node* content : SL_SelectionUtil::getNodes(selection))
        nodes.append(toVariant(getWrapped(content)));
    return nodes;
}

TUGroup* GroupNode::getGroup() const
{
    MO_Node* node = getNode();
    return node ? node->group() : nullptr;
}

} // namespace OMC
