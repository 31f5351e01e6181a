#pragma once

#include "core/host/sc_session.h"

#include <QString>

#include <memory>
#include <vector>

namespace brindle::engine {

class Scene;

/// The scenes of a project, in its order. It belongs to the project.
///
/// A scene that is taken out has its weak pointers expired, and those of all that is in it; the undo list may put the
/// same one back.
class SceneManager final : public SC_SceneManager {
public:
    SceneManager();
    ~SceneManager() override;

    /// Puts a scene at a place up to the count.
    void insert(std::unique_ptr<Scene> scene, int place);
    /// Takes a scene out that is one of them.
    std::unique_ptr<Scene> take(const Scene& scene);
    int placeOf(const Scene& scene) const;   ///< -1 when it isn't one of them.
    Scene* at(int place) const;              ///< Null beyond the end.
    Scene* named(const QString& name) const; ///< The one that has exactly this name, or null.
    std::vector<TUScene*> scenes() const;

    void forAllScenes(SC_AbstractSceneVisitor& visitor) override;
    SC_SceneBase* find(const SC_Id& id) const override;
    int sceneCount() const override { return static_cast<int>(m_scenes.size()); }

private:
    std::vector<std::unique_ptr<Scene>> m_scenes;
};

} // namespace brindle::engine
