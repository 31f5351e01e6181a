#pragma once

#include "core/attributes/attributebuilder.h"
#include "core/attributes/valueattribute.h"
#include "core/frame/finite.h"
#include "core/frame/undo.h"
#include "core/host/pr_preference.h"

#include <memory>

/// The bodies of ValueAttribute and NumberAttribute, for the sources of the classes that derive from them.
namespace OMC {

/// In what the classes differ. Required: scripts compare the texts, and undo lists show the labels.
struct ValueRules {
    const char* description;             ///< `__str__`, with the node's path and the full keyword filled in.
    bool tellsRefusal = false;           ///< A change that is refused throws; else the class stays silent.
    bool skipsPresentLocalValue = false; ///< Setting the local value that is there already makes no undo entry.
    const char* offsetLabel = nullptr;
};

/// The rules of the class over a host class; its source has them.
template <typename Engine>
extern const ValueRules valueRules;

inline constexpr const char* failedValue = QT_TRANSLATE_NOOP("OMC::Attribute", "Failed to set the attribute's value.");

/// Refuses a number that is not finite, by the argument's place.
template <typename Value>
void requireUsable(const Value& value, unsigned int argument)
{
    if constexpr (std::is_floating_point_v<Value>)
        requireFinite(value, argument);
}

template <typename Engine>
std::string ValueAttribute<Engine>::__str__() const
{
    return described(tr(valueRules<Engine>.description));
}

template <typename Engine>
typename Engine::ValueType ValueAttribute<Engine>::value(int frame) const
{
    return typed<Engine>().value(frame);
}

template <typename Engine>
typename Engine::ValueType ValueAttribute<Engine>::localvalue() const
{
    return typed<Engine>().localValue();
}

template <typename Engine>
void ValueAttribute<Engine>::setLocalvalue(Argument value)
{
    auto& attr = typed<Engine>();
    requireUsable(value, 0);
    if (!valueRules<Engine>.skipsPresentLocalValue || attr.localValue() != value)
        changeLocalValue(attr, value);
}

template <typename Engine>
void ValueAttribute<Engine>::resetValue(int frame)
{
    auto& attr = typed<Engine>();
    changeValue(attr, frame, attr.defaultValue());
}

template <typename Engine>
void ValueAttribute<Engine>::resetLocalvalue()
{
    auto& attr = typed<Engine>();
    changeLocalValue(attr, attr.defaultValue());
}

template <typename Engine>
void ValueAttribute<Engine>::changeValue(Engine& attr, int frame, Argument value, bool adjustColumn)
{
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    static const QString label = tr("Set Attribute Value");
    auto command = tu_attr::setValueCommand(
        attr, frame, value,
        {.force = true, .adjustColumn = adjustColumn, .constantSegment = PR_CachedPreferences::getSpConstantSegment()});
    run(manager, command.release(), label, failedValue);
}

template <typename Engine>
void ValueAttribute<Engine>::changeLocalValue(Engine& attr, Argument value)
{
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    static const QString label = tr("Set Attribute local value.");
    run(manager, new tu_attr::SetLocalValueCmd<Engine>(attr, value), label,
        QT_TRANSLATE_NOOP("OMC::Attribute", "Failed to set the attribute's local value."));
}

template <typename Engine>
void ValueAttribute<Engine>::run(CO_CommandManager& manager, CO_Command* command, const QString& label,
                                 const char* refusal)
{
    if (!manager.execute(command, label) && valueRules<Engine>.tellsRefusal)
        throw Exception(tr(refusal));
}

template <typename Engine>
void NumberAttribute<Engine>::setValue(int frame, Value value, bool adjustColumn)
{
    auto& attr = this->template typed<Engine>();
    requireUsable(value, 1);
    this->changeValue(attr, frame, value, adjustColumn);
}

template <typename Engine>
void NumberAttribute<Engine>::offsetValue(const QVariant& range, Value delta)
{
    auto& attr = this->template typed<Engine>();
    requireUsable(delta, 1);
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    const MO_FrameRange frames = Attribute::frameRange(attr.sceneCommon(), range);
    this->run(manager, new tu_attr::OffsetValueAllFramesCmd<Engine>(attr, delta, frames),
              Attribute::tr(valueRules<Engine>.offsetLabel), failedValue);
}

template <typename Engine>
typename Engine::ValueType NumberAttribute<Engine>::getMinimum() const
{
    return this->template typed<Engine>().minValue();
}

template <typename Engine>
typename Engine::ValueType NumberAttribute<Engine>::getMaximum() const
{
    return this->template typed<Engine>().maxValue();
}

template <typename Engine>
typename Engine::ValueType NumberAttribute<Engine>::getStep() const
{
    return this->template typed<Engine>().step();
}

} // namespace OMC
