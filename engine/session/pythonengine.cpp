#include "core/host/scp_pythonengine.h"

#include <atomic>
#include <utility>

namespace {

std::atomic<SCP_PythonEngine::ThreadStates*> threadStates = nullptr;

} // namespace

int& SCP_PythonEngine::mainThreadState()
{
    static int depth = 0;
    return depth;
}

void SCP_PythonEngine::setThreadStates(ThreadStates* states)
{
    threadStates.store(states, std::memory_order_release);
}

void SCP_PythonEngine::giveBackLeftLock()
{
    if (ThreadStates* states = threadStates.load(std::memory_order_acquire))
        states->giveBackLeftLock();
}

void SCP_PythonEngine::log(const QString& text)
{
    if (ThreadStates* states = threadStates.load(std::memory_order_acquire))
        states->write(text);
}

SCP_PythonEngine::ThreadStateScope::ThreadStateScope(Waiting waiting)
{
    ThreadStates* states = threadStates.load(std::memory_order_acquire);
    m_left = states ? states->leave(waiting) : nullptr;
}

SCP_PythonEngine::ThreadStateScope::~ThreadStateScope()
{
    if (m_left)
        threadStates.load(std::memory_order_acquire)->enter(std::exchange(m_left, nullptr));
}

SCP_PythonEngine::HaltScope::HaltScope()
{
    ThreadStates* states = threadStates.load(std::memory_order_acquire);
    m_halted = states ? states->halt() : nullptr;
}

SCP_PythonEngine::HaltScope::~HaltScope()
{
    if (m_halted)
        threadStates.load(std::memory_order_acquire)->resume(m_halted);
}
