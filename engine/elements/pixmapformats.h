#pragma once

#include "core/host/tu_pixmapformat.h"

namespace brindle::engine {

/// The format of an id, or null.
const TUPixmapFormat* pixmapFormatOf(int id);

} // namespace brindle::engine
