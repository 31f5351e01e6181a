#include "app/desk/scripting.h"

#include "app/pythonlibrary.h"
#include "core/frame/scriptenginegenerator.h"
#include "core/frame/servicelibrary.h"
#include "core/host/application.h"
#include "core/host/sc_session.h"

namespace app::desk {

using Interface = OMC::ScriptEngineGeneratorInterface;

Scripting::Scripting(BAPP_Application& application, SC_SessionContext& session)
    : m_application(application),
      m_session(session)
{
    m_console = start();
    if (!m_console && m_error.isEmpty())
        m_error = QStringLiteral("the service library is missing or doesn't fit");
}

Scripting::~Scripting()
{
    m_application.scriptHost()->setScriptEngine(nullptr);
}

void Scripting::closeProject()
{
    Interface::unloadProject(&m_session);
    m_session.projectManager()->closeProject();
}

/// The object model's loader does the same for a batch; an application with windows starts it by itself.
BAPP_ScriptConsole* Scripting::start()
{
    m_error = loadPythonLibrary();
    if (!m_error.isEmpty())
        return nullptr;
    OMC::loadServiceLibrary();
    OMC::ScriptEngineGenerator* generator = Interface::instance();
    m_engine.reset(generator ? generator->create(&m_session) : nullptr);
    if (!m_engine || !m_engine->start(m_error))
        return nullptr;
    m_application.scriptHost()->setScriptEngine(m_engine.get());
    Interface::loadProject(&m_session, m_session.projectManager()->project());
    return m_engine->console();
}

} // namespace app::desk
