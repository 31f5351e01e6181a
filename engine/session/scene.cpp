#include "engine/session/scene.h"

#include "engine/session/project.h"
#include "engine/session/scenecommands.h"

#include <cmath>

namespace engine {

bool SceneTiming::isValid() const
{
    return count <= maxCount && 1 <= start && start <= stop && stop <= count && std::isfinite(rate) && rate > 0;
}

Scene::Scene(ProjectCommon& project, const SC_Id& id, const QString& name, const SceneTiming& timing)
    : m_project(project),
      m_id(id),
      m_name(name),
      m_timing(timing),
      m_columns(*this),
      m_graph(*this)
{}

Scene::~Scene()
{
    expireWeakPointers();
}

void Scene::setTiming(const SceneTiming& timing)
{
    m_timing = timing;
    m_changes.notify();
}

SC_ProjectCommon* Scene::projectCommon() const
{
    return &m_project;
}

CO_CommandManager* Scene::commandManager() const
{
    return m_project.commandManager();
}

void Scene::setNumberOfFrames(int at, int delta, bool, bool)
{
    if (delta != 0)
        commandManager()->execute(newFrameCountCommand(*this, at, delta).release(),
                                  QStringLiteral("Set Number of Frames"));
}

bool Scene::setStartFrame(int frame)
{
    SceneTiming timing = m_timing;
    timing.start = frame;
    return commandManager()->execute(newTimingCommand(*this, timing).release(), QStringLiteral("Set Start Frame"));
}

bool Scene::setStopFrame(int frame)
{
    SceneTiming timing = m_timing;
    timing.stop = frame;
    return commandManager()->execute(newTimingCommand(*this, timing).release(), QStringLiteral("Set Stop Frame"));
}

QString Scene::generateNodeName(const QString& base, const TUGroup* group) const
{
    const Group* own = engineGroup(group);
    const QString valid = TUModuleNameValidator::getValidName(base);
    return own && own->graph() == &m_graph ? m_graph.generateName(valid, *own) : valid;
}

Scene* engineScene(SC_SceneCommon* scene)
{
    return dynamic_cast<Scene*>(scene);
}

} // namespace engine
