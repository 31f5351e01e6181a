#include "service/python/method.h"

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

void throwArity(const char* method, const CallArguments& call)
{
    throwTypeError("%s() can't be called with these %zd arguments; help() tells its forms", method, call.total());
}

} // namespace brindle::python
