#include "engine/engine.h"

#include "core/host/pl_applock.h"
#include "core/host/scp_pythonengine.h"
#include "engine/session/applicationlock.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

using brindle::engine::ApplicationLock;
using PL_AppLock::AppLock;
using namespace std::chrono_literals;

bool isHeld()
{
    ApplicationLock& lock = ApplicationLock::instance();
    if (!lock.tryTake())
        return true;
    lock.giveBack();
    return false;
}

class MainLoopTest : public testing::Test {
protected:
    /// Runs the event loop until `step` has been called and has called `done`.
    template <typename Step>
    void runLoop(Step step)
    {
        QTimer::singleShot(0, &application, step);
        QCoreApplication::exec();
    }
    static void done() { QCoreApplication::quit(); }

    int count = 1;
    char name[8] = "loop";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{count, arguments};
    brindle::engine::MainLoop mainLoop;
};

} // namespace

TEST_F(MainLoopTest, EventsAreHandledWithTheLockHeld)
{
    bool held = false;
    runLoop([&] {
        held = isHeld();
        done();
    });
    EXPECT_TRUE(held);
    EXPECT_TRUE(isHeld());
}

TEST_F(MainLoopTest, AThreadGetsTheLockWhileTheLoopWaitsForEvents)
{
    std::atomic<bool> had = false;
    std::thread other([&] {
        {
            const AppLock lock;
            had = true;
        }
        QMetaObject::invokeMethod(
            &application, [] { done(); }, Qt::QueuedConnection);
    });
    EXPECT_FALSE(had);
    QCoreApplication::exec();
    EXPECT_TRUE(had);
    other.join();
}

TEST_F(MainLoopTest, AnEventWaitsForTheThreadThatHasTheLock)
{
    std::atomic<bool> working = false;
    std::atomic<bool> overlap = false;
    std::thread other([&] {
        for (int i = 0; i < 50; ++i) {
            const AppLock lock;
            working = true;
            std::this_thread::sleep_for(1ms);
            working = false;
        }
        QMetaObject::invokeMethod(
            &application, [] { done(); }, Qt::QueuedConnection);
    });
    QTimer timer;
    int ticks = 0;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        ++ticks;
        overlap = overlap || working;
    });
    timer.start(0);
    QCoreApplication::exec();
    other.join();
    EXPECT_GT(ticks, 0);
    EXPECT_FALSE(overlap);
}

TEST_F(MainLoopTest, ALoopThatIsNeverIdleLetsThreadsInBetweenItsRounds)
{
    std::atomic<bool> had = false;
    std::thread other([&] {
        const AppLock lock;
        had = true;
    });
    // Posts itself again and again, so that the loop never waits.
    std::function<void()> again = [&] {
        if (had)
            done();
        else
            QMetaObject::invokeMethod(&application, again, Qt::QueuedConnection);
    };
    runLoop(again);
    EXPECT_TRUE(had);
    other.join();
}

TEST_F(MainLoopTest, AfterANestedLoopTheEventGoesOnWithTheLockHeld)
{
    bool inside = false;
    bool after = false;
    std::atomic<bool> had = false;
    std::thread other;
    runLoop([&] {
        QEventLoop nested;
        other = std::thread([&] {
            {
                const AppLock lock;
                had = true;
            }
            QMetaObject::invokeMethod(
                &application,
                [&] {
                    inside = isHeld();
                    nested.quit();
                },
                Qt::QueuedConnection);
        });
        nested.exec();
        after = isHeld();
        done();
    });
    other.join();
    EXPECT_TRUE(had);
    EXPECT_TRUE(inside);
    EXPECT_TRUE(after);
}

TEST_F(MainLoopTest, ALoopInsidePythonLeavesTheLockToThreads)
{
    bool held = true;
    bool back = false;
    runLoop([&] {
        {
            const PL_AppLock::Parking parking;
            QEventLoop nested;
            QTimer::singleShot(10, &nested, [&] {
                held = isHeld();
                nested.quit();
            });
            nested.exec();
        }
        back = isHeld();
        done();
    });
    EXPECT_FALSE(held);
    EXPECT_TRUE(back);
}

TEST_F(MainLoopTest, ALoopThatWaitsInsidePythonLetsOtherThreadsRunPython)
{
    class States final : public SCP_PythonEngine::ThreadStates {
    public:
        void* leave(SCP_PythonEngine::Waiting) override
        {
            ++away;
            return this;
        }
        void enter(void*) noexcept override { --away; }
        int away = 0;
    };
    static States states;
    SCP_PythonEngine::setThreadStates(&states);
    int whileHandling = -1;
    QTimer::singleShot(10, &application, [&] {
        whileHandling = states.away;
        done();
    });
    QCoreApplication::exec();
    SCP_PythonEngine::setThreadStates(nullptr);
    EXPECT_EQ(whileHandling, 0);
}

TEST(MainLoopEndTest, WithTheLoopTheLockIsGivenUp)
{
    int count = 1;
    char name[8] = "loop";
    char* arguments[2] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    {
        const brindle::engine::MainLoop mainLoop;
        EXPECT_TRUE(isHeld());
    }
    EXPECT_FALSE(isHeld());
}
