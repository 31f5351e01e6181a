#pragma once

#include "core/columns/framedvalue.h"

namespace OMC {

/// A curve of numbers at one frame. `Value` is the class itself, `Timed` the host class of its column.
template <typename Value, typename Timed>
class BRINDLE_CORE_EXPORT CurveColumnValue : public FramedValue<Timed> {
public:
    using FramedValue<Timed>::FramedValue;

    std::string __str__() const override;

    double getFrame() const override;
    QVariant getValue() const override;
    void setValue(const QVariant& value) override;

    bool getKey() const; ///< Whether a keyframe stands at the frame; writing makes or removes it.
    void setKey(bool key);

    Obj getKeyframePrevious() const; ///< The keyframe at or before the frame, or null.
    Obj getKeyframeNext() const;     ///< The keyframe behind the frame, or null.
};

/// The same for a curve whose points have a continuity, and whose values may hold from a point to the next one.
template <typename Value, typename Timed>
class BRINDLE_CORE_EXPORT SegmentColumnValue : public CurveColumnValue<Value, Timed> {
public:
    using CurveColumnValue<Value, Timed>::CurveColumnValue;

    bool getConstSegment() const; ///< Whether the value holds up to the next keyframe.
    void setConstSegment(bool constSegment);
    /// "CORNER", "STRAIGHT", on a bezier column also "SMOOTH"; "UNKNOWN" ahead of the first keyframe.
    QString getContinuity() const;
    void setContinuity(const QString& continuity);

protected:
    /// The keyframe at the frame; throws the constant segment's sentence where there is none.
    typename FramedValue<Timed>::Place segmentPlace() const;
};

} // namespace OMC
