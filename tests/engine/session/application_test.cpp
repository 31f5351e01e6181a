#include "core/host/application.h"

#include "engine/engine.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

TEST(EngineApplicationTest, APlainProcessIsNoBatch)
{
    EXPECT_EQ(engine::batchMode(), engine::BatchMode::None);
    EXPECT_FALSE(ST_BatchParams::isBatchScripting());
    EXPECT_FALSE(ST_BatchParams::isBatchRendering());
    EXPECT_FALSE(ST_BatchParams::isBatchPython());
}

TEST(EngineApplicationTest, TheProgramSaysWhatBatchItIs)
{
    engine::setBatchMode(engine::BatchMode::Scripting);
    EXPECT_TRUE(ST_BatchParams::isBatchScripting());
    engine::setBatchMode(engine::BatchMode::Rendering);
    EXPECT_TRUE(ST_BatchParams::isBatchRendering());
    engine::setBatchMode(engine::BatchMode::Python);
    EXPECT_TRUE(ST_BatchParams::isBatchPython());
    EXPECT_FALSE(ST_BatchParams::isBatchScripting());
    EXPECT_EQ(engine::batchMode(), engine::BatchMode::Python);
    engine::setBatchMode(engine::BatchMode::None);
}

TEST(EngineApplicationTest, TheLockLetsOneThreadInAtATime)
{
    int counter = 0;
    const auto count = [&counter] {
        for (int i = 0; i < 2000; ++i) {
            const PL_AppLock::AppLock lock;
            ++counter;
        }
    };
    std::thread other(count);
    count();
    other.join();
    EXPECT_EQ(counter, 4000);
}

TEST(EngineApplicationTest, TheLockMayBeGivenBackByAnotherThread)
{
    auto lock = std::make_unique<PL_AppLock::AppLock>();
    std::thread([&lock] { lock.reset(); }).join();
    const PL_AppLock::AppLock again;
}

TEST(EngineApplicationTest, TheMainThreadsStateIsOneCounter)
{
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    ++SCP_PythonEngine::mainThreadState();
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 1);
    --SCP_PythonEngine::mainThreadState();
}

TEST(EngineApplicationTest, EventsAreProcessedOnlyWhereThereIsAnApplication)
{
    BUIAPP_Application::processEventsNoAppLock(true);
    BUIAPP_Application::processEventsNoAppLock(false);
}
