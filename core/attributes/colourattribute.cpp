#include "core/attributes/colourattribute.h"

#include "core/attributes/attributebuilder.h"
#include "core/frame/undo.h"
#include "core/geometry/colour.h"
#include "core/host/cm_rgba.h"
#include "core/host/pr_preference.h"

#include <array>

namespace OMC {

namespace {

using Channels = std::array<int, 4>; ///< Red, green, blue, alpha.

Channels channelsOf(const CM_Rgba& colour)
{
    return {colour.red(), colour.green(), colour.blue(), colour.alpha()};
}

/// What a script's argument tells of a colour; the rest is as in `present`.
Channels read(const QVariant& argument, Channels present)
{
    Colour::QVariantToRGBAInt(argument, present[0], present[1], present[2], present[3]);
    return present;
}

Obj newColour(const CM_Rgba& colour)
{
    return Obj(new Colour(colour.red(), colour.green(), colour.blue(), colour.alpha()));
}

} // namespace

std::string ColourAttribute::__str__() const
{
    return described(tr("ColorAttr(%1, %2)"));
}

Obj ColourAttribute::value(int frame) const
{
    CM_Rgba colour(0, 0, 0, 0);
    typed<AT_ColorAttr>().value(colour, frame, nullptr);
    return newColour(colour);
}

Obj ColourAttribute::localvalue() const
{
    CM_Rgba colour(0, 0, 0, 0);
    typed<AT_ColorAttr>().localValue(colour);
    return newColour(colour);
}

void ColourAttribute::setValue(int frame, const QVariant& value, bool adjustColumn)
{
    auto& attr = typed<AT_ColorAttr>();
    CM_Rgba present(0, 0, 0, 0);
    attr.value(present, frame, nullptr);
    const Channels channels = read(value, channelsOf(present));
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    auto commands = std::make_unique<CO_OrCommand>(true);
    for (int index = 0; index < 4; ++index) {
        auto channel = std::make_unique<CO_OrCommand>(true);
        channel->add(tu_attr::setValueCommand(*attr.channel(index), frame, channels[static_cast<std::size_t>(index)],
                                              {.force = true,
                                               .adjustColumn = adjustColumn,
                                               .constantSegment = PR_CachedPreferences::getSpConstantSegment()})
                         .release());
        commands->add(channel.release());
    }
    manager.execute(commands.release(), tr("Set Attribute value."));
}

void ColourAttribute::setLocalvalue(const QVariant& value)
{
    auto& attr = typed<AT_ColorAttr>();
    CM_Rgba present(0, 0, 0, 0);
    attr.localValue(present);
    const Channels channels = read(value, channelsOf(present));
    CO_CommandManager& manager = undo::manager(attr.sceneCommon(), unexpected::ErrorHasOccurred);
    auto commands = std::make_unique<CO_OrCommand>(true);
    for (int index = 0; index < 4; ++index)
        commands->add(
            new tu_attr::SetLocalValueCmd<AT_IntAttr>(*attr.channel(index), channels[static_cast<std::size_t>(index)]));
    manager.execute(commands.release(), tr("Set Attribute local value."));
}

void ColourAttribute::offsetValue(const QVariant& range, const QVariant& delta)
{
    auto& attr = typed<AT_ColorAttr>();
    const Channels channels = read(delta, {});
    SC_SceneCommon* scene = attr.sceneCommon();
    if (!scene)
        throwUnexpected();
    const MO_FrameRange frames = frameRange(scene, range);
    CO_CommandManager& manager = undo::manager(scene, unexpected::ErrorHasOccurred);
    auto commands = std::make_unique<CO_OrCommand>(true);
    for (int index = 0; index < 4; ++index)
        commands->add(new tu_attr::OffsetValueAllFramesCmd<AT_IntAttr>(
            *attr.channel(index), channels[static_cast<std::size_t>(index)], frames));
    manager.execute(commands.release(), tr("Offset Attribute value."));
}

} // namespace OMC
