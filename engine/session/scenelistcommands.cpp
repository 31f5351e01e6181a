#include "core/host/sc_projectcmds.h"

#include "core/host/tu_node.h"
#include "engine/session/project.h"
#include "engine/session/scene.h"

namespace brindle::engine {

namespace {

/// Puts a scene into the project's list, and owns it while it isn't there.
class AddSceneCommand final : public CO_Command {
public:
    AddSceneCommand(SC_ProjectCommon* project, const QString& name, int place)
        : m_project(engineProjectCommon(project)),
          m_name(name),
          m_place(place)
    {}

    Status execute() override
    {
        if (!m_scene && !make())
            return kFail;
        m_project->scenes().insert(std::move(m_taken), m_place);
        return kOk;
    }

    Status unexecute() override
    {
        m_taken = m_project->scenes().take(*m_scene);
        return kOk;
    }

private:
    bool make()
    {
        if (!m_project || m_name.isEmpty() || m_project->scenes().named(m_name))
            return false;
        const int count = m_project->scenes().sceneCount();
        if (m_place < -1 || m_place > count)
            return false;
        if (m_place == -1)
            m_place = count;
        m_taken = newScene(*m_project, m_name, SceneTiming());
        fillNewScene(*m_taken);
        m_scene = m_taken.get();
        return true;
    }

    ProjectCommon* m_project;
    QString m_name;
    int m_place;
    Scene* m_scene = nullptr;       ///< Null before the first execution.
    std::unique_ptr<Scene> m_taken; ///< The scene while it isn't in the list.
};

class RemoveSceneCommand final : public CO_Command {
public:
    RemoveSceneCommand(SC_ProjectCommon* project, const SC_Id& id)
        : m_project(engineProjectCommon(project)),
          m_scene(m_project ? static_cast<Scene*>(m_project->scenes().find(id)) : nullptr)
    {}

    Status execute() override
    {
        if (!m_scene || m_project->scenes().sceneCount() < 2)
            return kFail;
        m_place = m_project->scenes().placeOf(*m_scene);
        if (m_place < 0)
            return kFail;
        m_taken = m_project->scenes().take(*m_scene);
        return kOk;
    }

    Status unexecute() override
    {
        m_project->scenes().insert(std::move(m_taken), m_place);
        return kOk;
    }

private:
    ProjectCommon* m_project;
    Scene* m_scene;
    int m_place = 0;
    std::unique_ptr<Scene> m_taken; ///< The scene while it isn't in the list.
};

} // namespace

} // namespace brindle::engine

namespace SC_ProjectCmds {

AddSceneCmd::AddSceneCmd(SC_ProjectCommon* project, const QString& name, int position)
    : CO_EngineCommand(std::make_unique<brindle::engine::AddSceneCommand>(project, name, position))
{}

RemoveSceneCmd::RemoveSceneCmd(SC_ProjectCommon* project, const SC_Id& scene)
    : CO_EngineCommand(std::make_unique<brindle::engine::RemoveSceneCommand>(project, scene))
{}

} // namespace SC_ProjectCmds
