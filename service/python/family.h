#pragma once

#include "service/python/classtable.h"

#include <vector>

namespace brindle::python {

/// The classes that one file of the binding brings into the module. Such an object at the end of the file is all that
/// it takes:
///
///     const Family family([]() -> std::vector<ClassTable> { return {Class<Scene>(), Class<SceneList>()}; });
class Family {
public:
    using Tables = std::vector<ClassTable> (*)();

    /// Called while the library is loaded; the tables are asked for when the module is made.
    explicit Family(Tables tables, const char* file = __builtin_FILE());

    /// The tables of all families by the names of their files, but for base classes, which stand ahead of what derives
    /// from them. Made once.
    static const std::vector<ClassTable>& allTables();
};

} // namespace brindle::python
