#pragma once

#include "core/attributes/attribute.h"

namespace OMC {

/// An attribute that is on or off.
class BRINDLE_CORE_EXPORT BoolAttribute : public Attribute {
    Q_OBJECT

public:
    using Attribute::Attribute;

    BaseObject* copy() const override;
    std::string __str__() const override;

    virtual bool value(int frame) const;
    virtual bool localvalue() const;
    virtual void setValue(int frame, bool value);
    virtual void setLocalvalue(bool value); ///< No undo entry when it is the present one.
};

} // namespace OMC
