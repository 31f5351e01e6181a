#pragma once

#include "core/nodes/node.h"

class TUDisplayModule;

namespace OMC {

/// A node that shows the picture which reaches it.
class BRINDLE_CORE_EXPORT DisplayNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(DisplayNode)

public:
    explicit DisplayNode(TUDisplayModule* node);

    std::string __str__() const override;
};

} // namespace OMC
