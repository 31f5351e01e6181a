#include "engine/session/applicationlock.h"

#include "core/host/pl_applock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace {

using brindle::engine::ApplicationLock;
using PL_AppLock::AppLock;
using PL_AppLock::Parking;
using namespace std::chrono_literals;

/// Whether nobody has the lock at this moment.
bool isFree()
{
    ApplicationLock& lock = ApplicationLock::instance();
    if (!lock.tryTake())
        return false;
    lock.giveBack();
    return true;
}

template <typename Condition>
void waitUntil(Condition condition)
{
    while (!condition())
        std::this_thread::sleep_for(1ms);
}

/// This thread's event loop takes part while the test runs.
class LoopTest : public testing::Test {
protected:
    LoopTest() { lock.joinLoop(); }
    ~LoopTest() override { lock.leaveLoop(); }

    ApplicationLock& lock = ApplicationLock::instance();
};

} // namespace

TEST(ApplicationLockTest, TheLockLetsOneThreadInAtATime)
{
    int counter = 0;
    const auto count = [&counter] {
        for (int i = 0; i < 2000; ++i) {
            const AppLock lock;
            ++counter;
        }
    };
    std::thread other(count);
    count();
    other.join();
    EXPECT_EQ(counter, 4000);
}

TEST(ApplicationLockTest, TheLockMayBeGivenBackByAnotherThread)
{
    auto lock = std::make_unique<AppLock>();
    std::thread([&lock] { lock.reset(); }).join();
    EXPECT_TRUE(isFree());
}

TEST(ApplicationLockTest, WhoComesFirstIsServedFirst)
{
    std::vector<int> order;
    std::vector<std::thread> threads;
    auto held = std::make_unique<AppLock>();
    std::atomic<int> coming = 0;
    for (int number = 0; number < 5; ++number) {
        threads.emplace_back([&order, &coming, number] {
            ++coming;
            const AppLock lock;
            order.push_back(number);
        });
        waitUntil([&] { return coming == number + 1; });
        std::this_thread::sleep_for(5ms);
    }
    held.reset();
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST(ApplicationLockTest, WithoutAnEventLoopParkingDoesNothing)
{
    const AppLock lock;
    const Parking parking;
    EXPECT_FALSE(isFree());
}

TEST_F(LoopTest, AnEventLoopHoldsTheLockWhileItWorks)
{
    EXPECT_FALSE(isFree());
    lock.setIdle(true);
    EXPECT_TRUE(isFree());
    lock.setIdle(false);
    EXPECT_FALSE(isFree());
    lock.leaveLoop();
    EXPECT_TRUE(isFree());
}

TEST_F(LoopTest, TheOutermostParkingCounts)
{
    {
        const Parking outer;
        EXPECT_TRUE(isFree());
        {
            const Parking inner;
            EXPECT_TRUE(isFree());
        }
        EXPECT_TRUE(isFree());
    }
    EXPECT_FALSE(isFree());
}

TEST_F(LoopTest, ParkingEndsOnce)
{
    Parking parking;
    parking.end();
    EXPECT_FALSE(isFree());
    lock.setIdle(true);
    parking.end();
    EXPECT_TRUE(isFree());
}

TEST_F(LoopTest, AnotherThreadsParkingLeavesTheLoopAlone)
{
    std::thread([] {
        const Parking parking;
        EXPECT_FALSE(isFree());
    }).join();
    EXPECT_FALSE(isFree());
}

TEST_F(LoopTest, AParkedLoopThatWaitsForEventsHoldsNothingWhenItGoesOn)
{
    const Parking parking;
    lock.setIdle(true);
    lock.setIdle(false);
    EXPECT_TRUE(isFree());
}

TEST_F(LoopTest, AParkedLoopComesBackWhenTheLockIsFree)
{
    std::atomic<bool> taken = false;
    std::atomic<bool> back = false;
    std::thread other;
    {
        const Parking parking;
        other = std::thread([&] {
            const AppLock held;
            taken = true;
            std::this_thread::sleep_for(30ms);
            EXPECT_FALSE(back);
        });
        waitUntil([&] { return taken.load(); });
    }
    back = true;
    EXPECT_FALSE(isFree());
    other.join();
}

TEST_F(LoopTest, ALoopGivesWayToThoseWhoWaitAndGoesOn)
{
    std::atomic<int> had = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&had] {
            const AppLock held;
            ++had;
        });
    }
    waitUntil([this] { return lock.isAwaited(); });
    std::this_thread::sleep_for(20ms);
    EXPECT_EQ(had, 0);
    lock.giveWay();
    EXPECT_EQ(had, 3);
    EXPECT_FALSE(isFree());
    lock.giveWay();
    EXPECT_FALSE(isFree());
    for (std::thread& thread : threads)
        thread.join();
}
