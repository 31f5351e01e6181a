#include "render/workers.h"

#include <QThread>
#include <QThreadPool>

#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>

namespace brindle::render {

namespace {

std::atomic<pid_t> poolOwner = getpid();

/// The pool; null where a QCoreApplication has ended before anything asked for it. A forked process has the pool
/// without its threads. The pool would wait for them, so each thread that it takes for idle gets an empty task, which
/// never runs, and as many new threads are allowed.
QThreadPool* workers()
{
    QThreadPool* const pool = QThreadPool::globalInstance();
    if (!pool || poolOwner.exchange(getpid()) == getpid())
        return pool;
    const int count = pool->maxThreadCount();
    for (int i = 0; i < count; ++i)
        pool->start([] {});
    pool->setMaxThreadCount(2 * count);
    return pool;
}

/// Counts tasks of the pool that are done. Its mutex also shows the thread sanitizer the order of accesses, which it
/// doesn't see from the pool's own locks.
class Completion {
public:
    /// Called before a task is handed out and when it starts: the task sees all that was written before.
    void synchronise() { const std::lock_guard lock(m_mutex); }

    void taskIsDone()
    {
        const std::lock_guard lock(m_mutex);
        ++m_count;
        m_changed.notify_all();
    }

    void await(int count)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_count == count; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_count = 0;
};

} // namespace

void onWorker(const std::function<void()>& work)
{
    QThreadPool* const pool = workers();
    if (!pool || pool->contains(QThread::currentThread())) {
        work();
        return;
    }
    Completion done;
    std::exception_ptr failure;
    done.synchronise();
    pool->start([&] {
        done.synchronise();
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        done.taskIsDone();
    });
    done.await(1);
    if (failure)
        std::rethrow_exception(failure);
}

void shareOut(std::size_t count, int threads, const std::function<void(std::size_t)>& function)
{
    std::atomic<std::size_t> next = 0;
    std::exception_ptr failure;
    std::mutex failureLock;
    const auto work = [&] {
        try {
            for (std::size_t i = next++; i < count; i = next++)
                function(i);
        } catch (...) {
            next = count;
            const std::lock_guard lock(failureLock);
            if (!failure)
                failure = std::current_exception();
        }
    };
    Completion done;
    const auto help = [&] {
        done.synchronise();
        work();
        done.taskIsDone();
    };
    done.synchronise();
    int helpers = 0;
    const int most = static_cast<int>(std::min(count, static_cast<std::size_t>(std::max(threads, 1))));
    QThreadPool* const pool = workers();
    while (pool && helpers + 1 < most && pool->tryStart(help))
        ++helpers;
    work();
    done.await(helpers);
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace brindle::render
