#pragma once

#include "core/attributes/valueattribute.h"

namespace OMC {

/// An attribute whose value is a number. Numbers that are not finite are refused.
class BRINDLE_CORE_EXPORT DoubleAttribute : public NumberAttribute<AT_DoubleAttr> {
    Q_OBJECT
    BRINDLE_COPYABLE(DoubleAttribute)
    Q_PROPERTY(double minimum READ getMinimum)
    Q_PROPERTY(double maximum READ getMaximum)
    Q_PROPERTY(double step READ getStep)
    Q_PROPERTY(double default READ getDefault)

public:
    using NumberAttribute::NumberAttribute;

    using NumberAttribute::resetLocalvalue;
    using NumberAttribute::resetValue;
    virtual double getDefault() const; ///< The value of a new node.
};

extern template class ValueAttribute<AT_DoubleAttr>;
extern template class NumberAttribute<AT_DoubleAttr>;

} // namespace OMC
