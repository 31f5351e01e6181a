#include "core/frame/threadmanager.h"

#include "core/frame/threadmanagerstate.h"
#include "tests/core/support/embedded.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>

namespace {

using OMC::PythonFunction;
using OMC::ThreadManager;
using OMC::ThreadManagerState;
using namespace std::chrono_literals;

const char* const notAFunction = "Expected a Python Function.";
const char* const external = "Unable to use run_on_main() in an external Python interpreter.";

/// A function of a script, and what happened to it.
class Watched {
public:
    explicit Watched(std::function<void()> body = {})
        : m_object(standInFunction([this, body] {
              ++calls;
              thread = QThread::currentThread();
              state = SCP_PythonEngine::mainThreadState();
              if (body)
                  body();
          }))
    {
        m_function.set(&m_object);
    }

    QVariant argument() { return ::argument(m_function); }
    int references() { return std::atomic_ref(m_object.references).load(); }

    std::atomic<int> calls = 0;
    std::atomic<QThread*> thread = nullptr;
    std::atomic<int> state = -1;

private:
    _object m_object;
    PythonFunction m_function;
};

void runOnMain(const QVariant& function, bool wait)
{
    ThreadManager::instance()->runOnMain(function, wait);
}

class RunOnMainTest : public EmbeddedTest {
protected:
    /// Runs a call on a worker while this thread handles events, from when `begun` on, and gives the sentence that it
    /// fails with.
    template <typename Call>
    std::string whileEventsAreHandled(
        Call call, const std::function<bool()>& begun = [] { return true; })
    {
        std::string failure;
        std::atomic<bool> done = false;
        std::thread worker([&] {
            failure = failureOf(call);
            done = true;
        });
        while (!done) {
            if (begun())
                QCoreApplication::processEvents();
            std::this_thread::sleep_for(1ms);
        }
        worker.join();
        return failure;
    }

