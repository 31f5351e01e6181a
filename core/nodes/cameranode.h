#pragma once

#include "core/nodes/node.h"

class TUCameraModule;

namespace OMC {

/// The node through which a scene is seen.
class BRINDLE_CORE_EXPORT CameraNode : public Node {
    Q_OBJECT

public:
    explicit CameraNode(TUCameraModule* node);
    CameraNode(const CameraNode& other);

    BaseObject* copy() const override;
    std::string __str__() const override;
};

} // namespace OMC
