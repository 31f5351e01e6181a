#pragma once

#include "core/frame/baseobject.h"

#include <QString>

namespace OMC {

/// One of the choices of an enum attribute: a value, which leads to no engine object.
class BRINDLE_CORE_EXPORT EnumAttributeOption : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(EnumAttributeOption)
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(QString value READ getValue)

public:
    EnumAttributeOption(const QString& name, QString value);
    EnumAttributeOption(const EnumAttributeOption& other);

    std::string __str__() const override; ///< The name.

    QString getName() const { return m_name; }   ///< The text of the choice: "MULTIPLY".
    QString getValue() const { return m_value; } ///< Its number, as text.

private:
    QString m_name;
    QString m_value;
};

} // namespace OMC
