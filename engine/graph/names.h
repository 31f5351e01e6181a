#pragma once

#include <QString>

namespace brindle::engine {

/// Whether a node can have the name: one that TUModuleNameValidator leaves as it is.
bool isValidNodeName(const QString& name);

} // namespace brindle::engine
