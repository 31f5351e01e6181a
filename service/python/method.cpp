#include "service/python/method.h"

#include <algorithm>

namespace brindle::python {

bool placeNamed(const CallArguments& call, const Argument* arguments, std::size_t count, PyObject** slots)
{
    for (Py_ssize_t i = 0; i < call.named(); ++i) {
        Py_ssize_t size = 0;
        const char* text = PyUnicode_AsUTF8AndSize(PyTuple_GET_ITEM(call.names, i), &size);
        if (!text)
            throw PythonError{};
        const std::string_view name(text, static_cast<std::size_t>(size));
        const auto* found =
            std::find_if(arguments, arguments + count, [&](const Argument& argument) { return argument.name == name; });
        if (found == arguments + count || slots[found - arguments])
            return false;
        slots[found - arguments] = call.values[call.count + i];
    }
    return true;
}

void throwArity(const char* method, const CallArguments& call, const std::vector<FormText>& forms)
{
    std::string calls;
    for (FormText form : forms) {
        form.result.clear();
        calls += (calls.empty() ? "" : " or ") + (method + typedText(form));
    }
    const auto isKnown = [&](PyObject* name) {
        return std::ranges::any_of(forms, [&](const FormText& form) {
            return std::ranges::any_of(form.arguments, [&](const ArgumentText& argument) {
                return PyUnicode_CompareWithASCIIString(name, argument.name.c_str()) == 0;
            });
        });
    };
    for (Py_ssize_t i = 0; i < call.named(); ++i) {
        PyObject* name = PyTuple_GET_ITEM(call.names, i);
        if (!isKnown(name))
            throwTypeError("%s() has no argument \"%U\"; it is called as %s", method, name, calls.c_str());
    }
    throwTypeError("%s() can't be called with %zd argument%s; it is called as %s", method, call.total(),
                   call.total() == 1 ? "" : "s", calls.c_str());
}

} // namespace brindle::python
