#include "render/workers.h"

#include <QSemaphore>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>

namespace brindle::render {

void onWorker(const std::function<void()>& work)
{
    // Null where a QCoreApplication has ended before anything asked for the pool.
    QThreadPool* const pool = QThreadPool::globalInstance();
    if (!pool || pool->contains(QThread::currentThread())) {
        work();
        return;
    }
    QSemaphore done;
    std::exception_ptr failure;
    pool->start([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        done.release();
    });
    done.acquire();
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
    QSemaphore done;
    int helpers = 0;
    const int most = static_cast<int>(std::min(count, static_cast<std::size_t>(std::max(threads, 1))));
    const auto help = [&] {
        work();
        done.release();
    };
    QThreadPool* const pool = QThreadPool::globalInstance();
    while (pool && helpers + 1 < most && pool->tryStart(help))
        ++helpers;
    work();
    done.acquire(helpers);
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace brindle::render
