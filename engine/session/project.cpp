#include "engine/session/project.h"

#include "core/host/tu_node.h"
#include "engine/session/scene.h"

#include <algorithm>

namespace engine {

namespace {

/// Ids are unique in the process: what a script holds of a closed project never finds another one.
SC_Id nextId()
{
    static unsigned int last = 0;
    return SC_Id(++last);
}

MO_Node* addNode(Scene& scene, const QString& type, int x, int y)
{
    bool flag = true;
    MO_Node* node = TUGroup::createNode(type, x, y, 0, flag, nullptr);
    tu_node::AddSubNodeCmd(scene.getRootGroup(), node).execute();
    return node;
}

} // namespace

SceneManager::SceneManager() = default;
SceneManager::~SceneManager() = default;

void SceneManager::add(std::unique_ptr<Scene> scene)
{
    m_scenes.push_back(std::move(scene));
}

Scene* SceneManager::at(int index) const
{
    return index >= 0 && index < sceneCount() ? m_scenes[static_cast<std::size_t>(index)].get() : nullptr;
}

std::vector<TUScene*> SceneManager::scenes() const
{
    std::vector<TUScene*> scenes;
    for (const auto& scene : m_scenes)
        scenes.push_back(scene.get());
    return scenes;
}

void SceneManager::forAllScenes(SC_AbstractSceneVisitor& visitor)
{
    for (const auto& scene : m_scenes)
        visitor.visit(*scene);
}

SC_SceneBase* SceneManager::find(const SC_Id& id) const
{
    const auto found =
        std::find_if(m_scenes.begin(), m_scenes.end(), [&id](const auto& scene) { return scene->id() == id; });
    return found == m_scenes.end() ? nullptr : found->get();
}

Project::Project(const QString& path) : m_path(path), m_common(nextId()) {}

Project::~Project() = default;

void Project::addFirstScene()
{
    auto& scene = static_cast<Scene&>(*addScene({QStringLiteral("Scene-1")}));
    MO_Node* display = addNode(scene, QStringLiteral("DISPLAY"), 0, 128);
    MO_Node* composite = addNode(scene, QStringLiteral("COMPOSITE"), 0, 32);
    tu_node::LinkCmd(display, 0, composite, 0).execute();
}

TUScene* Project::addScene(const SceneRecord& record)
{
    const SceneTiming timing{record.frameCount, record.startFrame, record.stopFrame, record.frameRate};
    if (!timing.isValid())
        return nullptr;
    auto scene = std::make_unique<Scene>(m_common, nextId(), record.name, timing);
    Scene* added = scene.get();
    m_common.scenes().add(std::move(scene));
    return added;
}

SC_SceneBase* Project::sceneAt(int index) const
{
    return m_common.scenes().at(index);
}

} // namespace engine
