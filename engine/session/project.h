#pragma once

#include "core/host/sc_session.h"
#include "engine/folder/projectfolder.h"
#include "engine/history/commandmanager.h"

#include <QString>

#include <memory>
#include <vector>

namespace engine {

class Scene;
struct SceneTiming;

/// The scenes of a project, in its order. It belongs to the project.
class SceneManager final : public SC_SceneManager {
public:
    SceneManager();
    ~SceneManager() override;

    void add(std::unique_ptr<Scene> scene);
    Scene* at(int index) const; ///< Null beyond the end.
    std::vector<TUScene*> scenes() const;

    void forAllScenes(SC_AbstractSceneVisitor& visitor) override;
    SC_SceneBase* find(const SC_Id& id) const override;
    int sceneCount() const override { return static_cast<int>(m_scenes.size()); }

private:
    std::vector<std::unique_ptr<Scene>> m_scenes;
};

/// What all scenes of a project share. The undo list goes before the scenes that it refers to.
class ProjectCommon final : public SC_ProjectCommon {
public:
    explicit ProjectCommon(const SC_Id& id) : m_id(id) {}
    ~ProjectCommon() override { expireWeakPointers(); }

    SC_Id id() const override { return m_id; }
    CO_CommandManager* commandManager() const override { return const_cast<CommandManager*>(&m_history); }
    SC_SceneManager* sceneManager() const override { return const_cast<SceneManager*>(&m_scenes); }

    SceneManager& scenes() { return m_scenes; }
    const SceneManager& scenes() const { return m_scenes; }
    CommandManager& history() { return m_history; }

private:
    SC_Id m_id;
    SceneManager m_scenes;
    CommandManager m_history;
};

/// An open project. It belongs to the project manager; all in it is gone when it is closed.
class Project final : public SC_Project, public SceneMaker {
public:
    /// A project without scenes, which has the folder's path.
    explicit Project(const QString& path);
    ~Project() override;

    /// Adds what a new project holds: one scene "Scene-1" with the display "Top/Display" and the composite
    /// "Top/Composite", which feeds it.
    void addFirstScene();
    TUScene* addScene(const SceneRecord& record) override;
    std::vector<TUScene*> scenes() const { return m_common.scenes().scenes(); }

    SC_Id id() const override { return m_common.id(); }
    QString path() const override { return m_path; }
    void setPath(const QString& path) { m_path = path; }
    SC_ProjectCommon* projectCommon() const override { return const_cast<ProjectCommon*>(&m_common); }
    CommandManager& history() { return m_common.history(); }
    SC_SceneBase* sceneAt(int index) const override;
    int sceneCount() const override { return m_common.scenes().sceneCount(); }

private:
    QString m_path;
    ProjectCommon m_common;
};

} // namespace engine
