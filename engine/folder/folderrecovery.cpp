#include "engine/folder/folderrecovery.h"

#include "core/host/msg_scope.h"
#include "engine/folder/jsonplace.h"

#include <QSet>

#include <map>

namespace brindle::engine::folder_recovery {

namespace {

constexpr QLatin1String asideFolder(".brindle-save-damaged");

/// A change whose process was killed, as it is found.
struct Found {
    SaveJournal journal;
    QString damage;          ///< Why it can't be brought to its end; empty where it can.
    bool isOldWhole = false; ///< Whether what was there before can be had back.
};

bool isPartWhole(const Folder& folder, const SaveJournal& journal, std::size_t number)
{
    return folder.checksum(save_stage::part(number)) == journal.files[number].after;
}

bool isMoved(const Folder& folder, const SaveJournal::File& file)
{
    return folder.checksum(file.path) == file.after;
}

QString damageOf(const Folder& folder, const SaveJournal& journal)
{
    for (std::size_t number = 0; number < journal.files.size(); ++number) {
        const SaveJournal::File& file = journal.files[number];
        if (!file.after || isPartWhole(folder, journal, number) || isMoved(folder, file))
            continue;
        const QString part = save_stage::part(number);
        return quoted(folder.pathOf(part)) +
               QLatin1String(folder.kindOf(part) == FileKind::Nothing ? " is missing" : " is not whole");
    }
    return {};
}

bool canGoBack(const Folder& folder, const SaveJournal& journal)
{
    for (std::size_t number = 0; number < journal.files.size(); ++number) {
        const SaveJournal::File& file = journal.files[number];
        if (file.before && folder.checksum(file.path) != file.before &&
            folder.checksum(save_stage::kept(number)) != file.before)
            return false;
    }
    return true;
}

/// A journal of version 1 knows no checksums. Its files are JSON, which shows where one ends too early; they were moved
/// in their order, so that one which is missing behind one that is there was not moved. Fills in what the files are,
/// and gives what is damaged.
QString completeFirstVersion(const Folder& folder, SaveJournal& journal, bool& isOldWhole)
{
    isOldWhole = true;
    bool isMoving = true;
    for (std::size_t number = 0; number < journal.files.size(); ++number) {
        SaveJournal::File& file = journal.files[number];
        if (!file.after)
            continue;
        const QString part = save_stage::part(number);
        bool isMissing = false;
        const QByteArray content = folder.read(part, &isMissing);
        file.after = isMissing ? folder.checksum(file.path) : Checksum::of(content);
        isMoving = isMoving && isMissing;
        if (isMissing && isMoving)
            isOldWhole = false;
        if (isMissing && !(isMoving && file.after))
            return quoted(folder.pathOf(part)) + " is missing";
        if (isMissing)
            continue;
        try {
            JsonFile(folder.pathOf(part), content);
        } catch (const FolderFailure& failure) {
            return failure.reason;
        }
    }
    return {};
}

/// Throws where a newer version of the application wrote the journal, and where something can't be read.
Found inspect(const Folder& folder)
{
    Found found;
    const QByteArray text = folder.read(save_stage::journal);
    try {
        found.journal = SaveJournal::read(folder.pathOf(save_stage::journal), text);
    } catch (const SaveJournal::NewerFormat&) {
        throw;
    } catch (const FolderFailure& failure) {
        found.damage = failure.reason;
        return found;
    }
    if (!found.journal.keepsOld) {
        found.damage = completeFirstVersion(folder, found.journal, found.isOldWhole);
        return found;
    }
    found.damage = damageOf(folder, found.journal);
    found.isOldWhole = canGoBack(folder, found.journal);
    return found;
}

/// The changes that failed in this process and could not be taken back, by folder. Their journals on disk say that they
/// have happened, but their callers were told that they failed.
std::map<QString, SaveJournal>& failures()
{
    static std::map<QString, SaveJournal> failures;
    return failures;
}

QString parentOf(const QString& name)
{
    return name.left(std::max<qsizetype>(name.lastIndexOf(u'/'), 0));
}

void syncFolders(const Folder& folder, const SaveJournal& journal)
{
    QSet<QString> names;
    for (const SaveJournal::File& file : journal.files) {
        QString name = parentOf(file.path);
        while (!name.isEmpty() && !names.contains(name) && folder.kindOf(name) != FileKind::Folder)
            name = parentOf(name);
        names.insert(name);
    }
    for (const QString& name : names)
        folder.sync(name);
}

QString toldOf(const Found& found)
{
    return QStringLiteral("the save that was interrupted there is damaged (") + found.damage + u')';
}

/// Removes the folders that files have left which were the last ones in them.
void removeEmptied(const Folder& folder, const SaveJournal& journal)
{
    QSet<QString> seen;
    for (const SaveJournal::File& file : journal.files) {
        if (file.after)
            continue;
        for (QString name = parentOf(file.path); !name.isEmpty() && !seen.contains(name); name = parentOf(name)) {
            seen.insert(name);
            try {
                folder.removeFolder(name);
            } catch (const FolderFailure&) { // Something else is in it, or above it.
                break;
            }
        }
    }
}

/// Makes the folders on the way to a file again, which went with the last file in them.
void requireParents(const Folder& folder, const QString& path)
{
    for (qsizetype slash = path.indexOf(u'/'); slash >= 0; slash = path.indexOf(u'/', slash + 1)) {
        const QString name = path.left(slash);
        if (folder.kindOf(name) != FileKind::Nothing)
            continue;
        folder.makeFolder(name);
        folder.sync(parentOf(name));
    }
}

void moveBack(const Folder& folder, const SaveJournal& journal)
{
    for (std::size_t number = 0; number < journal.files.size(); ++number) {
        const SaveJournal::File& file = journal.files[number];
        const std::optional<Checksum> now = folder.checksum(file.path);
        if (now == file.before)
            continue;
        if (file.after && now == file.after && folder.kindOf(save_stage::part(number)) == FileKind::Nothing)
            folder.rename(file.path, save_stage::part(number));
        if (file.before) {
            requireParents(folder, file.path);
            folder.rename(save_stage::kept(number), file.path);
        } else if (now == file.after)
            folder.remove(file.path);
    }
    syncFolders(folder, journal);
}

[[noreturn]] void putAside(const Folder& folder, const Found& found)
{
    QString aside = asideFolder;
    for (int number = 2; folder.kindOf(aside) != FileKind::Nothing; ++number)
        aside = asideFolder + u'-' + QString::number(number);
    folder.rename(save_stage::folder, aside);
    folder.sync(QString());
    throw FolderFailure{toldOf(found) + "; its remains are kept in " + quoted(folder.pathOf(aside)) +
                        (found.isOldWhole ? ", and the project is as it was before that save" : "")};
}

} // namespace

bool isInterrupted(const Folder& folder)
{
    return folder.kindOf(save_stage::folder) == FileKind::Folder;
}

bool isCommitted(const Folder& folder)
{
    return folder.kindOf(save_stage::journal) == FileKind::File;
}

void takeBack(const Folder& folder, const SaveJournal& journal)
{
    failures().insert_or_assign(folder.path(), journal);
    moveBack(folder, journal);
    removeStage(folder);
    failures().erase(folder.path());
}

void recover(const Folder& folder)
{
    const auto failure = failures().find(folder.path());
    if (failure != failures().end()) {
        const SaveJournal journal = failure->second;
        failures().erase(failure);
        if (isInterrupted(folder) && canGoBack(folder, journal))
            takeBack(folder, journal);
    }
    if (isCommitted(folder)) {
        const Found found = inspect(folder);
        if (!found.damage.isEmpty()) {
            if (found.isOldWhole && found.journal.keepsOld)
                moveBack(folder, found.journal);
            putAside(folder, found);
        }
        for (std::size_t number = 0; number < found.journal.files.size(); ++number) {
            if (!isPartWhole(folder, found.journal, number)) // Its file has been moved before.
                folder.remove(save_stage::part(number));
            else if (found.journal.files[number].after)
                requireParents(folder, found.journal.files[number].path);
        }
        moveForward(folder, found.journal);
    }
    removeStage(folder);
}

QHash<QString, QString> waiting(const Folder& folder)
{
    QHash<QString, QString> places;
    if (!isCommitted(folder))
        return places;
    const Found found = inspect(folder);
    const bool isGoingBack = !found.damage.isEmpty();
    if (isGoingBack)
        MSG_Scope(QStringLiteral("In ") + quoted(folder.path()) + u' ' + toldOf(found) + u'.', MSG_Scope::kError);
    for (std::size_t number = 0; number < found.journal.files.size(); ++number) {
        const SaveJournal::File& file = found.journal.files[number];
        const std::optional<Checksum>& wanted = isGoingBack ? file.before : file.after;
        const QString place = isGoingBack ? save_stage::kept(number) : save_stage::part(number);
        if (wanted && folder.checksum(file.path) != wanted && folder.checksum(place) == wanted)
            places.insert(file.path, place);
    }
    return places;
}

void moveForward(const Folder& folder, const SaveJournal& journal)
{
    for (std::size_t number = 0; number < journal.files.size(); ++number) {
        const SaveJournal::File& file = journal.files[number];
        if (!file.after)
            folder.remove(file.path);
        else if (folder.kindOf(save_stage::part(number)) == FileKind::File)
            folder.rename(save_stage::part(number), file.path);
    }
    removeEmptied(folder, journal);
    syncFolders(folder, journal);
}

/// The journal first: without it, nothing that is left has a meaning.
void removeStage(const Folder& folder)
{
    if (!isInterrupted(folder))
        return;
    folder.remove(save_stage::journal);
    for (const QString& name : folder.entries(save_stage::folder))
        folder.remove(save_stage::folder + u'/' + name);
    folder.removeFolder(save_stage::folder);
}

} // namespace brindle::engine::folder_recovery
