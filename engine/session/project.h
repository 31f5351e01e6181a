#pragma once

#include "core/host/sc_session.h"
#include "engine/folder/projectfolder.h"
#include "engine/folder/projectlock.h"
#include "engine/session/projectcommon.h"

#include <QString>

#include <vector>

namespace brindle::engine {

/// An open project. It belongs to the project manager; all in it is gone when it is closed.
class Project final : public SC_Project, public ProjectMaker {
public:
    /// A project without scenes, which has the folder's path.
    explicit Project(const QString& path);
    ~Project() override;

    void addFirstScene(); ///< "Scene-1", which a new project has.
    TUScene* addScene(const SceneRecord& record) override;
    void setRecord(const ProjectRecord& record) override;
    void addElements(const JsonFile& file) override;
    void opened(const Folder& folder, bool isOwn) override;
    ProjectRecord record() const; ///< The part that is saved beside the scenes.
    std::vector<TUScene*> scenes() const { return m_common.scenes().scenes(); }
    /// What is saved with the scenes.
    std::vector<ProjectFiles*> files()
    {
        return {&m_common.elementFiles(), &m_common.palettes(), &m_common.colourFiles()};
    }
    PaletteStore& palettes() { return m_common.palettes(); }

    SC_Id id() const override { return m_common.id(); }
    QString path() const override { return m_common.path(); }
    void setPath(const QString& path);
    /// The lock of the project's folder; not held by a project that is read only, or was never on disk.
    ProjectLock& lock() { return m_lock; }
    bool isReadOnly() const override { return m_readOnly; }
    void setReadOnly(bool readOnly);
    SC_ProjectCommon* projectCommon() const override { return const_cast<ProjectCommon*>(&m_common); }
    CommandManager& history() { return m_common.history(); }
    SC_SceneBase* sceneAt(int index) const override;
    int sceneCount() const override { return m_common.scenes().sceneCount(); }
    QString lastChange() const override { return m_common.history().lastChange(); }

private:
    ProjectLock m_lock;
    bool m_readOnly = false;
    ProjectCommon m_common;
};

} // namespace brindle::engine
