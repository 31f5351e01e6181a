#include "core/frame/pythonthread.h"

#include "core/host/scp_pythonengine.h"
#include "tests/core/support/python.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

class PythonThreadTest : public testing::Test {
protected:
    ~PythonThreadTest() override { SCP_PythonEngine::mainThreadState() = 0; }

    StandInPython python;
};

TEST(PythonThreadHelperTest, ThereIsNoneUntilOneIsInstalled)
{
    EXPECT_EQ(OMC::PythonThreadHelper::helper(), nullptr);
}

TEST_F(PythonThreadTest, TheMainThreadCountsAsInsidePython)
{
    {
        const OMC::PythonGILScope scope;
        EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 1);
        {
            const OMC::PythonGILScope inner;
            EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 2);
        }
        EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 1);
    }
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
}

TEST_F(PythonThreadTest, AnotherThreadIsNotCounted)
{
    int state = -1;
    std::thread([&] {
        const OMC::PythonGILScope scope;
        state = SCP_PythonEngine::mainThreadState();
    }).join();
    EXPECT_EQ(state, 0);
    EXPECT_EQ(python.threadCalls, (QStringList{"enter", "release", "destroy"}));
}

TEST_F(PythonThreadTest, AScopeThatWasReleasedIsReleasedAgainAtItsEnd)
{
    {
        OMC::PythonGILScope scope;
        scope.release();
        EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
        EXPECT_EQ(python.threadCalls, (QStringList{"enter", "release"}));
    }
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    EXPECT_EQ(python.threadCalls, (QStringList{"enter", "release", "release", "destroy"}));
}

TEST_F(PythonThreadTest, TheCountNeverGoesBelowNothing)
{
    {
        const OMC::PythonGILScope scope;
        SCP_PythonEngine::mainThreadState() = 0;
    }
    EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
}

TEST_F(PythonThreadTest, AThreadScopeIsNotReleasedByItsEnd)
{
    {
        const OMC::PythonThreadScope scope;
        EXPECT_EQ(SCP_PythonEngine::mainThreadState(), 0);
    }
    EXPECT_EQ(python.threadCalls, (QStringList{"leave", "destroy"}));
    python.threadCalls.clear();
    {
        OMC::PythonThreadScope scope;
        scope.release();
        scope.release();
    }
    EXPECT_EQ(python.threadCalls, (QStringList{"leave", "release", "release", "destroy"}));
}

} // namespace
