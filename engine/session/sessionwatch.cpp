#include "engine/session/sessionwatch.h"

#include "engine/engine.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace brindle::engine {

namespace {

/// Never destroyed: a project may be closed while the process ends.
struct Watchers {
    std::mutex mutex;
    std::vector<SessionWatcher*> all;
    std::atomic<bool> any = false;
};

Watchers& watchers()
{
    static auto* only = new Watchers;
    return *only;
}

} // namespace

void announceSessionChange()
{
    Watchers& watching = watchers();
    if (!watching.any.load(std::memory_order_relaxed))
        return;
    const std::lock_guard guard(watching.mutex);
    for (SessionWatcher* watcher : watching.all)
        watcher->tellLater();
}

SessionWatcher::SessionWatcher(std::function<void()> changed) : m_changed(std::move(changed))
{
    Watchers& watching = watchers();
    const std::lock_guard guard(watching.mutex);
    watching.all.push_back(this);
    watching.any = true;
}

SessionWatcher::~SessionWatcher()
{
    Watchers& watching = watchers();
    const std::lock_guard guard(watching.mutex);
    std::erase(watching.all, this);
    watching.any = !watching.all.empty();
}

void SessionWatcher::tellLater()
{
    if (m_posted.exchange(true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_posted = false;
            m_changed();
        },
        Qt::QueuedConnection);
}

struct SessionWatch::Private {
    SessionWatcher watcher;
};

SessionWatch::SessionWatch(std::function<void()> changed) : d(new Private{SessionWatcher(std::move(changed))}) {}

SessionWatch::~SessionWatch() = default;

} // namespace brindle::engine
