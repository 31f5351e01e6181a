#include "engine/session/changemanager.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

namespace brindle::engine {

namespace {

bool isMainThread()
{
    return !QCoreApplication::instance() || QCoreApplication::instance()->thread() == QThread::currentThread();
}

} // namespace

void ChangeManager::setNotifyEnabled(bool enabled)
{
    m_enabled = enabled;
    if (enabled && m_missed.exchange(false))
        tellSceneChanged();
}

void ChangeManager::notify()
{
    ++m_revision;
    tellSceneChanged();
}

void ChangeManager::emitNodeChanged(MO_Node* node)
{
    if (!node)
        return;
    ++m_revision;
    tell([node](SceneObserver& observer) { observer.nodeChanged(*node); });
}

void ChangeManager::forceNotify()
{
    if (m_missed.exchange(false) || m_posted.exchange(false))
        tellSceneChanged();
}

std::shared_ptr<void> ChangeManager::onCurrentFrameChanged(std::function<void()> call)
{
    auto listener = std::make_shared<std::function<void()>>(std::move(call));
    m_frameListeners.push_back(listener);
    return listener;
}

void ChangeManager::announceFrame()
{
    std::erase_if(m_frameListeners, [](const auto& listener) { return listener.expired(); });
    const auto told = m_frameListeners;
    for (const auto& listener : told) {
        if (const auto call = listener.lock())
            (*call)();
    }
}

void ChangeManager::addObserver(SceneObserver& observer)
{
    m_observers.push_back(&observer);
    m_observed = true;
}

void ChangeManager::removeObserver(SceneObserver& observer)
{
    std::erase(m_observers, &observer);
    m_observed = !m_observers.empty();
}

void ChangeManager::tellSceneChanged()
{
    tell([](SceneObserver& observer) { observer.sceneChanged(); });
}

template <typename Call>
void ChangeManager::tell(Call call)
{
    if (!isNotifyEnabled()) {
        m_missed = true;
        return;
    }
    if (!m_observed)
        return;
    if (!isMainThread()) {
        tellLater();
        return;
    }
    // Observers may come and go meanwhile: a copy is walked, and one that has left is not told.
    const std::vector<SceneObserver*> told = m_observers;
    for (SceneObserver* observer : told) {
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end())
            call(*observer);
    }
}

void ChangeManager::tellLater()
{
    if (m_posted.exchange(true))
        return;
    if (!m_relay) {
        m_relay = std::make_unique<QObject>();
        m_relay->moveToThread(QCoreApplication::instance()->thread());
    }
    QMetaObject::invokeMethod(
        m_relay.get(),
        [this] {
            if (m_posted.exchange(false))
                tellSceneChanged();
        },
        Qt::QueuedConnection);
}

} // namespace brindle::engine
