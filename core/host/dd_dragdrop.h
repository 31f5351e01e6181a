#pragma once

#include "core/host/dd_dropmode.h"
#include "core/host/export.h"

#include <memory>
#include <set>
#include <utility>
#include <vector>

class MO_Node;
class SC_SceneCommon;
class SC_SessionContext;
class SL_Selection;
class TUGroup;
class TUScene;

/// Nodes that are dragged, or that a drop made, in order. It keeps no node alive and does not see them go: it is used
/// on the spot.
class BRINDLE_HOST_EXPORT DD_Selection {
public:
    DD_Selection();
    DD_Selection(const DD_Selection&) = delete;
    DD_Selection& operator=(const DD_Selection&) = delete;
    ~DD_Selection();

    /// The frames that are dragged: `count` of them from `first` on. It is 1 and 0 until it is set.
    void SetFrameRange(int first, int count);

    bool hasNodes() const;
    const std::vector<MO_Node*>& Nodes() const;
    using NodeIterator = MO_Node* const*;
    NodeIterator NodeBegin() const;
    NodeIterator NodeEnd() const;
    /// The nodes that are dragged by themselves: without those that lie in a group that is dragged too.
    void GetFilteredNodes(std::set<MO_Node*>& nodes) const;

    struct Private;
    Private& data() const { return *d; } ///< The engine's.

private:
    std::unique_ptr<Private> d;
};

namespace DD_SelectionUtil {

/// Which nodes take part, besides drawings, pegs, cameras and displays. A drag takes those in selected groups along,
/// and no others; a paste over nodes that are there leaves out nodes of these kinds.
class BRINDLE_HOST_EXPORT CompositionOptions {
public:
    enum ArgDefault { DEFAULT };
    CompositionOptions(ArgDefault) {} ///< All of them.
    CompositionOptions(bool groups, bool effects, bool composites)
        : m_groups(groups),
          m_effects(effects),
          m_composites(composites)
    {}

    bool groups() const { return m_groups; }   ///< Groups, with what is in them.
    bool effects() const { return m_effects; } ///< Nodes that change a picture.
    bool composites() const { return m_composites; }

private:
    bool m_groups = true;
    bool m_effects = true;
    bool m_composites = true;
};

/// Makes the selected nodes those that are dragged.
BRINDLE_HOST_EXPORT void BuildSelection(TUScene* scene, const SL_Selection& selection, DD_Selection& dragged,
                                        const CompositionOptions& options);

} // namespace DD_SelectionUtil

/// The selected nodes as a drag takes them.
enum class DD_DragMode { WholeNodes };

/// A copy of the dragged nodes, made when the drag began. It holds its own data, so it can be dropped after the nodes
/// were removed, and more than once. Copies of the object share the data, which never changes.
///
/// One that is made to move nodes (CreateDragObject) remembers the columns and nodes that these were linked to; one
/// that is made to copy them (DD_SystemExternalAPI) has columns, elements and palettes of its own.
class BRINDLE_HOST_EXPORT DD_DragObject {
public:
    DD_DragObject() = default;

    bool isValid() const { return d != nullptr; }
    int numFrames() const; ///< The frames that were copied; 0 for nodes that are moved.

    struct Private;
    explicit DD_DragObject(std::shared_ptr<const Private> data) : d(std::move(data)) {}
    const Private& data() const { return *d; } ///< The engine's, of a valid object.

private:
    std::shared_ptr<const Private> d;
};

/// The steps of a drop. Each changes the scene undoably, and gives false when it failed and changed nothing. The nodes
/// and groups are those of the scene.
namespace DD_System {

/// An invalid object when there are no nodes or frames, or a node is in no group of the scene.
BRINDLE_HOST_EXPORT DD_DragObject CreateDragObject(SC_SceneCommon* scene, const DD_Selection& dragged,
                                                   DD_DragMode mode);

/// Makes the nodes of a drag object that moves them again in a group, behind its sub-nodes and in the order in which
/// they were dragged: of the same types, with their names (numbered where the group has them), places, local values,
/// ports and, in groups, all that was in them. Their attributes are linked to the same columns, and they are linked
/// among themselves as they were. In the group that they were dragged from they are also linked to the nodes that
/// stayed there. What was the scene's default camera or display when it was dragged is so again where the scene has
/// none any more.
BRINDLE_HOST_EXPORT bool DropDragObjectNewLayer(SC_SessionContext* session, SC_SceneCommon* scene, TUGroup* group,
                                                const DD_DragObject& dragObject, const DD_DropMode& mode,
                                                DD_Selection& dropped);

/// Makes copied nodes in a group, likewise; columns, elements and palettes come along as the mode says. All of it is
/// one entry of the undo list. `selected` then has the new nodes and no others. The four numbers are always 0.
BRINDLE_HOST_EXPORT bool DropDragObjectNewLayer(SC_SessionContext* session, SC_SceneCommon* scene, TUGroup* group,
                                                const DD_DragObject& dragObject, const DD_DropMode& mode,
                                                DD_Selection& dropped, int, int, int, int, SL_Selection& selected);

/// The composite that the group shows: the first one that feeds the multi-port node of its out-ports. It comes back
/// null when there is none; none is made, for a group is shown only where someone linked it so.
BRINDLE_HOST_EXPORT bool FindOrCreateComposite(SC_SceneCommon* scene, const DD_DropMode& mode, TUGroup* group,
                                               MO_Node* multiPort, MO_Node*& composite);

/// Links to the composite each image of the dropped nodes that was used where they came from and is not used here.
BRINDLE_HOST_EXPORT bool LinkToComposite(SC_SceneCommon* scene, const DD_DropMode& mode, const DD_Selection& dropped,
                                         MO_Node* composite);

/// Links each dropped node that had a parent where it came from, and has none here, to what the group hangs on: the
/// first port of the multi-port node that carries a peg, where it has one.
BRINDLE_HOST_EXPORT bool ReparentNode(SC_SceneCommon* scene, const DD_Selection& dropped, MO_Node* multiPort);

/// Cuts what leads from the parent of a dropped node straight into the composite. A composite takes images and a parent
/// is a peg, so in the open engine there is never such a link.
BRINDLE_HOST_EXPORT bool UnlinkParentFromComposite(SC_SceneCommon* scene, const DD_DropMode& mode,
                                                   const DD_Selection& dropped, MO_Node* composite, MO_Node* multiPort);

/// Makes the camera that was the default one where it came from the scene's default camera, where the mode says so.
BRINDLE_HOST_EXPORT bool SetDefaultCamera(SC_SceneCommon* scene, const DD_DropMode& mode, const DD_Selection& dropped);

} // namespace DD_System
