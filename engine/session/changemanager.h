#pragma once

#include "core/host/sc_scene.h"

#include <cstdint>
#include <vector>

namespace engine {

/// Whoever shows a scene. It takes itself off the change manager before it goes.
class SceneObserver {
public:
    virtual ~SceneObserver() = default;
    virtual void sceneChanged() = 0;
    virtual void nodeChanged(MO_Node& node) = 0;
};

/// Announces the changes of one scene, which it belongs to.
///
/// The revision counts every change, so that a view can tell whether what it shows is up to date. Observers are told
/// while announcing is enabled; what changed meanwhile is told as one change when it is enabled again.
class ChangeManager final : public TUSceneChangeManager {
public:
    bool isNotifyEnabled() const override { return m_enabled; }
    void setNotifyEnabled(bool enabled) override;
    void notify() override;
    void emitNodeChanged(MO_Node* node) override;

    std::uint64_t revision() const { return m_revision; }

    void addObserver(SceneObserver& observer);
    void removeObserver(SceneObserver& observer); ///< Also from within a call of an observer.

private:
    template <typename Call>
    void tell(Call call);

    bool m_enabled = true;
    bool m_missed = false; ///< Something changed while announcing was disabled.
    std::uint64_t m_revision = 0;
    std::vector<SceneObserver*> m_observers;
};

} // namespace engine
