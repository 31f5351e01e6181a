#pragma once

#include "core/frame/export.h"
#include "core/host/cm_color.h"

#include <QString>

class CM_Palette;

/// Colours as an animator reads them, for a line of text.
namespace OMC::colourtext {

/// "#ffd9b8"; with two digits for alpha behind where it isn't opaque: "#ffd9b880".
BRINDLE_CORE_EXPORT QString of(const CM_Rgba& rgba);
/// "solid #ffd9b8", "linear gradient, #87ceeb at 0%, #ffffff00 at 100%", "texture of 64 x 64 pixels, tiled".
BRINDLE_CORE_EXPORT QString of(const CM_BaseColorObj& colour);
/// "12 colours", "1 colour, 2 textures".
BRINDLE_CORE_EXPORT QString contentOf(const CM_Palette& palette);

} // namespace OMC::colourtext
