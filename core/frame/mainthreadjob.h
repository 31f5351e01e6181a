#pragma once

#include <exception>
#include <memory>
#include <mutex>

namespace OMC {

class PythonFunction;

/// A function of a script that the main thread is to call, and the number that the running count of jobs had when it
/// was posted: once the count has gone on, the job is stale and its function isn't called.
///
/// It is shared by the main thread's event queue and the one who posted it. The count is a plain integer of the thread
/// manager, which both sides use in atomic steps.
class MainThreadJob {
public:
    /// Keeps a copy of the function. `awaited`: somebody stands by to get what the function raises.
    MainThreadJob(const PythonFunction& function, unsigned int& index, bool awaited);
    ~MainThreadJob();

    /// On the main thread: calls the function inside Python and without the scene's notifications, and counts on.
    void run(unsigned int& index);

    /// Whether the count has gone on, by this job or another one: the waiting thread asks.
    bool isOver(unsigned int& index) const;
    /// Throws what the function raised, if it has; from then on nobody waits any more.
    void throwFailure();
    void abandon(); ///< Nobody waits any more: a failure goes to the log.

private:
    void fail(std::exception_ptr failure);

    std::unique_ptr<PythonFunction> m_function;
    unsigned int m_ticket;

    std::mutex m_mutex; ///< Guards the next two.
    bool m_awaited;
    std::exception_ptr m_failure;
};

} // namespace OMC
