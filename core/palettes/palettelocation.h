#pragma once

#include "core/host/cm_palette.h"

#include <QString>

class SC_ProjectCommon;

/// The folders of palettes: their kinds by name, and the elements' folders.
namespace OMC::palettelocation {

/// The names of the kinds, as a script writes them in any case of letters. What is no other kind is "BACKUP".
int locationNamed(const QString& name);
QString nameOf(int location);

/// The kind of folder that a palette's file lies in. A folder of an element is CM_Element.
int locationOf(const CM_PalettePathI& path, const SC_ProjectCommon& project);
/// The element in whose folder a palette's file lies, or -1.
int elementOf(const CM_Palette& palette, const SC_ProjectCommon& project);
/// The element whose palette list lies in a folder, or -1.
int elementOfFolder(const QString& folder, const SC_ProjectCommon& project);
/// The folder of an element; empty where there is none.
QString elementFolder(const SC_ProjectCommon& project, int id);

} // namespace OMC::palettelocation
