#include "core/host/application.h"

#include "engine/engine.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <condition_variable>
#include <mutex>

namespace {

engine::BatchMode currentBatchMode = engine::BatchMode::None;

/// The lock of the application. It may be given back by another thread than the one that took it.
struct ApplicationLock {
    std::mutex mutex;
    std::condition_variable freed;
    bool held = false;
};

/// It is never destroyed: a thread may still hold it while the process ends.
ApplicationLock& applicationLock()
{
    static auto* lock = new ApplicationLock;
    return *lock;
}

} // namespace

namespace engine {

BatchMode batchMode()
{
    return currentBatchMode;
}

void setBatchMode(BatchMode mode)
{
    currentBatchMode = mode;
}

} // namespace engine

bool ST_BatchParams::isBatchScripting()
{
    return currentBatchMode == engine::BatchMode::Scripting;
}

bool ST_BatchParams::isBatchRendering()
{
    return currentBatchMode == engine::BatchMode::Rendering;
}

bool ST_BatchParams::isBatchPython()
{
    return currentBatchMode == engine::BatchMode::Python;
}

void BUIAPP_Application::processEventsNoAppLock(bool userInput)
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(userInput ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

namespace PL_AppLock {

AppLock::AppLock()
{
    ApplicationLock& lock = applicationLock();
    std::unique_lock guard(lock.mutex);
    lock.freed.wait(guard, [&lock] { return !lock.held; });
    lock.held = true;
}

AppLock::~AppLock()
{
    ApplicationLock& lock = applicationLock();
    {
        const std::lock_guard guard(lock.mutex);
        lock.held = false;
    }
    lock.freed.notify_one();
}

} // namespace PL_AppLock

int& SCP_PythonEngine::mainThreadState()
{
    static int depth = 0;
    return depth;
}
