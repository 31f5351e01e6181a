#pragma once

#include "qtscript/qscriptvalue.h"

namespace brindle::javascript {

/// Whether two values are equal with all that lies in them. Values that lie in themselves may be compared. Throws for
/// what lies too deep.
bool areEqual(const QScriptValue& a, const QScriptValue& b);

} // namespace brindle::javascript
