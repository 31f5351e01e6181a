#pragma once

#include "core/host/tu_timedvalue.h"

/// A control point of an ease column. An ease is the reach of a handle in frames; its slope is that of the curve where
/// it leaves the point, in the column's values for a frame.
struct EaseCtrlPt {
    double frame = 0;
    double value = 0;
    double easeIn = 0, slopeIn = 0;   ///< Of the way to the point.
    double easeOut = 0, slopeOut = 0; ///< Of the way on from it.
    bool constSegment = false;        ///< The value holds up to the next point.
    int continuity = 0;               ///< 0 corner, 1 straight.
    unsigned long long identity = 0;  ///< As that of a BezierCtrlPt.
};

/// A curve of keys between which the motion eases out of one and into the next. Without eases it goes straight; before
/// the first and after the last point the value is constant.
class BRINDLE_HOST_EXPORT TUEaseTimedValue : public TUFnc2DTimedValue {
public:
    /// By how much the eases are shortened, from 0 (not at all) to 1 (to nothing): the same for all points.
    virtual double tension() const = 0;

    virtual EaseCtrlPt point(int index) const = 0;                       ///< By its place; `index` below pointCount().
    virtual bool pointAt(double frame, EaseCtrlPt& point) const = 0;     ///< At exactly this frame.
    virtual bool pointBefore(double frame, EaseCtrlPt& point) const = 0; ///< The last one at or before the frame.
    virtual bool pointAfter(double frame, EaseCtrlPt& point) const = 0;  ///< The first one behind the frame.
};

namespace tu_timedvalue::ease {

/// Makes a keyframe at the frame without changing the curve's shape; where one stands it does nothing.
class BRINDLE_HOST_EXPORT SpliceCmd final : public CO_EngineCommand {
public:
    SpliceCmd(TUEaseTimedValue* column, double frame, bool makeKey);
};

/// The commands below name a point by its frame, and fail when none stands at exactly that frame or a number is not
/// finite.

class BRINDLE_HOST_EXPORT RemovePointCmd final : public CO_EngineCommand {
public:
    RemovePointCmd(TUEaseTimedValue* column, double frame);
};

/// Moves a point to another frame and value; its eases and slopes stay. Fails when another point stands at the new
/// frame.
class BRINDLE_HOST_EXPORT SetPointCmd2 final : public CO_EngineCommand {
public:
    SetPointCmd2(TUEaseTimedValue* column, double frame, double newFrame, double value);
};

/// An ease under 0 is held at 0. One that reaches beyond the next point is kept, and counts as far as the curve allows.
class BRINDLE_HOST_EXPORT SetEaseInCmd final : public CO_EngineCommand {
public:
    SetEaseInCmd(TUEaseTimedValue* column, double frame, double ease);
};

class BRINDLE_HOST_EXPORT SetEaseOutCmd final : public CO_EngineCommand {
public:
    SetEaseOutCmd(TUEaseTimedValue* column, double frame, double ease);
};

class BRINDLE_HOST_EXPORT SetSlopeInCmd final : public CO_EngineCommand {
public:
    SetSlopeInCmd(TUEaseTimedValue* column, double frame, double slope);
};

class BRINDLE_HOST_EXPORT SetSlopeOutCmd final : public CO_EngineCommand {
public:
    SetSlopeOutCmd(TUEaseTimedValue* column, double frame, double slope);
};

class BRINDLE_HOST_EXPORT SetConstSegCmd final : public CO_EngineCommand {
public:
    SetConstSegCmd(TUEaseTimedValue* column, double frame, bool constantSegment);
};

/// 0 corner, 1 straight; fails for another number. The last argument is always 0.
class BRINDLE_HOST_EXPORT SetContinuityCmd final : public CO_EngineCommand {
public:
    SetContinuityCmd(TUEaseTimedValue* column, double frame, int continuity, int);
};

} // namespace tu_timedvalue::ease
