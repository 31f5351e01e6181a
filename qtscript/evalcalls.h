#pragma once

#include <QString>

/// Calls of `eval` in a program. The script engine runs a text in the scope of its caller only where the caller's text
/// says `eval(...)` and means the language's own function: what looks into such a text first has to stand in the call.
namespace evalcalls {

/// Global functions of the engine: the first gives a text back that may be run, and throws for another one; the second
/// runs one in the global scope.
inline constexpr QLatin1StringView checkedText("$checkedText");
inline constexpr QLatin1StringView checkedEval("$checkedEval");

/// The program with `eval($checkedText(...))` for `eval(...)`, and `$checkedEval` for an `eval` that is a value, as in
/// `(0, eval)(...)`. Its lines stay what they are. One whose brackets don't match comes back as it is.
QString checked(const QString& program);

} // namespace evalcalls
