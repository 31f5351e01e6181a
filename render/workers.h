#pragma once

#include <cstddef>
#include <functional>

/// Pictures are drawn on threads of QThreadPool::globalInstance(). On any other thread, Qt's painter hands the rows of
/// each larger fill to that pool and waits for them, which costs more than it saves where frames and branches are drawn
/// side by side anyway.
namespace brindle::render {

/// Calls a function on a thread of the pool and waits until it has returned; its exception is thrown here. It is called
/// on the calling thread itself where that is one of the pool, or where there is no pool.
void onWorker(const std::function<void()>& work);

/// Calls a function for each number from 0 to below `count`, on up to `threads` threads: the calling one, and those
/// of the pool that are free. The first exception is thrown here when all threads are done.
void shareOut(std::size_t count, int threads, const std::function<void(std::size_t)>& function);

} // namespace brindle::render
