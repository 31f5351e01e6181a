#pragma once

#include "core/columns/keyframeablecolumn.h"

class TUEaseTimedValue;

namespace OMC {

/// A curve of keyframes between which the motion eases out of one and into the next. column[frame] gives an
/// EaseColumnValue and takes a number.
class BRINDLE_CORE_EXPORT EaseColumn : public KeyframeableColumn {
    Q_OBJECT
    BRINDLE_COPYABLE(EaseColumn)
    Q_PROPERTY(double tension_ease READ getTensionEase)

public:
    explicit EaseColumn(TUEaseTimedValue* timedValue);

    std::string __str__() const override;

    /// The curve's value at a frame. There are no sub-columns.
    QVariant getEntry(double frame, int subColumn = -1) const override;
    /// As the `value` of the column's value at the frame.
    void setEntry(double frame, QVariant value, int subColumn = -1) override;

    using Column::get;
    using Column::set;
    QVariant get(int frame) const override;
    void set(int frame, const QVariant& value) override;

    /// Makes a keyframe, or sets the one at the frame, with all that it has. Eases are in frames; the angles are in
    /// degrees, that of the way in held to -85 to 85, that of the way out to 95 to 265, and are kept as slopes. The
    /// continuity is "CORNER" or "STRAIGHT".
    void createPoint(double frame, double value, double easeIn, double easeInAngle, double easeOut, double easeOutAngle,
                     bool constSegment, const QString& continuity);

    /// By how much all eases are shortened, from 0 (not at all) to 1 (to nothing).
    double getTensionEase() const;

private:
    TUEaseTimedValue& ease() const;
};

} // namespace OMC
