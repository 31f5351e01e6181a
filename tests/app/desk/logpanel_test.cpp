#include "tests/app/desk/support/desktest.h"

#include <QCheckBox>

#include <thread>

namespace {

using app::desk::LogPanel;
using app::desk::Tone;

class LogPanelTest : public DeskTest {
protected:
    LogPanel& log() { return window->log(); }
    static void write(const QString& text, MSG_Scope::Action action) { const MSG_Scope line(text, action); }
};

TEST_F(LogPanelTest, LevelsAreMarkedAndColouredAndThoseForDevelopersWaitToBeAskedFor)
{
    write("one", MSG_Scope::kLog);
    write("two", MSG_Scope::kError);
    write("three", MSG_Scope::kDebug);
    write("four", MSG_Scope::kLog);
    EXPECT_EQ(logged(), "");
    runEvents(0);
    EXPECT_EQ(logged(), "one\nError: two\nfour\n");
    EXPECT_EQ(toneOf(log().view(), "one"), Tone::Plain);
    EXPECT_EQ(toneOf(log().view(), "Error: two"), Tone::Error);
    EXPECT_EQ(toneOf(log().view(), "four"), Tone::Plain);
    log().debugBox().click();
    EXPECT_EQ(logged(), "one\nError: two\nDebug: three\nfour\n");
    EXPECT_EQ(toneOf(log().view(), "Debug: three"), Tone::Debug);
    write("five", MSG_Scope::kDebug);
    runEvents(0);
    EXPECT_TRUE(logged().endsWith("four\nDebug: five\n"));
    log().debugBox().click();
    EXPECT_EQ(logged(), "one\nError: two\nfour\n");
}

TEST_F(LogPanelTest, ScriptsWriteToIt)
{
    type("app.log('a line'); app.log('bad', 'ERROR'); app.debug('inside'); app.trace('another')");
    runEvents(0);
    EXPECT_EQ(logged(), "a line\nError: bad\nanother\n");
    EXPECT_FALSE(output().contains("a line\n"));
}

TEST_F(LogPanelTest, AnyThreadWritesToIt)
{
    std::thread([] { write("from a thread", MSG_Scope::kError); }).join();
    runEvents(0);
    EXPECT_EQ(logged(), "Error: from a thread\n");
}

TEST_F(LogPanelTest, ClearingForgetsWhatWasKept)
{
    write("one", MSG_Scope::kLog);
    write("two", MSG_Scope::kDebug);
    log().clear();
    log().debugBox().click();
    EXPECT_EQ(logged(), "");
    runEvents(0);
    EXPECT_EQ(logged(), "");
}

TEST_F(LogPanelTest, WithoutThePanelTheLogGoesToStandardErrorAgain)
{
    window.reset();
    testing::internal::CaptureStderr();
    write("late", MSG_Scope::kError);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: late\n");
}

} // namespace
