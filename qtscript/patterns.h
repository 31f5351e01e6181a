#pragma once

#include <QString>
#include <QStringView>

/// Which regular expressions are refused ahead of Qt: 6.4 compiles and matches groups by recursion, and goes beyond the
/// end of the stack, or of its own buffers, for a few hundred groups inside each other, and fails in the middle of its
/// work for some thousands in all.
namespace patterns {

bool isTooDeep(QStringView pattern);
/// Whether one of the literals of a program is. What may be a literal, from "/" to "/" on a line, counts as one.
bool hasTooDeepLiteral(QStringView program);
QString tooDeep(); ///< The sentence for a script.

} // namespace patterns
