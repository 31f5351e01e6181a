#include "core/palettes/palettegradientposition.h"

#include "core/frame/valuetypes.h"

#include <algorithm>
#include <cmath>

namespace OMC {

namespace {

[[maybe_unused]] const bool positionRegistered = registerValueTypes<PaletteGradientPosition>();

/// Held in 0 to 100. Throws for what is no number.
double percentOf(double position)
{
    if (std::isnan(position))
        BaseObject::throwInvalidArgument(0);
    return std::clamp(position, 0.0, PaletteGradientPosition::wholeWay);
}

} // namespace

PaletteGradientPosition::PaletteGradientPosition() = default;

PaletteGradientPosition::PaletteGradientPosition(const QVariant& value, int)
{
    setColour(value);
    if (const auto* given = objectFrom<PaletteGradientPosition>(value))
        position = given->position;
}

PaletteGradientPosition::PaletteGradientPosition(double place, const QVariant& value, int) : position(percentOf(place))
{
    setColour(value);
}

PaletteGradientPosition::PaletteGradientPosition(const CM_GradientData& marker) : position(marker.position * wholeWay)
{
    *getRgba() = marker.rgba;
}

std::string PaletteGradientPosition::__str__() const
{
    const CM_Rgba& rgba = *getRgba();
    return tr("PaletteGradientPosition(Position = %1%, Colour(%2,%3,%4,%5))")
        .arg(QString::number(position, 'f', 2), QString::number(rgba.red()), QString::number(rgba.green()),
             QString::number(rgba.blue()), QString::number(rgba.alpha()))
        .toStdString();
}

QVariant PaletteGradientPosition::getColour() const
{
    return toVariant(new Colour(*this));
}

void PaletteGradientPosition::setColour(const QVariant& value)
{
    int r = 0;
    int g = 0;
    int b = 0;
    int a = 255;
    QVariantToRGBAInt(value, r, g, b, a);
    *getRgba() = CM_Rgba(r, g, b, a);
}

CM_Rgba PaletteGradientPosition::rgba() const
{
    return *getRgba();
}

double PaletteGradientPosition::percent() const
{
    return percentOf(position);
}

CM_GradientData PaletteGradientPosition::marker() const
{
    return {percent() / wholeWay, *getRgba()};
}

} // namespace OMC
