#include "engine/session/projectmanager.h"

#include "core/host/scp_pythonengine.h"
#include "engine/folder/folder.h"
#include "engine/session/preferences.h"
#include "engine/session/sessionwatch.h"

namespace brindle::engine {

namespace {

QString noProjectText()
{
    return QStringLiteral("Cannot save the project: no project is open.");
}

} // namespace

SC_Project* ProjectManager::createProject(const QString& path, QString& error, const QString& howToDiscard)
{
    const ProjectFolder folder = folderAt(path, howToDiscard);
    auto project = std::make_unique<Project>(folder.path());
    project->addFirstScene();
    if (!folder.create(project->record(), project->scenes(), project->lock(), error, project->files()))
        return nullptr;
    return replaceProject(std::move(project));
}

SC_Project* ProjectManager::openProject(const QString& path, QString& error, const QString& howToDiscard)
{
    const ProjectFolder folder = folderAt(path, howToDiscard);
    auto project = std::make_unique<Project>(folder.path());
    // A project that is open already is opened anew: its lock goes on to the new one.
    const bool isOpen = m_project && m_project->lock().isOn(folder.path());
    if (isOpen)
        project->lock() = std::move(m_project->lock());
    if (!folder.read(*project, project->lock(), error)) {
        if (isOpen)
            m_project->lock() = std::move(project->lock());
        return nullptr;
    }
    return replaceProject(std::move(project));
}

SC_Project* ProjectManager::openProjectReadOnly(const QString& path, QString& error, const QString& howToDiscard)
{
    const ProjectFolder folder = folderAt(path, howToDiscard);
    auto project = std::make_unique<Project>(folder.path());
    if (!folder.readOnly(*project, error))
        return nullptr;
    project->setReadOnly(true);
    return replaceProject(std::move(project));
}

bool ProjectManager::saveProject(QString& error)
{
    if (!m_project) {
        error = noProjectText();
        return false;
    }
    if (m_project->isReadOnly()) {
        error = QStringLiteral("Cannot save the project: ") + quoted(m_project->path()) +
                QStringLiteral(" is open read-only; it can be saved in another folder.");
        return false;
    }
    if (!ProjectFolder(m_project->path())
             .write(m_project->record(), m_project->scenes(), m_project->lock(), error, m_project->files()))
        return false;
    m_project->history().setClean();
    savePreferencesOfUser();
    return true;
}

bool ProjectManager::saveProjectAs(const QString& path, QString& error)
{
    if (!m_project) {
        error = noProjectText();
        return false;
    }
    const ProjectFolder folder(path);
    if (hasMovedTo(folder.path())) {
        m_project->setPath(folder.path());
        return saveProject(error);
    }
    if (!folder.createForSave(m_project->record(), m_project->scenes(), m_project->lock(), error, m_project->files()))
        return false;
    m_project->setPath(folder.path());
    m_project->setReadOnly(false);
    m_project->history().setClean();
    savePreferencesOfUser();
    return true;
}

/// The folder of a project that is to take the place of the open one.
ProjectFolder ProjectManager::folderAt(const QString& path, const QString& howToDiscard) const
{
    ProjectFolder folder(path);
    if (!howToDiscard.isEmpty() && m_project && m_project->history().isDirty())
        folder.refuse(quoted(m_project->path()) +
                      " has unsaved changes; save or close it first, or discard them with " + howToDiscard);
    return folder;
}

/// Whether the folder of the open project stands there by now, and no longer where the project was opened.
bool ProjectManager::hasMovedTo(const QString& path) const
{
    const ProjectLock& lock = m_project->lock();
    return lock.isOn(path) && !lock.isOn(m_project->path());
}

void ProjectManager::closeProject()
{
    closeProject(ProjectLock());
}

/// `next` is the lock of the project that takes its place.
void ProjectManager::closeProject(const ProjectLock& next)
{
    const SCP_PythonEngine::HaltScope halt;
    // The session has no project any more while this one goes.
    const std::unique_ptr<Project> closing = std::move(m_project);
    if (closing)
        closing->palettes().close(next);
    m_closed();
    announceSessionChange();
}

SC_Project* ProjectManager::findProject(const SC_Id& id) const
{
    return m_project && m_project->id() == id ? m_project.get() : nullptr;
}

SC_Project* ProjectManager::replaceProject(std::unique_ptr<Project> project)
{
    const SCP_PythonEngine::HaltScope halt;
    closeProject(project->lock());
    m_project = std::move(project);
    m_project->palettes().makeCurrent();
    announceSessionChange();
    return m_project.get();
}

} // namespace brindle::engine
