#include "engine/session/scenemanager.h"

#include "core/host/scp_pythonengine.h"
#include "engine/session/scene.h"

#include <algorithm>

namespace brindle::engine {

SceneManager::SceneManager() = default;
SceneManager::~SceneManager() = default;

void SceneManager::insert(std::unique_ptr<Scene> scene, int place)
{
    const SCP_PythonEngine::HaltScope halt;
    m_scenes.insert(m_scenes.begin() + place, std::move(scene));
}

std::unique_ptr<Scene> SceneManager::take(const Scene& scene)
{
    const SCP_PythonEngine::HaltScope halt;
    const auto taken = m_scenes.begin() + placeOf(scene);
    std::unique_ptr<Scene> owned = std::move(*taken);
    m_scenes.erase(taken);
    owned->expireAll();
    return owned;
}

int SceneManager::placeOf(const Scene& scene) const
{
    const auto found =
        std::find_if(m_scenes.begin(), m_scenes.end(), [&scene](const auto& own) { return own.get() == &scene; });
    return found == m_scenes.end() ? -1 : static_cast<int>(found - m_scenes.begin());
}

Scene* SceneManager::at(int place) const
{
    return place >= 0 && place < sceneCount() ? m_scenes[static_cast<std::size_t>(place)].get() : nullptr;
}

Scene* SceneManager::named(const QString& name) const
{
    const auto found =
        std::find_if(m_scenes.begin(), m_scenes.end(), [&name](const auto& scene) { return scene->name() == name; });
    return found == m_scenes.end() ? nullptr : found->get();
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

} // namespace brindle::engine
