#pragma once

#include "engine/cels/renderlibrary.h"

namespace brindle::render {

/// The configuration of colour spaces (OpenColorIO) in a file, or our own for an empty path. Null, with one sentence in
/// `error`, where it can't be read.
std::shared_ptr<const engine::ColourConfiguration> colourConfiguration(const QString& path, QString& error);

} // namespace brindle::render
