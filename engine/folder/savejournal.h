#pragma once

#include "engine/folder/folder.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace brindle::engine {

/// The folder in which a change of a folder is prepared, and its files. Part n is the new content of the journal's
/// file n, and kept n the old one.
namespace save_stage {

inline constexpr QLatin1String folder(".brindle-save");
inline constexpr QLatin1String journal(".brindle-save/journal.json");
inline constexpr QLatin1String newJournal(".brindle-save/journal.new");

QString part(std::size_t number);
QString kept(std::size_t number);

} // namespace save_stage

/// The record of a change of a folder, from which the next process ends it where this one is killed:
///
///     format, version  "brindle-journal", 2
///     files            path, and the contents [size, CRC-32] that the file has `before` and `after`; the first is left
///                      out where it is new, the second where it goes
///
/// Version 1 lists the paths to "replace" and to "remove", and nothing of their contents.
class SaveJournal {
public:
    struct File {
        QString path;
        std::optional<Checksum> before;
        std::optional<Checksum> after;
    };

    /// Throws `FolderFailure` where the text is damaged, and `NewerFormat` where a newer version of the application
    /// wrote it.
    static SaveJournal read(const QString& path, const QByteArray& text);
    struct NewerFormat : FolderFailure {};

    QByteArray text() const;

    std::vector<File> files;
    /// Whether the old contents are known and kept; not so in version 1, which has no checksums either: those of its
    /// `after` are empty.
    bool keepsOld = true;
};

} // namespace brindle::engine
