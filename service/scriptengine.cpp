#include "service/scriptengine.h"

#include "core/frame/mainthreadstate.h"
#include "core/frame/pythonthread.h"
#include "core/host/pl_applock.h"
#include "service/python/enginegate.h"
#include "service/python/eventpump.h"
#include "service/python/interpreter.h"
#include "service/python/values.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace brindle {

using python::Ref;

namespace {

/// The place of the Python package, from this library's folder: in a build, and installed. Nothing else is in there,
/// so that a search path that begins with it hides no other package.
constexpr const char* packageFolders[] = {"/../python", "/brindle/python"};

QByteArray packageFolder()
{
    Dl_info own{};
    if (!dladdr(reinterpret_cast<void*>(&packageFolder), &own))
        return {};
    const QString libraries = QFileInfo(QFile::decodeName(own.dli_fname)).canonicalPath();
    for (const char* path : packageFolders) {
        if (QFileInfo::exists(libraries + path + "/brindle/__init__.py"))
            return QFile::encodeName(libraries + path);
    }
    return {};
}

/// Begins an interpreter with these arguments, the first of which is a script's path; with none, one without a script.
/// Gives the reason of a failure, an empty text else.
QString initialize(const QList<QByteArray>& arguments)
{
    if (Py_IsInitialized())
        return QStringLiteral("it runs already");
    PyConfig config;
    PyConfig_InitPythonConfig(&config);
    config.parse_argv = 0;
    QByteArray path = qgetenv("PYTHONPATH");
    if (const QByteArray folder = packageFolder(); !folder.isEmpty())
        path = path.isEmpty() ? folder : folder + ':' + path;
    std::vector<char*> pointers;
    for (const QByteArray& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.constData()));

    PyStatus status = PyConfig_SetBytesString(&config, &config.program_name, "/usr/bin/python3");
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesString(&config, &config.pythonpath_env, path.constData());
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesArgv(&config, static_cast<Py_ssize_t>(pointers.size()), pointers.data());
    if (!PyStatus_Exception(status) && !pointers.empty())
        status = PyConfig_SetBytesString(&config, &config.run_filename, pointers.front());
    if (!PyStatus_Exception(status))
        status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    if (!PyStatus_Exception(status)) {
        if (!python::interpreterBegins())
            PyErr_Print();
        python::pumpEventsAtTheEnd();
        return {};
    }
    return status.err_msg ? QString::fromUtf8(status.err_msg) : QStringLiteral("no reason given");
}

/// The main thread inside Python for longer than a call: it is counted, and it leaves the application to others.
class Stay {
public:
    Stay() { OMC::MainThreadState::enterPython(); }
    Stay(const Stay&) = delete;
    Stay& operator=(const Stay&) = delete;
    ~Stay() { OMC::MainThreadState::leavePython(); }

private:
    PL_AppLock::Parking m_parking;
};

} // namespace

ScriptEngine::~ScriptEngine()
{
    m_console.reset();
    if (!m_started)
        return;
    const Stay inPython;
    PyGILState_Ensure();
    // An interrupt from the terminal that came at the end of the last script is still to be raised; the end of the
    // interpreter would print it as an error.
    if (PyErr_CheckSignals() < 0)
        PyErr_Clear();
    Py_FinalizeEx();
}

int ScriptEngine::run(const QList<QByteArray>& arguments, std::function<void()> ended)
{
    python::setAfterInterpreter(std::move(ended));
    if (const QString reason = initialize(arguments); !reason.isEmpty()) {
        std::fprintf(stderr, "brindle: Python can't start: %s\n", reason.toLocal8Bit().constData());
        return 1;
    }
    const Stay inPython;
    const int code = Py_RunMain();
    // A process that was forked off in the middle of an operation may not destroy its copy of the engine.
    if (python::EngineGate::isCutOff())
        std::exit(code);
    return code;
}

bool ScriptEngine::start(QString& error)
{
    error = initialize({});
    if (!error.isEmpty())
        return false;
    m_started = true;
    PyEval_SaveThread();
    return true;
}

bool ScriptEngine::execute(const QString& statements)
{
    const OMC::PythonGILScope python;
    PyObject* main = PyImport_AddModule("__main__");
    PyObject* names = main ? PyModule_GetDict(main) : nullptr;
    const Ref done(names ? PyRun_String(statements.toUtf8().constData(), Py_file_input, names, names) : nullptr);
    if (done)
        return true;
    // Printing it would end the process.
    if (PyErr_ExceptionMatches(PyExc_SystemExit))
        PyErr_Clear();
    else
        PyErr_Print();
    return false;
}

BAPP_ScriptConsole* ScriptEngine::console()
{
    if (m_started && !m_console)
        m_console = ScriptConsole::create();
    return m_console.get();
}

} // namespace brindle
