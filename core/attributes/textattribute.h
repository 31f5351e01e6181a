#pragma once

#include "core/attributes/attribute.h"

namespace OMC {

/// An attribute whose value is a text.
class BRINDLE_CORE_EXPORT TextAttribute : public Attribute {
    Q_OBJECT

public:
    using Attribute::Attribute;

    BaseObject* copy() const override;
    std::string __str__() const override;

    virtual QString value(int frame) const;
    virtual QString localvalue() const;
    virtual void setValue(int frame, const QString& value);
    virtual void setLocalvalue(const QString& value);
};

} // namespace OMC
