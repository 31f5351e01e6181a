#include "core/scene/renderhandler.h"
#include "core/scene/sound.h"
#include "core/scene/waypoint.h"
#include "service/python/family.h"

namespace brindle::python {

namespace {

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Sound>(),
        Class<Waypoint>()
            .method<"get_coord", Form<&Waypoint::getCoord, "-> None">>()
            .method<"get_in", Form<&Waypoint::getIn, "-> None">>()
            .method<"get_out", Form<&Waypoint::getOut, "-> None">>(),
        Class<RenderHandler>(),
    };
});

} // namespace

} // namespace brindle::python
