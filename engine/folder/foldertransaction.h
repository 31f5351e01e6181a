#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace brindle::engine {

/// A change of several files of a folder that happens whole or not at all, also when the process is killed halfway.
///
/// New contents are written to ".brindle-save" in the folder. A journal there names the files that they replace and the
/// files that go; the rename that gives the journal its name is the moment at which the change happens. Then the new
/// files are moved to their places and ".brindle-save" is removed. What a killed process leaves is brought to one of
/// the two ends by `recover`: forward with a journal, back without one. Each of its steps can be done again.
///
/// Contents are on the disk before the journal is, and the journal before the first file is moved. The caller holds the
/// folder's `FolderLock` for writing. Paths are relative to the folder: a name, or one folder and a name.
class FolderTransaction {
public:
    explicit FolderTransaction(const QString& folder) : m_folder(folder) {}

    /// A file that has this content already is left alone.
    void replace(const QString& path, const QByteArray& content);
    void remove(const QString& path);

    /// Throws `FolderFailure`; the folder is then as before. Only a disk that fails between the first file that is
    /// moved and the last leaves a change that has happened and waits for `recover`.
    void commit();

    /// Whether a process was killed while it changed the folder; and whether the change has happened.
    static bool isInterrupted(const QString& folder);
    static bool isCommitted(const QString& folder);
    /// The files of a change that has happened and waits to be ended, by path, and where their new contents stand
    /// meanwhile; for who reads the folder and may not change it.
    static QHash<QString, QString> waiting(const QString& folder);
    /// Ends what was interrupted. Throws `FolderFailure`; a change that has happened then still waits to be ended.
    static void recover(const QString& folder);

private:
    void dropUnchanged();
    void stage() const;
    QByteArray journal() const;

    QString m_folder;
    std::vector<std::pair<QString, QByteArray>> m_replaced;
    QStringList m_removed;
};

} // namespace brindle::engine
