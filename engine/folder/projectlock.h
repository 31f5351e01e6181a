#pragma once

#include <QString>

#include <memory>

class QLockFile;

namespace brindle::engine {

/// That a process works on a project: a file ".brindle-lock" in its folder, from opening to closing. It tells other
/// processes who has the project; they can read it meanwhile.
///
/// The lock of a process that ended without closing the project is taken over by the next one, on the same machine. A
/// lock that another machine left behind in a shared folder goes by removing the file.
///
/// An object holds the lock of one folder or none. In a process that was forked off, the copy of the object holds it no
/// more: the lock stays the parent's.
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
    void require(const QString& folder);
    /// Waits a little for those who have a `FolderLock`: not to be called within one of the same folder.
    void release();

    bool isHeld() const; ///< By this process.
    /// Whether it is held and stands in this folder. Not so any more when the folder was replaced, or the file removed.
    bool isOn(const QString& folder) const;

private:
    void removeFrom(const QString& folder);

    std::unique_ptr<QLockFile> m_file;
    long long m_process = 0;
    unsigned long long m_device = 0; ///< Which file it is, however the folder is named.
    unsigned long long m_inode = 0;
};

} // namespace brindle::engine
