#pragma once

#include <QtGlobal>

namespace brindle::render {

/// The bytes of memory that the process may still take without harm to others: what the machine has left, or less where
/// its control group has a limit (a container's). The system itself gives more than there is, and ends a process once
/// it uses it.
qint64 availableMemory();

} // namespace brindle::render
