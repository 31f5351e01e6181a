#include "core/frame/threadmanager.h"
#include "tests/core/support/embedded.h"

#include <QCoreApplication>

#include <chrono>

// With the clock as it is: the main thread never comes to its event loop.

namespace {

class RunOnMainTimeOutTest : public EmbeddedTest {};

TEST_F(RunOnMainTimeOutTest, WhoWaitsForAMainThreadThatNeverAnswersGetsAnErrorAfterThirtySeconds)
{
    int calls = 0;
    _object object = standInFunction([&] {
        ++calls;
        throw OMC::Exception(std::string("It broke."));
    });
    OMC::PythonFunction function;
    function.set(&object);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(onWorker([&] { OMC::ThreadManager::instance()->runOnMain(argument(function), true); }),
              "The main thread failed to respond - timing out.");
    const auto waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(waited, std::chrono::seconds(30));
    EXPECT_LT(waited, std::chrono::seconds(33));
    EXPECT_EQ(calls, 0);

    // The job stays posted: it is current when its turn comes. Nobody waits for what it raises any more.
    testing::internal::CaptureStderr();
    QCoreApplication::processEvents();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: It broke.\n");
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(object.references, 1);
}

} // namespace
