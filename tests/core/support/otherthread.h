#pragma once

#include "core/host/scp_pythonengine.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/standins.h"

#include <functional>
#include <string>
#include <thread>
#include <vector>

/// The sentences of calls on a thread that has not locked an application whose Python engine makes the thread rules
/// hold.
inline std::vector<std::string> failuresOnOtherThread(const std::vector<std::function<void()>>& calls)
{
    class Engine : public SCP_PythonEngine {
    } engine;
    StandInSession host;
    host.python = &engine;
    std::vector<std::string> failures;
    std::thread([&] {
        for (const auto& call : calls)
            failures.push_back(failureOf(call));
    }).join();
    return failures;
}
