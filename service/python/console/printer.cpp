#include "service/python/console/printer.h"

#include "service/python/errors.h"
#include "service/python/values.h"

#include <cstdio>
#include <mutex>

namespace brindle::python {

namespace {

using Stream = BAPP_ScriptConsole::Stream;

/// Never destroyed: scripts print until the interpreter has gone.
struct Place {
    std::recursive_mutex mutex; ///< A printer may print itself.
    BAPP_ScriptConsole::Printer printer;
};

Place& place()
{
    static auto* only = new Place;
    return *only;
}

void print(Stream stream, const QString& text)
{
    {
        Place& where = place();
        const std::lock_guard guard(where.mutex);
        // A copy: the printer may put another one in its place.
        if (const BAPP_ScriptConsole::Printer printer = where.printer) {
            printer(stream, text);
            return;
        }
    }
    std::FILE* file = stream == Stream::Error ? stderr : stdout;
    std::fputs(text.toUtf8().constData(), file);
    std::fflush(file);
}

/// It touches nothing of the engine, so it doesn't wait for whoever has that.
template <Stream Which>
PyObject* write(PyObject*, PyObject* text)
{
    try {
        print(Which, stringFrom(text));
    } catch (...) {
        raiseCurrentException();
        return nullptr;
    }
    Py_RETURN_NONE;
}

} // namespace

void setPrinter(BAPP_ScriptConsole::Printer printer)
{
    Place& where = place();
    const std::lock_guard guard(where.mutex);
    where.printer = std::move(printer);
}

PyObject* printerFunction(Stream stream)
{
    static PyMethodDef output = {"write_output", &write<Stream::Output>, METH_O, nullptr};
    static PyMethodDef error = {"write_error", &write<Stream::Error>, METH_O, nullptr};
    return PyCFunction_New(stream == Stream::Error ? &error : &output, nullptr);
}

} // namespace brindle::python
