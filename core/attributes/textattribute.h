#pragma once

#include "core/attributes/valueattribute.h"

namespace OMC {

/// An attribute whose value is a text. A change that is refused throws.
class BRINDLE_CORE_EXPORT TextAttribute : public ValueAttribute<AT_StringAttr> {
    Q_OBJECT
    BRINDLE_COPYABLE(TextAttribute)

public:
    using ValueAttribute::ValueAttribute;

    /// Sets the value at a frame: a key of the linked column; an attribute that can have a column and has none gets one
    /// in the same undo step.
    virtual void setValue(int frame, const QString& value);
};

extern template class ValueAttribute<AT_StringAttr>;

} // namespace OMC
