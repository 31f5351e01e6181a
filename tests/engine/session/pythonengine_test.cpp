#include "core/host/scp_pythonengine.h"

#include "core/host/co_command.h"
#include "core/host/sc_projectcmds.h"
#include "engine/engine.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QTemporaryDir>

namespace {

using ThreadStateScope = SCP_PythonEngine::ThreadStateScope;
using Waiting = SCP_PythonEngine::Waiting;

/// Writes down who leaves the interpreter and who comes back, and when scripts are halted; a thread outside has nothing
/// to leave.
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

    void* halt() noexcept override
    {
        calls.append("halt");
        return inside ? this : nullptr;
    }
    void resume(void* halted) noexcept override
    {
        calls.append(halted == this ? "resume" : "resume with something else");
    }

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

TEST(PythonEngineTest, WhatScriptsReachWithoutALockChangesWhileTheyStandStill)
{
    QTemporaryDir folder;
    QString error;
    RecordedThreadStates states;
    const QStringList once{"halt", "resume"};
    const auto changes = [&states](const auto& change) {
        states.calls.clear();
        change();
        return states.calls;
    };

    std::unique_ptr<SC_SessionContext> session;
    EXPECT_EQ(changes([&] { session = brindle::engine::createPythonSession(); }), once);
    SC_ProjectManager& projects = *session->projectManager();
    EXPECT_TRUE(changes([&] { projects.createProject(folder.filePath("project"), error); }).contains("halt"));
    ASSERT_TRUE(projects.project()) << error.toStdString();
    EXPECT_EQ(changes([&] { projects.saveProject(error); }), QStringList());
    SC_ProjectCommon& project = *session->projectCommon();
    CO_CommandManager& commands = *project.commandManager();
    EXPECT_EQ(changes([&] { commands.execute(new SC_ProjectCmds::AddSceneCmd(&project, "Second", -1), "Add"); }), once);
    EXPECT_EQ(changes([&] { commands.unexecute(1); }), once);
    EXPECT_EQ(changes([&] { projects.closeProject(); }), once);
    EXPECT_TRUE(changes([&] { session.reset(); }).contains("halt"));
}

TEST(PythonEngineTest, WithoutAnInterpreterNobodyIsHalted)
{
    RecordedThreadStates states;
    states.inside = false;
    {
        const SCP_PythonEngine::HaltScope halt;
    }
    EXPECT_EQ(states.calls, QStringList("halt"));
}

TEST(PythonEngineTest, ASessionHasAnEngineOnlyWhereItsProcessRunsPython)
{
    EXPECT_EQ(SC_SessionContext::create()->pythonEngine(), nullptr);
    const auto session = brindle::engine::createPythonSession();
    EXPECT_NE(session->pythonEngine(), nullptr);
    EXPECT_EQ(PLUG_Services::getSessionContext(), session.get());
    EXPECT_EQ(session->projectManager()->project(), nullptr);
}
