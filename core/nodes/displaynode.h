#pragma once

#include "core/nodes/node.h"

class TUDisplayModule;

namespace OMC {

/// A node that shows the picture which reaches it.
class BRINDLE_CORE_EXPORT DisplayNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(DisplayNode)
    Q_PROPERTY(bool active READ getActive WRITE setActive)

public:
    explicit DisplayNode(TUDisplayModule* node);

    std::string __str__() const override;

    virtual bool getActive() const; ///< Whether the scene is shown on it, as its default display.
    virtual void setActive(bool active);
};

} // namespace OMC
