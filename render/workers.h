#pragma once

#include <cstddef>
#include <functional>

/// Where pictures are drawn: on threads of QThreadPool::globalInstance().
///
/// On any other thread, Qt's painter hands the rows of each larger fill out to that pool and waits for them, which
/// costs more than it saves where frames and branches are drawn side by side anyway.
namespace brindle::render {

/// Calls a function on a thread of the pool, and waits until it has returned; an exception of it leaves this call.
/// A thread of the pool calls it itself, and so does any thread where there is no pool.
void onWorker(const std::function<void()>& work);

/// Calls a function for each number from 0 to below `count`, on up to so many threads: the calling one, and those of
/// the pool that are free. The first exception leaves this call, once all threads are done.
void shareOut(std::size_t count, int threads, const std::function<void(std::size_t)>& function);

} // namespace brindle::render
