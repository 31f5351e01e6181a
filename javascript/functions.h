#pragma once

#include "qtscript/qscriptengine.h"

#include <exception>

namespace OMC {
class PythonFunction;
}

namespace brindle::javascript {

/// A function of Python as one of the script: called with its arguments, or through its `call` with a list of them.
QScriptValue functionFor(QScriptEngine& engine, const OMC::PythonFunction& function);

/// Runs what the object model does for a script. What it throws, the script gets as an Error with the sentence.
template <typename Call>
QScriptValue guarded(QScriptEngine& engine, const Call& call)
{
    try {
        return call();
    } catch (const std::exception& exception) {
        engine.throwError(QString::fromUtf8(exception.what()));
    }
    return {};
}

/// The exception of a function of Python that became the script's error; null for any other error.
std::exception_ptr causeOf(const QScriptValue& error);

} // namespace brindle::javascript
