#include "engine/session/changemanager.h"

#include <algorithm>

namespace engine {

void ChangeManager::setNotifyEnabled(bool enabled)
{
    m_enabled = enabled;
    if (enabled && m_missed) {
        m_missed = false;
        tell([](SceneObserver& observer) { observer.sceneChanged(); });
    }
}

void ChangeManager::notify()
{
    ++m_revision;
    tell([](SceneObserver& observer) { observer.sceneChanged(); });
}

void ChangeManager::emitNodeChanged(MO_Node* node)
{
    if (!node)
        return;
    ++m_revision;
    tell([node](SceneObserver& observer) { observer.nodeChanged(*node); });
}

void ChangeManager::addObserver(SceneObserver& observer)
{
    m_observers.push_back(&observer);
}

void ChangeManager::removeObserver(SceneObserver& observer)
{
    std::erase(m_observers, &observer);
}

template <typename Call>
void ChangeManager::tell(Call call)
{
    if (!m_enabled) {
        m_missed = true;
        return;
    }
    if (m_observers.empty())
        return;
    // Observers may come and go meanwhile: a copy is walked, and one that has left is not told.
    const std::vector<SceneObserver*> told = m_observers;
    for (SceneObserver* observer : told) {
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end())
            call(*observer);
    }
}

} // namespace engine
