#include "core/frame/recycled.h"

#include <array>
#include <new>
#include <utility>

namespace OMC {

namespace {

/// Sizes of blocks, in bytes: a shelf for each step up to the largest.
constexpr std::size_t step = 16;
constexpr std::size_t largest = 256;

/// How many blocks a shelf keeps.
constexpr unsigned int shelfCapacity = 32;

struct Block {
    Block* next;
};

/// Blocks of one size.
struct Shelf {
    Block* first = nullptr;
    unsigned int count = 0;
    unsigned int capacity = 0; ///< None before the thread's first block, and after its end.
};

using Shelves = std::array<Shelf, largest / step + 1>;
[[gnu::tls_model("initial-exec")]] constinit thread_local Shelves shelves{};

/// How many steps an object takes, which is the index of its shelf, where it has one.
constexpr std::size_t stepsFor(std::size_t size)
{
    return (size + step - 1) / step;
}

/// Opens the calling thread's shelves, and closes them as the thread ends.
class Opening {
public:
    Opening()
    {
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
        for (Shelf& shelf : shelves)
            shelf.capacity = shelfCapacity;
#endif
    }
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
    ~Opening()
    {
        for (Shelf& shelf : shelves) {
            while (shelf.first)
                ::operator delete(std::exchange(shelf.first, shelf.first->next));
            shelf = {};
        }
    }
};

/// Whether there is room, once the thread has its shelves. Called once in a while: in line, it would make the way that
/// is gone each time longer.
[[gnu::noinline]] bool hasRoom(const Shelf& shelf)
{
    static thread_local const Opening opening;
    return shelf.count < shelf.capacity;
}

} // namespace

void* Recycled::operator new(std::size_t size)
{
    const std::size_t steps = stepsFor(size);
    if (steps >= shelves.size())
        return ::operator new(size);
    Shelf& shelf = shelves[steps];
    if (!shelf.first) {
        const std::size_t whole = steps * step;
        return ::operator new(whole);
    }
    --shelf.count;
    return std::exchange(shelf.first, shelf.first->next);
}

void Recycled::operator delete(void* memory, std::size_t size) noexcept
{
    if (!memory)
        return;
    const std::size_t steps = stepsFor(size);
    Shelf* const shelf = steps < shelves.size() ? &shelves[steps] : nullptr;
    if (!shelf || (shelf->count >= shelf->capacity && !hasRoom(*shelf))) {
        ::operator delete(memory);
        return;
    }
    shelf->first = new (memory) Block{shelf->first};
    ++shelf->count;
}

} // namespace OMC
