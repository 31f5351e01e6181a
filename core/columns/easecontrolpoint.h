#pragma once

#include "core/columns/curvecontrolpoint.h"

namespace OMC {

/// A control point of an ease column, to be read; invalid once the point is gone, also when another takes its frame.
/// Eases are in frames.
class BRINDLE_CORE_EXPORT EaseControlPoint : public CurveControlPoint<TUEaseTimedValue> {
    Q_OBJECT
    Q_PROPERTY(bool const_segment READ getConstSegment)
    Q_PROPERTY(QString continuity READ getContinuity)
    Q_PROPERTY(double ease_in READ getEaseIn)
    Q_PROPERTY(double ease_in_angle READ getEaseInAngle)
    Q_PROPERTY(double ease_out READ getEaseOut)
    Q_PROPERTY(double ease_out_angle READ getEaseOutAngle)

    BRINDLE_COPYABLE(EaseControlPoint)

public:
    using CurveControlPoint::CurveControlPoint;

    /// A new object for the point at a place, or at a frame; null where there is none.
    static EaseControlPoint* at(TUEaseTimedValue& timedValue, quint64 index);
    static EaseControlPoint* at(TUEaseTimedValue& timedValue, double frame);

    std::string __str__() const override;

    QVariant getValue() const override;
    void setValue(const QVariant& value) override; ///< Always refused.

    bool getConstSegment() const;   ///< Whether the value holds up to the next point.
    QString getContinuity() const;  ///< "CORNER" or "STRAIGHT".
    double getEaseIn() const;       ///< The ease of the way in, in frames.
    double getEaseInAngle() const;  ///< The slope of the way in, in values for a frame.
    double getEaseOut() const;      ///< The ease of the way out, in frames.
    double getEaseOutAngle() const; ///< The slope of the way out, in values for a frame.
};

} // namespace OMC
