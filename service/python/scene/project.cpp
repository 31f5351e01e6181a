#include "core/scene/project.h"

#include "core/scene/projectresolution.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> projectTables()
{
    using namespace OMC;
    return {
        Class<Project>("Project", "The open project.")
            .property("dirty", "Whether the project differs from what was last saved.")
            .property("dirty_previously", "Whether the undo list has anything to undo.")
            .property("history", "The undo list, a History.")
            .property("resolution", "The size of the picture, a ProjectResolution."),
        Class<ProjectResolution>("ProjectResolution",
                                 "The size of the project's picture in pixels, and the resolutions that have a name.")
            .property("x", "The width in pixels, from 1; writing it keeps the height and drops the name.")
            .property("y", "The height in pixels, from 1; writing it keeps the width and drops the name.")
            .property("default_name",
                      "The name of the current resolution, \"\" for one without; writing it chooses one "
                      "of names.")
            .property("default_FOV", "The field of view in degrees.")
            .property("names", "The named resolutions: a dict from each name to its ProjectNamedResolution."),
        Class<ProjectNamedResolution>("ProjectNamedResolution",
                                      "A resolution that has a name; its values are looked up at each read.")
            .property("x", "The width in pixels.")
            .property("y", "The height in pixels.")
            .property("fov", "The field of view in degrees.")
            .property("framerate", "The frames per second that go with the format.")
            .property("name", "The name.")
            .property("projection", "\"Perspective\", \"Orthogonal\" or \"NONE\"."),
    };
}

} // namespace brindle::python
