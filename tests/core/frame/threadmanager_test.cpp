#include "core/frame/threadmanager.h"

#include "core/frame/baseobject.h"
#include "core/frame/threadmanagerstate.h"
#include "core/host/pl_applock.h"
#include "tests/core/support/embedded.h"

#include <QCoreApplication>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace {

using OMC::PythonFunction;
using OMC::ThreadManager;
using OMC::ThreadManagerState;

const char* const lockedOut = "Unable to access Object Model from another thread -- application must be locked.";
const char* const noLock = "Thread failed to get Application Lock.";

std::string check()
{
    return onWorker([] { OMC::BaseObject::validateThreadLock(); });
}

std::string lock()
{
    return onWorker([] { ThreadManager::instance()->lock(); });
}

std::string unlock()
{
    return onWorker([] { ThreadManager::instance()->unlock(); });
}

/// Ends this process's application object, prints what the checks then say, and ends the process.
[[noreturn]] void reportWithoutApplication()
{
    QCoreApplication::instance()->~QCoreApplication();
    const std::string failures[] = {
        failureOf([] { OMC::BaseObject::validateThreadLock(); }),
        failureOf([] { OMC::BaseObject::throwIfNotMainThread(QString()); }),
        failureOf([] { ThreadManager::instance()->lock(); }),
    };
    for (const std::string& failure : failures)
        std::fprintf(stderr, "%s\n", failure.c_str());
    std::fflush(stderr);
    std::_Exit(0);
}

class ThreadManagerTest : public EmbeddedTest {
protected:
    ~ThreadManagerTest() override
    {
        freeTheApplication();
        for (std::thread& waiting : m_waiting)
            waiting.join();
    }

    /// Whether another thread of the host could take the application lock now.
    bool applicationIsFree()
    {
        std::promise<void> taken;
        std::future<void> done = taken.get_future();
        m_waiting.emplace_back([taken = std::move(taken)]() mutable {
            {
                const PL_AppLock::AppLock heldShortly;
            }
            taken.set_value();
        });
        return done.wait_for(std::chrono::milliseconds(200)) == std::future_status::ready;
    }

private:
    std::vector<std::thread> m_waiting;
};

TEST_F(ThreadManagerTest, TheMainThreadIsThatOfTheApplicationObject)
{
    EXPECT_TRUE(ThreadManager::mainThread());
    bool main = true;
    onWorker([&] { main = ThreadManager::mainThread(); });
    EXPECT_FALSE(main);
}

TEST_F(ThreadManagerTest, ThereIsOneManager)
{
    EXPECT_EQ(ThreadManager::instance(), ThreadManager::instance());
}

TEST_F(ThreadManagerTest, ThePythonEngineIsTheSessions)
{
    EXPECT_EQ(ThreadManager::getPythonEngine(), &engine);
    session.python = nullptr;
    EXPECT_EQ(ThreadManager::getPythonEngine(), nullptr);
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(ThreadManager::getPythonEngine(), nullptr);
}

TEST_F(ThreadManagerTest, TheMainThreadAlwaysPasses)
{
    EXPECT_EQ(failureOf([] { OMC::BaseObject::validateThreadLock(); }), passes);
    EXPECT_EQ(failureOf([] { OMC::BaseObject::throwIfNotMainThread(QStringLiteral("preferences")); }), passes);
}

TEST_F(ThreadManagerTest, AScriptThreadWithoutTheLockIsRefused)
{
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, InAPlainInterpreterEveryThreadPasses)
{
    session.python = nullptr;
    EXPECT_EQ(check(), passes);
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(check(), passes);
}

TEST_F(ThreadManagerTest, LockingInAPlainInterpreterDoesNothing)
{
    session.python = nullptr;
    EXPECT_EQ(lock(), passes);
    EXPECT_TRUE(changes.enabled);
    session.python = &engine;
    EXPECT_EQ(check(), lockedOut);
    EXPECT_TRUE(applicationIsFree());
}

TEST_F(ThreadManagerTest, WhileOneThreadHoldsTheLockEveryThreadPasses)
{
    EXPECT_EQ(lock(), passes);
    EXPECT_EQ(check(), passes);
    EXPECT_EQ(check(), passes);
    EXPECT_FALSE(applicationIsFree());
    EXPECT_EQ(unlock(), passes);
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, TheLockSilencesTheScene)
{
    lock();
    EXPECT_FALSE(changes.enabled);
    unlock();
    EXPECT_TRUE(changes.enabled);
    changes.enabled = false;
    lock();
    unlock();
    EXPECT_FALSE(changes.enabled);
}

