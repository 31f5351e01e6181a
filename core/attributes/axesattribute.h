#pragma once

#include "core/attributes/attribute.h"
#include "core/frame/obj.h"
#include "core/geometry/point2d.h"
#include "core/geometry/point3d.h"

namespace OMC {

/// An attribute with a number along each axis, which scripts read and write together. `Point` is what they get.
///
/// Each axis is an attribute inside it ("position.x") with a column of its own. A path in space that is linked to the
/// attribute itself gives all of them.
template <typename Engine, typename Point>
class BRINDLE_CORE_EXPORT AxesAttribute : public Attribute {
public:
    using Attribute::Attribute;

    std::string __str__() const override;

    /// The value at a frame: the columns' where there are any, else the local value.
    virtual Obj value(int frame) const;
    virtual Obj localvalue() const; ///< The value while no column is linked.
    /// Sets the value at a frame, with columns and keys for it where there are none, in one undo step. Takes a point, a
    /// list of numbers, or another form of a position; what it doesn't tell stays. `adjustColumn` lets the rest of the
    /// columns follow.
    virtual void setValue(int frame, const QVariant& value, bool adjustColumn = false);
    virtual void setLocalvalue(const QVariant& value); ///< Sets the value that holds while no column is linked.
    /// Adds to the values at a frame, or over the frames of [first, last]; what lies outside stays in place.
    virtual void offsetValue(const QVariant& range, const QVariant& delta);
    virtual void resetValue(int frame); ///< Sets the default value at a frame.
    virtual void resetLocalvalue();     ///< Sets the default as the local value.
    virtual Obj getDefault() const;     ///< The value of a new node.
};

} // namespace OMC
