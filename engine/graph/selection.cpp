#include "core/host/sl_selection.h"

#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_timedvalue.h"

#include <unordered_set>
#include <utility>

namespace {

using Pointers = std::vector<UT_SharedWeakPtrBase>;

void append(Pointers& pointers, UT_SharedWeakBase* target)
{
    UT_SharedWeakPtrBase pointer;
    pointer.assign(target);
    pointers.push_back(std::move(pointer));
}

/// What is left of it, each once.
template <typename Target>
std::vector<Target*> present(const Pointers& pointers)
{
    std::vector<Target*> targets;
    std::unordered_set<const Target*> known;
    for (const UT_SharedWeakPtrBase& pointer : pointers) {
        auto* target = static_cast<Target*>(pointer.get());
        if (target && known.insert(target).second)
            targets.push_back(target);
    }
    return targets;
}

} // namespace

struct SL_Selection::Private {
    void tell()
    {
        if (batches > 0)
            missed = true;
        else if (changes)
            changes->notify();
    }

    TUSceneChangeManager* changes;
    Pointers nodes; ///< As they were added; a node may be there more than once.
    Pointers columns;
    int start = 1;
    int count = 0;
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

void SL_Selection::setFrameRange(int start, int count)
{
    d->start = start;
    d->count = count;
}

int SL_Selection::startFrame() const
{
    return d->start;
}

int SL_Selection::frameCount() const
{
    return d->count;
}

void SL_SelectionUtil::addToSelection(SL_Selection& selection, MO_Node* node)
{
    if (!node)
        return;
    append(selection.data().nodes, node);
    selection.data().tell();
}

void SL_SelectionUtil::addToSelection(SL_Selection& selection, TUTimedValue* column)
{
    if (!column)
        return;
    append(selection.data().columns, column);
    selection.data().tell();
}

void SL_SelectionUtil::clear(SL_Selection& selection)
{
    SL_Selection::Private& data = selection.data();
    if (data.nodes.empty() && data.columns.empty())
        return;
    data.nodes.clear();
    data.columns.clear();
    data.tell();
}

std::vector<MO_Node*> SL_SelectionUtil::getNodes(const SL_Selection& selection)
{
    return present<MO_Node>(selection.data().nodes);
}

std::vector<TUTimedValue*> SL_SelectionUtil::getColumns(const SL_Selection& selection)
{
    return present<TUTimedValue>(selection.data().columns);
}
