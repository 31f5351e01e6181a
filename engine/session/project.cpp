#include "engine/session/project.h"

#include "engine/session/scene.h"

namespace brindle::engine {

Project::Project(const QString& path) : m_common(newId(), path) {}

Project::~Project() = default;

void Project::addFirstScene()
{
    fillNewScene(static_cast<Scene&>(*addScene({QStringLiteral("Scene-1")})));
}

TUScene* Project::addScene(const SceneRecord& record)
{
    const SceneTiming timing{record.frameCount, record.startFrame, record.stopFrame, record.frameRate};
    if (!timing.isValid())
        return nullptr;
    auto scene = newScene(m_common, record.name, timing);
    Scene* added = scene.get();
    m_common.scenes().insert(std::move(scene), sceneCount());
    return added;
}

void Project::setRecord(const ProjectRecord& record)
{
    m_common.setSettings(record.settings);
    m_common.history().setChangeBefore(record.lastChange);
}

ProjectRecord Project::record() const
{
    return {m_common.settings(), lastChange()};
}

SC_SceneBase* Project::sceneAt(int index) const
{
    return m_common.scenes().at(index);
}

} // namespace brindle::engine
