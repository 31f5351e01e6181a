#include "engine/folder/foldertransaction.h"

#include "engine/folder/folderio.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

namespace brindle::engine {

namespace {

constexpr int journalVersion = 1;
/// To wait for a file takes the disk some milliseconds, and for all that are to be written not much longer.
constexpr std::size_t mostFilesOneByOne = 8;

QString stagePath(const QString& folder)
{
    return folder + "/.brindle-save";
}

QString journalPath(const QString& folder)
{
    return stagePath(folder) + "/journal.json";
}

/// New contents are named by their place in the journal.
QString stagedPath(const QString& folder, int index)
{
    return stagePath(folder) + u'/' + QString::number(index);
}

QString subfolderOf(const QString& path)
{
    return path.left(std::max<qsizetype>(path.indexOf(u'/'), 0));
}

struct Journal {
    QStringList replaced;
    QStringList removed;
};

/// A journal may lead to files of the folder only, whoever wrote it.
QString filePath(const JsonPlace& place)
{
    const QString path = place.text();
    const QStringList parts = path.split(u'/');
    const bool inside = parts.size() <= 2 && !parts.contains(QString()) && !parts.contains(QStringLiteral(".")) &&
                        !parts.contains(QStringLiteral("..")) && !path.contains(QChar(0));
    if (!inside)
        place.fail(QStringLiteral("is no file of the project"));
    return path;
}

Journal readJournal(const QString& folder)
{
    const JsonFile file(journalPath(folder), folder_io::read(journalPath(folder)));
    const JsonPlace root = file.root();
    root.requireFormat("brindle-journal", journalVersion);
    root.requireOnly({"format", "version", "replace", "remove"});
    Journal journal;
    const JsonPlace replaced = root.field("replace");
    for (int i = 0; i < replaced.size(); ++i)
        journal.replaced.append(filePath(replaced.item(i)));
    const JsonPlace removed = root.field("remove");
    for (int i = 0; i < removed.size(); ++i)
        journal.removed.append(filePath(removed.item(i)));
    file.requireNoFieldTwice();
    return journal;
}

/// Removes ".brindle-save", the journal first: without it, nothing that is left has a meaning.
void removeStage(const QString& folder)
{
    folder_io::remove(journalPath(folder));
    for (const QString& name : folder_io::entries(stagePath(folder)))
        folder_io::remove(stagePath(folder) + u'/' + name);
    folder_io::removeFolder(stagePath(folder));
}

/// Removes it on the way out of a failure, which is what the caller gets to hear of.
void tryRemoveStage(const QString& folder)
{
    try {
        removeStage(folder);
    } catch (const FolderFailure&) {
    }
}

void syncFolders(const QString& folder, const QStringList& changed)
{
    QStringList folders;
    for (const QString& path : changed) {
        const QString sub = subfolderOf(path);
        if (!folders.contains(sub))
            folders.append(sub);
    }
    for (const QString& sub : folders) {
        if (folder_io::kindOf(folder + u'/' + sub) == FileKind::Folder)
            folder_io::sync(folder + u'/' + sub);
    }
}

/// Moves a new file to its place. Where the new content is gone it was moved before.
void moveStaged(const QString& folder, const Journal& journal, int index)
{
    if (folder_io::kindOf(stagedPath(folder, index)) == FileKind::File)
        folder_io::rename(stagedPath(folder, index), folder + u'/' + journal.replaced.at(index));
}

void rollForwardFirst(const QString& folder, const Journal& journal)
{
    if (!journal.replaced.isEmpty())
        moveStaged(folder, journal, 0);
}

void rollForward(const QString& folder, const Journal& journal)
{
    for (int i = 0; i < journal.replaced.size(); ++i)
        moveStaged(folder, journal, i);
    for (const QString& path : journal.removed)
        folder_io::remove(folder + u'/' + path);
    syncFolders(folder, journal.replaced + journal.removed);
}

/// Subfolders that a change needs, made before it and removed again when it fails.
class MadeFolders {
public:
    explicit MadeFolders(const QString& folder) : m_folder(folder) {}
    ~MadeFolders()
    {
        for (const QString& path : m_made)
            folder_io::tryRemoveFolder(path);
    }
    void require(const QString& sub)
    {
        const QString path = m_folder + u'/' + sub;
        if (sub.isEmpty() || folder_io::kindOf(path) == FileKind::Folder)
            return;
        folder_io::makeFolder(path);
        m_made.append(path);
    }
    void keep() { m_made.clear(); }

private:
    QString m_folder;
    QStringList m_made;
};

} // namespace

void FolderTransaction::replace(const QString& path, const QByteArray& content)
{
    m_replaced.emplace_back(path, content);
}

void FolderTransaction::remove(const QString& path)
{
    m_removed.append(path);
}

void FolderTransaction::commit()
{
    if (isInterrupted(m_folder))
        recover(m_folder);
    dropUnchanged();
    if (m_replaced.empty() && m_removed.isEmpty())
        return;

    MadeFolders made(m_folder);
    for (const auto& [path, content] : m_replaced) {
        made.require(subfolderOf(path));
        folder_io::requireReplaceable(m_folder, path);
    }
    for (const QString& path : m_removed)
        folder_io::requireReplaceable(m_folder, path);

    Journal journal;
    for (const auto& [path, content] : m_replaced)
        journal.replaced.append(path);
    journal.removed = m_removed;
    try {
        stage();
        folder_io::rename(stagePath(m_folder) + "/journal.new", journalPath(m_folder));
        folder_io::sync(stagePath(m_folder));
        rollForwardFirst(m_folder, journal);
    } catch (const FolderFailure&) {
        tryRemoveStage(m_folder);
        throw;
    }
    // From the first moved file on it can only be completed, now or by the next process.
    made.keep();
    rollForward(m_folder, journal);
    removeStage(m_folder);
}

void FolderTransaction::dropUnchanged()
{
    std::erase_if(m_replaced, [this](const auto& file) {
        const QString path = m_folder + u'/' + file.first;
        try {
            return folder_io::kindOf(path) == FileKind::File && folder_io::read(path) == file.second;
        } catch (const FolderFailure&) {
            return false;
        }
    });
    m_removed.removeIf(
        [this](const QString& path) { return folder_io::kindOf(m_folder + u'/' + path) == FileKind::Nothing; });
}

void FolderTransaction::stage() const
{
    const QString newJournal = stagePath(m_folder) + "/journal.new";
    folder_io::makeFolder(stagePath(m_folder));
    int index = 0;
    for (const auto& [path, content] : m_replaced) {
        const QString target = m_folder + u'/' + path;
        folder_io::writeNew(stagedPath(m_folder, index++), content, target, folder_io::modeOf(target));
    }
    folder_io::writeNew(newJournal, journal(), journalPath(m_folder), 0666);
    if (m_replaced.size() > mostFilesOneByOne) {
        folder_io::syncDisk(m_folder);
        return;
    }
    index = 0;
    for (const auto& [path, content] : m_replaced)
        folder_io::syncFile(stagedPath(m_folder, index++), m_folder + u'/' + path);
    folder_io::syncFile(newJournal, journalPath(m_folder));
    folder_io::sync(stagePath(m_folder));
}

QByteArray FolderTransaction::journal() const
{
    JsonWriter json;
    json.beginObject();
    json.key("format").text(QStringLiteral("brindle-journal"));
    json.key("version").integer(journalVersion);
    json.key("replace").beginArray();
    for (const auto& [path, content] : m_replaced)
        json.text(path);
    json.endArray();
    json.key("remove").beginArray();
    for (const QString& path : m_removed)
        json.text(path);
    json.endArray();
    json.endObject();
    return json.result();
}

bool FolderTransaction::isInterrupted(const QString& folder)
{
    return folder_io::kindOf(stagePath(folder)) == FileKind::Folder;
}

bool FolderTransaction::isCommitted(const QString& folder)
{
    return folder_io::kindOf(journalPath(folder)) == FileKind::File;
}

QHash<QString, QString> FolderTransaction::waiting(const QString& folder)
{
    QHash<QString, QString> places;
    const QStringList paths = isCommitted(folder) ? readJournal(folder).replaced : QStringList();
    for (int i = 0; i < paths.size(); ++i) {
        if (folder_io::kindOf(stagedPath(folder, i)) == FileKind::File)
            places.insert(paths.at(i), stagedPath(folder, i));
    }
    return places;
}

void FolderTransaction::recover(const QString& folder)
{
    if (isCommitted(folder))
        rollForward(folder, readJournal(folder));
    removeStage(folder);
}

} // namespace brindle::engine
