#pragma once

#include "qtscript/qscriptvalue.h"

#include <QStringList>

/// Goes over the properties that an object has itself, those that a script's loop leaves out ("length" of an array)
/// included. The names are those of the time at which the iterator was made; each value is the present one.
///
///     QScriptValueIterator it(object);
///     while (it.hasNext()) {
///         it.next();
///         use(it.name(), it.value());
///     }
class QTSCRIPT_EXPORT QScriptValueIterator {
public:
    explicit QScriptValueIterator(const QScriptValue& object);
    /// The names that an iterator would go over.
    static QStringList namesOf(const QScriptValue& object);

    bool hasNext() const { return m_next < m_names.size(); }
    void next() { ++m_next; }

    /// The name of the property that `next` passed last.
    QString name() const;
    QScriptValue value() const { return m_object.property(name()); }
    void setValue(const QScriptValue& value) { m_object.setProperty(name(), value); }
    void remove() { m_object.setProperty(name(), QScriptValue()); }

private:
    QScriptValue m_object;
    QStringList m_names;
    qsizetype m_next = 0;
};
