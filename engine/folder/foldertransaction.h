#pragma once

#include "engine/folder/savejournal.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace brindle::engine {

/// A change of any files of a folder that happens whole or not at all, also when the process is killed halfway, or the
/// disk fails: what each family of the project adds, replaces, removes and moves in one save.
///
/// The new contents are written to ".brindle-save" in the folder, and the old ones get a second name there. A journal
/// tells what is to be where, with sizes and checksums; the rename that gives the journal its name is the moment at
/// which the change happens. Then the new files are moved to their places and ".brindle-save" is removed. What a killed
/// process leaves is brought to one of the two ends by `folder_recovery`.
///
/// Contents are on the disk before the journal is, and the journal before the first file is moved. The caller holds the
/// folder's `FolderLock` for writing. Paths are relative to the folder; folders on the way are made. Contents and moves
/// speak of the files as they are before the change, whatever the order of the calls; of two that give a file a
/// content, the later counts.
class FolderTransaction {
public:
    explicit FolderTransaction(const Folder& folder) : m_folder(folder) {}

    void write(const QString& path, const QByteArray& content); ///< A file that has this content is left alone.
    void remove(const QString& path);                           ///< Unless it is given a content as well.
    /// Gives a file another place, with the content that it has on disk, which isn't read into memory.
    void move(const QString& from, const QString& to);

    /// Gives a file a copy of one that stands in a folder, this one or another, which outlives the change. That isn't
    /// read into memory before its turn.
    void copy(const Folder& from, const QString& name, const QString& to);

    /// Throws `FolderFailure`; the folder is then as before. Only a disk that can't even take back what was moved
    /// leaves a change that waits for `folder_recovery`.
    void commit();

private:
    /// The state that a file is given: a content, the content of another file, or none.
    struct Target {
        std::optional<QByteArray> content;
        QString source;
        const Folder* copied = nullptr; ///< The folder of a source that is copied.
        bool isRemoved() const { return !content && source.isEmpty(); }
    };

    void set(const QString& path, Target target);
    const Target& targetOf(const QString& path) const { return m_targets[m_places[path]].second; }
    SaveJournal plan() const;
    void stage(const SaveJournal& journal) const;
    void syncStage(const SaveJournal& journal) const;

    const Folder& m_folder;
    std::vector<std::pair<QString, Target>> m_targets; ///< By path, in the order of the calls.
    QHash<QString, std::size_t> m_places;              ///< The index of a path.
};

} // namespace brindle::engine
