#include "core/bridges/javascriptobject.h"

#include "core/frame/found.h"
#include "core/host/plug_scriptinginterface.h"
#include "core/host/sc_session.h"

namespace OMC {

JavascriptObject::JavascriptObject(JavascriptValue value, JavascriptValue self)
    : m_value(std::move(value)),
      m_self(std::move(self))
{}

/// The check with which nearly every operation begins.
JavascriptBackend& JavascriptObject::backend() const
{
    delayedInitialize();
    return JavascriptBackend::instance();
}

std::string JavascriptObject::__str__() const
{
    JavascriptBackend& javascript = backend();
    const QString type = tr("Type") + QStringLiteral(" : ") + getType();
    const QString properties = javascript.text(m_value);
    return (tr("Contents: ") + (properties.isEmpty() ? type : type + QStringLiteral(", ") + properties)).toStdString();
}

std::size_t JavascriptObject::size() const
{
    return backend().size(m_value);
}

QVariant JavascriptObject::get(const QString& name) const
{
    return backend().get(m_value, m_self, name);
}

QVariant JavascriptObject::get(int index) const
{
    return backend().get(m_value, m_self, index);
}

void JavascriptObject::set(const QString& name, const QVariant& value)
{
    backend().set(m_value, name, value);
}

void JavascriptObject::set(int index, const QVariant& value)
{
    backend().set(m_value, index, value);
}

QStringList JavascriptObject::names() const
{
    return backend().names(m_value);
}

QList<QVariant> JavascriptObject::list() const
{
    return backend().list(m_value, m_self);
}

bool JavascriptObject::contains(const QVariant& value) const
{
    return backend().contains(m_value, value);
}

void JavascriptObject::remove(const QVariant& value)
{
    backend().remove(m_value, value);
}

QVariant JavascriptObject::pop(int index)
{
    return backend().pop(m_value, m_self, index);
}

void JavascriptObject::insert(int index, const QVariant& value)
{
    backend().insert(m_value, index, value);
}

void JavascriptObject::clear()
{
    backend().clear(m_value);
}

void JavascriptObject::append(const QVariant& value)
{
    backend().append(m_value, value);
}

QString JavascriptObject::getSource() const
{
    delayedInitialize();
    return QStringLiteral("memory");
}

QString JavascriptObject::getType() const
{
    return backend().type(m_value);
}

QVariant JavascriptObject::call(const QVariant& arguments, const QVariant& self)
{
    JavascriptBackend& javascript = backend();
    found(PLUG_Services::getScriptingInterface());
    if (!javascript.isFunction(m_value))
        throw Exception(tr("The current object is not a function."));
    validateThreadLock();
    return javascript.call(m_value, m_self, arguments, self);
}

Obj JavascriptObject::__iter__() const
{
    JavascriptBackend& javascript = backend();
    auto* iterator = copy();
    Obj handle(iterator);
    iterator->setPosition(0);
    iterator->m_isArray = javascript.isArray(m_value);
    if (!iterator->m_isArray)
        iterator->m_iterNames = javascript.names(m_value);
    iterator->m_iterSize = size();
    return handle;
}

QVariant JavascriptObject::__iterItem__() const
{
    JavascriptBackend& javascript = backend();
    if (position() >= m_iterSize)
        throwIndexOutOfRange();
    if (m_isArray)
        return javascript.item(m_value, m_self, static_cast<quint32>(position()));
    return m_iterNames.at(static_cast<qsizetype>(position()));
}

void JavascriptObject::operator++()
{
    if (position() <= m_iterSize)
        setPosition(position() + 1);
}

void JavascriptObject::operator--()
{
    if (position() > 0)
        setPosition(position() - 1);
}

} // namespace OMC
