#include "engine/folder/projectfolder.h"

#include "core/host/sc_scene.h"
#include "engine/elements/elementfile.h"
#include "engine/folder/folderrecovery.h"
#include "engine/folder/foldertransaction.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/projectfile.h"
#include "engine/folder/projectfiles.h"
#include "engine/folder/projectlock.h"
#include "engine/folder/scenefile.h"
#include "engine/folder/scenefilenames.h"

#include <QDir>
#include <QFileInfo>

#include <optional>

namespace brindle::engine {

namespace {

constexpr QLatin1String projectFile("project.json");

/// Does something that may throw `FolderFailure`, which becomes the sentence in `error`.
template <typename Action>
bool attempt(const char* what, QString& error, Action action)
{
    try {
        action();
        return true;
    } catch (const FolderFailure& failure) {
        error =
            QLatin1String("Cannot ") + QLatin1String(what) + QLatin1String(" the project: ") + failure.reason + u'.';
        return false;
    }
}

/// Whether a folder is there; anything else that is there is refused.
bool isFolder(const QString& path)
{
    switch (folder_io::kindOf(path)) {
    case FileKind::Nothing:
        return false;
    case FileKind::Folder:
        return true;
    case FileKind::File:
    case FileKind::Other:
        break;
    }
    throw FolderFailure{quoted(path) + " is a file, not a folder"};
}

void requireFolder(const QString& path)
{
    if (!isFolder(path))
        throw FolderFailure{quoted(path) + " does not exist"};
}

/// Folders that were made for a new project. They go again when it could not be made.
class MadePath {
public:
    ~MadePath()
    {
        for (const QString& path : m_made)
            folder_io::tryRemoveFolder(path);
    }
    void make(const QString& path)
    {
        QStringList missing;
        for (QString parent = path; !isFolder(parent); parent = QFileInfo(parent).path())
            missing.prepend(parent);
        for (const QString& folder : missing) {
            folder_io::makeFolder(folder);
            m_made.prepend(folder);
        }
    }
    void keep()
    {
        for (const QString& path : m_made)
            folder_io::sync(QFileInfo(path).path());
        m_made.clear();
    }

private:
    QStringList m_made; ///< The innermost first.
};

/// The files that the project on disk has, or nothing when what is there can't be read.
std::optional<QStringList> sceneFilesOnDisk(const Folder& folder)
{
    try {
        ProjectRecord record;
        return readProjectFile(JsonFile(folder.pathOf(projectFile), folder.read(projectFile)), record);
    } catch (const FolderFailure&) {
        return std::nullopt;
    }
}

/// Puts the scenes in place of those in the folder. `present` are the files of the scenes that are there; a file beside
/// them is somebody else's, and in the way. When it isn't known which are there, saving the scenes goes first. A folder
/// that the project goes on in (`isElsewhere`) gets all of the other files.
void writeProject(const Folder& folder, const ProjectRecord& record, const std::vector<TUScene*>& scenes,
                  const std::optional<QStringList>& present, const std::vector<ProjectFiles*>& others, bool isElsewhere)
{
    QStringList names;
    for (const TUScene* scene : scenes)
        names.append(scene->name());
    const QStringList files = sceneFileNames(names);

    FolderTransaction transaction(folder);
    for (qsizetype i = 0; i < files.size(); ++i) {
        if (present && !present->contains(files.at(i)) && folder.kindOf(files.at(i)) != FileKind::Nothing)
            throw FolderFailure{quoted(folder.pathOf(files.at(i))) + " is in the way: it is not a file of the project"};
        transaction.write(files.at(i), sceneText(*scenes[static_cast<std::size_t>(i)]));
    }
    transaction.write(projectFile, projectFileText(record, files));
    for (const QString& file : present.value_or(QStringList())) {
        if (!files.contains(file))
            transaction.remove(file);
    }
    for (ProjectFiles* other : others)
        other->addTo(transaction, folder, isElsewhere);
    transaction.commit();
    for (ProjectFiles* other : others)
        other->saved(folder);
}

/// Takes the lock of a project that is opened. Who can't have it is told what is left.
void requireOrHint(ProjectLock& lock, const Folder& folder)
{
    try {
        lock.require(folder);
    } catch (const FolderFailure& failure) {
        throw FolderFailure{failure.reason + "; it can be opened read-only"};
    }
}

bool holdsProject(const Folder& folder)
{
    return folder_recovery::isCommitted(folder) || folder.kindOf(projectFile) != FileKind::Nothing;
}

} // namespace

ProjectFolder::ProjectFolder(const QString& path) : m_path(path)
{
    if (path.isEmpty() || path.contains(QChar(0)))
        return;
    // Not by QFileInfo, for which a name that begins with a colon is none of a file.
    const QString start = path.startsWith(u'/') ? QStringLiteral("/") : QDir::currentPath();
    if (!start.isEmpty()) // It is empty where the working directory is gone; the path stays relative then.
        m_path = QDir::cleanPath(start + u'/' + path);
}

void ProjectFolder::requirePath() const
{
    if (m_path.isEmpty())
        throw FolderFailure{QStringLiteral("the path is empty")};
    if (m_path.contains(QChar(0)) || !m_path.isValidUtf16())
        throw FolderFailure{QStringLiteral("the path has a character that no path can have")};
    if (!m_path.startsWith(u'/'))
        throw FolderFailure{quoted(m_path) + " starts at the working directory, which is gone"};
}

void ProjectFolder::requireConsent() const
{
    if (!m_refusal.isEmpty())
        throw FolderFailure{m_refusal};
}

void ProjectFolder::makeProject(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock,
                                const std::vector<ProjectFiles*>& others) const
{
    requirePath();
    MadePath made;
    made.make(m_path);
    const Folder folder(m_path);
    ProjectLock taken; // Ahead of the lock below, for which it waits where it goes again.
    const FolderLock writing(folder, FolderLock::Writing);
    if (holdsProject(folder))
        throw FolderFailure{quoted(m_path) + " already holds a project"};
    requireConsent();
    taken.require(folder);
    writeProject(folder, record, scenes, QStringList(), others, true);
    made.keep();
    lock = std::move(taken);
}

bool ProjectFolder::create(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock,
                           QString& error, const std::vector<ProjectFiles*>& others) const
{
    return attempt("create", error, [&] { makeProject(record, scenes, lock, others); });
}

bool ProjectFolder::createForSave(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock,
                                  QString& error, const std::vector<ProjectFiles*>& others) const
{
    return attempt("save", error, [&] { makeProject(record, scenes, lock, others); });
}

bool ProjectFolder::write(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock,
                          QString& error, const std::vector<ProjectFiles*>& others) const
{
    return attempt("save", error, [&] {
        requirePath();
        requireFolder(m_path);
        const Folder folder(m_path);
        lock.requireSame(folder);
        const FolderLock writing(folder, FolderLock::Writing);
        lock.require(folder);
        if (folder_recovery::isInterrupted(folder))
            folder_recovery::recover(folder);
        writeProject(folder, record, scenes, sceneFilesOnDisk(folder), others, false);
    });
}

void ProjectFolder::readProject(ProjectMaker& maker, ProjectLock* lock) const
{
    requirePath();
    requireFolder(m_path);
    const Folder folder(m_path);
    std::optional<FolderLock> access(std::in_place, folder, lock ? FolderLock::Writing : FolderLock::Reading);
    if (!holdsProject(folder))
        throw FolderFailure{quoted(m_path) + " holds no project"};
    if (lock) {
        requireOrHint(*lock, folder);
        if (folder_recovery::isCommitted(folder))
            folder_recovery::recover(folder);
        access.emplace(folder, FolderLock::Reading);
    }
    const QHash<QString, QString> waiting = folder_recovery::waiting(folder);
    const auto read = [&](const QString& file) {
        bool missing = false;
        const QByteArray content = folder.read(waiting.value(file, file), &missing);
        if (missing)
            throw FolderFailure{quoted(folder.pathOf(file)) + " is missing"};
        return JsonFile(folder.pathOf(file), content);
    };
    const JsonFile project = read(projectFile);
    ProjectRecord record;
    const QStringList files = readProjectFile(project, record);
    maker.setRecord(record);
    if (record.hasElements)
        maker.addElements(read(QLatin1String(elementFileName)));
    QSet<QString> names;
    for (const QString& file : files)
        readScene(read(file), names, maker);
    requireConsent();
    maker.opened(folder, lock);
}

bool ProjectFolder::read(ProjectMaker& maker, ProjectLock& lock, QString& error) const
{
    return attempt("open", error, [&] { readProject(maker, &lock); });
}

bool ProjectFolder::readOnly(ProjectMaker& maker, QString& error) const
{
    return attempt("open", error, [&] { readProject(maker, nullptr); });
}

} // namespace brindle::engine
