#pragma once

#include "core/frame/export.h"

namespace OMC {

/// How frames are inserted or removed, in place of the preferences of the same sense. A plain value.
class BRINDLE_CORE_EXPORT FrameOptions {
public:
    FrameOptions() = default;
    FrameOptions(bool rippleMarkers, bool extendExposure) : rippleMarkers(rippleMarkers), extendExposure(extendExposure)
    {}
    virtual ~FrameOptions() = default;

    bool rippleMarkers = true;   ///< The markers of the scene move along.
    bool extendExposure = false; ///< A drawing is held over the new frames; removing frames doesn't look at it.
};

} // namespace OMC
