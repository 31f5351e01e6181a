#pragma once

#include "core/attributes/axesattribute.h"
#include "core/host/at_attr.h"

namespace OMC {

/// An attribute with a position in the picture: x to the right, y upwards. A position is in fields.
class BRINDLE_CORE_EXPORT Position2DAttribute : public AxesAttribute<AT_Position2dAttr, Point2d> {
    Q_OBJECT
    BRINDLE_COPYABLE(Position2DAttribute)
    Q_PROPERTY(OMC::Obj default READ getDefault)

public:
    using AxesAttribute::AxesAttribute;
};

extern template class AxesAttribute<AT_Position2dAttr, Point2d>;

} // namespace OMC
