#pragma once

#include <QString>

#include <optional>

namespace OMC {

/// The text of a script file, in UTF-8, as this machine has the path; nothing for one that can't be read or is no such
/// text.
std::optional<QString> readScript(const QString& path);

} // namespace OMC
