#include "core/host/sl_selection.h"

#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"

#include <unordered_set>

struct SL_Selection::Private {
    void tell()
    {
        if (batches > 0)
            missed = true;
        else if (changes)
            changes->notify();
    }

    TUSceneChangeManager* changes;
    std::vector<UT_SharedWeakPtrBase> nodes; ///< As they were added; a node may be there more than once.
    int batches = 0;
    bool missed = false; ///< Something changed in the open batches.
};

SL_Selection::SL_Selection(TUSceneChangeManager* changes) : d(std::make_unique<Private>())
{
    d->changes = changes;
}

SL_Selection::~SL_Selection() = default;

SL_Selection::BatchSelectionModeScope::BatchSelectionModeScope(SL_Selection* selection) : m_selection(selection)
{
    ++m_selection->d->batches;
}

SL_Selection::BatchSelectionModeScope::~BatchSelectionModeScope()
{
    Private& data = *m_selection->d;
    if (--data.batches == 0 && std::exchange(data.missed, false))
        data.tell();
}

void SL_SelectionUtil::addToSelection(SL_Selection& selection, MO_Node* node)
{
    if (!node)
        return;
    UT_SharedWeakPtrBase pointer;
    pointer.assign(node);
    selection.data().nodes.push_back(std::move(pointer));
    selection.data().tell();
}

void SL_SelectionUtil::clear(SL_Selection& selection)
{
    if (selection.data().nodes.empty())
        return;
    selection.data().nodes.clear();
    selection.data().tell();
}

std::vector<MO_Node*> SL_SelectionUtil::getNodes(const SL_Selection& selection)
{
    std::vector<MO_Node*> nodes;
    std::unordered_set<const MO_Node*> known;
    for (const UT_SharedWeakPtrBase& pointer : selection.data().nodes) {
        auto* node = static_cast<MO_Node*>(pointer.get());
        if (node && known.insert(node).second)
            nodes.push_back(node);
    }
    return nodes;
}
