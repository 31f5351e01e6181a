#include "app/arguments.h"
#include "app/pythonlibrary.h"
#include "core/frame/scriptenginegenerator.h"
#include "core/frame/vectorizationinterface.h"
#include "engine/engine.h"

#include <QFile>

#include <sys/stat.h>
#include <cstdio>

namespace app {

namespace {

using Scripting = OMC::ScriptEngineGeneratorInterface;

struct RunOptions {
    QString project;
    bool readOnly = false;
    bool verbose = false;
    QList<QByteArray> script; ///< The path and its own arguments.
};

/// Takes the option that the arguments have come to.
void take(Arguments& arguments, RunOptions& options)
{
    const QByteArray& name = arguments.value();
    if (name == "--project") {
        if (arguments.takeFor("--project needs a folder."))
            options.project = arguments.folder();
    } else if (name == "--read-only") {
        options.readOnly = true;
    } else if (name == "--verbose") {
        options.verbose = true;
    } else {
        arguments.refuse();
    }
}

/// Options stand ahead of the script. What stands behind it is its own.
RunOptions optionsIn(Arguments& arguments)
{
    RunOptions options;
    while (arguments.next()) {
        if (arguments.isOption())
            take(arguments, options);
        else
            options.script = QList<QByteArray>{arguments.value()} + arguments.takeRest();
    }
    if (options.script.isEmpty())
        arguments.misfit();
    if (options.readOnly && options.project.isEmpty())
        arguments.fail("--read-only needs a project.");
    return options;
}

/// Whether something stands there that can be read as a script, also a pipe.
bool isScript(const QByteArray& path)
{
    struct stat info = {};
    return ::stat(path.constData(), &info) == 0 && !S_ISDIR(info.st_mode);
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

int runScript(const QList<QByteArray>& given)
{
    Arguments arguments(runUsage, given);
    const RunOptions options = optionsIn(arguments);
    if (arguments.isHelpAsked()) {
        print(helpOf(runUsage));
        return done;
    }
    if (!arguments.error().isEmpty())
        return fail(arguments.error(), misused);
    if (const QByteArray& script = options.script.first(); !isScript(script))
        return fail(QString("There is no script \"%1\".").arg(QFile::decodeName(script)), failed);

    if (const QString reason = loadPythonLibrary(); !reason.isEmpty())
        return fail(QString("Scripting can't be loaded: %1").arg(reason), failed);

    brindle::engine::setBatchMode(brindle::engine::BatchMode::Python);
    brindle::engine::setLogVerbose(options.verbose);
    const brindle::engine::Application application("brindle", BRINDLE_VERSION, false);
    auto session = brindle::engine::createPythonSession();
    Scripting::loadScriptInterface(session.get());
    OMC::VectorizationInterface::loadInterface(session.get());
    BAPP_ScriptEngine* scripts = application.scriptHost()->scriptEngine();
    if (!scripts) {
        std::fputc('\n', stderr);
        return fail("Scripting can't be loaded; --verbose tells why.", failed);
    }

    const auto end = [&session] {
        Scripting::unloadProject(session.get());
        session.reset();
    };
    const QString error = openProject(*session, options);
    const int code = error.isEmpty() ? scripts->run(options.script, end) : fail(error, failed);

    Scripting::unloadScriptInterface(session.get());
    Scripting::destroyScriptInterface(session.get());
    OMC::VectorizationInterface::unloadInterface();
    return code;
}

} // namespace app
