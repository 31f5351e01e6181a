#include "core/scene/waypoint.h"

namespace OMC {

std::string Waypoint::__str__() const
{
    return "Waypoint()";
}

Obj Waypoint::getCoord() const
{
    return {};
}

Obj Waypoint::getIn() const
{
    return {};
}

Obj Waypoint::getOut() const
{
    return {};
}

} // namespace OMC
