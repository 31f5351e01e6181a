#include "core/attributes/axescommands.h"

#include "core/attributes/attributebuilder.h"
#include "core/host/at_fnc3dtimedvalue.h"
#include "core/host/pr_preference.h"

#include <set>

namespace tu_attr {

namespace {

/// The column that drives the axes as a whole, or null.
TUTimedValue* pathOf(const AT_AxesAttr& attr)
{
    const TUTvSocket* socket = attr.socket();
    return socket ? socket->linkedTimedValue() : nullptr;
}

double coordinate(const Math::Point3d& point, int axis)
{
    return axis == 0 ? point.x : axis == 1 ? point.y : point.z;
}

Math::Point3d along(int axis, double value)
{
    return {axis == 0 ? value : 0, axis == 1 ? value : 0, axis == 2 ? value : 0};
}

Math::Point3d sum(const Math::Point3d& point, double x, double y, double z)
{
    return {point.x + x, point.y + y, point.z + z};
}

Math::Point3d product(const Math::Point3d& point, double x, double y, double z)
{
    return {point.x * x, point.y * y, point.z * z};
}

bool constantSegments()
{
    return PR_CachedPreferences::getSpConstantSegment();
}

/// The frames at which a path gets a new position, and the change of each: keyframes in the range, the first and the
/// last frame of it, and the frames right outside, which keep theirs.
std::vector<std::pair<double, Math::Point3d>> changedPositions(const AT_AxesAttr& attr, const AT_FncTimedValue& path,
                                                               const ChangeAxesAllFramesCmd::Change& change,
                                                               const MO_FrameRange& range)
{
    std::vector<std::pair<double, Math::Point3d>> positions;
    for (const int frame : range.passiveFrames()) {
        if (!path.isKey(frame))
            positions.emplace_back(frame, attr.value(frame));
    }
    std::set<int> inside;
    for (const int frame : range.edgeFrames())
        inside.insert(frame);
    for (const int frame : path.keyframes()) {
        if (range.isFrameEnabled(frame) && path.isKey(frame))
            inside.insert(frame);
    }
    for (const int frame : inside)
        positions.emplace_back(frame, change(attr.value(frame)));
    return positions;
}

} // namespace

SetAxesCmd::SetAxesCmd(AT_AxesAttr& attr, double frame, const Math::Point3d& value, int axes, bool constantSegment,
                       bool adjustColumn)
{
    if (pathOf(attr)) {
        add(new SetValueCmd<AT_AxesAttr>(attr, frame, value, constantSegment, true));
        return;
    }
    for (int axis = 0; axis < std::min(axes, attr.axisCount()); ++axis)
        add(setValueCommand(*attr.axis(axis), frame, coordinate(value, axis),
                            {.force = true, .adjustColumn = adjustColumn, .constantSegment = constantSegment})
                .release());
}

SetLocalAxesCmd::SetLocalAxesCmd(AT_AxesAttr& attr, const Math::Point3d& value)
{
    for (int axis = 0; axis < attr.axisCount(); ++axis)
        add(new tu_attr::SetLocalValueCmd<AT_DoubleAttr>(*attr.axis(axis), coordinate(value, axis)));
}

ChangeAxesAllFramesCmd::ChangeAxesAllFramesCmd(AT_AxesAttr& attr, const Change& change, int axes,
                                               const MO_FrameRange& range)
{
    if (const auto* path = OMC::columnCast<AT_FncTimedValue>(pathOf(attr))) {
        for (const auto& [frame, position] : changedPositions(attr, *path, change, range))
            add(new SetValueCmd<AT_AxesAttr>(attr, frame, position, false, true));
        return;
    }
    for (int axis = 0; axis < std::min(axes, attr.axisCount()); ++axis) {
        const auto ofAxis = [&](double value) { return coordinate(change(along(axis, value)), axis); };
        add(new ChangeValueAllFramesCmd<AT_DoubleAttr>(*attr.axis(axis), ofAxis, range));
    }
}

namespace position2d {

SetValueCurrentFrameCmd::SetValueCurrentFrameCmd(AT_Position2dAttr& attr, double frame, double x, double y,
                                                 bool adjustColumn)
    : SetAxesCmd(attr, frame, {x, y, 0}, 2, constantSegments(), adjustColumn)
{}

SetLocalValueCmd::SetLocalValueCmd(AT_Position2dAttr& attr, double x, double y) : SetLocalAxesCmd(attr, {x, y, 0}) {}

TranslateAllFramesCmd::TranslateAllFramesCmd(AT_Position2dAttr& attr, double dx, double dy, const MO_FrameRange& range)
    : ChangeAxesAllFramesCmd(
          attr, [=](const Math::Point3d& point) { return sum(point, dx, dy, 0); }, 2, range)
{}

} // namespace position2d

namespace position3d {

SetValueCurrentFrameCmd::SetValueCurrentFrameCmd(AT_Position3dAttr& attr, double frame, double x, double y, double z,
                                                 bool adjustColumn)
    : SetAxesCmd(attr, frame, {x, y, z}, 3, constantSegments(), adjustColumn)
{}

SetLocalValueCmd::SetLocalValueCmd(AT_Position3dAttr& attr, double x, double y, double z)
    : SetLocalAxesCmd(attr, {x, y, z})
{}

TranslateAllFramesCmd::TranslateAllFramesCmd(AT_Position3dAttr& attr, double dx, double dy, double dz,
                                             const MO_FrameRange& range)
    : ChangeAxesAllFramesCmd(
          attr, [=](const Math::Point3d& point) { return sum(point, dx, dy, dz); }, 3, range)
{}

} // namespace position3d

namespace scale {

SetValueCurrentFrameCmd::SetValueCurrentFrameCmd(AT_Scale3dAttr& attr, double frame, double x, double y,
                                                 bool adjustColumn)
    : SetAxesCmd(attr, frame, {x, y, 1}, 2, constantSegments(), adjustColumn)
{}

ScaleAllFramesCmd::ScaleAllFramesCmd(AT_Scale3dAttr& attr, double x, double y, const MO_FrameRange& range)
    : ChangeAxesAllFramesCmd(
          attr, [=](const Math::Point3d& point) { return product(point, x, y, 1); }, 2, range)
{}

} // namespace scale

namespace scale3d {

SetValueCurrentFrameCmd::SetValueCurrentFrameCmd(AT_Scale3dAttr& attr, double frame, double x, double y, double z,
                                                 bool adjustColumn)
    : SetAxesCmd(attr, frame, {x, y, z}, 3, constantSegments(), adjustColumn)
{}

ScaleAllFramesCmd::ScaleAllFramesCmd(AT_Scale3dAttr& attr, double x, double y, double z, const MO_FrameRange& range)
    : ChangeAxesAllFramesCmd(
          attr, [=](const Math::Point3d& point) { return product(point, x, y, z); }, 3, range)
{}

} // namespace scale3d

namespace rotation3d {

SetValueCurrentFrameCmd::SetValueCurrentFrameCmd(AT_Rotation3dAttr& attr, double frame, const Math::Vector3d& angles,
                                                 bool constantSegment, bool adjustColumn)
    : SetAxesCmd(attr, frame, {angles.x, angles.y, angles.z}, 3, constantSegment, adjustColumn)
{}

RotateAllFramesCmd::RotateAllFramesCmd(AT_Rotation3dAttr& attr, const Math::Vector3d& angles,
                                       const MO_FrameRange& range)
    : ChangeAxesAllFramesCmd(
          attr, [=](const Math::Point3d& point) { return sum(point, angles.x, angles.y, angles.z); }, 3, range)
{}

} // namespace rotation3d

} // namespace tu_attr
