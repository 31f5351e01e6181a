#include "service/scriptconsole.h"

#include "core/frame/pythonthread.h"
#include "service/python/console/printer.h"
#include "service/python/console/pulse.h"
#include "service/python/errors.h"
#include "service/python/values.h"

#include <algorithm>
#include <iterator>

namespace brindle {

using python::PythonError;
using python::Ref;

namespace {

/// Bytes that the process was given, as Python reads its own arguments.
PyObject* toPython(const QByteArray& bytes)
{
    return PyUnicode_DecodeFSDefaultAndSize(bytes.constData(), bytes.size());
}

PyObject* toPython(const QList<QByteArray>& all)
{
    Ref list(PyList_New(0));
    for (const QByteArray& bytes : all) {
        const Ref text(toPython(bytes));
        if (!list || !text || PyList_Append(list.get(), text.get()) != 0)
            return nullptr;
    }
    return list.release();
}

PyObject* toPython(const QString& text)
{
    return python::toPython(text);
}

/// Calls a method of the console; a new reference, or throws PythonError.
template <typename... Values>
Ref call(PyObject* console, const char* method, const Values&... values)
{
    const Ref name(PyUnicode_FromString(method));
    const Ref arguments[] = {Ref::borrow(console), Ref(toPython(values))...};
    PyObject* pointers[std::size(arguments)];
    for (std::size_t i = 0; i < std::size(arguments); ++i)
        pointers[i] = arguments[i].get();
    const bool isWhole =
        std::all_of(std::begin(arguments), std::end(arguments), [](const Ref& each) { return bool(each); });
    Ref result(name && isWhole ? PyObject_VectorcallMethod(name.get(), pointers, std::size(arguments), nullptr)
                               : nullptr);
    if (!result)
        throw PythonError{};
    return result;
}

/// Reports a failure that isn't the script's: the console itself reports those.
void report(PyObject* console)
{
    python::raiseCurrentException();
    PyErr_WriteUnraisable(console);
}

Ref makeConsole()
{
    const Ref module(PyImport_ImportModule("brindle._console"));
    const Ref output(python::printerFunction(BAPP_ScriptConsole::Stream::Output));
    const Ref error(python::printerFunction(BAPP_ScriptConsole::Stream::Error));
    if (!module || !output || !error || !python::Pulse::install())
        return {};
    return Ref(PyObject_CallMethod(module.get(), "Console", "OO", output.get(), error.get()));
}

} // namespace

std::unique_ptr<ScriptConsole> ScriptConsole::create()
{
    const OMC::PythonGILScope python;
    Ref console = makeConsole();
    if (console)
        return std::unique_ptr<ScriptConsole>(new ScriptConsole(std::move(console)));
    PyErr_Print();
    return nullptr;
}

ScriptConsole::ScriptConsole(Ref console) : m_console(std::move(console)) {}

ScriptConsole::~ScriptConsole()
{
    python::setPrinter({});
    python::Pulse::setWatcher({});
    const OMC::PythonGILScope python;
    m_console = Ref();
}

void ScriptConsole::setPrinter(Printer printer)
{
    python::setPrinter(std::move(printer));
}

template <typename... Values>
ScriptConsole::Outcome ScriptConsole::run(const char* method, const Values&... values)
{
    const OMC::PythonGILScope python;
    try {
        const python::Pulse pulse;
        const Ref outcome = call(m_console.get(), method, values...);
        const Ref code(PyObject_GetAttrString(m_console.get(), "exit_code"));
        if (!code)
            throw PythonError{};
        m_exitCode = static_cast<int>(PyLong_AsLong(code.get()));
        switch (PyLong_AsLong(outcome.get())) {
        case 1:
            return Outcome::Incomplete;
        case 2:
            return Outcome::Leave;
        default:
            return Outcome::Done;
        }
    } catch (...) {
        report(m_console.get());
    }
    return Outcome::Done;
}

ScriptConsole::Outcome ScriptConsole::push(const QString& line)
{
    return run("push_line", line);
}

ScriptConsole::Outcome ScriptConsole::pushBlock(const QString& text)
{
    return run("push_block", text);
}

void ScriptConsole::discard()
{
    run("discard");
}

ScriptConsole::Outcome ScriptConsole::runFile(const QByteArray& path, const QList<QByteArray>& arguments)
{
    return run("run_file", path, arguments);
}

void ScriptConsole::interrupt()
{
    python::Pulse::interrupt();
}

void ScriptConsole::setWatcher(Watcher watcher)
{
    python::Pulse::setWatcher(std::move(watcher));
}

ScriptConsole::Completion ScriptConsole::complete(const QString& line)
{
    const OMC::PythonGILScope python;
    try {
        const Ref found = call(m_console.get(), "completions", line);
        int start = 0;
        PyObject* names = nullptr;
        if (!PyArg_ParseTuple(found.get(), "iO!", &start, &PyList_Type, &names))
            throw PythonError{};
        Completion completion{start, {}};
        for (Py_ssize_t i = 0; i < PyList_GET_SIZE(names); ++i)
            completion.candidates.append(python::stringFrom(PyList_GET_ITEM(names, i)));
        return completion;
    } catch (...) {
        report(m_console.get());
    }
    return {};
}

} // namespace brindle
