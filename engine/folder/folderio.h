#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

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

/// The kind of a file at a path. A symbolic link counts as what it leads to.
enum class FileKind { Nothing, File, Folder, Other };

/// By what a content is known again: its size in bytes and its CRC-32.
struct Checksum {
    qint64 size = 0;
    std::uint32_t crc = 0;

    static Checksum of(const QByteArray& content);
    bool operator==(const Checksum&) const = default;
};

/// Operations on files by their paths. They throw `FolderFailure`.
namespace folder_io {

FileKind kindOf(const QString& path);
/// The whole content. `missing`, when given, is set instead of throwing when nothing is there.
QByteArray read(const QString& path, bool* missing = nullptr);
void rename(const QString& from, const QString& to);
void makeFolder(const QString& path);
void tryRemoveFolder(const QString& path) noexcept;
void sync(const QString& folder); ///< Waits until the disk has the folder's entries.

} // namespace folder_io

} // namespace brindle::engine
