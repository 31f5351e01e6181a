#include "core/frame/threadmanager.h"

#include "core/bridges/pythonfunction.h"
#include "core/frame/exception.h"
#include "core/frame/global.h"
#include "core/frame/mainthreadjob.h"
#include "core/frame/mainthreadstate.h"
#include "core/frame/threadmanagerstate.h"
#include "core/host/msg_scope.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <thread>

namespace OMC {

namespace {

enum class ThreadRole : quint8 { Unknown, Main, Other };

/// Found out once a thread. Every operation of every object asks, so it is reached without a call.
[[gnu::tls_model("initial-exec")]] constinit thread_local ThreadRole threadRole = ThreadRole::Unknown;

/// The main thread where no QCoreApplication tells.
std::atomic<std::thread::id> standIn;
constinit bool hasStandIn = false;

/// Counted on by each job that the main thread has come to.
unsigned int jobIndex = 0;

/// How often, and how far apart in milliseconds, a thread looks whether the main thread has done its job: for 30 s.
constexpr int jobLooks = 300;
constexpr unsigned long jobLookInterval = 100;

QString translated(const char* text)
{
    return QCoreApplication::translate("CadenceMain", text);
}

[[gnu::noinline]] ThreadRole findRole()
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (!application && !hasStandIn)
        throw Exception(translated("The application does not appear to be loaded."));
    const bool isMain = application ? application->thread() == QThread::currentThread()
                                    : standIn.load() == std::this_thread::get_id();
    threadRole = isMain ? ThreadRole::Main : ThreadRole::Other;
    return threadRole;
}

/// The mark of the calling thread, which expires with the thread.
const std::shared_ptr<const char>& threadMark()
{
    static thread_local const auto mark = std::make_shared<const char>();
    return mark;
}

bool isExternal()
{
    return !ThreadManager::getPythonEngine();
}

TUSceneChangeManager* findChangeManager()
{
    SC_SessionContext* session = Global::sessionContext();
    return session ? session->changeManager() : nullptr;
}

[[noreturn]] void throwNoLock()
{
    throw Exception(translated("Thread failed to get Application Lock."));
}

TUSceneChangeManager& changeManager()
{
    TUSceneChangeManager* manager = findChangeManager();
    if (!manager)
        throwNoLock();
    return *manager;
}

const PythonFunction& functionIn(const QVariant& value)
{
    const auto* function = objectFrom<PythonFunction>(value);
    if (!function)
        throw Exception(translated("Expected a Python Function."));
    return *function;
}

} // namespace

void ThreadManagerState::standInForApplication()
{
    if (std::exchange(hasStandIn, true))
        return;
    standIn = std::this_thread::get_id();
    threadRole = ThreadRole::Unknown;
}

ThreadManager* ThreadManager::instance()
{
    static ThreadManager manager;
    return &manager;
}

bool ThreadManager::mainThread()
{
    // The short way ahead of everything that needs a frame on the stack: each operation of each object comes here.
    if ((QCoreApplication::instance() || hasStandIn) && threadRole != ThreadRole::Unknown) [[likely]]
        return threadRole == ThreadRole::Main;
    return findRole() == ThreadRole::Main;
}

SCP_PythonEngine* ThreadManager::getPythonEngine()
{
    SC_SessionContext* session = Global::sessionContext();
    return session ? session->pythonEngine() : nullptr;
}

void ThreadManager::throwIfNecessary()
{
    if (mainThread() || isExternal())
        return;
    if (m_applockDelayed && MainThreadState::isInPython())
        return;
    // Whichever thread took the lock: while one holds it, all may go on.
    if (m_appLock)
        return;
    if (m_applockDelayed) {
        getApplockDelayed();
        return;
    }
    throw Exception(translated("Unable to access Object Model from another thread -- application must be locked."));
}

void ThreadManager::throwIfNotMainThread(const QString& what)
{
    if (mainThread())
        return;
    static const QString defaultName = QStringLiteral("Object Model");
    throw Exception(translated("Unable to access %1 from another thread.").arg(what.isEmpty() ? defaultName : what));
}

void ThreadManager::lock()
{
    if (mainThread() || isExternal())
        return;
    changeManager();
    getApplock();
    // The main thread may have closed the project while this one waited.
    TUSceneChangeManager* changes = findChangeManager();
    if (!changes) {
        releaseApplock();
        throwNoLock();
    }
    m_holders.push_back(threadMark());
    m_notifyStates.push_back(changes->isNotifyEnabled());
    changes->setNotifyEnabled(false);
}

