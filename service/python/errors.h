#pragma once

#include "service/python/pyref.h"

#include <new>
#include <string>
#include <string_view>
#include <type_traits>

namespace brindle::python {

/// Thrown where a Python error has been raised already and only has to reach the caller.
struct PythonError {};

/// Raises a Python TypeError in the words of PyErr_Format.
[[noreturn]] void throwTypeError(const char* format, ...);

/// Raises the AttributeError of `del object.name` for what every object of its class has.
[[noreturn]] void throwUndeletable(const char* name);

/// The sentence that the object model has for a bad argument: "Invalid argument at index %1."
std::string argumentSentence(unsigned int index);

/// Throws the `brindle.Error` of a property that is given a number that isn't finite.
[[noreturn]] void throwNotFinite(const char* property);

/// Thrown for an argument that doesn't fit. It becomes `brindle.ArgumentError`, which is a `brindle.Error` and a
/// `TypeError`: "Invalid argument at index %1.", with a note that says what was expected, for which parameter, and what
/// came.
struct Misfit {
    unsigned int index;
    std::string_view expected;
    PyObject* got;                ///< Borrowed from the call.
    std::string_view parameter{}; ///< Empty where there is only a place, as for the key of an item.
};

/// Turns the C++ exception in flight into the Python error that stands for it.
void raiseCurrentException() noexcept;

/// Makes `brindle.Error` and `brindle.ArgumentError`; false with a Python error raised.
bool addErrors(PyObject* module);

/// Runs what CPython calls, and turns every exception into a Python error. `Result` is what a slot returns on failure:
/// null for a pointer, else -1. The gate of the engine is asked where the object of the call is (`objectOf`) and behind
/// the reading of arguments (`convertAndCall`).
template <typename Function>
auto guarded(Function&& function) noexcept -> std::invoke_result_t<Function>
{
    using Result = std::invoke_result_t<Function>;
    try {
        return function();
    } catch (...) {
        raiseCurrentException();
    }
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else
        return Result(-1);
}

} // namespace brindle::python
