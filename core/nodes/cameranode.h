#pragma once

#include "core/frame/obj.h"
#include "core/nodes/node.h"

class TUCameraModule;

namespace OMC {

/// A camera: the node through which a scene is seen.
class BRINDLE_CORE_EXPORT CameraNode : public Node {
    Q_OBJECT
    BRINDLE_COPYABLE(CameraNode)
    Q_PROPERTY(bool active READ getActive WRITE setActive)

public:
    explicit CameraNode(TUCameraModule* node);

    std::string __str__() const override;

    virtual bool getActive() const; ///< Whether the scene is seen through it, as its default camera.
    virtual void setActive(bool active);

    /// The transformation of the peg that drives the camera, a Matrix in OpenGL units; the identity without one.
    virtual Obj matrix(int frame) const;
};

} // namespace OMC
