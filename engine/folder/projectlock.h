#pragma once

#include "engine/folder/filelocation.h"
#include "engine/folder/folder.h"

#include <QString>

#include <optional>

namespace brindle::engine {

/// Marks a project as open in a process: a file ".brindle-lock" in its folder, from opening to closing. It tells other
/// processes who has the project; they can read it meanwhile.
///
/// The lock is that of the folder, not of its path: it goes along when the folder is renamed. The lock of a process
/// that ended without closing the project is taken over by the next one, on the same machine. A lock that another
/// machine left behind in a shared folder goes by removing the file.
///
/// An object holds the lock of one folder or none. In a process that was forked off, the copy of the object holds it no
/// more: the lock stays the parent's.
///
/// The file is one of QLockFile's form, which tells its holder and is locked by the system while that lives. QLockFile
/// itself knows its file by the path only: it would remove what stands there once the folder has moved.
class ProjectLock {
public:
    ProjectLock();
    ProjectLock(ProjectLock&& other) noexcept;
    ProjectLock& operator=(ProjectLock&& other) noexcept;
    ~ProjectLock();

    /// Holds the lock of this folder from now on, and lets another one go; nothing happens when it is held already.
    /// Throws `FolderFailure` when another process has it, or when the folder can't be written; what was held stays.
    ///
    /// To be called within a `FolderLock` for writing: two processes never look for a dead one's lock at once.
    void require(const Folder& folder);
    /// Waits a little for those who have a `FolderLock`: not to be called within one of the same folder.
    void release();

    bool isHeld() const; ///< By this process.
    /// Whether it is held and its file stands in this folder. Not so any more when the file was removed.
    bool isOn(const QString& path) const;
    /// The folder that it was taken in, wherever that is by now, also in a process that was forked off; null before.
    const Folder* folder() const { return m_folder ? &*m_folder : nullptr; }

private:
    bool isThere() const;

    std::optional<Folder> m_folder;
    Descriptor m_file;
    long long m_process = 0;
};

} // namespace brindle::engine
