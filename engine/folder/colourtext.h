#pragma once

#include "engine/folder/jsonplace.h"

#include <QRgb>

namespace brindle::engine {

/// A colour as the files of a project have it: "#AARRGGBB".
QString colourText(QRgb colour);
/// Reads such a text; throws a `FolderFailure` for any other value.
QRgb readColour(const JsonPlace& place);

} // namespace brindle::engine
