#pragma once

#include "core/drawings/svgpicture.h"
#include "core/frame/export.h"

#include <QString>
#include <QStringList>
#include <QVariant>

namespace OMC::svg {

/// Draws an SVG picture into an art layer, above what is there, as one undo entry; the colours and gradients go to the
/// end of the palette. The middle of the picture comes to the origin, and its height is that of the field chart.
///
/// Groups become layers, and so does a shape that overlaps one before it in its group. Paths become strokes, whose line
/// styles draw the lines; areas are painted by the colours at the sides of strokes. Gives a line for each kind of thing
/// in the picture that a drawing can't have.
BRINDLE_CORE_EXPORT QStringList draw(const Picture& picture, const QVariant& artLayer, const QVariant& palette);

/// The same with the picture of a file. Fails, and changes nothing, where the file can't be read.
BRINDLE_CORE_EXPORT QStringList importFile(const QString& path, const QVariant& artLayer, const QVariant& palette);

/// Writes a drawing as an SVG file: a group for each art layer and for each layer in it. Lines of varying thickness
/// become areas, texts the outlines of their letters. The file is replaced whole or not at all. Gives a line for each
/// kind of thing in the drawing that SVG can't have, or that can't be told, as a colour that no palette knows.
BRINDLE_CORE_EXPORT QStringList exportFile(const QString& path, const QVariant& drawing);

} // namespace OMC::svg
