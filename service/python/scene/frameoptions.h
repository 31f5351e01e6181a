#pragma once

#include "core/frame/baseobject.h"
#include "core/scene/frameoptions.h"

namespace brindle::python {

/// How frames are inserted or removed, in place of the preferences.
///
/// It is OMC::FrameOptions as a script makes it: a plain value, which may be passed to any number of calls.
///
/// It is OMC::FrameOptions as a script makes it: a plain value, which may be passed to any number of calls.
class FrameOptions : public OMC::BaseObject, public OMC::FrameOptions {
    Q_OBJECT

public:
    FrameOptions(bool rippleMarkers, bool extendExposure) : OMC::FrameOptions(rippleMarkers, extendExposure) {}
    FrameOptions(const FrameOptions& other) = default;

    OMC::BaseObject* copy() const override { return new FrameOptions(*this); }
    std::string __str__() const override;
};

} // namespace brindle::python
