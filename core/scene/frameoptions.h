#pragma once

#include "core/frame/export.h"

namespace OMC {

/// How frames are inserted or removed, in place of the preferences of the same sense.
///
/// A plain value.
class BRINDLE_CORE_EXPORT FrameOptions {
public:
    FrameOptions() = default;
    FrameOptions(bool rippleMarkers, bool extendExposure) : rippleMarkers(rippleMarkers), extendExposure(extendExposure)
    {}
    virtual ~FrameOptions() = default;

    bool rippleMarkers = true; ///< Whether the scene's markers move along.
    /// Whether the drawing before inserted frames is held over them; removing frames doesn't look at it.
    bool extendExposure = false;
};

} // namespace OMC
