#include "core/scene/project.h"

#include "core/scene/projectresolution.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Project>()
            .property("history", "History")
            .property("resolution", "ProjectResolution")
            .property("palette_lists", "PaletteListList")
            .property("palettes", "PaletteList"),
        Class<ProjectResolution>().property("names", "dict[str, ProjectNamedResolution]"),
        Class<ProjectNamedResolution>(),
    };
});

} // namespace

} // namespace brindle::python
