#pragma once

#include "core/host/cm_palette.h"

#include <QByteArray>
#include <QString>

/// GIMP's text form of palettes (".gpl"):
///
///     GIMP Palette
///     Name: Hero
///     Columns: 4
///     # A comment.
///     255 217 184	Skin
///
/// The first line is always the same; name and columns can be left out. A colour is red, green and blue, 0 to 255 each,
/// and a name up to the end of the line. There are no gradients, no textures and no transparency.
namespace app::gimp {

/// Adds the colours of a text to a palette, and gives it its name. False, with the line and the reason in `error`, for
/// a text that is none of this form; the palette then has the colours of the lines ahead.
bool read(const QByteArray& text, CM_Palette& palette, QString& error);

/// Solid colours as they are, without their alpha; of a gradient a colour for each of its own, with the place behind
/// the name. Textures are left out.
QByteArray textOf(const CM_Palette& palette);

} // namespace app::gimp
