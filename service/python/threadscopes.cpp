#include "service/python/threadscopes.h"

#include "core/frame/pythonthread.h"
#include "core/frame/threadmanagerstate.h"
#include "core/host/pl_applock.h"
#include "core/host/scp_pythonengine.h"
#include "service/python/enginegate.h"
#include "service/python/interpreter.h"

#include <QCoreApplication>

#include <memory>
#include <optional>

namespace brindle::python {

namespace {

using OMC::PythonThreadHelper;

/// Native code goes into Python. The main thread parks first, so that no thread with Python's lock waits for it. It
/// goes back to native code only when no blocking operation has the engine and, where it gives up being inside Python,
/// only after the threads that asked for the application's lock meanwhile: that lock is taken up for them. After the
/// end of the interpreter there is nothing to enter.
class GilScope final : public PythonThreadHelper::PythonGILScope_Priv {
public:
    GilScope()
    {
        if (canEnterInterpreter())
            m_inside.emplace();
    }
    ~GilScope() override { release(); }

    void release() override
    {
        if (m_inside) {
            EngineGate::enterAgain();
            if (QCoreApplication::instance() && OMC::ThreadManager::mainThread())
                OMC::ThreadManagerState::takeUpDelayedLock();
            m_inside.reset();
        }
        m_parking.end();
    }

private:
    PL_AppLock::Parking m_parking;
    std::optional<InterpreterScope> m_inside;
};

/// A thread in Python lets others run Python; it goes on when no blocking operation has the engine. On a thread that
/// isn't in Python it does nothing.
class ThreadScope final : public PythonThreadHelper::PythonThreadScope_Priv {
public:
    ThreadScope() : m_state(holdsLock() ? PyEval_SaveThread() : nullptr) {}
    ~ThreadScope() override { release(); }

    void release() override
    {
        if (!m_state)
            return;
        takeLock(std::exchange(m_state, nullptr));
        // The native code that goes on here may touch the engine.
        EngineGate::enterAgain();
    }

    static bool holdsLock() { return Py_IsInitialized() && PyGILState_Check(); }

private:
    PyThreadState* m_state;
};

class ThreadHelper final : public PythonThreadHelper {
public:
    PythonGILScope_Priv* createGILScope() override { return new GilScope; }
    PythonThreadScope_Priv* createThreadScope() override { return new ThreadScope; }
};

/// How the engine leaves Python where it waits: as above, and for the application's lock with the engine kept to the
/// thread that waits, whose thread manager is in the middle of a step.
class EngineThreadStates final : public SCP_PythonEngine::ThreadStates {
public:
    void* leave(SCP_PythonEngine::Waiting waiting) override
    {
        if (!ThreadScope::holdsLock())
            return nullptr;
        auto left = std::make_unique<Left>();
        if (waiting == SCP_PythonEngine::Waiting::ForApplicationLock)
            left->waiting.emplace();
        else
            left->scope.emplace();
        return left.release();
    }
    void enter(void* left) noexcept override { delete static_cast<Left*>(left); }
    void* halt() noexcept override
    {
        if (!canEnterInterpreter())
            return nullptr;
        auto inside = std::make_unique<InterpreterScope>();
        EngineGate::enterAgain();
        return inside.release();
    }
    void resume(void* halted) noexcept override { delete static_cast<InterpreterScope*>(halted); }
    void giveBackLeftLock() override
    {
        if (!canEnterInterpreter())
            return;
        const InterpreterScope inside;
        OMC::ThreadManagerState::giveBackLeftLock();
    }
    void write(const QString& text) override
    {
        if (!canEnterInterpreter())
            return;
        const InterpreterScope inside;
        PySys_FormatStdout("%s", text.toUtf8().constData());
    }

private:
    struct Left {
        std::optional<EngineGate::WaitForMainThread> waiting;
        std::optional<ThreadScope> scope;
    };
};

} // namespace

void installThreadHelper()
{
    PythonThreadHelper::helper() = std::make_unique<ThreadHelper>();
}

void installThreadStates()
{
    static auto* states = new EngineThreadStates;
    SCP_PythonEngine::setThreadStates(states);
    EngineGate::watchForks();
}

} // namespace brindle::python
