#pragma once

#include "core/columns/curvecolumnvalue.h"

namespace OMC {

/// An ease column at one frame, which can be read anywhere on the curve; between keyframes, eases and the like are
/// those of the keyframe before. Setting the value makes a keyframe; the rest is set on keyframes alone.
///
/// Eases are in frames. Threads are the column's care.
class BRINDLE_CORE_EXPORT EaseColumnValue : public SegmentColumnValue<EaseColumnValue, TUEaseTimedValue> {
    Q_OBJECT
    BRINDLE_COPYABLE(EaseColumnValue)
    Q_PROPERTY(bool key READ getKey WRITE setKey)
    Q_PROPERTY(bool const_segment READ getConstSegment WRITE setConstSegment)
    Q_PROPERTY(QString continuity READ getContinuity WRITE setContinuity)
    Q_PROPERTY(double ease_in READ getEaseIn WRITE setEaseIn)
    Q_PROPERTY(double ease_in_angle READ getEaseInAngle WRITE setEaseInAngle)
    Q_PROPERTY(double ease_out READ getEaseOut WRITE setEaseOut)
    Q_PROPERTY(double ease_out_angle READ getEaseOutAngle WRITE setEaseOutAngle)
    Q_PROPERTY(OMC::Obj keyframe_previous READ getKeyframePrevious)
    Q_PROPERTY(OMC::Obj keyframe_next READ getKeyframeNext)

public:
    using SegmentColumnValue::SegmentColumnValue;

    double getEaseIn() const; ///< The ease of the way in, in frames; reading fails ahead of the first keyframe.
    void setEaseIn(double ease);
    /// The slope of the way in, in values for a frame, as it is kept; reading fails ahead of the first keyframe.
    double getEaseInAngle() const;
    void setEaseInAngle(double slope);
    double getEaseOut() const; ///< The ease of the way out, in frames; reading fails ahead of the first keyframe.
    void setEaseOut(double ease);
    /// The slope of the way out, in values for a frame, as it is kept; reading fails ahead of the first keyframe.
    double getEaseOutAngle() const;
    void setEaseOutAngle(double slope);

private:
    template <typename Command>
    void setNumber(double number, double EaseCtrlPt::*field, const QString& keyOnly, const QString& label);
};

extern template class CurveColumnValue<EaseColumnValue, TUEaseTimedValue>;
extern template class SegmentColumnValue<EaseColumnValue, TUEaseTimedValue>;

} // namespace OMC
