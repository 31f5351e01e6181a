#pragma once

#include "core/columns/keyframeablecolumn.h"

class TUVeloBasedTimedValue;

namespace OMC {

/// A curve of keyframes whose velocity changes without a jump; that of a 3D path tells the place on the path: the
/// control points that lie behind, and as a fraction the part of the way to the next one. column[frame] gives a
/// VeloBasedColumnValue and takes a number.
class BRINDLE_CORE_EXPORT VeloBasedColumn : public KeyframeableColumn {
    Q_OBJECT
    BRINDLE_COPYABLE(VeloBasedColumn)

public:
    explicit VeloBasedColumn(TUVeloBasedTimedValue* timedValue);

    std::string __str__() const override;

    /// The curve's value at a frame. There are no sub-columns.
    QVariant getEntry(double frame, int subColumn = -1) const override;
    /// As the `value` of the column's value at the frame.
    void setEntry(double frame, QVariant value, int subColumn = -1) override;

    using Column::get;
    using Column::set;
    QVariant get(int frame) const override;
    void set(int frame, const QVariant& value) override;

    void createPoint(double frame, double value); ///< Makes a keyframe, or sets the one at the frame.

private:
    TUVeloBasedTimedValue& velocity() const;
};

} // namespace OMC
