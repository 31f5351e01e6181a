#pragma once

#include "core/frame/baseobject.h"

namespace OMC {

/// A sound of a scene. No scene gives one yet.
///
/// It holds nothing and can't be copied.
class BRINDLE_CORE_EXPORT Sound : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;
};

} // namespace OMC
