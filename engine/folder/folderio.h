#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>

namespace brindle::engine {

/// Why a project could not be read or written: a sentence without its beginning ("Cannot open the project: ") and its
/// full stop. Thrown within engine/folder only; `ProjectFolder` turns it into its error.
struct FolderFailure {
    QString reason;

    /// "/p/project.json" cannot be written: no space left on device.
    static FolderFailure ofSystem(const QString& path, const char* what, int error);
    /// "/p/project.json" has format version 3, and this version of the application reads versions up to 2.
    static FolderFailure ofNewerVersion(const QString& path, int found, int newest);
};

/// The path in double quotes, as messages name it: on one line, whatever is in it.
QString quoted(const QString& path);

/// What stands at a path. A symbolic link counts as what it leads to.
enum class FileKind { Nothing, File, Folder, Other };

/// Operations on files that throw `FolderFailure`.
namespace folder_io {

FileKind kindOf(const QString& path);

/// The whole content. `missing`, when given, is set instead of throwing when nothing is there.
QByteArray read(const QString& path, bool* missing = nullptr);

/// Makes a new file. A failure names `shownAs`, the file that the content is meant for, and leaves no file. `mode` is
/// the file's permissions, before the process's mask.
void writeNew(const QString& path, const QByteArray& content, const QString& shownAs, unsigned int mode);

/// Waits until the disk has a file's content.
void syncFile(const QString& path, const QString& shownAs);
/// Waits until the disk has all files, also those of others, that stand on the one that the folder is on.
void syncDisk(const QString& folder);

void rename(const QString& from, const QString& to);
void remove(const QString& path); ///< Nothing there is as good.
void makeFolder(const QString& path);
void removeFolder(const QString& path); ///< An empty one; nothing there is as good.
void tryRemoveFolder(const QString& path) noexcept;
void sync(const QString& folder); ///< Waits until the disk has the folder's entries.
QStringList entries(const QString& folder);

/// Throws when `rename` from the folder onto a path below it would be refused: no permission on the file or the folder
/// that it is in, a folder in its place, another disk.
void requireReplaceable(const QString& folder, const QString& path);
/// Permissions that a file in place of this one is given.
unsigned int modeOf(const QString& path);

} // namespace folder_io

/// Keeps other processes from saving into a folder (`Reading`), or from reading it as well (`Writing`). Leaves nothing
/// on disk, and ends with the process. On a file system without locks it does nothing.
class FolderLock {
public:
    enum Purpose { Reading, Writing };

    /// Waits for another process as long as `patience`, then throws.
    FolderLock(const QString& folder, Purpose purpose, std::chrono::milliseconds patience = std::chrono::seconds(10));
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

private:
    int m_descriptor;
};

} // namespace brindle::engine
