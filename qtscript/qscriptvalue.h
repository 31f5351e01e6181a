#pragma once

#include "qtscript/export.h"

#include <QJSValue>
#include <QList>
#include <QString>
#include <QVariant>

#include <memory>

class QScriptEngine;
class QScriptValue;
using QScriptValueList = QList<QScriptValue>;

/// A value of a script: nothing, a plain value, or a reference to an object of an engine.
///
/// A value that was made without an engine, and the property that an object lacks, are invalid; setting a property to
/// an invalid value removes it. Objects belong to one engine and its thread; once the engine is gone, they are invalid.
class QTSCRIPT_EXPORT QScriptValue {
public:
    enum PropertyFlag {
        ReadOnly = 0x1,
        Undeletable = 0x2,
        SkipInEnumeration = 0x4,
        KeepExistingFlags = 0x800 ///< Keeps those of a property that is there; a new one gets none.
    };
    Q_DECLARE_FLAGS(PropertyFlags, PropertyFlag)

    QScriptValue() = default; ///< Invalid.
    QScriptValue(bool value) : QScriptValue(nullptr, QJSValue(value)) {}
    QScriptValue(int value) : QScriptValue(nullptr, QJSValue(value)) {}
    QScriptValue(double value) : QScriptValue(nullptr, QJSValue(value)) {}
    QScriptValue(const QString& value) : QScriptValue(nullptr, QJSValue(value)) {}
    QScriptValue(const char* value) : QScriptValue(QString::fromUtf8(value)) {}

    QScriptEngine* engine() const; ///< Null for a plain value that was made without one, and once it is gone.

    bool isValid() const;
    bool isUndefined() const { return isValid() && m_value.isUndefined(); }
    bool isNull() const { return isValid() && m_value.isNull(); }
    bool isBool() const { return isValid() && m_value.isBool(); }
    bool isNumber() const { return isValid() && m_value.isNumber(); }
    bool isString() const { return isValid() && m_value.isString(); }
    bool isObject() const { return isValid() && m_value.isObject(); } ///< Also of a function, an array, an error.
    bool isFunction() const { return isValid() && m_value.isCallable(); }
    bool isArray() const { return isValid() && m_value.isArray(); }
    bool isError() const { return isValid() && m_value.isError(); }
    bool isQObject() const { return isValid() && m_value.isQObject(); }
    bool isVariant() const { return isValid() && m_value.isVariant(); } ///< An opaque value of C++.

    /// As the language converts; a conversion that runs a script which throws gives what that threw.
    QString toString() const { return isValid() ? m_value.toString() : QString(); }
    double toNumber() const { return isValid() ? m_value.toNumber() : 0; }
    double toInteger() const; ///< Without its fraction; 0 for what is no number.
    int toInt32() const { return isValid() ? m_value.toInt() : 0; }
    bool toBool() const { return isValid() && m_value.toBool(); }
    /// Objects and arrays become maps and lists of all that they hold. Null, undefined and an invalid value give an
    /// invalid variant.
    QVariant toVariant() const;
    QObject* toQObject() const { return isValid() ? m_value.toQObject() : nullptr; }

    /// Invalid where the object has no such property, and for a plain value. What a getter or setter throws is the
    /// engine's uncaught exception.
    QScriptValue property(const QString& name) const;
    QScriptValue property(quint32 index) const;
    void setProperty(const QString& name, const QScriptValue& value, PropertyFlags flags = KeepExistingFlags);
    void setProperty(quint32 index, const QScriptValue& value, PropertyFlags flags = KeepExistingFlags);

    /// The object in which properties are looked up that this one lacks; no object takes it away.
    void setPrototype(const QScriptValue& prototype);

    /// Calls the function. `self` is its `this`; the engine's global object stands for what is no object. What it
    /// throws is the result, and the engine's uncaught exception. Invalid for what is no function.
    QScriptValue call() { return call(QScriptValue()); }
    QScriptValue call(const QScriptValue& self, const QScriptValueList& arguments = {});

    bool strictlyEquals(const QScriptValue& other) const;

private:
    friend class QScriptEngine;
    friend class QScriptValueIterator;

    QScriptValue(QScriptEngine* engine, const QJSValue& value);

    bool m_hasValue = false;
    QScriptEngine* m_engine = nullptr;
    std::weak_ptr<void> m_alive; ///< Expires with the engine.
    QJSValue m_value;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(QScriptValue::PropertyFlags)
