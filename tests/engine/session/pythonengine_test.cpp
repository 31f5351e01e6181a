#include "core/host/scp_pythonengine.h"

#include "engine/engine.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

using ThreadStateScope = SCP_PythonEngine::ThreadStateScope;
using Waiting = SCP_PythonEngine::Waiting;

/// Writes down who leaves the interpreter and who comes back; a thread outside has nothing to leave.
class RecordedThreadStates final : public SCP_PythonEngine::ThreadStates {
public:
    RecordedThreadStates() { SCP_PythonEngine::setThreadStates(this); }
    ~RecordedThreadStates() override { SCP_PythonEngine::setThreadStates(nullptr); }

    void* leave(Waiting waiting) override
    {
        calls.append(waiting == Waiting::ForMainThread ? "leave for the main thread" : "leave for the lock");
        return inside ? this : nullptr;
    }
    void enter(void* left) noexcept override { calls.append(left == this ? "enter" : "enter with something else"); }

    bool inside = true;
    QStringList calls;
};

} // namespace

TEST(PythonEngineTest, TheMainThreadsStateIsOneCounter)
{
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    ++SCP_PythonEngine::mainThreadState();
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 1);
    --SCP_PythonEngine::mainThreadState();
}

TEST(PythonEngineTest, WithoutAnInterpreterThereIsNothingToLeave)
{
    RecordedThreadStates states;
    SCP_PythonEngine::setThreadStates(nullptr);
    {
        const ThreadStateScope scope;
        SCP_PythonEngine::setThreadStates(&states);
    }
    EXPECT_EQ(states.calls, QStringList()) << "what was not left is not entered";
}

TEST(PythonEngineTest, AScopeLeavesTheInterpreterAndComesBack)
{
    RecordedThreadStates states;
    {
        const ThreadStateScope scope;
        EXPECT_EQ(states.calls, QStringList("leave for the main thread"));
    }
    EXPECT_EQ(states.calls, (QStringList{"leave for the main thread", "enter"}));
    states.calls.clear();
    {
        const ThreadStateScope scope(Waiting::ForApplicationLock);
    }
    EXPECT_EQ(states.calls, (QStringList{"leave for the lock", "enter"}));
}

TEST(PythonEngineTest, AThreadThatIsOutsideStaysOutside)
{
    RecordedThreadStates states;
    states.inside = false;
    {
        const ThreadStateScope scope;
    }
    EXPECT_EQ(states.calls, QStringList("leave for the main thread"));
}

TEST(PythonEngineTest, ASessionHasAnEngineOnlyWhereItsProcessRunsPython)
{
    EXPECT_EQ(SC_SessionContext::create()->pythonEngine(), nullptr);
    const auto session = engine::createPythonSession();
    EXPECT_NE(session->pythonEngine(), nullptr);
    EXPECT_EQ(PLUG_Services::getSessionContext(), session.get());
    EXPECT_EQ(session->projectManager()->project(), nullptr);
}
