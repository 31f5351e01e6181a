#pragma once

#include "core/columns/path3dcolumn.h"

class AT_QuaternionPathTimedValue;

namespace OMC {

/// A path of rotations: x, y and z are angles in degrees about these axes, one after the other. From one keyframe to
/// the next it turns the shorter way round, smoothly through all of them. Its operations are those of a Path3DColumn.
///
/// At a keyframe the angles are those that it was given; between keyframes they are those from -180 to 180 (about y
/// from -90 to 90) that give the rotation.
class BRINDLE_CORE_EXPORT QuaternionColumn : public Path3DColumn {
    Q_OBJECT
    BRINDLE_COPYABLE(QuaternionColumn)

public:
    explicit QuaternionColumn(AT_QuaternionPathTimedValue* timedValue);

    std::string __str__() const override;
};

} // namespace OMC
