#pragma once

#include "core/host/export.h"

/// How the application was started.
class BRINDLE_HOST_EXPORT ST_BatchParams {
public:
    static bool isBatchScripting();
    static bool isBatchRendering();
    static bool isBatchPython();
};

class BRINDLE_HOST_EXPORT BUIAPP_Application {
public:
    /// Runs pending events without taking the application lock.
    static void processEventsNoAppLock(bool);
};

namespace PL_AppLock {

/// Holds the application: construction waits for the lock, destruction gives it back.
class BRINDLE_HOST_EXPORT AppLock {
public:
    AppLock();
    AppLock(const AppLock&) = delete;
    AppLock& operator=(const AppLock&) = delete;
    ~AppLock();
};

} // namespace PL_AppLock

/// The host's Python engine.
class BRINDLE_HOST_EXPORT SCP_PythonEngine {
public:
    virtual ~SCP_PythonEngine() = default;
    /// Greater than 0 while the main thread is inside Python code.
    static int& mainThreadState();
};
