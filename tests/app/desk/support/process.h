#pragma once

#include "app/desk/scripting.h"
#include "core/host/sc_session.h"
#include "engine/engine.h"

#include <memory>

/// The parts that a process has once, as in the desk: a session with an interpreter, under the application's thread
/// rules, and an event loop that takes part in the lock. Made when a test asks for it, ended at the end of main().
class Process {
public:
    static Process& instance();
    static void end();

    SC_SessionContext& session() { return *m_session; }
    BAPP_ScriptConsole& console() { return *m_scripting.console(); }
    BAPP_ScriptEngine& scripts() { return *m_application.scriptHost()->scriptEngine(); }

private:
    brindle::engine::Application m_application{"test", "1", true};
    std::unique_ptr<SC_SessionContext> m_session = brindle::engine::createPythonSession();
    brindle::engine::MainLoop m_loop;
    app::desk::Scripting m_scripting{m_application, *m_session};
};
