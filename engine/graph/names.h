#pragma once

#include <QString>

namespace engine {

/// Whether a node can have the name: one that TUModuleNameValidator leaves as it is.
bool isValidNodeName(const QString& name);

} // namespace engine
