#pragma once

#include "core/host/sc_scene.h"

#include <QObject>

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace brindle::engine {

/// An observer that shows a scene. It takes itself off the change manager before it goes.
class SceneObserver {
public:
    virtual ~SceneObserver() = default;
    virtual void sceneChanged() = 0;
    virtual void nodeChanged(MO_Node& node) = 0;
};

/// Announces the changes of one scene, which it belongs to.
///
/// The revision counts every change, so that a view can tell whether what it shows is up to date. Observers are told
/// while announcing is enabled; what changed meanwhile is told as one change when it is enabled again. Observers belong
/// to the main thread and are told there: what another thread changes is told as one change by the main thread's event
/// loop. Observers come and go on the main thread; everything else follows the thread rules of the scene, except that
/// announcing may be switched at any time.
class ChangeManager final : public TUSceneChangeManager {
public:
    bool isNotifyEnabled() const override { return m_enabled.load(std::memory_order_relaxed); }
    void setNotifyEnabled(bool enabled) override;
    void notify() override;
    void emitNodeChanged(MO_Node* node) override;
    void emitDrawingChanged() override { notify(); }

    void emitCurrentSceneChanged(TUScene*) override { tellSceneChanged(); }
    void forceNotify() override;
    void viewCacheInvalidated() override { ++m_revision; }
    std::shared_ptr<void> onCurrentFrameChanged(std::function<void()> call) override;
    void announceFrame(); ///< Calls the functions that wait for another frame.

    std::uint64_t revision() const { return m_revision; }

    void addObserver(SceneObserver& observer);
    void removeObserver(SceneObserver& observer); ///< Also from within a call of an observer.

private:
    template <typename Call>
    void tell(Call call);
    void tellSceneChanged();
    void tellLater();

    std::atomic<bool> m_enabled = true;
    std::atomic<bool> m_missed = false; ///< Something changed while announcing was disabled.
    std::atomic<bool> m_posted = false; ///< The main thread's event loop is about to tell of a change.
    std::atomic<bool> m_observed = false;
    std::uint64_t m_revision = 0;
    std::vector<SceneObserver*> m_observers;
    std::vector<std::weak_ptr<std::function<void()>>> m_frameListeners;
    std::unique_ptr<QObject> m_relay; ///< Posted notices are dropped with it.
};

} // namespace brindle::engine
