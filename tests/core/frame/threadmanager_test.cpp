#include "core/frame/threadmanager.h"

#include "core/frame/baseobject.h"
#include "core/host/pl_applock.h"
#include "core/host/scp_pythonengine.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace {

using OMC::ThreadManager;

const char* const lockedOut = "Unable to access Object Model from another thread -- application must be locked.";
const char* const noLock = "Thread failed to get Application Lock.";
const char* const passes = "no exception";

class PythonEngine : public SCP_PythonEngine {};

/// Runs a call on a thread of its own and gives the sentence that it fails with.
template <typename Call>
std::string onWorker(Call call)
{
    std::string failure;
    std::thread([&] { failure = failureOf(call); }).join();
    return failure;
}

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

/// A session inside the host: it has a Python engine, whose main thread is not in Python.
class ThreadManagerTest : public testing::Test {
protected:
    ThreadManagerTest()
    {
        session.python = &engine;
        session.changes = &changes;
    }
    ~ThreadManagerTest() override
    {
        SCP_PythonEngine::mainThreadState() = 0;
        session.python = &engine;
        session.changes = &changes;
        for (int i = 0; i < 4; ++i)
            unlock();
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

    PythonEngine engine;
    StandInChangeManager changes;
    StandInSession session;

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

TEST_F(ThreadManagerTest, WithoutAnApplicationObjectEveryCheckFails)
{
    EXPECT_EXIT(reportWithoutApplication(), testing::ExitedWithCode(0),
                "^The application does not appear to be loaded.\nThe application does not appear to be loaded.\n"
                "The application does not appear to be loaded.\n$");
}

} // namespace
