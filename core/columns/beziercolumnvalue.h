#pragma once

#include "core/columns/curvecolumnvalue.h"

namespace OMC {

/// A bezier column at one frame, which can be read anywhere on the curve; between keyframes, handles and the like are
/// those of the keyframe before. Setting the value makes a keyframe; the rest is set on keyframes alone.
///
/// Handles are in frames (x) and in the column's values (y). Threads are the column's care.
class BRINDLE_CORE_EXPORT BezierColumnValue : public SegmentColumnValue<BezierColumnValue, TUBezierTimedValue> {
    Q_OBJECT
    BRINDLE_COPYABLE(BezierColumnValue)
    Q_PROPERTY(bool key READ getKey WRITE setKey)
    Q_PROPERTY(bool const_segment READ getConstSegment WRITE setConstSegment)
    Q_PROPERTY(QString continuity READ getContinuity WRITE setContinuity)
    Q_PROPERTY(double handle_left_x READ getHandleLeftX WRITE setHandleLeftX)
    Q_PROPERTY(double handle_left_y READ getHandleLeftY WRITE setHandleLeftY)
    Q_PROPERTY(double handle_right_x READ getHandleRightX WRITE setHandleRightX)
    Q_PROPERTY(double handle_right_y READ getHandleRightY WRITE setHandleRightY)
    Q_PROPERTY(OMC::Obj keyframe_previous READ getKeyframePrevious)
    Q_PROPERTY(OMC::Obj keyframe_next READ getKeyframeNext)

public:
    using SegmentColumnValue::SegmentColumnValue;

    double getHandleLeftX() const; ///< The left handle, in frames; reading fails ahead of the first keyframe.
    void setHandleLeftX(double x);
    /// The left handle, in the column's values; reading fails ahead of the first keyframe.
    double getHandleLeftY() const;
    void setHandleLeftY(double y);
    double getHandleRightX() const; ///< The right handle, in frames; reading fails ahead of the first keyframe.
    void setHandleRightX(double x);
    /// The right handle, in the column's values; reading fails ahead of the first keyframe.
    double getHandleRightY() const;
    void setHandleRightY(double y);

private:
    void setLeftHandle(const Place& key, double x, double y);
    void setRightHandle(const Place& key, double x, double y);
};

extern template class CurveColumnValue<BezierColumnValue, TUBezierTimedValue>;
extern template class SegmentColumnValue<BezierColumnValue, TUBezierTimedValue>;

} // namespace OMC
