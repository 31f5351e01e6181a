#pragma once

#include "core/host/tu_velobasedtimedvalue.h"

#include <array>

class TUBezierTimedValue;

/// A control point of a path in space. A keyframe is one that the path is at, by its velocity, at a frame of its own.
struct CatmullCtrlPt {
    int index = 0;    ///< Its place on the path, from 0.
    double frame = 0; ///< When the path is there first; of a point that is never reached, as computeControlPointTime.
    double x = 0, y = 0, z = 0;
    double tension = 0;    ///< 0 is round, 1 straight, -1 a wide bend.
    double continuity = 0; ///< 0 is smooth; above and below, the path has a corner.
    double bias = 0;       ///< 0 is even; above it the bend lies behind the point, under it ahead of it.
    bool keyframe = false;
    bool constSegment = false;       ///< Of a keyframe: the path stays there up to the next one.
    unsigned long long identity = 0; ///< As that of a BezierCtrlPt.
};

/// A path in space: a smooth curve through control points, and a velocity column that tells how far along it the path
/// is at a frame. Before the first and after the last point of the velocity it stands still. A path without control
/// points has no value.
class BRINDLE_HOST_EXPORT AT_Fnc3dTimedValue : public AT_FncTimedValue {
public:
    /// The column that belongs to the path and tells the place on it; null when there is none.
    virtual TUVeloBasedTimedValue* velocity() const = 0;
    /// False, and (0, 0, 0), while there is no control point.
    virtual bool getValue(double frame, double& x, double& y, double& z) const = 0;

    virtual int pathSize() const = 0;                ///< The number of control points, keyframes or not.
    virtual CatmullCtrlPt path(int index) const = 0; ///< By its place; `index` below pathSize().
    /// The first frame, which may be fractional, at which the path is at a control point. For one that it never comes
    /// to, the frame of the velocity's last point, or of its first when the path begins behind it.
    virtual double computeControlPointTime(int index) const = 0;

    virtual bool keyAt(double frame, CatmullCtrlPt& point) const = 0;     ///< The keyframe at exactly this frame.
    virtual bool keyBefore(double frame, CatmullCtrlPt& point) const = 0; ///< The last one at or before the frame.
    virtual bool keyAfter(double frame, CatmullCtrlPt& point) const = 0;  ///< The first one behind the frame.
};

/// Positions, in fields.
class BRINDLE_HOST_EXPORT AT_Path3dTimedValue : public AT_Fnc3dTimedValue {};

/// Rotations: x, y and z are angles in degrees about these axes, one after the other.
class BRINDLE_HOST_EXPORT AT_QuaternionPathTimedValue : public AT_Path3dTimedValue {};

namespace tu_timedvalue::path3d {

/// Makes a keyframe at a frame, with a new control point on the path at the place where it is then, and moves that to a
/// position. Fails where a keyframe stands.
class BRINDLE_HOST_EXPORT AddKeyFrameCmd final : public CO_EngineCommand {
public:
    AddKeyFrameCmd(AT_Fnc3dTimedValue* path, double frame, double x, double y, double z);
};

/// The commands below name a control point by its place on the path. They fail when there is none, or a number is not
/// finite.

class BRINDLE_HOST_EXPORT MoveCtrlPtCmd final : public CO_EngineCommand {
public:
    MoveCtrlPtCmd(AT_Fnc3dTimedValue* path, int index, double x, double y, double z);
};

/// Fails for a number beyond -1 and 1.
class BRINDLE_HOST_EXPORT SetParametersCmd final : public CO_EngineCommand {
public:
    SetParametersCmd(AT_Fnc3dTimedValue* path, int index, double tension, double continuity, double bias);
};

/// Takes a control point out of the path, with the velocity's points that stand on it.
class BRINDLE_HOST_EXPORT RemoveCtrlPtCmd final : public CO_EngineCommand {
public:
    RemoveCtrlPtCmd(AT_Fnc3dTimedValue* path, int index);
};

/// Takes the control points out that the path doesn't reach any more: those ahead of the first place that the velocity
/// tells, and behind the last one.
class BRINDLE_HOST_EXPORT TrimCtrlPtsCmd final : public CO_EngineCommand {
public:
    explicit TrimCtrlPtsCmd(AT_Fnc3dTimedValue* path);
};

/// Holds the value of a velocity column from its point at a frame up to the next one, or no longer. Fails when no point
/// stands at exactly that frame.
class BRINDLE_HOST_EXPORT SetConstSegFrameCmd final : public CO_EngineCommand {
public:
    SetConstSegFrameCmd(TUVeloBasedTimedValue* velocity, double frame, bool constantSegment);
};

/// Runs a command on the velocity column of a path, which it takes, and tells the path of it. Fails without a command.
class BRINDLE_HOST_EXPORT Path3DVeloCmd final : public CO_EngineCommand {
public:
    Path3DVeloCmd(AT_Fnc3dTimedValue* path, CO_Command* command);
};

} // namespace tu_timedvalue::path3d

namespace AT_Fnc3dConverter {

enum Mode {
    TransformMatrix = 0, ///< A key at each frame, with the path's value to the last bit.
    BezierFitter = 1     ///< As few keys as come within 0.005 of the path at each frame.
};

/// Makes three bezier columns, in no scene yet, with the path's x, y and z from the first frame of its velocity to the
/// last one, in the scene or out of it; each agrees with the path within 0.01 at every frame. Their names, which
/// nothing in the path's scene has, are the path's and the axis ("Flight X"). The caller owns them.
BRINDLE_HOST_EXPORT std::array<TUBezierTimedValue*, 3> convertToSeparate(const AT_Fnc3dTimedValue& path, Mode mode);

} // namespace AT_Fnc3dConverter
