#pragma once

#include "core/frame/baseobject.h"

namespace OMC {

/// The selection of the application. It tells nothing yet.
class BRINDLE_CORE_EXPORT Selection : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Selection)

public:
    Selection() = default;
    Selection(const Selection& other) = default;

    std::string __str__() const override;
};

} // namespace OMC
