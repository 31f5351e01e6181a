#include "engine/session/messages.h"

#include <gtest/gtest.h>

namespace {

class MessagesTest : public testing::Test {
protected:
    void TearDown() override { qunsetenv("BRINDLE_DEBUG"); }
};

} // namespace

TEST_F(MessagesTest, ALineSaysHowGraveItIs)
{
    EXPECT_EQ(engine::messageLine("It broke.", MSG_Scope::kError), "Error: It broke.\n");
    EXPECT_EQ(engine::messageLine(QString::fromUtf8("Späte Zeile"), MSG_Scope::kLog), "Späte Zeile\n");
}

TEST_F(MessagesTest, DebugLinesAreWrittenWhenTheEnvironmentAsksForThem)
{
    qunsetenv("BRINDLE_DEBUG");
    EXPECT_EQ(engine::messageLine("Detail", MSG_Scope::kDebug), "");
    qputenv("BRINDLE_DEBUG", "1");
    EXPECT_EQ(engine::messageLine("Detail", MSG_Scope::kDebug), "Debug: Detail\n");
}

TEST_F(MessagesTest, MessagesGoToStandardError)
{
    testing::internal::CaptureStderr();
    const MSG_Scope first("Hello", MSG_Scope::kLog);
    const MSG_Scope second("Loader", "no such file", MSG_Scope::kError, 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Hello\nError: Loader: no such file\n");
}
