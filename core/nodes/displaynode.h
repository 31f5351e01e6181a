#pragma once

#include "core/nodes/node.h"

class TUDisplayModule;

namespace OMC {

/// A node that shows the picture which reaches it.
class BRINDLE_CORE_EXPORT DisplayNode : public Node {
    Q_OBJECT

public:
    explicit DisplayNode(TUDisplayModule* node);
    DisplayNode(const DisplayNode& other);

    BaseObject* copy() const override;
    std::string __str__() const override;
};

} // namespace OMC
