#pragma once

#include "core/nodes/node.h"

class TUPegModule;

namespace OMC {

/// A node that moves, turns, scales and skews what hangs on it.
class BRINDLE_CORE_EXPORT PegNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(PegNode)

public:
    explicit PegNode(TUPegModule* node);

    std::string __str__() const override;
    /// Shows the operations that set a part of the transformation, which look like setters of properties.
    bool filterDir(std::string& name) const override;
};

} // namespace OMC
