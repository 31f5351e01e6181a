#include "app/command.h"

#include "app/pythonlibrary.h"
#include "core/frame/scriptenginegenerator.h"
#include "core/frame/vectorizationinterface.h"
#include "engine/engine.h"

#include <QFileInfo>

#include <cstdio>

namespace app {

namespace {

using Scripting = OMC::ScriptEngineGeneratorInterface;

struct RunOptions {
    QString project;
    bool readOnly = false;
    bool verbose = false;
    QStringList script; ///< The path and its own arguments.
    QString error;
};

/// Takes an option of this command off the front of the arguments; false where there is none.
bool takeOption(QStringList& arguments, RunOptions& options)
{
    const QString name = arguments.value(0);
    if (name == "--project" && arguments.size() < 2)
        options.error = "--project needs a folder.";
    else if (name == "--project")
        options.project = arguments.takeAt(1);
    else if (name == "--read-only")
        options.readOnly = true;
    else if (name == "--verbose")
        options.verbose = true;
    else
        return false;
    arguments.removeFirst();
    return true;
}

/// Options stand ahead of the script or right behind it. What follows another argument, or "--", is the script's own.
RunOptions optionsIn(QStringList arguments)
{
    RunOptions options;
    while (takeOption(arguments, options)) {
    }
    if (!options.error.isEmpty())
        return options;
    if (arguments.isEmpty() || arguments.first().startsWith("--")) {
        options.error = "Usage: brindle run [--project DIR [--read-only]] [--verbose] SCRIPT [--] [ARGUMENT...]";
        return options;
    }
    options.script.append(arguments.takeFirst());
    while (takeOption(arguments, options)) {
    }
    if (options.error.isEmpty() && options.readOnly && options.project.isEmpty())
        options.error = "--read-only needs a project.";
    if (arguments.value(0) == "--")
        arguments.removeFirst();
    options.script += arguments;
    return options;
}

/// Opens the project for the script; an empty text, or the reason why not.
QString openProject(SC_SessionContext& session, const RunOptions& options)
{
    if (options.project.isEmpty())
        return {};
    QString error;
    SC_ProjectManager& manager = *session.projectManager();
    SC_Project* project = options.readOnly ? manager.openProjectReadOnly(options.project, error)
                                           : manager.openProject(options.project, error);
    if (project)
        Scripting::loadProject(&session, project);
    return error;
}

} // namespace

int runScript(const QStringList& arguments)
{
    const RunOptions options = optionsIn(arguments);
    if (!options.error.isEmpty())
        return fail(options.error, misused);
    if (!QFileInfo(options.script.first()).isFile())
        return fail(QString("There is no script \"%1\".").arg(options.script.first()), failed);

    if (const QString reason = loadPythonLibrary(); !reason.isEmpty())
        return fail(QString("Scripting can't be loaded: %1").arg(reason), failed);

    brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
    brindle::engine::setLogVerbose(options.verbose);
    const brindle::engine::Application application("brindle", BRINDLE_VERSION, false);
    const auto session = brindle::engine::createPythonSession();
    Scripting::loadScriptInterface(session.get());
    OMC::VectorizationInterface::loadInterface(session.get());
    BAPP_ScriptEngine* scripts = application.scriptHost()->scriptEngine();
    if (!scripts) {
        std::fputc('\n', stderr);
        return fail("Scripting can't be loaded; --verbose tells why.", failed);
    }

    const QString error = openProject(*session, options);
    const int code = error.isEmpty() ? scripts->run(options.script) : fail(error, failed);

    Scripting::unloadProject(session.get());
    Scripting::unloadScriptInterface(session.get());
    Scripting::destroyScriptInterface(session.get());
    OMC::VectorizationInterface::unloadInterface();
    return code;
}

} // namespace app
