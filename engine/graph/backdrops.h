#pragma once

#include "core/host/mo_backdrop.h"

namespace brindle::engine {

/// Whether a backdrop can have the properties: every number is finite, and fonts are larger than 0.
bool isBackdrop(const MO_BackdropProperties& properties);

} // namespace brindle::engine
