#include "service/runscript.h"

#include "service/python/pyref.h"

#include <QByteArray>
#include <QFileInfo>
#include <QString>

#include <cstdio>
#include <dlfcn.h>

using brindle::python::Ref;

namespace {

/// The folder beside this library that holds the Python package, or an empty text where it is installed for all.
QByteArray packageFolder()
{
    Dl_info own{};
    if (!dladdr(reinterpret_cast<void*>(&brindle_run_script), &own))
        return {};
    const QString folder = QFileInfo(QFile::decodeName(own.dli_fname)).canonicalPath() + "/../python";
    return QFileInfo::exists(folder + "/brindle/__init__.py") ? QFile::encodeName(folder) : QByteArray();
}

bool initialize(int count, char** arguments)
{
    PyConfig config;
    PyConfig_InitPythonConfig(&config);
    config.parse_argv = 0;
    QByteArray path = qgetenv("PYTHONPATH");
    if (const QByteArray folder = packageFolder(); !folder.isEmpty())
        path = path.isEmpty() ? folder : folder + ':' + path;

    PyStatus status = PyConfig_SetBytesString(&config, &config.program_name, "/usr/bin/python3");
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesString(&config, &config.pythonpath_env, path.constData());
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesArgv(&config, count, arguments);
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesString(&config, &config.run_filename, arguments[0]);
    if (!PyStatus_Exception(status))
        status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    if (!PyStatus_Exception(status))
        return true;
    std::fprintf(stderr, "brindle: Python can't start: %s\n", status.err_msg ? status.err_msg : "no reason given");
    return false;
}

/// Opens the project; prints the sentence where that fails.
bool openProject(const char* project)
{
    const Ref module(PyImport_ImportModule("brindle"));
    const Ref application(module ? PyObject_CallMethod(module.get(), "open", "s", project) : nullptr);
    if (application)
        return true;
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* trace = nullptr;
    PyErr_Fetch(&type, &value, &trace);
    const Ref sentence(PyObject_Str(value));
    const char* text = sentence ? PyUnicode_AsUTF8(sentence.get()) : nullptr;
    std::fprintf(stderr, "brindle: %s\n", text ? text : "The project can't be opened.");
    PyErr_Restore(type, value, trace);
    PyErr_Clear();
    return false;
}

} // namespace

int brindle_run_script(int count, char** arguments, const char* project)
{
    if (!initialize(count, arguments))
        return 1;
    if (project && !openProject(project)) {
        Py_FinalizeEx();
        return 1;
    }
    return Py_RunMain();
}
