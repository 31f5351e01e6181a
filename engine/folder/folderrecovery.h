#pragma once

#include "engine/folder/savejournal.h"

#include <QHash>
#include <QString>

/// Ends a change of a folder (`FolderTransaction`) whose process was killed: it goes forward to its end with a journal,
/// and back without one. Each step can be repeated.
///
/// Nothing is moved before all that is needed is known to be whole. Where a part is missing or is not what the journal
/// says, the folder goes back to what it was before the change, and the remains of the change are kept in
/// ".brindle-save-damaged".
namespace brindle::engine::folder_recovery {

bool isInterrupted(const Folder& folder); ///< Whether there is anything to end.
bool isCommitted(const Folder& folder);   ///< Whether the change has happened: a journal is there.

/// Ends what was interrupted. A change that failed in this process and could not be taken back is taken back now.
/// Throws `FolderFailure`: where the remains were put aside, the sentence says so, and the next call has nothing to do;
/// otherwise the change still waits to be ended.
void recover(const Folder& folder);

/// The files that stand elsewhere than at their paths while a change waits to be ended, for who reads the folder and
/// may not change it. A damaged change counts for nothing, and the log says so.
QHash<QString, QString> waiting(const Folder& folder);

/// Steps of the change itself. `moveForward` also removes each folder that the last file has left.
void moveForward(const Folder& folder, const SaveJournal& journal);
void removeStage(const Folder& folder);

/// Takes back a change that has failed. Where this fails as well (`FolderFailure`), the next `recover` of this process
/// does it.
void takeBack(const Folder& folder, const SaveJournal& journal);

} // namespace brindle::engine::folder_recovery
