#pragma once

#include "core/frame/baseobject.h"

#include <cmath>

namespace OMC {

/// Refuses a number that is not finite, by the argument's place.
inline void requireFinite(double value, unsigned int argument)
{
    if (!std::isfinite(value))
        BaseObject::throwInvalidArgument(argument);
}

} // namespace OMC
