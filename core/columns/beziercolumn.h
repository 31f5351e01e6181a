#pragma once

#include "core/columns/keyframeablecolumn.h"

class TUBezierTimedValue;

namespace OMC {

/// A curve through keyframes with a handle on either side. column[frame] gives a BezierColumnValue and takes a number.
class BRINDLE_CORE_EXPORT BezierColumn : public KeyframeableColumn {
    Q_OBJECT
    BRINDLE_COPYABLE(BezierColumn)

public:
    explicit BezierColumn(TUBezierTimedValue* timedValue);

    std::string __str__() const override;

    /// The curve's value at a frame. There are no sub-columns.
    QVariant getEntry(double frame, int subColumn = -1) const override;
    /// As the `value` of the column's value at the frame.
    void setEntry(double frame, QVariant value, int subColumn = -1) override;

    using Column::get;
    using Column::set;
    QVariant get(int frame) const override;
    void set(int frame, const QVariant& value) override;

    /// Makes a keyframe, or sets the one at the frame, with all that it has. Handles are in frames (x) and in the
    /// column's values (y), not relative to the point; the continuity is "CORNER", "STRAIGHT" or "SMOOTH", in any case
    /// of letters.
    void createPoint(double frame, double value, double handleLeftX, double handleLeftY, double handleRightX,
                     double handleRightY, bool constSegment, const QString& continuity);

private:
    TUBezierTimedValue& bezier() const;
};

} // namespace OMC
