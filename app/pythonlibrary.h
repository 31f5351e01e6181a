#pragma once

#include <QString>

namespace app {

/// Loads Python's library, from which the service library takes its symbols. It stays loaded. An empty text, or the
/// reason why it can't be.
QString loadPythonLibrary();

} // namespace app