TEST_F(ThreadManagerTest, ANestedPairOfLocksLeavesNotificationsOff)
{
    lock();
    lock();
    unlock();
    EXPECT_TRUE(changes.enabled);
    EXPECT_EQ(check(), passes);
    EXPECT_FALSE(applicationIsFree());
    unlock();
    EXPECT_FALSE(changes.enabled);
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, LockingOnTheMainThreadDoesNothing)
{
    ThreadManager::instance()->lock();
    EXPECT_TRUE(changes.enabled);
    EXPECT_EQ(check(), lockedOut);
    lock();
    ThreadManager::instance()->unlock();
    EXPECT_FALSE(changes.enabled);
    EXPECT_EQ(check(), passes);
    unlock();
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, UnlockingWithoutALockChangesNothing)
{
    EXPECT_EQ(unlock(), passes);
    EXPECT_TRUE(changes.enabled);
    EXPECT_EQ(lock(), passes);
    EXPECT_EQ(check(), passes);
    EXPECT_EQ(unlock(), passes);
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, WithoutAChangeNotifierLockAndUnlockFailWithOneSentence)
{
    session.changes = nullptr;
    EXPECT_EQ(lock(), noLock);
    EXPECT_EQ(check(), lockedOut);
    EXPECT_EQ(unlock(), noLock);

    session.changes = &changes;
    lock();
    session.changes = nullptr;
    EXPECT_EQ(unlock(), noLock);
    EXPECT_EQ(check(), passes);
    session.changes = &changes;
    unlock();
    EXPECT_TRUE(changes.enabled);
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, AProjectThatIsClosedWhileAThreadWaitsLeavesItWithoutTheLock)
{
    /// The project is there when the thread comes, and gone when it has the lock.
    class ClosingSession : public StandInSession {
    public:
        explicit ClosingSession(PythonEngine& engine) { python = &engine; }
        TUSceneChangeManager* changeManager() const override { return there.exchange(false) ? &closing : nullptr; }

        mutable std::atomic<bool> there = true;
        mutable StandInChangeManager closing;
    };
    {
        const ClosingSession session(engine);
        EXPECT_EQ(lock(), noLock);
        EXPECT_TRUE(session.closing.enabled);
    }
    EXPECT_EQ(ThreadManagerState::depth(), 0u);
    EXPECT_EQ(ThreadManagerState::notifyStates(), 0u);
    EXPECT_FALSE(ThreadManagerState::lockTaken());
    EXPECT_EQ(check(), lockedOut);
    EXPECT_TRUE(applicationIsFree());
}

TEST_F(ThreadManagerTest, WhoHasClosedTheProjectCanStillGiveTheLockBack)
{
    const auto giveBack = [] { return onWorker([] { ThreadManagerState::unlockAlsoWithoutProject(); }); };
    lock();
    lock();
    session.changes = nullptr;
    EXPECT_EQ(giveBack(), passes);
    EXPECT_EQ(ThreadManagerState::depth(), 1u);
    EXPECT_EQ(ThreadManagerState::notifyStates(), 1u);
    EXPECT_EQ(giveBack(), passes);
    EXPECT_FALSE(changes.enabled);
    EXPECT_EQ(ThreadManagerState::notifyStates(), 0u);
    EXPECT_EQ(check(), lockedOut);
    EXPECT_TRUE(applicationIsFree());

    session.changes = &changes;
    changes.enabled = true;
    lock();
    ThreadManagerState::unlockAlsoWithoutProject(); // The main thread's is nothing.
    EXPECT_EQ(ThreadManagerState::depth(), 1u);
    EXPECT_EQ(giveBack(), passes);
    EXPECT_TRUE(changes.enabled);
    EXPECT_EQ(check(), lockedOut);
    session.python = nullptr;
    EXPECT_EQ(giveBack(), passes);
}

TEST_F(ThreadManagerTest, WhileTheMainThreadIsInPythonTheLockIsNotReallyTaken)
{
    SCP_PythonEngine::mainThreadState() = 1;
    EXPECT_EQ(check(), lockedOut);
    EXPECT_EQ(lock(), passes);
    EXPECT_FALSE(changes.enabled);
    EXPECT_EQ(check(), passes);
    EXPECT_TRUE(applicationIsFree());
    EXPECT_EQ(unlock(), passes);
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, ADelayedLockIsTakenByTheNextCheckAfterTheMainThreadLeftPython)
{
    SCP_PythonEngine::mainThreadState() = 1;
    lock();
    SCP_PythonEngine::mainThreadState() = 0;
    EXPECT_TRUE(applicationIsFree());
    EXPECT_EQ(check(), passes);
    EXPECT_FALSE(applicationIsFree());
    EXPECT_EQ(check(), passes);
    unlock();
    EXPECT_EQ(check(), lockedOut);
}

TEST_F(ThreadManagerTest, ADelayedLockThatWasNeverTakenIsGivenBackAsWell)
{
    SCP_PythonEngine::mainThreadState() = 1;
    lock();
    SCP_PythonEngine::mainThreadState() = 0;
    unlock();
    EXPECT_EQ(check(), lockedOut);
    EXPECT_TRUE(applicationIsFree());
}

TEST_F(ThreadManagerTest, TheStricterCheckNamesWhatIsRefused)
{
    const auto refused = [](const QString& what) {
        return onWorker([&] { OMC::BaseObject::throwIfNotMainThread(what); });
    };
    EXPECT_EQ(refused(QString()), "Unable to access Object Model from another thread.");
    EXPECT_EQ(refused(QStringLiteral("preferences.__iterItem__")),
              "Unable to access preferences.__iterItem__ from another thread.");
}

