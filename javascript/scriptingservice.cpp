#include "javascript/scriptingservice.h"

#include "core/host/sc_session.h"
#include "javascript/globalobject.h"
#include "javascript/released.h"

#include <QDir>
#include <QStandardPaths>

namespace brindle::javascript {

namespace {

void addPrograms(QList<PLUG_ScriptingInterface::Program>& programs, const QString& folder)
{
    const QDir scripts(folder);
    for (const QString& name : scripts.entryList({QStringLiteral("*.js")}, QDir::Files, QDir::Name))
        programs.append({folder, name});
}

} // namespace

QList<PLUG_ScriptingInterface::Program> ScriptingService::programs() const
{
    QList<Program> programs;
    const SC_SessionContext* session = PLUG_Services::getSessionContext();
    if (const SC_Project* project = session ? session->projectManager()->project() : nullptr)
        addPrograms(programs, project->path() + QStringLiteral("/scripts"));
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!data.isEmpty())
        addPrograms(programs, data + QStringLiteral("/brindle/scripts"));
    return programs;
}

QScriptEngine* ScriptingService::engine()
{
    // What a broken engine has can't be let go of.
    if (m_engine && m_engine->isBroken())
        static_cast<void>(m_engine.release());
    if (!m_engine)
        m_engine = std::make_unique<QScriptEngine>();
    return m_engine.get();
}

void ScriptingService::runInto(const QScriptValue& global, const QString& text, const QString& fileName)
{
    const GlobalObject scope(*engine(), global);
    engine()->evaluate(text, fileName);
}

QScriptValue ScriptingService::run(const QString& text, const QString& fileName, const QString& function,
                                   const QList<QScriptValue>& arguments, const QScriptValue& self)
{
    const QScriptValue global = engine()->newObject();
    const GlobalObject scope(*engine(), global);
    engine()->evaluate(text, fileName);
    if (engine()->hasUncaughtException())
        return engine()->uncaughtException();
    QScriptValue called = global.property(function);
    if (called.isFunction())
        return called.call(self, arguments);
    QScriptValue error = engine()->newError(QStringLiteral("The script has no function \"%1\".").arg(function));
    if (!fileName.isEmpty())
        error.setProperty(QStringLiteral("fileName"), QScriptValue(fileName));
    engine()->throwValue(error);
    return {};
}

void ScriptingService::end()
{
    if (m_engine && m_engine->isBroken())
        static_cast<void>(m_engine.release());
    m_engine.reset();
    dropReleased();
}

} // namespace brindle::javascript

namespace {

brindle::javascript::ScriptingService& service()
{
    // Never destroyed: its session ends it.
    static auto* only = new brindle::javascript::ScriptingService;
    return *only;
}

} // namespace

/// The open engine looks for this function when a session first asks for Javascript.
extern "C" __attribute__((visibility("default"))) PLUG_ScriptingInterface* brindleScriptingInterface()
{
    return &service();
}

/// The open engine calls this function at the end of a session.
extern "C" __attribute__((visibility("default"))) void brindleEndScripting()
{
    service().end();
}