void ThreadManager::unlock()
{
    if (mainThread() || isExternal())
        return;
    giveBackLock(&changeManager());
}

void ThreadManager::unlockAlsoWithoutProject()
{
    if (!mainThread() && !isExternal())
        giveBackLock(findChangeManager());
}

void ThreadManager::giveBackLock(TUSceneChangeManager* changes)
{
    // Required: first in, first out, so that a nested pair leaves notifications off.
    if (!m_notifyStates.empty()) {
        if (changes)
            changes->setNotifyEnabled(m_notifyStates.front());
        m_notifyStates.pop_front();
    }
    if (!m_holders.empty()) {
        // Takes the mark of another thread where this one has none.
        auto own = std::find_if(m_holders.begin(), m_holders.end(),
                                [](const auto& holder) { return holder.lock() == threadMark(); });
        m_holders.erase(own == m_holders.end() ? m_holders.begin() : own);
    }
    releaseApplock();
}

void ThreadManager::runFunction(const QVariant& function)
{
    const PythonFunction& called = functionIn(function);
    if (mainThread() || isExternal()) {
        called.run();
        return;
    }
    lock();
    // Required: an exception of the function leaves the lock taken.
    called.run();
    // Given back also where the function has closed the project, which `unlock` refuses.
    unlockAlsoWithoutProject();
}

void ThreadManager::runOnMain(const QVariant& function, bool wait)
{
    if (isExternal())
        throw Exception(translated("Unable to use run_on_main() in an external Python interpreter."));
    const PythonFunction& called = functionIn(function);
    if (!QCoreApplication::instance())
        throw Exception(translated("The application does not appear to be loaded."));

    const bool waits = wait || mainThread();
    // Made ahead of leaving Python, behind which other threads may set another function.
    const auto job = std::make_shared<MainThreadJob>(called, threadLockIndex(), waits);
    const SCP_PythonEngine::ThreadStateScope outside;
    QMetaObject::invokeMethod(QAbstractEventDispatcher::instance(QCoreApplication::instance()->thread()),
                              [this, posted = job]() mutable {
                                  posted->run(threadLockIndex());
                                  posted.reset();
                              });
    if (!waits)
        return;
    for (int look = 0; look < jobLooks; ++look) {
        if (job->isOver(threadLockIndex())) {
            job->throwFailure();
            return;
        }
        QThread::msleep(jobLookInterval);
    }
    if (!job->isOver(threadLockIndex())) {
        job->abandon();
        throw Exception(translated("The main thread failed to respond - timing out."));
    }
    job->throwFailure();
}

void ThreadManager::getApplock()
{
    ++m_applockDepth;
    m_applockDelayed = true;
    getApplockDelayed();
}

void ThreadManager::getApplockDelayed()
{
    // The main thread in Python may be waiting for this thread: the real lock has to wait until it is out.
    if (MainThreadState::isInPython())
        return;
    m_applockDelayed = false;
    if (!m_appLock)
        m_appLock = std::make_unique<PL_AppLock::AppLock>();
}

void ThreadManager::releaseApplock()
{
    if (m_applockDepth != 0 && --m_applockDepth != 0)
        return;
    m_applockDelayed = false;
    m_appLock.reset();
}

/// The notifications are again what they were ahead of the first of the locks.
void ThreadManager::giveBackLeftLock()
{
    const bool left = m_appLock && std::all_of(m_holders.begin(), m_holders.end(),
                                               [](const auto& holder) { return holder.expired(); });
    if (!left)
        return;
    // The project may be closed by now.
    TUSceneChangeManager* changes = findChangeManager();
    if (changes && !m_notifyStates.empty())
        changes->setNotifyEnabled(m_notifyStates.front());
    m_notifyStates.clear();
    m_holders.clear();
    m_applockDepth = 1;
    releaseApplock();
    MSG_Scope(translated("A thread of a script ended with the application locked; it is unlocked again."),
              MSG_Scope::kError);
}

bool ThreadManager::hasApplock()
{
    if (m_applockDelayed && MainThreadState::isInPython())
        return true;
    return bool(m_appLock);
}

unsigned int& ThreadManager::threadLockIndex()
{
    return jobIndex;
}

} // namespace OMC
