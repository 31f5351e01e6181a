#pragma once

#include "core/host/cm_palette.h"

#include <QByteArray>
#include <QImage>
#include <QString>

namespace app {

/// The palette as lines for a terminal: a head, and a line for each colour with a block of it where `coloured` is set,
/// its look, its name and its id.
QString paletteLines(const CM_Palette& palette, bool coloured);

/// The palette as a picture: swatches in rows, each with its name and its look below. Needs a QGuiApplication, for the
/// fonts.
QImage palettePicture(const CM_Palette& palette);
QByteArray pngOf(const QImage& image);

} // namespace app
