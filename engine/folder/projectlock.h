#pragma once

#include "engine/folder/holderlock.h"

namespace brindle::engine {

/// Marks a project as open in a process: a file ".brindle-lock" in its folder, from opening to closing. It tells other
/// processes who has the project; they can read it meanwhile.
class ProjectLock : public HolderLock {
public:
    ProjectLock() : HolderLock(QStringLiteral(".brindle-lock")) {}
};

} // namespace brindle::engine
