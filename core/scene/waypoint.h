#pragma once

#include "core/frame/obj.h"

namespace OMC {

/// A point that a cable goes through in the node view. No cable gives one yet.
///
/// It holds nothing and can't be copied.
class BRINDLE_CORE_EXPORT Waypoint : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;

    virtual Obj getCoord() const; ///< Always null.
    virtual Obj getIn() const;    ///< Always null.
    virtual Obj getOut() const;   ///< Always null.
};

} // namespace OMC
