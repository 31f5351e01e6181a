#pragma once

#include "render/images/imagefile.h"

namespace brindle::render {

/// Reads a picture of one of Qt's formats; as ImageFile::read.
bool readByQt(const char* format, const QString& path, FileContent& content, QString& error);

} // namespace brindle::render
