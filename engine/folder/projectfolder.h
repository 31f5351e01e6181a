#pragma once

#include "engine/session/projectsettings.h"

#include <QString>

#include <vector>

class TUScene;

namespace brindle::engine {

class Folder;
class JsonFile;
class ProjectFiles;
class ProjectLock;

/// The properties of a scene, without its nodes and columns.
struct SceneRecord {
    QString name;
    int frameCount = 60;
    int startFrame = 1;
    int stopFrame = 60;
    double frameRate = 24.0;
};

/// The properties of a project, without its scenes.
struct ProjectRecord {
    ProjectSettings settings;
    QString lastChange; ///< The label of the change that led to what is saved; empty when there was none.
    bool hasElements = false;
};

/// Takes what opening reads, the record first.
class ProjectMaker {
public:
    virtual ~ProjectMaker() = default;
    virtual void setRecord(const ProjectRecord& record) = 0;
    /// A new scene at the end of the project, with an empty root group, no column and nothing on the undo list. Null
    /// when the record can't be taken; its values are checked already, the name is not empty and no other scene's.
    virtual TUScene* addScene(const SceneRecord& record) = 0;
    /// Makes the elements of their file, ahead of the scenes. Throws `FolderFailure`.
    virtual void addElements(const JsonFile& file) = 0;
    /// All has been read. `isOwn`: with the project's lock, so that it can be saved there.
    virtual void opened(const Folder& folder, bool isOwn) = 0;
};

/// A project on disk: a folder of text files with "project.json", which lists the scenes, and a file a scene.
///
/// A save replaces all files that changed in one step: a process that is killed, or a machine that stops, leaves the
/// old or the new project, and the next opening clears up what is left of the save. Files that the project doesn't know
/// stay as they are. While it reads or writes, a lock on the folder keeps other processes from doing the same.
///
/// A process that works on the project holds its `ProjectLock`, which making and opening it take; reading needs none,
/// and leaves the folder untouched. A project is saved in the folder that its lock was taken in, and nowhere else:
/// where that was renamed and another one has its place, a save fails.
///
/// Every failure is one sentence in `error` that says what could not be done, names the file and, in a damaged file,
/// the place: "Cannot open the project: "/p/project.json" is damaged at line 3, column 8: illegal value." What is on
/// disk is then as before.
///
/// The object is a path only; it keeps no state between calls.
class ProjectFolder {
public:
    /// A relative path starts at the process's working directory.
    explicit ProjectFolder(const QString& path);

    QString path() const { return m_path; } ///< Absolute and clean, where it can be one of a folder.

    /// Lets making and opening the project fail for this reason where there is no other: what is wrong with the folder
    /// is told first.
    void refuse(const QString& reason) { m_refusal = reason; }

    /// Makes a new project of these scenes in a folder that holds no project; a folder that is missing is made, with
    /// those above it. The error begins with "Cannot create the project".
    bool create(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock, QString& error,
                const std::vector<ProjectFiles*>& others = {}) const;
    /// The same for a project that goes on in another folder, with all its other files: the error begins with "Cannot
    /// save the project".
    bool createForSave(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock,
                       QString& error, const std::vector<ProjectFiles*>& others = {}) const;

    /// Writes the project that lives there, its scenes in the project's order, and what changed of its other files.
    bool write(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock, QString& error,
               const std::vector<ProjectFiles*>& others = {}) const;

    /// Reads the project and makes its scenes. On failure the maker may have been called already, and the lock taken:
    /// drop both.
    bool read(ProjectMaker& maker, ProjectLock& lock, QString& error) const;
    /// The same without a lock, for a project that will not be saved there.
    bool readOnly(ProjectMaker& maker, QString& error) const;

private:
    void requirePath() const;
    void requireConsent() const;
    void makeProject(const ProjectRecord& record, const std::vector<TUScene*>& scenes, ProjectLock& lock,
                     const std::vector<ProjectFiles*>& others) const;
    void readProject(ProjectMaker& maker, ProjectLock* lock) const;

    QString m_path;
    QString m_refusal; ///< Empty for none.
};

} // namespace brindle::engine
