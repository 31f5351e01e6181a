#pragma once

#include "app/desk/options.h"

namespace app::desk {

/// Works with a project in a window until the person closes it; the exit code of the process. The QApplication stands.
int run(const Options& options);

} // namespace app::desk
