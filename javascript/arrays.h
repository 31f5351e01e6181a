#pragma once

#include "qtscript/qscriptvalue.h"

namespace brindle::javascript {

inline const QString& lengthName()
{
    static const QString name = QStringLiteral("length");
    return name;
}

/// The number of items of an array.
inline int lengthOf(const QScriptValue& array)
{
    return static_cast<int>(array.property(lengthName()).toInteger());
}

inline QScriptValue itemOf(const QScriptValue& array, int index)
{
    return array.property(static_cast<quint32>(index));
}

inline QScriptValueList itemsOf(const QScriptValue& array)
{
    QScriptValueList items;
    const int count = lengthOf(array);
    items.reserve(count);
    for (int i = 0; i < count; ++i)
        items.append(itemOf(array, i));
    return items;
}

} // namespace brindle::javascript
