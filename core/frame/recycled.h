#pragma once

#include "core/frame/export.h"

#include <cstddef>

namespace OMC {

/// A class whose objects get memory that those of their size left on the same thread. What a script reads lives for a
/// step or two: its memory comes and goes in 36 instructions, and from the heap in 150, of the 1,000 or so for all of
/// an object property.
///
/// Each thread keeps a few blocks of each size up to 256 bytes, and gives them to the heap as it ends. An object may go
/// on another thread than the one that made it. In a build with a sanitizer, which is to see who uses an object after
/// its end, everything goes to the heap at once.
struct BRINDLE_CORE_EXPORT Recycled {
    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* memory, std::size_t size) noexcept;
};

} // namespace OMC
