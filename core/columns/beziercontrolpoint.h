#pragma once

#include "core/columns/controlpoint.h"
#include "core/frame/weakhandle.h"
#include "core/host/tu_timedvalue.h"

namespace OMC {

/// A control point of a bezier column, to be read. It stands for this very point: once it is gone, the object is
/// invalid, also when another point stands at its frame. Handles are in frames and in the column's values.
class BRINDLE_CORE_EXPORT BezierControlPoint : public ControlPoint {
    Q_OBJECT
    Q_PROPERTY(bool const_segment READ getConstSegment)
    Q_PROPERTY(QString continuity READ getContinuity)
    Q_PROPERTY(double handle_left_x READ getHandleLeftX)
    Q_PROPERTY(double handle_left_y READ getHandleLeftY)
    Q_PROPERTY(double handle_right_x READ getHandleRightX)
    Q_PROPERTY(double handle_right_y READ getHandleRightY)

    BRINDLE_COPYABLE(BezierControlPoint)

public:
    BezierControlPoint(TUBezierTimedValue* timedValue, double frame);
    BezierControlPoint(TUBezierTimedValue& timedValue, const BezierCtrlPt& point); ///< A point that stands there.

    /// A new object for the point at a place, or at a frame; null where there is none.
    static BezierControlPoint* at(TUBezierTimedValue& timedValue, quint64 index);
    static BezierControlPoint* at(TUBezierTimedValue& timedValue, double frame);

    std::string __str__() const override;

    QVariant getValue() const override;
    void setValue(const QVariant& value) override; ///< Always refused.

    bool getConstSegment() const;
    QString getContinuity() const; ///< "CORNER", "STRAIGHT" or "SMOOTH".
    double getHandleLeftX() const;
    double getHandleLeftY() const;
    double getHandleRightX() const;
    double getHandleRightY() const;

protected:
    void validate() const override;

private:
    BezierCtrlPt controlPoint() const; ///< Checked to be the very one.

    WeakHandle<TUTimedValue> m_timedValue;
    unsigned long long m_identity = 0;
};

} // namespace OMC
