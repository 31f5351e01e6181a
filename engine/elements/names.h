#pragma once

#include <QString>

namespace brindle::engine {

/// Whether an element or a drawing can have the name: 1 to 255 characters of UTF-16 without control characters and
/// halves of surrogate pairs. Slashes, dots and letters of all scripts are good; the names of files are made of it
/// (engine/folder/safenames.h).
bool isElementName(const QString& name);

} // namespace brindle::engine
