#pragma once

#include "core/attributes/attribute.h"

#include <QVariant>

class TUSeqTimedValue;

namespace OMC {

/// An attribute whose value at a frame is the name of a drawing: that which a column exposes there. The first frame
/// stands for the local value.
class BRINDLE_CORE_EXPORT ExposedAttribute : public Attribute {
public:
    using Attribute::Attribute;

    /// The name of the drawing at a frame; empty where none is shown.
    virtual QString value(int frame) const = 0;
    /// Exposes a drawing at a frame, or those of a list at the frame and those behind it: drawings or names. The last
    /// one holds up to the next exposure.
    virtual void setValue(int frame, const QVariant& drawings) = 0;

protected:
    /// The name as the element shows it.
    QString shown(int element, const QString& name) const;
    void expose(TUSeqTimedValue& column, int frame, const QVariant& drawings, const QString& label);
};

/// One of which the first frame is asked as the local value.
class BRINDLE_CORE_EXPORT LocalExposedAttribute : public ExposedAttribute {
public:
    using ExposedAttribute::ExposedAttribute;

    virtual QString localvalue() const;                   ///< The value at the first frame.
    virtual void setLocalvalue(const QVariant& drawings); ///< Sets the value at the first frame.
};

} // namespace OMC
