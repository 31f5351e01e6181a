#pragma once

#include "core/attributes/valueattribute.h"

namespace OMC {

/// An attribute that is on or off. A change that is refused throws.
class BRINDLE_CORE_EXPORT BoolAttribute : public ValueAttribute<AT_BoolAttr> {
    Q_OBJECT
    BRINDLE_COPYABLE(BoolAttribute)

public:
    using ValueAttribute::ValueAttribute;

    /// Sets the value at a frame: a key of the linked column; an attribute that can have a column and has none gets one
    /// in the same undo step.
    virtual void setValue(int frame, bool value);
    using ValueAttribute::resetLocalvalue;
    using ValueAttribute::resetValue;
};

extern template class ValueAttribute<AT_BoolAttr>;

} // namespace OMC
