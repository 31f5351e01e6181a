#include "core/nodes/nodemove.h"

#include "core/frame/exception.h"
#include "core/frame/undo.h"
#include "core/host/dd_dragdrop.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_node.h"
#include "core/nodes/groupnode.h"
#include "core/nodes/node.h"

#include <algorithm>
#include <optional>
#include <set>

namespace OMC::node_move {

namespace {

/// The multi-port node of the group's in-ports, which is made when it is missing and may be.
MO_Node* multiPortOf(TUGroup& group)
{
    const Obj wrapper = GroupNode(&group).getMultiPortIn();
    const Node* node = objectIn<Node>(wrapper);
    return node ? node->getNode() : nullptr;
}

void select(const std::vector<MO_Node*>& nodes, TUSceneChangeManager* changes, bool asBatch, TUScene* scene,
            DD_Selection& dragged)
{
    SL_Selection selection(changes);
    {
        std::optional<SL_Selection::BatchSelectionModeScope> batch;
        if (asBatch)
            batch.emplace(&selection);
        for (MO_Node* node : nodes)
            SL_SelectionUtil::addToSelection(selection, node);
    }
    DD_SelectionUtil::BuildSelection(
        scene, selection, dragged, DD_SelectionUtil::CompositionOptions(DD_SelectionUtil::CompositionOptions::DEFAULT));
    SL_SelectionUtil::clear(selection);
    dragged.SetFrameRange(1, scene->getNumberOfFrames());
}

/// Whether a node of the selection holds the multi-port node, or is it.
bool entersItself(const DD_Selection& dragged, MO_Node* multiPort, const TUGroup* root)
{
    const std::set<const MO_Node*> nodes(dragged.NodeBegin(), dragged.NodeEnd());
    for (const MO_Node* node = multiPort; node && node != root; node = node->parentGroup()) {
        if (nodes.contains(node))
            return true;
    }
    return false;
}

/// Whether the group and all nodes belong to a scene. Nodes can't be moved to another scene.
bool belongTo(const SC_SceneCommon& scene, const TUGroup& group, const std::vector<MO_Node*>& nodes)
{
    return group.sceneCommon() == &scene && std::all_of(nodes.begin(), nodes.end(), [&scene](const MO_Node* node) {
               return node->sceneCommon() == &scene;
           });
}

bool isDefaultCamera(const SC_SceneCommon& scene, MO_Node* node)
{
    const auto* camera = dynamic_cast<TUCameraModule*>(node);
    return camera && camera == scene.camera(false);
}

/// Removes the nodes and drops them in the group; false when a step failed, and the steps behind it were left out.
bool drop(SC_SceneCommon* common, TUScene* scene, TUGroup& group, MO_Node* multiPort, const DD_Selection& dragged,
          DD_Selection& dropped)
{
    const DD_DragObject object = DD_System::CreateDragObject(common, dragged, DD_DragMode::WholeNodes);
    std::set<MO_Node*> leaving;
    dragged.GetFilteredNodes(leaving);
    const bool takesCamera =
        std::any_of(leaving.begin(), leaving.end(), [common](MO_Node* node) { return isDefaultCamera(*common, node); });
    const DD_DropMode mode(true, takesCamera);
    MO_Node* composite = nullptr;
    return SU_CleanUpCommands::removeNodes(scene, leaving, false) &&
           DD_System::DropDragObjectNewLayer(PLUG_Services::getSessionContext(), common, &group, object, mode,
                                             dropped) &&
           DD_System::FindOrCreateComposite(common, mode, &group, multiPort, composite) &&
           DD_System::LinkToComposite(common, mode, dropped, composite) &&
           DD_System::ReparentNode(common, dropped, multiPort) &&
           DD_System::UnlinkParentFromComposite(common, mode, dropped, composite, multiPort) &&
           DD_System::SetDefaultCamera(common, mode, dropped);
}

} // namespace

std::vector<MO_Node*> moveNodes(const std::vector<MO_Node*>& nodes, SC_SceneCommon* scene, TUGroup& group,
                                const Terms& terms)
{
    MO_Node* multiPort = group.getOutMultiPort();
    if (!multiPort && !terms.makesMultiPort)
        throw Exception(terms.noMultiPort);
    CO_CommandManager& manager = undo::manager(scene, terms.missingPart);
    auto* timedValues = dynamic_cast<TUScene*>(scene->timedValues());
    if (!timedValues || !scene->changeManager() || !PLUG_Services::getSessionContext())
        unexpected::fail(terms.missingPart);

    // The multi-port node comes and goes with the move: what fails leaves none behind.
    undo::Scope scope(manager, Node::tr("Move to Group"));
    if (!multiPort)
        multiPort = multiPortOf(group);
    if (!multiPort)
        throw Exception(terms.noMultiPort);

    DD_Selection dragged;
    select(nodes, scene->changeManager(), terms.selectsAsBatch, timedValues, dragged);
    if (entersItself(dragged, multiPort, scene->rootGroup()))
        throw Exception(terms.entersItself);

    DD_Selection dropped;
    const bool done = belongTo(*scene, group, nodes) && drop(scene, timedValues, group, multiPort, dragged, dropped);
    if (!terms.failsSilently && !done)
        throw Exception(terms.failed);
    if (!done || !dropped.hasNodes()) {
        scope.cancel();
        return {};
    }
    if (terms.oneNodeOnly && dropped.Nodes().size() > 1)
        throw Exception(terms.severalNodes);
    return dropped.Nodes();
}

} // namespace OMC::node_move
