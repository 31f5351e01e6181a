#pragma once

#include "core/frame/threadmanager.h"
#include "core/host/pl_applock.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/python.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

/// Runs a call on a thread of its own and gives the sentence that it fails with.
template <typename Call>
std::string onWorker(Call call)
{
    std::string failure;
    std::thread([&] { failure = failureOf(call); }).join();
    return failure;
}

/// A session inside the host: it has a Python engine, whose main thread is not in Python, and a stand-in for Python.
class EmbeddedTest : public testing::Test {
protected:
    EmbeddedTest()
    {
        session.python = &engine;
        session.changes = &changes;
    }
    ~EmbeddedTest() override { freeTheApplication(); }

    /// Gives back every lock that a test has left.
    void freeTheApplication()
    {
        SCP_PythonEngine::mainThreadState() = 0;
        session.python = &engine;
        session.changes = &changes;
        for (int i = 0; i < 4; ++i)
            onWorker([] { OMC::ThreadManager::instance()->unlock(); });
    }

    StandInPython python;
    PythonEngine engine;
    StandInChangeManager changes;
    StandInSession session;
};
