#include "service/python/scriptexception.h"

#include "core/frame/unexpected.h"
#include "service/python/interpreter.h"
#include "service/python/references.h"

#include <utility>

namespace brindle::python {

namespace {

/// The text of an object, or of what stands for one that has none.
std::string textOf(PyObject* object, const char* otherwise)
{
    const Ref text(object ? PyObject_Str(object) : nullptr);
    const char* utf8 = text ? PyUnicode_AsUTF8(text.get()) : nullptr;
    if (utf8)
        return utf8;
    PyErr_Clear();
    return otherwise;
}

std::string textOfAttribute(PyObject* object, const char* name)
{
    const Ref value(PyObject_GetAttrString(object, name));
    return textOf(value.get(), "?");
}

/// A line for each place in the traceback, the innermost last.
std::string placesOf(PyObject* traceback)
{
    std::string places;
    Ref place = Ref::borrow(traceback);
    while (place && place.get() != Py_None) {
        const Ref frame(PyObject_GetAttrString(place.get(), "tb_frame"));
        const Ref code(frame ? PyObject_GetAttrString(frame.get(), "f_code") : nullptr);
        if (!code)
            break;
        places += "\n  in " + textOfAttribute(code.get(), "co_name") + " (" +
                  textOfAttribute(code.get(), "co_filename") + ", line " + textOfAttribute(place.get(), "tb_lineno") +
                  ")";
        place = Ref(PyObject_GetAttrString(place.get(), "tb_next"));
    }
    PyErr_Clear();
    return places;
}

} // namespace

struct ScriptException::Held {
    PyObject* type;
    PyObject* value;
    PyObject* traceback;

    Held(PyObject* t, PyObject* v, PyObject* b) : type(t), value(v), traceback(b) {}
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held()
    {
        dropReference(type);
        dropReference(value);
        dropReference(traceback);
    }
};

ScriptException::ScriptException(std::string message, std::shared_ptr<const Held> held)
    : Exception(std::move(message)),
      m_held(std::move(held))
{}

void ScriptException::throwRaised()
{
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    if (value && traceback)
        PyException_SetTraceback(value, traceback);
    auto held = std::make_shared<const Held>(type, value, traceback);
    std::string message = type ? reinterpret_cast<PyTypeObject*>(type)->tp_name
                               : OMC::unexpected::text(OMC::unexpected::ErrorHasOccurred).toStdString();
    if (const std::string text = textOf(value, ""); !text.empty())
        message += ": " + text;
    throw ScriptException(message + placesOf(traceback), std::move(held));
}

void ScriptException::raise() const
{
    Py_XINCREF(m_held->type);
    Py_XINCREF(m_held->value);
    Py_XINCREF(m_held->traceback);
    PyErr_Restore(m_held->type, m_held->value, m_held->traceback);
}

} // namespace brindle::python
