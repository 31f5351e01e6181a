#include "engine/folder/projectfolder.h"

#include "core/host/sc_scene.h"
#include "engine/folder/foldertransaction.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/folder/scenefile.h"
#include "engine/folder/scenefilenames.h"

#include <QDir>
#include <QFileInfo>

#include <optional>

namespace engine {

namespace {

constexpr char projectFormat[] = "brindle-project";
constexpr int projectVersion = 1;
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

/// The files of scenes that "project.json" names.
QStringList sceneFilesIn(const JsonFile& file)
{
    const JsonPlace root = file.root();
    root.requireFormat(projectFormat, projectVersion);
    root.requireOnly({"format", "version", "scenes"});
    const JsonPlace scenes = root.field("scenes");
    QStringList files;
    for (int i = 0; i < scenes.size(); ++i) {
        const JsonPlace scene = scenes.item(i);
        if (!isSceneFileName(scene.text()))
            scene.fail(QStringLiteral("is no file of a scene"));
        if (files.contains(scene.text()))
            scene.fail(QStringLiteral("is the file of another scene"));
        files.append(scene.text());
    }
    if (files.isEmpty())
        scenes.fail(QStringLiteral("has no scene"));
    file.requireNoFieldTwice();
    return files;
}

QByteArray projectText(const QStringList& sceneFiles)
{
    JsonWriter json;
    json.beginObject();
    json.key("format").text(projectFormat);
    json.key("version").integer(projectVersion);
    json.key("scenes").beginArray();
    for (const QString& file : sceneFiles)
        json.text(file);
    json.endArray();
    json.endObject();
    return json.result();
}

/// The files that the project on disk has, or nothing when what is there can't be read.
std::optional<QStringList> sceneFilesOnDisk(const QString& folder)
{
    try {
        const QString path = folder + u'/' + projectFile;
        return sceneFilesIn(JsonFile(path, folder_io::read(path)));
    } catch (const FolderFailure&) {
        return std::nullopt;
    }
}

/// Puts the scenes in place of those in the folder. `present` are the files of the scenes that are there; a file beside
/// them is somebody else's, and in the way. When it isn't known which are there, saving the scenes goes first.
void writeScenes(const QString& folder, const std::vector<TUScene*>& scenes, const std::optional<QStringList>& present)
{
    QStringList names;
    for (const TUScene* scene : scenes)
        names.append(scene->name());
    const QStringList files = sceneFileNames(names);

    FolderTransaction transaction(folder);
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString path = folder + u'/' + files.at(i);
        if (present && !present->contains(files.at(i)) && folder_io::kindOf(path) != FileKind::Nothing)
            throw FolderFailure{quoted(path) + " is in the way: it is not a file of the project"};
        transaction.replace(files.at(i), sceneText(*scenes[static_cast<std::size_t>(i)]));
    }
    transaction.replace(projectFile, projectText(files));
    for (const QString& file : present.value_or(QStringList())) {
        if (!files.contains(file))
            transaction.remove(file);
    }
    transaction.commit();
}

} // namespace

ProjectFolder::ProjectFolder(const QString& path)
    : m_path(path.isEmpty() || path.contains(QChar(0)) ? path : QDir::cleanPath(QFileInfo(path).absoluteFilePath()))
{}

void ProjectFolder::requirePath() const
{
    if (m_path.isEmpty())
        throw FolderFailure{QStringLiteral("the path is empty")};
    if (m_path.contains(QChar(0)) || !m_path.isValidUtf16())
        throw FolderFailure{QStringLiteral("the path has a character that no path can have")};
}

void ProjectFolder::makeProject(const std::vector<TUScene*>& scenes) const
{
    requirePath();
    MadePath made;
    made.make(m_path);
    const FolderLock lock(m_path, FolderLock::Writing);
    if (FolderTransaction::isCommitted(m_path) || folder_io::kindOf(m_path + u'/' + projectFile) != FileKind::Nothing)
        throw FolderFailure{quoted(m_path) + " already holds a project"};
    writeScenes(m_path, scenes, QStringList());
    made.keep();
}

bool ProjectFolder::create(const std::vector<TUScene*>& scenes, QString& error) const
{
    return attempt("create", error, [&] { makeProject(scenes); });
}

bool ProjectFolder::createForSave(const std::vector<TUScene*>& scenes, QString& error) const
{
    return attempt("save", error, [&] { makeProject(scenes); });
}

bool ProjectFolder::write(const std::vector<TUScene*>& scenes, QString& error) const
{
    return attempt("save", error, [&] {
        requirePath();
        requireFolder(m_path);
        const FolderLock lock(m_path, FolderLock::Writing);
        if (FolderTransaction::isInterrupted(m_path))
            FolderTransaction::recover(m_path);
        writeScenes(m_path, scenes, sceneFilesOnDisk(m_path));
    });
}

bool ProjectFolder::read(SceneMaker& maker, QString& error) const
{
    return attempt("open", error, [&] {
        requirePath();
        requireFolder(m_path);
        std::optional<FolderLock> lock(std::in_place, m_path, FolderLock::Reading);
        if (FolderTransaction::isCommitted(m_path)) {
            lock.reset();
            lock.emplace(m_path, FolderLock::Writing);
            FolderTransaction::recover(m_path);
        }
        bool missing = false;
        const QString path = m_path + u'/' + projectFile;
        const QByteArray content = folder_io::read(path, &missing);
        if (missing)
            throw FolderFailure{quoted(m_path) + " holds no project"};
        QSet<QString> names;
        for (const QString& file : sceneFilesIn(JsonFile(path, content))) {
            const QString scenePath = m_path + u'/' + file;
            const QByteArray sceneContent = folder_io::read(scenePath, &missing);
            if (missing)
                throw FolderFailure{quoted(scenePath) + " is missing"};
            readScene(JsonFile(scenePath, sceneContent), names, maker);
        }
    });
}

} // namespace engine
