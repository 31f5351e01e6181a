#include "qtscript/qscriptvalueiterator.h"

#include "qtscript/qscriptengine_p.h"

QScriptValueIterator::QScriptValueIterator(const QScriptValue& object) : m_object(object), m_names(namesOf(object)) {}

QStringList QScriptValueIterator::namesOf(const QScriptValue& object)
{
    if (!object.engine() || !object.isObject())
        return {};
    return object.m_engine->d->ownNames.call({object.m_value}).toVariant().toStringList();
}

QString QScriptValueIterator::name() const
{
    return m_next > 0 && m_next <= m_names.size() ? m_names[m_next - 1] : QString();
}
