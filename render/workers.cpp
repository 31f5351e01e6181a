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

/// The pool; null where a QCoreApplication has ended before anything asked for it. A process that was forked off has
/// none of its threads, though the pool counts on them: idle ones are handed what they will never do, and as many more
/// are allowed.
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

/// Counts work that is done elsewhere. Its lock is one that the thread sanitizer sees, as it doesn't see the pool's.
class Done {
public:
    /// What was written before, on the thread that hands work out, is seen by the thread that calls this then.
    void order() { const std::lock_guard lock(m_mutex); }

    void tell()
    {
        const std::lock_guard lock(m_mutex);
        ++m_count;
        m_isTold.notify_all();
    }

    void await(int count)
    {
        std::unique_lock lock(m_mutex);
        m_isTold.wait(lock, [&] { return m_count == count; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_isTold;
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
    Done done;
    std::exception_ptr failure;
    done.order();
    pool->start([&] {
        done.order();
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        done.tell();
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
    Done done;
    const auto help = [&] {
        done.order();
        work();
        done.tell();
    };
    done.order();
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
