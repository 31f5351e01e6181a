#pragma once

#include "core/columns/framedvalue.h"

namespace OMC {

/// A 3D path at one frame, which can be read anywhere on the path; between keyframes, tension, continuity and bias are
/// those of the keyframe before. Setting the value makes a keyframe; the rest is set on keyframes alone. Threads are
/// the column's care.
class BRINDLE_CORE_EXPORT Path3DColumnValue : public FramedValue<AT_Fnc3dTimedValue> {
    Q_OBJECT
    BRINDLE_COPYABLE(Path3DColumnValue)
    Q_PROPERTY(bool key READ getKey WRITE setKey)
    Q_PROPERTY(bool const_segment READ getConstSegment WRITE setConstSegment)
    Q_PROPERTY(double tension READ getTension WRITE setTension)
    Q_PROPERTY(double continuity READ getContinuity WRITE setContinuity)
    Q_PROPERTY(double bias READ getBias WRITE setBias)
    Q_PROPERTY(OMC::Obj keyframe_previous READ getKeyframePrevious)
    Q_PROPERTY(OMC::Obj keyframe_next READ getKeyframeNext)

public:
    using FramedValue::FramedValue;

    std::string __str__() const override;

    double getFrame() const override;
    /// The path at the frame, as an object with x, y and z; takes a position in any form.
    QVariant getValue() const override;
    void setValue(const QVariant& value) override;
    /// Sets one coordinate (axis 0, 1 or 2 for x, y or z) to a number, and the whole position with an axis under 0.
    void setValueAxis(const QVariant& value, int axis);

    bool getKey() const; ///< Whether a keyframe stands at the frame; writing makes or removes it.
    void setKey(bool key);
    bool getConstSegment() const; ///< Whether the path stays there up to the next keyframe.
    void setConstSegment(bool constSegment);
    double getTension() const; ///< From -1 to 1; reading fails ahead of the first keyframe.
    void setTension(double tension);
    double getContinuity() const; ///< From -1 to 1; reading fails ahead of the first keyframe.
    void setContinuity(double continuity);
    double getBias() const; ///< From -1 to 1; reading fails ahead of the first keyframe.
    void setBias(double bias);

    Obj getKeyframePrevious() const; ///< The keyframe at or before the frame, or null.
    Obj getKeyframeNext() const;     ///< The keyframe behind the frame, or null.

private:
    bool setParameters(const Place& key, double tension, double continuity, double bias, const QString& label);
};

} // namespace OMC
