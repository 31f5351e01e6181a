#pragma once

#include "core/host/cm_palettepath.h"

#include <QString>

/// The folders in which palettes lie.
namespace brindle::engine::palette_folders {

inline constexpr QLatin1String libraryName("palette-library"); ///< In the folder of a project or an element.

/// The folder of environment or job: the person's setting, else one in the person's data folder. Empty for any other
/// location.
QString shared(int kind);

bool isBelow(const QString& file, const QString& folder); ///< False for an empty folder.

} // namespace brindle::engine::palette_folders
