#pragma once

#include "engine/clipboard/copying.h"

#include <QString>

#include <memory>

namespace brindle::engine {

inline constexpr QLatin1String templateEnding(".tpl");

/// Reads a template, or a project, from its folder: of its first scene the nodes in the root group, and the frames that
/// are asked for. Null where it can't be read; the log says why.
std::shared_ptr<const DragScene> readTemplate(const QString& path, const CopyTerms& terms);

/// Writes copied content as a new template in a folder that is not there yet. `camera` is the name of the default
/// camera that it tells; empty for none. False, and nothing is left, where it can't be written; the log says why.
bool writeTemplate(const QString& path, const DragScene& content, const QString& camera);

/// Writes a sentence to the log that says why a template can't be used, or content can't be copied.
void logFailure(const QString& what, const QString& reason);

} // namespace brindle::engine