    /// The lines that the log gets while pending events are handled.
    std::string handlePendingEvents()
    {
        testing::internal::CaptureStderr();
        QCoreApplication::processEvents();
        return testing::internal::GetCapturedStderr();
    }
};

TEST_F(RunOnMainTest, WhatIsNoFunctionIsRefused)
{
    EXPECT_EQ(failureOf([] { runOnMain(QVariant(3), true); }), notAFunction);
    EXPECT_EQ(onWorker([] { runOnMain(QVariant(), false); }), notAFunction);
    OMC::BaseObject object;
    EXPECT_EQ(failureOf([&] { runOnMain(QVariant::fromValue<QObject*>(&object), true); }), notAFunction);
}

TEST_F(RunOnMainTest, APlainInterpreterIsRefusedAheadOfWhatIsNoFunction)
{
    session.python = nullptr;
    EXPECT_EQ(failureOf([] { runOnMain(QVariant(3), true); }), external);
    PLUG_Services::setSessionContext(nullptr);
    EXPECT_EQ(failureOf([] { runOnMain(QVariant(3), true); }), external);
    Watched function;
    EXPECT_EQ(failureOf([&] { runOnMain(function.argument(), true); }), external);
    EXPECT_EQ(function.calls, 0);
}

TEST_F(RunOnMainTest, WithoutAnApplicationObjectItIsRefused)
{
    Watched function;
    const auto report = [&] {
        QCoreApplication::instance()->~QCoreApplication();
        std::fprintf(stderr, "%s", failureOf([&] { runOnMain(function.argument(), true); }).c_str());
        std::fflush(stderr);
        std::_Exit(0);
    };
    EXPECT_EXIT(report(), testing::ExitedWithCode(0), "^The application does not appear to be loaded.$");
}

TEST_F(RunOnMainTest, OnTheMainThreadTheFunctionRunsBeforeTheCallReturns)
{
    for (const bool wait : {true, false}) {
        Watched function;
        const unsigned int index = ThreadManagerState::jobIndex();
        EXPECT_EQ(failureOf([&] { runOnMain(function.argument(), wait); }), passes);
        EXPECT_EQ(function.calls, 1);
        EXPECT_EQ(function.state, 2); // The job is inside Python, and so is the call.
        EXPECT_EQ(function.thread, QThread::currentThread());
        EXPECT_EQ(ThreadManagerState::jobIndex(), index + 1);
        EXPECT_EQ(function.references(), 1);
        EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    }
}

TEST_F(RunOnMainTest, AWorkerWaitsUntilTheMainThreadHasRunTheFunction)
{
    Watched function;
    int callsAtReturn = -1;
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(whileEventsAreHandled([&] {
                  runOnMain(function.argument(), true);
                  callsAtReturn = function.calls;
              }),
              passes);
    EXPECT_EQ(callsAtReturn, 1);
    EXPECT_EQ(function.thread, QThread::currentThread());
    EXPECT_EQ(function.references(), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
}

TEST_F(RunOnMainTest, AWorkerThatDoesNotWaitGoesOnAtOnce)
{
    Watched function;
    EXPECT_EQ(onWorker([&] { runOnMain(function.argument(), false); }), passes);
    EXPECT_EQ(function.calls, 0);
    EXPECT_EQ(function.references(), 2);
    EXPECT_EQ(handlePendingEvents(), "");
    EXPECT_EQ(function.calls, 1);
    EXPECT_EQ(function.references(), 1);
}

TEST_F(RunOnMainTest, OfTwoJobsPostedAtOneCountTheFirstRunsOnly)
{
    Watched first;
    Watched second;
    const unsigned int index = ThreadManagerState::jobIndex();
    EXPECT_EQ(onWorker([&] {
                  runOnMain(first.argument(), false);
                  runOnMain(second.argument(), false);
              }),
              passes);
    handlePendingEvents();
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(second.calls, 0);
    EXPECT_EQ(second.references(), 1);
    EXPECT_EQ(ThreadManagerState::jobIndex(), index + 2);
}

TEST_F(RunOnMainTest, AJobThatIsStaleEndsTheWaitAsWell)
{
    Watched first;
    Watched second;
    EXPECT_EQ(onWorker([&] { runOnMain(first.argument(), false); }), passes);
    // The second job has its ticket, and its own hold on the function, before the first one runs.
    const QVariant argument = second.argument();
    const int held = second.references();
    const auto queued = [&, isQueued = false]() mutable { return isQueued = isQueued || second.references() > held; };
    EXPECT_EQ(whileEventsAreHandled([&] { runOnMain(argument, true); }, queued), passes);
    EXPECT_EQ(first.calls + second.calls, 1);
}

TEST_F(RunOnMainTest, JobsOneAfterAnotherAllRun)
{
    Watched functions[3];
    for (Watched& function : functions)
        EXPECT_EQ(whileEventsAreHandled([&] { runOnMain(function.argument(), true); }), passes);
    for (Watched& function : functions)
        EXPECT_EQ(function.calls, 1);
}

TEST_F(RunOnMainTest, TheSceneIsSilentWhileTheFunctionRuns)
{
    bool silent = false;
    Watched function([&] { silent = !changes.enabled; });
    runOnMain(function.argument(), true);
    EXPECT_TRUE(silent);
    EXPECT_TRUE(changes.enabled);
    changes.enabled = false;
    runOnMain(function.argument(), true);
    EXPECT_FALSE(changes.enabled);
    session.changes = nullptr;
    EXPECT_EQ(failureOf([&] { runOnMain(function.argument(), true); }), passes);
    EXPECT_EQ(function.calls, 3);
}

TEST_F(RunOnMainTest, AFunctionMayCloseTheProject)
{
    Watched function([&] { session.changes = nullptr; });
    EXPECT_EQ(failureOf([&] { runOnMain(function.argument(), true); }), passes);
    EXPECT_FALSE(changes.enabled);
}

TEST_F(RunOnMainTest, AFailureComesBackToWhoWaits)
{
    Watched function([] { throw OMC::Exception(std::string("It broke.")); });
    const unsigned int index = ThreadManagerState::jobIndex();
    testing::internal::CaptureStderr();
    EXPECT_EQ(whileEventsAreHandled([&] { runOnMain(function.argument(), true); }), "It broke.");
    EXPECT_EQ(failureOf([&] { runOnMain(function.argument(), true); }), "It broke.");
    EXPECT_EQ(failureOf([&] { runOnMain(function.argument(), false); }), "It broke.");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(ThreadManagerState::jobIndex(), index + 3);
    EXPECT_TRUE(changes.enabled);
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    EXPECT_EQ(function.references(), 1);
}

TEST_F(RunOnMainTest, AFailureThatNobodyWaitsForGoesToTheLog)
{
    Watched function([] { throw OMC::Exception(std::string("It broke.")); });
    EXPECT_EQ(onWorker([&] { runOnMain(function.argument(), false); }), passes);
    EXPECT_EQ(handlePendingEvents(), "Error: It broke.\n");
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    Watched odd([] { throw 3; });
    EXPECT_EQ(onWorker([&] { runOnMain(odd.argument(), false); }), passes);
    EXPECT_EQ(handlePendingEvents(), "Error: An unexpected error has occurred.\n");
}

TEST_F(RunOnMainTest, AFunctionOnTheMainThreadMayCallAnother)
{
    Watched inner;
    Watched outer([&] { runOnMain(inner.argument(), true); });
    EXPECT_EQ(whileEventsAreHandled([&] { runOnMain(outer.argument(), true); }), passes);
    QCoreApplication::processEvents();
    EXPECT_EQ(inner.calls, 1);
    EXPECT_EQ(outer.calls, 1);
}

TEST_F(RunOnMainTest, WhoWaitsHasLeftPython)
{
    class States final : public SCP_PythonEngine::ThreadStates {
    public:
        void* leave(SCP_PythonEngine::Waiting waiting) override
        {
            left = waiting == SCP_PythonEngine::Waiting::ForMainThread;
            return this;
        }
        void enter(void*) noexcept override { left = false; }
        std::atomic<bool> left = false;
    };
    static States states;
    SCP_PythonEngine::setThreadStates(&states);
    bool outside = false;
    Watched function([&] { outside = states.left; });
    EXPECT_EQ(whileEventsAreHandled([&] { runOnMain(function.argument(), true); }), passes);
    EXPECT_TRUE(outside);
    EXPECT_FALSE(states.left);
    SCP_PythonEngine::setThreadStates(nullptr);
}

TEST_F(RunOnMainTest, TheFunctionIsCopiedAheadOfLeavingPython)
{
    static std::function<void()> onLeave;
    class States final : public SCP_PythonEngine::ThreadStates {
    public:
        void* leave(SCP_PythonEngine::Waiting) override
        {
            onLeave();
            return this;
        }
        void enter(void*) noexcept override {}
    };
    static States states;
    SCP_PythonEngine::setThreadStates(&states);
    Watched function;
    int references = 0;
    onLeave = [&] { references = function.references(); };
    EXPECT_EQ(onWorker([&] { runOnMain(function.argument(), false); }), passes);
    EXPECT_EQ(references, 2);
    SCP_PythonEngine::setThreadStates(nullptr);
    QCoreApplication::removePostedEvents(QAbstractEventDispatcher::instance());
}

TEST_F(RunOnMainTest, AJobThatNobodyRunsLetsGoOfItsFunction)
{
    Watched function;
    EXPECT_EQ(onWorker([&] { runOnMain(function.argument(), false); }), passes);
    EXPECT_EQ(function.references(), 2);
    QCoreApplication::removePostedEvents(QAbstractEventDispatcher::instance());
    EXPECT_EQ(function.references(), 1);
    EXPECT_EQ(function.calls, 0);
}

} // namespace
