#pragma once

#include "core/frame/exception.h"
#include "service/python/pyref.h"

#include <memory>

namespace brindle::python {

/// The exception of a script's function on its way through native code, which sees its sentence: "ZeroDivisionError:
/// division by zero", and a line for each place that it went through. Python gets the exception itself back, with its
/// traceback. It may cross threads and may be dropped without Python's lock.
class ScriptException final : public OMC::Exception {
public:
    /// Throws the Python error that has been raised, which isn't raised any more then. With Python's lock held.
    [[noreturn]] static void throwRaised();

    /// Raises the Python error again. With Python's lock held.
    void raise() const;

private:
    struct Held;
    ScriptException(std::string message, std::shared_ptr<const Held> held);

    std::shared_ptr<const Held> m_held;
};

} // namespace brindle::python
