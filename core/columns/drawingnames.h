#pragma once

#include <QStringList>
#include <QVariant>

namespace OMC {

/// Adds the names of the drawings that a script's argument tells: an ElementDrawing, a name, a whole number, null or an
/// empty text for no drawing, or a list of these, nested to any depth. False where something in it is none of these, or
/// a drawing of another element than this one; -1 takes those of all.
bool addDrawingNames(const QVariant& value, int element, QStringList& names);

} // namespace OMC
