#include "service/python/errors.h"

#include "core/bridges/javascriptbackend.h"
#include "core/frame/baseobject.h"
#include "core/frame/unexpected.h"
#include "service/python/interpreter.h"
#include "service/python/scriptexception.h"

#include <cstdarg>
#include <exception>

namespace brindle::python {

namespace {

PyObject* errorType = nullptr;
PyObject* argumentErrorType = nullptr;

/// Sets brindle.Error, whose text is the sentence letter for letter.
void raiseSentence(const std::string& sentence)
{
    const Ref text(PyUnicode_DecodeUTF8(sentence.data(), static_cast<Py_ssize_t>(sentence.size()), nullptr));
    if (text)
        PyErr_SetObject(errorType, text.get());
}

/// Raises what a function of Python raised again, which a script of Javascript called and let go. The places in scripts
/// that it went through are a note of it.
void raiseCauseOf(const OMC::JavascriptError& error)
{
    try {
        std::rethrow_exception(error.cause());
    } catch (...) {
        raiseCurrentException();
    }
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    const QByteArray places = error.backtrace().join(QStringLiteral("\n  ")).toUtf8();
    const Ref note(value && !places.isEmpty()
                       ? PyObject_CallMethod(value, "add_note", "s", ("In Javascript:\n  " + places).constData())
                       : nullptr);
    // Without a note it is still the exception.
    PyErr_Clear();
    PyErr_Restore(type, value, traceback);
}

void raiseMisfit(const Misfit& misfit)
{
    const std::string sentence = argumentSentence(misfit.index);
    const Ref error(PyObject_CallFunction(argumentErrorType, "s", sentence.c_str()));
    if (!error)
        return;
    std::string expected(misfit.expected);
    if (!misfit.parameter.empty())
        expected.append(" for ").append(misfit.parameter);
    const Ref note(PyUnicode_FromFormat("expected %s, not %s", expected.c_str(), Py_TYPE(misfit.got)->tp_name));
    const Ref done(note ? PyObject_CallMethod(error.get(), "add_note", "O", note.get()) : nullptr);
    if (done)
        PyErr_SetObject(argumentErrorType, error.get());
}

} // namespace

void throwTypeError(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    PyErr_FormatV(PyExc_TypeError, format, arguments);
    va_end(arguments);
    throw PythonError{};
}

void throwUndeletable(const char* name)
{
    PyErr_Format(PyExc_AttributeError, "%s can't be deleted", name);
    throw PythonError{};
}

std::string argumentSentence(unsigned int index)
{
    try {
        OMC::BaseObject::throwInvalidArgument(index);
    } catch (const OMC::Exception& exception) {
        return exception.message();
    }
}

void throwNotFinite(const char* property)
{
    throw OMC::Exception(QStringLiteral("The property %1 takes finite numbers only.").arg(property));
}

void raiseCurrentException() noexcept
{
    // The end of the interpreter unwinds a thread without an exception object.
    if (!std::current_exception())
        stayForEver();
    try {
        throw;
    } catch (const PythonError&) {
    } catch (const Misfit& misfit) {
        raiseMisfit(misfit);
    } catch (const ScriptException& exception) {
        exception.raise();
    } catch (const OMC::JavascriptError& error) {
        if (error.cause())
            raiseCauseOf(error);
        else
            raiseSentence(error.message());
    } catch (const OMC::Exception& exception) {
        raiseSentence(exception.message());
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const std::exception& exception) {
        PyErr_SetString(PyExc_SystemError, exception.what());
    } catch (...) {
        PyErr_SetString(PyExc_SystemError, qUtf8Printable(OMC::unexpected::text(OMC::unexpected::ErrorHasOccurred)));
    }
}

bool addErrors(PyObject* module)
{
    errorType = PyErr_NewExceptionWithDoc("brindle.Error", "A failure of the object model: a readable sentence.",
                                          PyExc_RuntimeError, nullptr);
    const Ref bases(errorType ? PyTuple_Pack(2, errorType, PyExc_TypeError) : nullptr);
    if (!bases)
        return false;
    argumentErrorType = PyErr_NewExceptionWithDoc("brindle.ArgumentError", "An argument of a type that doesn't fit.",
                                                  bases.get(), nullptr);
    return argumentErrorType && PyModule_AddObjectRef(module, "Error", errorType) == 0 &&
           PyModule_AddObjectRef(module, "ArgumentError", argumentErrorType) == 0;
}

} // namespace brindle::python
