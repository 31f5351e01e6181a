#pragma once

#include "core/attributes/attribute.h"
#include "core/attributes/attributebuilder.h"
#include "core/frame/finite.h"
#include "core/frame/undo.h"
#include "core/host/pr_preference.h"

#include <limits>
#include <memory>

/// What the attribute classes with a value do alike: each runs one command under its label and tells whether it was
/// done.
namespace OMC::typed {

template <typename T>
CO_CommandManager& managerOf(const T& attr)
{
    const SC_SceneCommon* scene = attr.sceneCommon();
    CO_CommandManager* manager = scene ? scene->commandManager() : nullptr;
    if (!manager)
        BaseObject::throwUnexpected();
    return *manager;
}

template <typename T>
bool setValue(T& attr, int frame, const typename T::ValueType& value, bool adjustColumn, const QString& label)
{
    CO_CommandManager& manager = managerOf(attr);
    auto commands = std::make_unique<CO_OrCommand>(true);
    tu_attr::addSetValue(
        *commands, attr, frame, value,
        {.force = true, .adjustColumn = adjustColumn, .constantSegment = PR_CachedPreferences::getSpConstantSegment()});
    return manager.execute(commands.release(), label);
}

template <typename T>
bool setLocalValue(T& attr, const typename T::ValueType& value, const QString& label)
{
    return managerOf(attr).execute(new tu_attr::SetLocalValueCmd<T>(attr, value), label);
}

template <typename T>
void offsetValue(T& attr, const QVariant& range, const typename T::ValueType& delta, const QString& label)
{
    CO_CommandManager& manager = managerOf(attr);
    int start = 0;
    int end = 0;
    bool isRange = false;
    Attribute::deriveRangeQVariant(attr.sceneCommon(), range, start, end, isRange);
    constexpr int longest = std::numeric_limits<int>::max();
    if (isRange && static_cast<long long>(end) - start > longest)
        start = end - longest;
    manager.execute(new tu_attr::OffsetValueAllFramesCmd<T>(
                        attr, delta, isRange ? MO_FrameRange(start, 0, end - start) : MO_FrameRange(start)),
                    label);
}

} // namespace OMC::typed
