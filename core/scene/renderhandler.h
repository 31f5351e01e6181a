#pragma once

#include "core/frame/baseobject.h"

namespace OMC {

/// Renders a scene. Nothing gives one yet.
///
/// It holds nothing, so that a copy is simply a new one.
class BRINDLE_CORE_EXPORT RenderHandler : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(RenderHandler)

public:
    std::string __str__() const override;
};

} // namespace OMC
