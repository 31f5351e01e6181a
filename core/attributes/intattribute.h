#pragma once

#include "core/attributes/attribute.h"

namespace OMC {

/// An attribute whose value is a whole number; its values are those of DoubleAttribute, without a default.
class BRINDLE_CORE_EXPORT IntAttribute : public Attribute {
    Q_OBJECT
    Q_PROPERTY(int minimum READ getMinimum)
    Q_PROPERTY(int maximum READ getMaximum)
    Q_PROPERTY(int step READ getStep)

public:
    using Attribute::Attribute;

    BaseObject* copy() const override;
    std::string __str__() const override;

    virtual int value(int frame) const;
    virtual int localvalue() const;
    /// A change that is refused is not reported.
    virtual void setValue(int frame, int value, bool adjustColumn = false);
    virtual void setLocalvalue(int value);
    /// Adds to the values at a frame, or over a range of frames ("[10, 20]"); what lies outside stays in place.
    virtual void offsetValue(const QVariant& range, int delta);

    virtual int getMinimum() const;
    virtual int getMaximum() const;
    virtual int getStep() const;
};

} // namespace OMC