TEST_F(ThreadManagerTest, TheStricterCheckMakesNoExceptions)
{
    const auto refused = [] { return onWorker([] { OMC::BaseObject::throwIfNotMainThread(QString()); }); };
    lock();
    EXPECT_EQ(refused(), "Unable to access Object Model from another thread.");
    unlock();
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(refused(), "Unable to access Object Model from another thread.");
}

TEST_F(ThreadManagerTest, TheStatesFollowTheLock)
{
    using State = ThreadManagerState;
    const auto is = [](unsigned int depth, bool taken, bool delayed, bool has, std::size_t notifyStates) {
        EXPECT_EQ(State::depth(), depth);
        EXPECT_EQ(State::lockTaken(), taken);
        EXPECT_EQ(State::delayed(), delayed);
        EXPECT_EQ(State::hasApplock(), has);
        EXPECT_EQ(State::notifyStates(), notifyStates);
    };
    is(0, false, false, false, 0);
    lock();
    is(1, true, false, true, 1);
    lock();
    is(2, true, false, true, 2);
    SCP_PythonEngine::mainThreadState() = 1;
    // Asked for once more with the main thread in Python: what is held stays held.
    lock();
    is(3, true, true, true, 3);
    unlock();
    unlock();
    is(1, true, true, true, 1);
    unlock();
    is(0, false, false, false, 0);

    lock();
    is(1, false, true, true, 1);
    SCP_PythonEngine::mainThreadState() = 0;
    is(1, false, true, false, 1);
    check();
    is(1, true, false, true, 1);
    unlock();
    is(0, false, false, false, 0);
    unlock();
    is(0, false, false, false, 0);
}

TEST_F(ThreadManagerTest, LockingOnTheMainThreadCountsNothing)
{
    ThreadManager::instance()->lock();
    EXPECT_EQ(ThreadManagerState::depth(), 0u);
    EXPECT_EQ(ThreadManagerState::notifyStates(), 0u);
    ThreadManager::instance()->unlock();
    EXPECT_EQ(ThreadManagerState::depth(), 0u);
}

TEST_F(ThreadManagerTest, ALockThatCantBeTakenForLackOfANotifierCountsNothing)
{
    session.changes = nullptr;
    lock();
    EXPECT_EQ(ThreadManagerState::depth(), 0u);
    EXPECT_EQ(ThreadManagerState::notifyStates(), 0u);
}

TEST_F(ThreadManagerTest, AFunctionRunsUnderTheLockOnAScriptThread)
{
    bool locked = false;
    bool silent = false;
    _object object = standInFunction([&] {
        locked = ThreadManagerState::lockTaken();
        silent = !changes.enabled;
    });
    PythonFunction function;
    function.set(&object);
    EXPECT_EQ(onWorker([&] { ThreadManager::instance()->runFunction(argument(function)); }), passes);
    EXPECT_TRUE(locked);
    EXPECT_TRUE(silent);
    EXPECT_FALSE(ThreadManagerState::lockTaken());
    EXPECT_TRUE(changes.enabled);
}

TEST_F(ThreadManagerTest, AFunctionRunsWithoutTheLockElsewhere)
{
    int calls = 0;
    bool locked = false;
    _object object = standInFunction([&] {
        ++calls;
        locked = locked || ThreadManagerState::lockTaken();
    });
    PythonFunction function;
    function.set(&object);
    const auto run = [&] { ThreadManager::instance()->runFunction(argument(function)); };
    EXPECT_EQ(failureOf(run), passes);
    session.python = nullptr;
    EXPECT_EQ(onWorker(run), passes);
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(onWorker(run), passes);
    EXPECT_EQ(calls, 3);
    EXPECT_FALSE(locked);
}

TEST_F(ThreadManagerTest, AFunctionThatFailsOnAScriptThreadLeavesTheLockTaken)
{
    _object object = standInFunction([] { throw OMC::Exception(std::string("It broke.")); });
    PythonFunction function;
    function.set(&object);
    const auto run = [&] { ThreadManager::instance()->runFunction(argument(function)); };
    EXPECT_EQ(failureOf(run), "It broke.");
    EXPECT_FALSE(ThreadManagerState::lockTaken());
    EXPECT_EQ(onWorker(run), "It broke.");
    EXPECT_TRUE(ThreadManagerState::lockTaken());
    EXPECT_FALSE(changes.enabled);
    unlock();
    EXPECT_TRUE(changes.enabled);
}

TEST_F(ThreadManagerTest, WhatIsNoFunctionIsNotRun)
{
    const auto run = [] { ThreadManager::instance()->runFunction(QVariant(3)); };
    EXPECT_EQ(failureOf(run), "Expected a Python Function.");
    EXPECT_EQ(onWorker(run), "Expected a Python Function.");
    EXPECT_FALSE(ThreadManagerState::lockTaken());
}

TEST_F(ThreadManagerTest, WithoutAnApplicationObjectEveryCheckFails)
{
    EXPECT_EXIT(reportWithoutApplication(), testing::ExitedWithCode(0),
                "^The application does not appear to be loaded.\nThe application does not appear to be loaded.\n"
                "The application does not appear to be loaded.\n$");
}

} // namespace
