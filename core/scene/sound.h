#pragma once

#include "core/frame/baseobject.h"

namespace OMC {

/// A sound of a scene. It holds nothing yet: no scene gives one, and it can't be copied.
class BRINDLE_CORE_EXPORT Sound : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;
};

} // namespace OMC
