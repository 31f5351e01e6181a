#pragma once

#include "core/host/cm_palettemanager.h"
#include "core/host/ut_undoredo.h"

#include <QString>

#include <memory>
#include <vector>

class SC_ProjectCommon;

/// The steps that changes of palettes, colours and lists share.
namespace OMC::paletteedit {

/// The manager of the palettes.
CM_PaletteManager& manager();

/// Throws where another process holds the lock of a palette, or of a list; the sentence names the holder.
void requireFree(const std::shared_ptr<CM_Palette>& palette);
void requireFree(const std::shared_ptr<CM_PaletteList>& list);

/// Runs a command as one entry of the project's undo list; without a project it runs and can't be undone. Throws the
/// sentence when the command refuses; what it throws itself goes on.
void run(SC_ProjectCommon* project, std::unique_ptr<UT_Command> command, const QString& label, const QString& failure);

/// The list that has a palette, or null.
std::shared_ptr<CM_PaletteList> listOf(const CM_Palette& palette);

/// Tells those who show colours that some, or all, of a palette have changed.
void notifyOf(const CM_Palette& palette, std::vector<UT_Id> colours = {});
/// The same for a list, and for one palette on it.
void notifyOf(const CM_PaletteList& list);
void notifyOf(const CM_PaletteList& list, const CM_Palette& palette);

} // namespace OMC::paletteedit
