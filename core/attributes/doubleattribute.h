#pragma once

#include "core/attributes/attribute.h"

namespace OMC {

/// An attribute whose value is a number.
///
/// The local value holds while no column is linked; the value at a frame is the column's where there is one. Numbers
/// that are not finite are refused.
class BRINDLE_CORE_EXPORT DoubleAttribute : public Attribute {
    Q_OBJECT
    Q_PROPERTY(double minimum READ getMinimum)
    Q_PROPERTY(double maximum READ getMaximum)
    Q_PROPERTY(double step READ getStep)
    Q_PROPERTY(double default READ getDefault)

public:
    using Attribute::Attribute;

    BaseObject* copy() const override;
    std::string __str__() const override;

    virtual double value(int frame) const;
    virtual double localvalue() const;
    /// Sets the value at a frame, with a column and a key for it where the attribute can have one. `adjustColumn` lets
    /// the rest of the column follow. A change that is refused is not reported.
    virtual void setValue(int frame, double value, bool adjustColumn = false);
    virtual void setLocalvalue(double value);
    virtual void resetValue(int frame); ///< To the default value.
    virtual void resetLocalvalue();
    /// Adds to the values at a frame, or over a range of frames ("[10, 20]"); what lies outside stays in place.
    virtual void offsetValue(const QVariant& range, double delta);

    virtual double getMinimum() const;
    virtual double getMaximum() const;
    virtual double getStep() const;
    virtual double getDefault() const;
};

} // namespace OMC
