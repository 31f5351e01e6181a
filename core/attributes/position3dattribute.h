#pragma once

#include "core/attributes/axesattribute.h"
#include "core/host/at_attr.h"

namespace OMC {

/// An attribute with a position in space: x to the right, y upwards, z towards the viewer; also a scale or a rotation,
/// with a number for each axis. A position is in fields.
class BRINDLE_CORE_EXPORT Position3DAttribute : public AxesAttribute<AT_Position3dAttr, Point3d> {
    Q_OBJECT
    BRINDLE_COPYABLE(Position3DAttribute)
    Q_PROPERTY(OMC::Obj default READ getDefault)

public:
    using AxesAttribute::AxesAttribute;
};

extern template class AxesAttribute<AT_Position3dAttr, Point3d>;

} // namespace OMC
