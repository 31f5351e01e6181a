#pragma once

#include "core/frame/export.h"

namespace OMC {

/// Loads the service library from the binaries folder, which is the current folder meanwhile, so that what the library
/// needs is found beside it. While it loads, the library installs its generators and helpers. Once loaded it stays; a
/// load that failed is tried again at the next call. Never throws; the reason of a failure goes to the developers' log.
BRINDLE_CORE_EXPORT void loadServiceLibrary();

} // namespace OMC
