#pragma once

#include "core/host/at_attr.h"
#include "core/host/math_matrix4x4.h"
#include "core/host/math_point.h"

namespace brindle::engine {

class Node;

/// The attributes of a node that move what hangs on it; null where its type has none of the kind.
///
/// The transformation of a node is
///
///     translate(position) translate(pivot) rotate skew scale translate(-pivot)
///
/// so a point is scaled first, then leaned, turned about the pivot, and moved. Position and pivot are in fields, which
/// the field chart turns into OpenGL units (SC_SceneMetrics); angles are in degrees. In the plane (`full_transform`
/// off) the turn is `angle` about z, and the scale that of x and y. In space (`full_transform` on) it is
///
///     rotate = rotateZ(rotation.z) rotateY(rotation.y) rotateX(rotation.x)
///
/// and the scale has its z. These are the parts that Math::Matrix4x4::extractParameters takes a matrix apart into.
struct TransformationAttributes {
    explicit TransformationAttributes(const Node& node);

    bool exist() const { return position != nullptr; }
    bool isInSpace(double frame) const { return fullTransform && fullTransform->value(frame); }
    /// The transformation at a frame, in OpenGL units. `toOgl` has the units of a field along each axis.
    Math::Matrix4x4 matrix(double frame, const Math::Vector3d& toOgl) const;

    AT_Position3dAttr* position = nullptr;
    AT_Scale3dAttr* scale = nullptr;
    AT_Rotation3dAttr* rotation = nullptr;
    AT_DoubleAttr* angle = nullptr;
    AT_DoubleAttr* skew = nullptr;
    AT_Position3dAttr* pivot = nullptr;
    AT_BoolAttr* fullTransform = nullptr;
};

} // namespace brindle::engine
