#include "core/bridges/javascriptrootobject.h"

#include "core/bridges/scriptfile.h"

namespace OMC {

JavascriptRootObject::JavascriptRootObject(const QString& script, const QString& path) : m_path(path), m_script(script)
{}

std::string JavascriptRootObject::__str__() const
{
    delayedInitialize();
    const QStringList parts = {
        tr("Type") + QStringLiteral(" : ") + getType(),
        tr("Script Path") + QStringLiteral(" : ") + getPath(),
        tr("Is Script Loaded") + QStringLiteral(" : ") +
            (getLoaded() ? QStringLiteral("True") : QStringLiteral("False")),
        tr("Contained Object ") + QString::fromStdString(JavascriptObject::__str__()),
    };
    return (tr("Contents: ") + parts.join(QStringLiteral(", "))).toStdString();
}

void JavascriptRootObject::reload(bool fromFile)
{
    if (fromFile && !m_path.isEmpty()) {
        m_script.clear();
        getLoaded();
    }
    setScript(QString(m_script));
    delayedInitialize();
}

QString JavascriptRootObject::getPath() const
{
    return m_path;
}

QString JavascriptRootObject::getScript() const
{
    if (m_script.isEmpty())
        getLoaded();
    return m_script;
}

void JavascriptRootObject::setScript(const QString& script)
{
    m_initialized = true;
    if (script.isEmpty()) {
        setValue(nullptr);
        m_script.clear();
        m_path.clear();
        return;
    }
    validateThreadLock();
    JavascriptValue value;
    JavascriptBackend::instance().load(script, m_path, value);
    setValue(value);
    m_script = script;
}

bool JavascriptRootObject::getLoaded() const
{
    if (m_path.isEmpty())
        return true;
    const std::optional<QString> text = readScript(m_path);
    if (!text)
        throw Exception(tr("Unable to load script from path: %1").arg(m_path));
    m_script = *text;
    return true;
}

QString JavascriptRootObject::getSource() const
{
    return m_path.isEmpty() ? QStringLiteral("memory") : m_path;
}

QString JavascriptRootObject::getType() const
{
    return QStringLiteral("ROOT");
}

void JavascriptRootObject::delayedInitialize() const
{
    if (m_initialized)
        return;
    validateThreadLock();
    if (m_script.isEmpty())
        getLoaded();
    // A script that throws shows what it had, and throws once.
    m_initialized = true;
    JavascriptValue value;
    try {
        JavascriptBackend::instance().load(m_script, m_path, value);
    } catch (...) {
        setValue(value);
        throw;
    }
    setValue(value);
}

} // namespace OMC
