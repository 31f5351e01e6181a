#include "service/python/method.h"

namespace brindle::python {

bool arrange(const CallArguments& call, const Argument* arguments, std::size_t count, PyObject** slots)
{
    if (call.total() > static_cast<Py_ssize_t>(count))
        return false;
    std::copy_n(call.values, call.count, slots);
    std::fill(slots + call.count, slots + count, nullptr);
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
    for (std::size_t i = 0; i < count; ++i) {
        // None says the same as leaving the argument out.
        if (slots[i] == Py_None && arguments[i].fallback == "None")
            slots[i] = nullptr;
        if (!slots[i] && arguments[i].required())
            return false;
    }
    return true;
}

void throwArity(const char* method, const CallArguments& call)
{
    throwTypeError("%s() can't be called with these %zd arguments; help() tells its forms", method, call.total());
}

} // namespace brindle::python
