#pragma once

#include "engine/drawings/linesections.h"

namespace brindle::engine {

/// The cuts of a line between whose ends its edges are off by about `tolerance` at most. Throws as outlineOf() does.
GR_LineCuts lineCuts(const LineForm& form, double tolerance);

} // namespace brindle::engine
