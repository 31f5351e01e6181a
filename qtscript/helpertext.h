#pragma once

#include <QString>

/// The parts of the engine that are written in the language itself: a function of the global object and the
/// ScriptInvoker, which gives the helpers that QScriptEngine calls.
QString helperText();
QString helperFile(); ///< Its name, by which backtraces leave it out.
