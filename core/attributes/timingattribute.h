#pragma once

#include "core/attributes/exposedattribute.h"

namespace OMC {

/// The drawing that a read node in timing mode shows at a frame: that of the timing column which the attribute is
/// linked to.
class BRINDLE_CORE_EXPORT TimingAttribute : public LocalExposedAttribute {
    Q_OBJECT
    BRINDLE_COPYABLE(TimingAttribute)

public:
    using LocalExposedAttribute::LocalExposedAttribute;

    std::string __str__() const override;

    QString value(int frame) const override;
    void setValue(int frame, const QVariant& drawings) override;
};

} // namespace OMC
