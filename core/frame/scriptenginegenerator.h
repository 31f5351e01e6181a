#pragma once

#include "core/frame/export.h"

class BAPP_ScriptEngine;
class SC_Project;
class SC_SessionContext;

namespace OMC {

class ScriptEngineGenerator;

/// How a host attaches scripting to itself: it loads the service library, whose generator makes the script engine, and
/// tells it of projects. All of it runs on the main thread, and a failure is a line on standard error, never an
/// exception: a host without scripting still starts.
///
///     loadScriptInterface(session)
///         loadProject(session, project) ... unloadProject(session)     for each project
///     unloadScriptInterface(session)
///     destroyScriptInterface(session)
class BRINDLE_CORE_EXPORT ScriptEngineGeneratorInterface {
public:
    virtual ~ScriptEngineGeneratorInterface();

    static ScriptEngineGenerator* instance(); ///< Null until one is installed.
    /// Takes the generator and destroys the one before. The service library calls it while it is loaded.
    static void setInstance(ScriptEngineGenerator* generator);

    /// Makes the script engine in a Python batch with a session, once, and registers it with the application. Does
    /// nothing elsewhere: the host wires its scripting by other means.
    static void loadScriptInterface(SC_SessionContext* session);
    /// Takes the script engine off the application; it lives on and is used again by the next load.
    static void unloadScriptInterface(SC_SessionContext* session);
    static void destroyScriptInterface(SC_SessionContext* session);

    static void loadProject(SC_SessionContext* session, SC_Project* project);
    static void unloadProject(SC_SessionContext* session);
};

/// The maker of the script engine, which the service library installs.
class BRINDLE_CORE_EXPORT ScriptEngineGenerator : public ScriptEngineGeneratorInterface {
public:
    ~ScriptEngineGenerator() override;

    virtual BAPP_ScriptEngine* create(SC_SessionContext* session) = 0; ///< New, the caller's; null on failure.
    virtual void loadProject(SC_SessionContext* session, SC_Project* project) = 0;
    virtual void unloadProject(SC_SessionContext* session) = 0;
};

} // namespace OMC
