#pragma once

#include "core/attributes/valueattribute.h"

namespace OMC {

/// An attribute whose value is a whole number.
class BRINDLE_CORE_EXPORT IntAttribute : public NumberAttribute<AT_IntAttr> {
    Q_OBJECT
    BRINDLE_COPYABLE(IntAttribute)
    Q_PROPERTY(int minimum READ getMinimum)
    Q_PROPERTY(int maximum READ getMaximum)
    Q_PROPERTY(int step READ getStep)

public:
    using NumberAttribute::NumberAttribute;
};

extern template class ValueAttribute<AT_IntAttr>;
extern template class NumberAttribute<AT_IntAttr>;

} // namespace OMC
