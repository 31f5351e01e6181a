#pragma once

#include "core/attributes/attribute.h"
#include "core/frame/obj.h"

#include <QVariantList>

namespace OMC {

class EnumAttributeOption;

/// An attribute whose value is one of a list of choices, the same at all frames. A change that is refused throws.
class BRINDLE_CORE_EXPORT EnumAttribute : public Attribute {
    Q_OBJECT
    BRINDLE_COPYABLE(EnumAttribute)
    Q_PROPERTY(QVariantList options READ getOptions)

public:
    using Attribute::Attribute;

    std::string __str__() const override;

    virtual Obj value(int frame) const; ///< The present choice, whatever the frame.
    virtual Obj localvalue() const;     ///< The present choice.
    /// Makes a choice, for all frames: one of the options, its text or its number.
    virtual void setValue(int frame, const QVariant& value);
    /// Makes a choice: one of the options, its text or its number. The present one makes no undo entry.
    virtual void setLocalvalue(const QVariant& value);

    virtual QVariantList getOptions() const; ///< The choices, by their numbers.

private:
    EnumAttributeOption* newPresent() const;
};

} // namespace OMC
