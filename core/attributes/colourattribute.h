#pragma once

#include "core/attributes/attribute.h"
#include "core/frame/obj.h"

namespace OMC {

/// An attribute with a colour. Each channel is an attribute inside it ("colour.red") with a column of its own, from 0
/// to 255; alpha is 255 where the colour is opaque.
class BRINDLE_CORE_EXPORT ColourAttribute : public Attribute {
    Q_OBJECT
    BRINDLE_COPYABLE(ColourAttribute)

public:
    using Attribute::Attribute;

    std::string __str__() const override;

    virtual Obj value(int frame) const; ///< The colour at a frame: the columns', or the local value without any.
    virtual Obj localvalue() const;     ///< The colour while no column is linked.
    /// Sets the colour at a frame, with columns and keys for it where there are none, in one undo step. Takes every
    /// form of a colour; a channel that it doesn't tell stays. `adjustColumn` lets the rest of the columns follow.
    virtual void setValue(int frame, const QVariant& value, bool adjustColumn = false);
    virtual void setLocalvalue(const QVariant& value); ///< Sets the colour that holds while no column is linked.
    /// Adds to the channels at a frame, or over the frames of [first, last]; what lies outside stays as it is.
    virtual void offsetValue(const QVariant& range, const QVariant& delta);
};

} // namespace OMC
