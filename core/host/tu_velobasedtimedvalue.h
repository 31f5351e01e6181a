#pragma once

#include "core/host/tu_timedvalue.h"

/// A control point of a velocity column.
struct VeloBasedCtrlPt {
    double frame = 0;
    double value = 0;
    bool constSegment = false;       ///< The value holds up to the next point.
    unsigned long long identity = 0; ///< As that of a BezierCtrlPt.
};

/// A curve through control points without handles, whose slope, the velocity, changes without a jump and which never
/// goes back between two points. That of a 3D path tells the place on the path: the control points that lie behind, and
/// as a fraction the part of the way to the next one, by length. Before the first and after the last point the value is
/// constant.
class BRINDLE_HOST_EXPORT TUVeloBasedTimedValue : public TUFnc2DTimedValue {
public:
    virtual VeloBasedCtrlPt point(int index) const = 0;                   ///< By its place; `index` below pointCount().
    virtual bool pointAt(double frame, VeloBasedCtrlPt& point) const = 0; ///< At exactly this frame.
    virtual bool pointBefore(double frame, VeloBasedCtrlPt& point) const = 0; ///< The last one at or before the frame.
    virtual bool pointAfter(double frame, VeloBasedCtrlPt& point) const = 0;  ///< The first one behind the frame.
};

namespace tu_timedvalue::velobased {

/// Makes a point at the frame with the value that the curve has there; where one stands it does nothing.
class BRINDLE_HOST_EXPORT SpliceCmd final : public CO_EngineCommand {
public:
    SpliceCmd(TUVeloBasedTimedValue* column, double frame, bool makeKey);
};

/// The commands below name a point by its frame, and fail when none stands at exactly that frame or a number is not
/// finite.

class BRINDLE_HOST_EXPORT RemovePointCmd final : public CO_EngineCommand {
public:
    RemovePointCmd(TUVeloBasedTimedValue* column, double frame);
};

/// Moves a point to another frame and value. Fails when another point stands at the new frame.
class BRINDLE_HOST_EXPORT SetPointCmd2 final : public CO_EngineCommand {
public:
    SetPointCmd2(TUVeloBasedTimedValue* column, double frame, double newFrame, double value);
};

} // namespace tu_timedvalue::velobased
