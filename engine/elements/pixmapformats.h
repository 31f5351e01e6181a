#pragma once

#include "core/host/tu_pixmapformat.h"

namespace brindle::engine {

constexpr int pixmapFormatCount = 7; ///< Their ids are 0 to 6.

/// The format of an id, or null.
const TUPixmapFormat* pixmapFormatOf(int id);

/// The id of the format of exactly this name; -1 where there is none.
int pixmapFormatNamed(const QString& name);

} // namespace brindle::engine
