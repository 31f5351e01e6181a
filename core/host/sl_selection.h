#pragma once

#include "core/host/export.h"

#include <memory>
#include <vector>

class MO_Node;
class SC_SessionContext;
class TUSceneChangeManager;
class TUTimedValue;

/// Selected nodes and columns of a scene, in the order of selecting, each once, and a range of frames. It keeps none of
/// them alive: one that leaves the scene drops out of the selection for good.
///
/// Whoever shows the scene is told of each change through the change manager, which outlives the selection.
class BRINDLE_HOST_EXPORT SL_Selection {
public:
    explicit SL_Selection(TUSceneChangeManager* changes);
    SL_Selection(const SL_Selection&) = delete;
    SL_Selection& operator=(const SL_Selection&) = delete;
    ~SL_Selection();

    /// While it lives, changes of the selection are told as one, at its end.
    class BRINDLE_HOST_EXPORT BatchSelectionModeScope {
    public:
        explicit BatchSelectionModeScope(SL_Selection* selection);
        BatchSelectionModeScope(const BatchSelectionModeScope&) = delete;
        BatchSelectionModeScope& operator=(const BatchSelectionModeScope&) = delete;
        ~BatchSelectionModeScope();

    private:
        SL_Selection* m_selection;
    };

    /// `count` frames from `start` on. It is 1 and 0 until it is set; 0 frames stand for all.
    void setFrameRange(int start, int count);
    int startFrame() const;
    int frameCount() const;

    struct Private;
    Private& data() const { return *d; } ///< The engine's.

private:
    std::unique_ptr<Private> d;
};

namespace SL_SelectionUtil {

/// Null is ignored, and so is what is selected already.
BRINDLE_HOST_EXPORT void addToSelection(SL_Selection& selection, MO_Node* node);
BRINDLE_HOST_EXPORT void addToSelection(SL_Selection& selection, TUTimedValue* column);
BRINDLE_HOST_EXPORT void clear(SL_Selection& selection); ///< The range of frames stays.
BRINDLE_HOST_EXPORT std::vector<MO_Node*> getNodes(const SL_Selection& selection);
BRINDLE_HOST_EXPORT std::vector<TUTimedValue*> getColumns(const SL_Selection& selection);

} // namespace SL_SelectionUtil

namespace modulenetwork_utils {

/// Puts the nodes of the selected groups in the place of those groups, with the links that lead through them; a name
/// that is taken gets a number behind it. The nodes are then selected in the place of their groups. One undo entry for
/// each group. False when there was none to take apart; the root group is none.
BRINDLE_HOST_EXPORT bool selExplodeGroups(SC_SessionContext* session, SL_Selection* selection);

} // namespace modulenetwork_utils
