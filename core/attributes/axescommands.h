#pragma once

#include "core/frame/export.h"
#include "core/host/at_attr.h"
#include "core/host/co_command.h"
#include "core/host/mo_framerange.h"

#include <functional>

/// Undoable changes of attributes with a number along each axis: all axes in one command, each with its column and key,
/// or the path that drives them as a whole. A part that is refused takes the others back.
namespace tu_attr {

/// Sets the values of the axes at a frame. `constantSegment`: the keys hold their values up to the next ones.
/// `adjustColumn` lets the rest of the columns follow.
class BRINDLE_CORE_EXPORT SetAxesCmd : public CO_AndCommand {
public:
    /// Sets the first `axes` axes: those of the attribute at most. A path takes the value whole.
    SetAxesCmd(AT_AxesAttr& attr, double frame, const Math::Point3d& value, int axes, bool constantSegment,
               bool adjustColumn);
};

/// Sets the local values of the axes.
class BRINDLE_CORE_EXPORT SetLocalAxesCmd : public CO_AndCommand {
public:
    SetLocalAxesCmd(AT_AxesAttr& attr, const Math::Point3d& value);
};

/// Changes the values of the axes over a range of frames, and holds still what lies outside the range; over all frames
/// and without columns, the local values.
class BRINDLE_CORE_EXPORT ChangeAxesAllFramesCmd : public CO_AndCommand {
public:
    using Change = std::function<Math::Point3d(const Math::Point3d&)>;

    /// The change of a coordinate depends on that coordinate alone.
    ChangeAxesAllFramesCmd(AT_AxesAttr& attr, const Change& change, int axes, const MO_FrameRange& range);
};

namespace position2d {

class BRINDLE_CORE_EXPORT SetValueCurrentFrameCmd final : public SetAxesCmd {
public:
    SetValueCurrentFrameCmd(AT_Position2dAttr& attr, double frame, double x, double y, bool adjustColumn);
};

class BRINDLE_CORE_EXPORT SetLocalValueCmd final : public SetLocalAxesCmd {
public:
    SetLocalValueCmd(AT_Position2dAttr& attr, double x, double y);
};

class BRINDLE_CORE_EXPORT TranslateAllFramesCmd final : public ChangeAxesAllFramesCmd {
public:
    TranslateAllFramesCmd(AT_Position2dAttr& attr, double dx, double dy, const MO_FrameRange& range);
};

} // namespace position2d

namespace position3d {

class BRINDLE_CORE_EXPORT SetValueCurrentFrameCmd final : public SetAxesCmd {
public:
    SetValueCurrentFrameCmd(AT_Position3dAttr& attr, double frame, double x, double y, double z, bool adjustColumn);
};

class BRINDLE_CORE_EXPORT SetLocalValueCmd final : public SetLocalAxesCmd {
public:
    SetLocalValueCmd(AT_Position3dAttr& attr, double x, double y, double z);
};

class BRINDLE_CORE_EXPORT TranslateAllFramesCmd final : public ChangeAxesAllFramesCmd {
public:
    TranslateAllFramesCmd(AT_Position3dAttr& attr, double dx, double dy, double dz, const MO_FrameRange& range);
};

} // namespace position3d

/// The scale in the plane: z stays as it is.
namespace scale {

class BRINDLE_CORE_EXPORT SetValueCurrentFrameCmd final : public SetAxesCmd {
public:
    SetValueCurrentFrameCmd(AT_Scale3dAttr& attr, double frame, double x, double y, bool adjustColumn);
};

class BRINDLE_CORE_EXPORT ScaleAllFramesCmd final : public ChangeAxesAllFramesCmd {
public:
    ScaleAllFramesCmd(AT_Scale3dAttr& attr, double x, double y, const MO_FrameRange& range);
};

} // namespace scale

namespace scale3d {

class BRINDLE_CORE_EXPORT SetValueCurrentFrameCmd final : public SetAxesCmd {
public:
    SetValueCurrentFrameCmd(AT_Scale3dAttr& attr, double frame, double x, double y, double z, bool adjustColumn);
};

class BRINDLE_CORE_EXPORT ScaleAllFramesCmd final : public ChangeAxesAllFramesCmd {
public:
    ScaleAllFramesCmd(AT_Scale3dAttr& attr, double x, double y, double z, const MO_FrameRange& range);
};

} // namespace scale3d

/// Angles in degrees about x, y and z.
namespace rotation3d {

class BRINDLE_CORE_EXPORT SetValueCurrentFrameCmd final : public SetAxesCmd {
public:
    SetValueCurrentFrameCmd(AT_Rotation3dAttr& attr, double frame, const Math::Vector3d& angles, bool constantSegment,
                            bool adjustColumn);
};

class BRINDLE_CORE_EXPORT RotateAllFramesCmd final : public ChangeAxesAllFramesCmd {
public:
    RotateAllFramesCmd(AT_Rotation3dAttr& attr, const Math::Vector3d& angles, const MO_FrameRange& range);
};

} // namespace rotation3d

} // namespace tu_attr
