#pragma once

#include "core/nodes/node.h"

class TUCameraModule;

namespace OMC {

/// A camera: the node through which a scene is seen.
class BRINDLE_CORE_EXPORT CameraNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(CameraNode)

public:
    explicit CameraNode(TUCameraModule* node);

    std::string __str__() const override;
};

} // namespace OMC
