#pragma once

#include "engine/folder/projectlock.h"

#include <QString>

#include <map>

namespace brindle::engine {

/// The elements of a project that this process keeps to itself: a file ".brindle-lock" in the folder of each, as the
/// project has one in its own. It tells those who read the project meanwhile, and other machines, who works on the
/// drawings.
class ElementLocks {
public:
    ElementLocks() = default;
    ElementLocks(const ElementLocks&) = delete;
    ElementLocks& operator=(const ElementLocks&) = delete;
    ~ElementLocks();

    /// Throws `FolderFailure` where another process has the lock of a folder, which it names. It takes nothing.
    void requireFree(int element, const QString& folder) const;
    /// Throws `FolderFailure` where another process has it, or the folder, which is made, can't be written.
    void require(int element, const QString& folder);
    bool isHeld(int element) const;
    bool release(int element); ///< False where it isn't held.

private:
    std::map<int, ProjectLock> m_locks; ///< By the elements' ids.
};

} // namespace brindle::engine
