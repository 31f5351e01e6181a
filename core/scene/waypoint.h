#pragma once

#include "core/frame/obj.h"

namespace OMC {

/// A point that a cable goes through in the node view. It holds nothing yet: no cable gives one, and it can't be
/// copied.
class BRINDLE_CORE_EXPORT Waypoint : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;

    virtual Obj getCoord() const; ///< Empty.
    virtual Obj getIn() const;    ///< Empty.
    virtual Obj getOut() const;   ///< Empty.
};

} // namespace OMC
