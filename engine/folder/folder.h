#pragma once

#include "engine/folder/folderio.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace brindle::engine {

struct FileLocation;

/// A folder that is open, and the files in it by their names: "project.json", "scenes/a.json"; an empty name is the
/// folder itself.
///
/// It stays this very folder when it is renamed, or when another one takes its place at its path. Failures
/// (`FolderFailure`) name a file by the path that the folder was opened at, or by the one that it is meant for
/// (`shownAs`, a name as well).
class Folder {
public:
    explicit Folder(const QString& path); ///< Throws where there is no folder, or it may not be read.
    Folder(const Folder& other);          ///< Opens the same folder once more.
    Folder(Folder&& other) noexcept;
    Folder& operator=(Folder other) noexcept;
    ~Folder();

    const QString& path() const { return m_path; }
    QString pathOf(const QString& name) const;
    int descriptor() const { return m_descriptor; }
    bool isSameAs(const Folder& other) const;
    QString place() const; ///< The path that it has by now; empty where it was removed.

    FileKind kindOf(const QString& name) const;
    QByteArray read(const QString& name, bool* missing = nullptr) const;
    std::optional<Checksum> checksum(const QString& name) const; ///< Nothing where there is no file.
    QStringList entries(const QString& name) const;

    /// Makes a new file, which a failure doesn't leave. `mode` is its permissions, before the process's mask.
    void writeNew(const QString& name, const QByteArray& content, const QString& shownAs, unsigned int mode) const;
    /// Makes a second name of a file; a copy of it where the file system has no such thing.
    void link(const QString& from, const QString& to, const QString& shownAs) const;
    void rename(const QString& from, const QString& to) const;
    void remove(const QString& name) const; ///< Nothing there is as good.
    void makeFolder(const QString& name) const;
    void removeFolder(const QString& name) const; ///< An empty one; nothing there is as good.

    void syncFile(const QString& name, const QString& shownAs) const; ///< Waits until the disk has its content.
    void sync(const QString& name) const;                             ///< Waits until the disk has a folder's entries.
    /// Waits until the disk has all files, also those of others, that stand on the one that the folder is on.
    void syncDisk() const;

    /// Throws when `rename` from the folder onto this name would be refused: no permission on the file or the folder
    /// that it is in, a folder in its place, another disk.
    void requireReplaceable(const QString& name) const;
    unsigned int modeOf(const QString& name) const; ///< Permissions that a file in place of this one is given.

private:
    FileLocation in(const QString& name) const;
    FileLocation in(const QString& name, const QString& shownAs) const;

    int m_descriptor;
    QString m_path;
};

/// Keeps other processes from saving into a folder (`Reading`), or from reading it as well (`Writing`). Leaves nothing
/// on disk, and ends with the process. On a file system without locks it does nothing.
class FolderLock {
public:
    enum Purpose { Reading, Writing };

    /// Waits for another process as long as `patience`, then throws.
    FolderLock(const Folder& folder, Purpose purpose, std::chrono::milliseconds patience = std::chrono::seconds(10));
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

private:
    Folder m_folder; ///< Opened for the lock: closing it, also elsewhere, lets nothing else go.
};

} // namespace brindle::engine
