#include "qtscript/qscriptvalue.h"

#include "qtscript/qscriptengine_p.h"

#include <QJSManagedValue>

#include <cmath>

QScriptValue::QScriptValue(QScriptEngine* engine, const QJSValue& value)
    : m_hasValue(true),
      m_engine(engine),
      m_value(value)
{
    if (engine)
        m_alive = engine->d->alive;
}

QScriptEngine* QScriptValue::engine() const
{
    return m_alive.expired() ? nullptr : m_engine;
}

bool QScriptValue::isValid() const
{
    return m_hasValue && (!m_engine || !m_alive.expired());
}

double QScriptValue::toInteger() const
{
    const double number = toNumber();
    return std::isnan(number) ? 0 : std::trunc(number);
}

QVariant QScriptValue::toVariant() const
{
    if (!isValid() || m_value.isNull() || m_value.isUndefined())
        return {};
    if (m_value.isNumber() || m_value.isString() || m_value.isBool() || m_value.isObject())
        return m_value.toVariant();
    // A symbol has no form in a variant, and Qt none to refuse it: its text stands for it.
    if (engine() && QJSManagedValue(m_value, &m_engine->d->js).isSymbol())
        return m_engine->d->textOfSymbol.call({m_value}).toString();
    return m_value.toVariant();
}

QScriptValue QScriptValue::property(const QString& name) const
{
    if (!engine() || !m_value.isObject())
        return {};
    QScriptEngine::Private& engine = *m_engine->d;
    const QJSManagedValue object(m_value, &engine.js);
    const bool isThere = object.hasProperty(name);
    const QJSValue value = isThere ? object.property(name) : QJSValue();
    engine.keepThrown();
    if (!isThere)
        return {};
    // An error tells where it was made: of a file the name as it was given, none where none was.
    if (m_value.isError() && (name == u"fileName" || name == u"lineNumber")) {
        const std::vector<QScriptEngine::Private::Place> places = QScriptEngine::Private::placesOf(m_value);
        if (!places.empty() && name == u"lineNumber")
            return QScriptValue(m_engine, QJSValue(places.front().line));
        if (places.empty() && name == u"fileName" && !value.isString())
            return {};
        const QString file = engine.fileNameOf(places.empty() ? value.toString() : places.front().url);
        if (name == u"fileName")
            return file.isEmpty() ? QScriptValue() : QScriptValue(m_engine, QJSValue(file));
    }
    return QScriptValue(m_engine, value);
}

QScriptValue QScriptValue::property(quint32 index) const
{
    if (!engine() || !m_value.isObject())
        return {};
    QScriptEngine::Private& engine = *m_engine->d;
    const QJSManagedValue object(m_value, &engine.js);
    const QJSValue value = object.property(index);
    engine.keepThrown();
    // Most are there, and aren't asked for twice.
    if (value.isUndefined() && !object.hasProperty(index))
        return {};
    return QScriptValue(m_engine, value);
}

void QScriptValue::setProperty(const QString& name, const QScriptValue& value, PropertyFlags flags)
{
    if (!engine() || !m_value.isObject())
        return;
    QScriptEngine::Private& engine = *m_engine->d;
    QJSManagedValue object(m_value, &engine.js);
    if (!value.isValid())
        object.deleteProperty(name);
    else if (flags.testFlag(KeepExistingFlags))
        object.setProperty(name, engine.unwrap(value));
    else
        engine.defineProperty.call({m_value, name, engine.unwrap(value), !flags.testFlag(ReadOnly),
                                    !flags.testFlag(SkipInEnumeration), !flags.testFlag(Undeletable)});
    engine.keepThrown();
}

void QScriptValue::setProperty(quint32 index, const QScriptValue& value, PropertyFlags flags)
{
    if (!value.isValid() || !flags.testFlag(KeepExistingFlags)) {
        setProperty(QString::number(index), value, flags);
        return;
    }
    if (!engine() || !m_value.isObject())
        return;
    QScriptEngine::Private& engine = *m_engine->d;
    QJSManagedValue(m_value, &engine.js).setProperty(index, engine.unwrap(value));
    engine.keepThrown();
}

void QScriptValue::setPrototype(const QScriptValue& prototype)
{
    if (!engine() || !m_value.isObject())
        return;
    const QJSValue object = m_engine->d->unwrap(prototype);
    m_value.setPrototype(object.isObject() ? object : QJSValue(QJSValue::NullValue));
}

QScriptValue QScriptValue::call(const QScriptValue& self, const QScriptValueList& arguments)
{
    QScriptEngine* owner = engine();
    if (!owner || !m_value.isCallable())
        return {};
    const QScriptEngine::Private::Run run(*owner->d);
    if (!run)
        return owner->uncaughtException();
    QJSValueList values;
    values.reserve(arguments.size());
    for (const QScriptValue& argument : arguments)
        values.append(owner->d->unwrap(argument));
    return owner->d->call(m_value, owner->d->thisFor(self), values);
}

bool QScriptValue::strictlyEquals(const QScriptValue& other) const
{
    return isValid() == other.isValid() && (!isValid() || m_value.strictlyEquals(other.m_value));
}
