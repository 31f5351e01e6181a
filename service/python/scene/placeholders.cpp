#include "core/scene/renderhandler.h"
#include "core/scene/sound.h"
#include "core/scene/waypoint.h"
#include "service/python/tables.h"

namespace brindle::python {

std::vector<ClassTable> placeholderTables()
{
    using namespace OMC;
    return {
        Class<Sound>("Sound", "A sound of a scene. No scene gives one yet."),
        Class<Waypoint>("Waypoint", "A point that a cable goes through in the node view. No cable gives one yet.")
            .method<"get_coord", Form<&Waypoint::getCoord>>("Always None.")
            .method<"get_in", Form<&Waypoint::getIn>>("Always None.")
            .method<"get_out", Form<&Waypoint::getOut>>("Always None."),
        Class<RenderHandler>("RenderHandler", "What renders a scene. Nothing gives one yet."),
    };
}

} // namespace brindle::python
