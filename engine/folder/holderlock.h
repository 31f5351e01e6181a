#pragma once

#include "engine/folder/filelocation.h"
#include "engine/folder/folder.h"

#include <QString>

#include <optional>

namespace brindle::engine {

/// Marks something in a folder as taken by a process: a lock file, from `require` to `release`, that tells the person,
/// machine and process. Others can read what is locked.
///
/// The lock is that of the folder, not of its path: it goes along when the folder is renamed. The lock of a process
/// that ended without giving it back is taken over by the next one, on the same machine. A lock that another machine
/// left behind in a shared folder goes by removing the file.
///
/// An object holds the lock of one folder or none. In a process that was forked off, the copy of the object holds it no
/// more: the lock stays the parent's.
///
/// The file is one of QLockFile's form, which tells its holder and is locked by the system while that lives. QLockFile
/// itself knows its file by the path only: it would remove what stands there once the folder has moved.
class HolderLock {
public:
    /// `file` is the name of the lock's file in a folder, and `subject` that of what it locks; empty for the folder.
    explicit HolderLock(const QString& file, const QString& subject = {}) : m_name(file), m_subject(subject) {}
    HolderLock(HolderLock&& other) noexcept;
    HolderLock& operator=(HolderLock&& other) noexcept;
    ~HolderLock();

    /// Holds the lock of this folder from now on, and lets another one go; nothing happens when it is held already.
    /// Throws `FolderFailure` when another process has it, or when the folder can't be written; what was held stays.
    ///
    /// To be called within a `FolderLock` for writing: two processes never look for a dead one's lock at once.
    void require(const Folder& folder);
    /// The folder may have another path by now: holds the lock of the one that is there, where that is another. A
    /// failure is a line in the log, and no lock is held then.
    void follow(const QString& path);
    /// Waits a little for those who have a `FolderLock`: not to be called within one of the same folder.
    void release();

    bool isHeld() const; ///< By this process.
    /// Whether it is held and its file stands in this folder. Not so any more when the file was removed.
    bool isOn(const QString& path) const;
    /// The folder that it was taken in, wherever that is by now, also in a process that was forked off; null before.
    const Folder* folder() const { return m_folder ? &*m_folder : nullptr; }

    /// Throws `FolderFailure` when it was taken in another folder than this one, which may have taken its place.
    void requireSame(const Folder& folder) const;
    /// Throws `FolderFailure` when another process that lives has the lock of this folder. It takes nothing.
    void requireFree(const Folder& folder) const;

private:
    bool isThere() const;
    QString subjectIn(const Folder& folder) const { return quoted(folder.pathOf(m_subject)); }
    Descriptor make(const Folder& folder) const;
    void removeStale(const Folder& folder) const;

    QString m_name;
    QString m_subject;
    std::optional<Folder> m_folder;
    Descriptor m_file;
    long long m_process = 0;
};

} // namespace brindle::engine
