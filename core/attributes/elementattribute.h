#pragma once

#include "core/attributes/exposedattribute.h"

namespace OMC {

/// The element that a read node shows: that of the drawing column which the attribute is linked to.
class BRINDLE_CORE_EXPORT ElementAttribute : public ExposedAttribute {
    Q_OBJECT
    BRINDLE_COPYABLE(ElementAttribute)
    Q_PROPERTY(QVariant element READ getElement WRITE setElement)
    Q_PROPERTY(QString element_name READ getElementName)

public:
    using ExposedAttribute::ExposedAttribute;

    std::string __str__() const override;

    QString value(int frame) const override;
    void setValue(int frame, const QVariant& drawings) override;

    virtual QVariant getElement() const; ///< The element, null for none; written with an Element or its number.
    virtual void setElement(const QVariant& element);
    virtual QString getElementName() const; ///< The name of the element, "" for none.
};

} // namespace OMC
