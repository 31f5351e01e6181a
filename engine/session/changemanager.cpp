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
            m_posted = false;
            tellSceneChanged();
        },
        Qt::QueuedConnection);
}

} // namespace brindle::engine
