#pragma once

#include <QtGlobal>

namespace brindle::render {

/// The memory that is left for this process, in bytes: what the machine has available (proc(5), MemAvailable), or less
/// where the process's control group has a limit, as in a container. Linux grants allocations beyond that, and kills a
/// process that then uses them.
qint64 availableMemory();

} // namespace brindle::render
