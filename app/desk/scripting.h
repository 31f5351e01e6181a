#pragma once

#include <QString>

#include <memory>

class BAPP_Application;
class BAPP_ScriptConsole;
class BAPP_ScriptEngine;
class SC_SessionContext;

namespace app::desk {

/// The interpreter of an application that lives on: started with the object, for the project that is open then, and
/// ended with it, after the script's threads. It is registered with the application meanwhile. One a process.
class Scripting {
public:
    Scripting(BAPP_Application& application, SC_SessionContext& session);
    Scripting(const Scripting&) = delete;
    Scripting& operator=(const Scripting&) = delete;
    ~Scripting();

    /// Null when it can't be started; `error` says why then.
    BAPP_ScriptConsole* console() const { return m_console; }
    QString error() const { return m_error; }

    /// Closes the project, whichever is open, ahead of the interpreter: its threads may work on for long, and others
    /// may open the project meanwhile.
    void closeProject();

private:
    BAPP_ScriptConsole* start();

    BAPP_Application& m_application;
    SC_SessionContext& m_session;
    std::unique_ptr<BAPP_ScriptEngine> m_engine;
    BAPP_ScriptConsole* m_console = nullptr;
    QString m_error;
};

} // namespace app::desk
