#pragma once

#include "core/attributes/attributebuilder.h"
#include "core/attributes/axesattribute.h"
#include "core/attributes/axescommands.h"
#include "core/frame/finite.h"
#include "core/frame/undo.h"
#include "core/host/pr_preference.h"

/// The bodies of AxesAttribute, for the sources of the classes that derive from it.
namespace OMC {

/// What the class over a host class has of its own: its text, the way to its points, its commands.
template <typename Engine>
struct AxesRules;

namespace axes {

/// Required: the label of local values stands on all changes of these attributes.
inline QString label()
{
    return Attribute::tr("Set Attribute local value.");
}

/// What a script's argument tells of a value; the rest is as in `present`.
template <typename Engine>
Math::Point3d readValue(const QVariant& argument, Math::Point3d present, unsigned int index)
{
    AxesRules<Engine>::read(argument, present);
    for (const double coordinate : {present.x, present.y, present.z})
        requireFinite(coordinate, index);
    return present;
}

template <typename Engine>
Math::Point3d defaultOf(const Engine& attr)
{
    const auto along = [&](int axis) { return axis < attr.axisCount() ? attr.axis(axis)->defaultValue() : 0.0; };
    return {along(0), along(1), along(2)};
}

} // namespace axes

template <typename Engine, typename Point>
std::string AxesAttribute<Engine, Point>::__str__() const
{
    return described(tr(AxesRules<Engine>::description));
}

template <typename Engine, typename Point>
Obj AxesAttribute<Engine, Point>::value(int frame) const
{
    return Obj(AxesRules<Engine>::newPoint(typed<Engine>().value(frame)));
}

template <typename Engine, typename Point>
Obj AxesAttribute<Engine, Point>::localvalue() const
{
    return Obj(AxesRules<Engine>::newPoint(typed<Engine>().localValue()));
}

template <typename Engine, typename Point>
void AxesAttribute<Engine, Point>::setValue(int frame, const QVariant& value, bool adjustColumn)
{
    auto& attr = typed<Engine>();
    const Math::Point3d point = axes::readValue<Engine>(value, attr.value(frame), 1);
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    manager.execute(AxesRules<Engine>::setCommand(attr, frame, point, adjustColumn), axes::label());
}

template <typename Engine, typename Point>
void AxesAttribute<Engine, Point>::setLocalvalue(const QVariant& value)
{
    auto& attr = typed<Engine>();
    const Math::Point3d point = axes::readValue<Engine>(value, attr.localValue(), 0);
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    manager.execute(AxesRules<Engine>::setLocalCommand(attr, point), axes::label());
}

template <typename Engine, typename Point>
void AxesAttribute<Engine, Point>::offsetValue(const QVariant& range, const QVariant& delta)
{
    auto& attr = typed<Engine>();
    const Math::Point3d way = axes::readValue<Engine>(delta, {}, 1);
    SC_SceneCommon* scene = attr.sceneCommon();
    if (!scene)
        BaseObject::throwUnexpected();
    const MO_FrameRange frames = this->frameRange(scene, range);
    CO_CommandManager& manager = undo::manager(scene, unexpected::ErrorHasOccurred);
    manager.execute(AxesRules<Engine>::translateCommand(attr, way, frames), axes::label());
}

template <typename Engine, typename Point>
void AxesAttribute<Engine, Point>::resetValue(int frame)
{
    auto& attr = typed<Engine>();
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    const undo::Scope scope(manager, tr("Resetting local value."));
    if (attr.socket() && attr.socket()->isLinked()) {
        manager.execute(AxesRules<Engine>::setCommand(attr, frame, axes::defaultOf(attr), false), axes::label());
        return;
    }
    for (int axis = 0; axis < attr.axisCount(); ++axis) {
        AT_DoubleAttr& number = *attr.axis(axis);
        auto command =
            tu_attr::setValueCommand(number, frame, number.defaultValue(),
                                     {.force = true, .constantSegment = PR_CachedPreferences::getSpConstantSegment()});
        manager.execute(command.release(), axes::label());
    }
}

template <typename Engine, typename Point>
void AxesAttribute<Engine, Point>::resetLocalvalue()
{
    auto& attr = typed<Engine>();
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    const undo::Scope scope(manager, tr("Resetting local value."));
    for (int axis = 0; axis < attr.axisCount(); ++axis) {
        AT_DoubleAttr& number = *attr.axis(axis);
        manager.execute(new tu_attr::SetLocalValueCmd<AT_DoubleAttr>(number, number.defaultValue()), axes::label());
    }
}

template <typename Engine, typename Point>
Obj AxesAttribute<Engine, Point>::getDefault() const
{
    return Obj(AxesRules<Engine>::newPoint(axes::defaultOf(typed<Engine>())));
}

} // namespace OMC
