#include "qtscript/qscriptvalue.h"

#include "qtscript/qscriptengine_p.h"

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
    return !isValid() || m_value.isNull() || m_value.isUndefined() ? QVariant() : m_value.toVariant();
}

QScriptValue QScriptValue::property(const QString& name) const
{
    if (!engine() || !m_value.isObject() || !m_value.hasProperty(name))
        return {};
    const QJSValue value = m_value.property(name);
    // An error tells where it was made: of a file the name as it was given, none where none was.
    if (m_value.isError() && (name == u"fileName" || name == u"lineNumber")) {
        const std::vector<QScriptEngine::Private::Place> places = QScriptEngine::Private::placesOf(m_value);
        if (!places.empty() && name == u"lineNumber")
            return QScriptValue(m_engine, QJSValue(places.front().line));
        const QString file = m_engine->d->fileNameOf(places.empty() ? value.toString() : places.front().url);
        if (name == u"fileName")
            return file.isEmpty() ? QScriptValue() : QScriptValue(m_engine, QJSValue(file));
    }
    return QScriptValue(m_engine, value);
}

QScriptValue QScriptValue::property(quint32 index) const
{
    return property(QString::number(index));
}

void QScriptValue::setProperty(const QString& name, const QScriptValue& value, PropertyFlags flags)
{
    if (!engine() || !m_value.isObject())
        return;
    if (!value.isValid()) {
        m_value.deleteProperty(name);
    } else if (flags.testFlag(KeepExistingFlags)) {
        m_value.setProperty(name, m_engine->d->unwrap(value));
    } else {
        m_engine->d->defineProperty.call({m_value, name, m_engine->d->unwrap(value), !flags.testFlag(ReadOnly),
                                          !flags.testFlag(SkipInEnumeration), !flags.testFlag(Undeletable)});
    }
}

void QScriptValue::setProperty(quint32 index, const QScriptValue& value, PropertyFlags flags)
{
    setProperty(QString::number(index), value, flags);
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
