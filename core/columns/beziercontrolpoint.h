#pragma once

#include "core/columns/curvecontrolpoint.h"

namespace OMC {

/// A control point of a bezier column, to be read; invalid once the point is gone, also when another takes its frame.
/// Handles are in frames (x) and in the column's values (y).
class BRINDLE_CORE_EXPORT BezierControlPoint : public CurveControlPoint<TUBezierTimedValue> {
    Q_OBJECT
    Q_PROPERTY(bool const_segment READ getConstSegment)
    Q_PROPERTY(QString continuity READ getContinuity)
    Q_PROPERTY(double handle_left_x READ getHandleLeftX)
    Q_PROPERTY(double handle_left_y READ getHandleLeftY)
    Q_PROPERTY(double handle_right_x READ getHandleRightX)
    Q_PROPERTY(double handle_right_y READ getHandleRightY)

    BRINDLE_COPYABLE(BezierControlPoint)

public:
    using CurveControlPoint::CurveControlPoint;

    /// A new object for the point at a place, or at a frame; null where there is none.
    static BezierControlPoint* at(TUBezierTimedValue& timedValue, quint64 index);
    static BezierControlPoint* at(TUBezierTimedValue& timedValue, double frame);

    std::string __str__() const override;

    QVariant getValue() const override;
    void setValue(const QVariant& value) override; ///< Always refused.

    bool getConstSegment() const;   ///< Whether the value holds up to the next point.
    QString getContinuity() const;  ///< "CORNER", "STRAIGHT" or "SMOOTH".
    double getHandleLeftX() const;  ///< The left handle, in frames.
    double getHandleLeftY() const;  ///< The left handle, in the column's values.
    double getHandleRightX() const; ///< The right handle, in frames.
    double getHandleRightY() const; ///< The right handle, in the column's values.
};

} // namespace OMC
