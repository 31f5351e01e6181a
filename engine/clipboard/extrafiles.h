#pragma once

#include "core/host/co_command.h"
#include "engine/clipboard/dragscene.h"

#include <map>
#include <memory>

namespace brindle::engine {

/// Copies files that a project doesn't know into a drag scene: all below the folder "modelling" of its own folder, and
/// below "scan" in the folders of elements. `elements`: the ids in the drag scene by those of the project. Throws
/// `FolderFailure`.
void copyExtraFiles(ElementManager& from, const std::map<int, int>& elements, bool modelling, bool scans,
                    DragScene& to);

/// The command that brings these files into a project, where they are written with its next save; one that something
/// stands in the place of already is left out. Null where there is nothing to bring. `elements`: the ids of the
/// project's elements by those of the drag scene.
std::unique_ptr<CO_Command> newExtraFilesCommand(const DragScene& from, ElementManager& to,
                                                 const std::map<int, int>& elements);

} // namespace brindle::engine
