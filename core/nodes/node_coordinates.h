#pragma once

#include "core/frame/engineview.h"

class MO_Node;

namespace OMC {

/// The position of a node in the node view, read and written live; y grows downwards.
class BRINDLE_CORE_EXPORT Node_Coordinates : public EngineView<MO_Node> {
    Q_OBJECT
    BRINDLE_COPYABLE(Node_Coordinates)
    Q_PROPERTY(int x READ getX WRITE setX)
    Q_PROPERTY(int y READ getY WRITE setY)
    Q_PROPERTY(int z READ getZ WRITE setZ)

public:
    /// The engine's y of a node is greater by this than the one that scripts see.
    static constexpr int networkOffset = 32;

    explicit Node_Coordinates(MO_Node* node);

    std::string __str__() const override;

    virtual void setX(int x);
    virtual int getX() const; ///< To the right.
    virtual void setY(int y);
    virtual int getY() const; ///< Downwards; fails for one that the engine's offset would carry beyond the integers.
    virtual void setZ(int z);
    virtual int getZ() const; ///< The order of overlapping nodes.

protected:
    void validate() const override;
};

} // namespace OMC
