#include "engine/session/messages.h"

#include "engine/engine.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <thread>
#include <vector>

namespace {

class MessagesTest : public testing::Test {
protected:
    void TearDown() override
    {
        qunsetenv("BRINDLE_DEBUG");
        brindle::engine::setLogVerbose(false);
        brindle::engine::setLogSink({});
    }
};

} // namespace

TEST_F(MessagesTest, ALineSaysHowGraveItIs)
{
    EXPECT_EQ(brindle::engine::messageLine("It broke.", MSG_Scope::kError), "Error: It broke.\n");
    EXPECT_EQ(brindle::engine::messageLine(QString::fromUtf8("Späte Zeile"), MSG_Scope::kLog), "Späte Zeile\n");
}

TEST_F(MessagesTest, DebugLinesAreWrittenInAVerboseLog)
{
    EXPECT_EQ(brindle::engine::messageLine("Detail", MSG_Scope::kDebug), "");
    brindle::engine::setLogVerbose(true);
    EXPECT_EQ(brindle::engine::messageLine("Detail", MSG_Scope::kDebug), "Debug: Detail\n");
    brindle::engine::setLogVerbose(false);
    EXPECT_EQ(brindle::engine::messageLine("Detail", MSG_Scope::kDebug), "");
}

TEST_F(MessagesTest, DebugLinesAreWrittenWhenTheEnvironmentAsksForThem)
{
    qunsetenv("BRINDLE_DEBUG");
    EXPECT_EQ(brindle::engine::messageLine("Detail", MSG_Scope::kDebug), "");
    qputenv("BRINDLE_DEBUG", "1");
    EXPECT_EQ(brindle::engine::messageLine("Detail", MSG_Scope::kDebug), "Debug: Detail\n");
}

TEST_F(MessagesTest, MessagesGoToStandardError)
{
    testing::internal::CaptureStderr();
    const MSG_Scope first("Hello", MSG_Scope::kLog);
    const MSG_Scope second("Loader", "no such file", MSG_Scope::kError, 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Hello\nError: Loader: no such file\n");
}

TEST_F(MessagesTest, ASinkGetsAllMessagesInPlaceOfStandardError)
{
    QStringList lines;
    brindle::engine::setLogSink(
        [&lines](MSG_Scope::Action level, const QString& text) { lines.append(QString::number(level) + ' ' + text); });
    testing::internal::CaptureStderr();
    const MSG_Scope error("It broke.", MSG_Scope::kError);
    const MSG_Scope line("Hello", MSG_Scope::kLog);
    const MSG_Scope detail("Detail", MSG_Scope::kDebug);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(lines, (QStringList{"2 It broke.", "5 Hello", "6 Detail"}));
    brindle::engine::setLogSink({});
    testing::internal::CaptureStderr();
    const MSG_Scope again("Hello", MSG_Scope::kLog);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Hello\n");
    EXPECT_EQ(lines.size(), 3);
}

TEST_F(MessagesTest, ASinkMayLogAndMayTakeItselfAway)
{
    QStringList lines;
    brindle::engine::setLogSink([&lines](MSG_Scope::Action level, const QString& text) {
        lines.append(text);
        if (level != MSG_Scope::kError)
            return;
        const MSG_Scope more("more", MSG_Scope::kLog);
        brindle::engine::setLogSink({});
    });
    const MSG_Scope error("It broke.", MSG_Scope::kError);
    EXPECT_EQ(lines, (QStringList{"It broke.", "more"}));
}

TEST_F(MessagesTest, ASinkGetsTheLinesOfSeveralThreadsOneAtATime)
{
    int lines = 0;
    brindle::engine::setLogSink([&lines](MSG_Scope::Action, const QString&) { ++lines; });
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int line = 0; line < 500; ++line)
                const MSG_Scope scope("Hello", MSG_Scope::kLog);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(lines, 2000);
}
