#pragma once

#include "core/host/co_command.h"
#include "core/host/dd_dropmode.h"
#include "engine/clipboard/dragscene.h"

#include <map>
#include <memory>

namespace brindle::engine {

/// Copies the palettes of a project's list, and those on the lists of copied elements, into a drag scene. `elements`:
/// the ids in the drag scene by those of the project.
void copyPalettes(PaletteStore& from, const ElementManager& fromElements, const std::map<int, int>& elements,
                  DragScene& to);

/// The command that brings the palettes of a drag scene into the open project, as a mode says; null where there is
/// nothing to bring. `elements`: the ids of the project's elements by those of the drag scene. Files follow with the
/// next save.
std::unique_ptr<CO_Command> newPalettesCommand(const DragScene& from, ProjectCommon& to,
                                               const std::map<int, int>& elements, DD_DropMode::PaletteMode mode);

} // namespace brindle::engine
