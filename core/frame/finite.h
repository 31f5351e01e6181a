#pragma once

#include "core/frame/baseobject.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace OMC {

/// Refuses a number that is not finite, by the argument's place.
inline void requireFinite(double value, unsigned int argument)
{
    if (!std::isfinite(value))
        BaseObject::throwInvalidArgument(argument);
}

/// A number cut off towards zero, at the ends of the whole numbers too; 0 for what is no number.
inline int wholeNumber(double number)
{
    if (std::isnan(number))
        return 0;
    return static_cast<int>(
        std::clamp<double>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace OMC
