#pragma once

#include "core/columns/keyframeablecolumn.h"

class AT_Fnc3dTimedValue;

namespace OMC {

class VeloBasedColumn;

/// A path in space through control points, with a velocity column that tells the place on it at each frame: how many
/// control points lie behind, and as a fraction the part of the way to the next one, by length. column[frame] gives a
/// Path3DColumnValue and takes a position.
///
/// Coordinates are in fields. The path is a smooth curve after Kochanek and Bartels; each control point has a tension
/// (0 is round, 1 straight), a continuity (0 is smooth, -1 and 1 are corners) and a bias (0 is even; above, the bend
/// lies behind the point), all three between -1 and 1. A control point at which the path is at a frame of its own is a
/// keyframe. Hold values are those of the velocity column.
class BRINDLE_CORE_EXPORT Path3DColumn : public KeyframeableColumn {
    Q_OBJECT
    BRINDLE_COPYABLE(Path3DColumn)
    Q_PROPERTY(OMC::Obj velocity_column READ getVelocityColumn)

public:
    explicit Path3DColumn(AT_Fnc3dTimedValue* timedValue);

    std::string __str__() const override;

    /// The path at a frame, as an object with x, y and z. There are no sub-columns.
    QVariant getEntry(double frame, int subColumn = -1) const override;
    /// As the `value` of the column's value at the frame.
    void setEntry(double frame, QVariant value, int subColumn = -1) override;

    using Column::get;
    using Column::set;
    QVariant get(int frame) const override;
    void set(int frame, const QVariant& value) override;

    /// Makes a keyframe with a control point at a position, or sets the one at the frame.
    void createPoint(double frame, double x, double y, double z, double tension, double continuity, double bias);
    /// Removes a control point by its place on the path; the first one (0) can't be removed. Control points that the
    /// path doesn't reach any more go along.
    void removePoint(int index);

    /// Makes three new bezier columns with the path's x, y and z, which agree with it within 0.01 at every frame, and
    /// gives them; the path stays. "TRANSFORM_MATRIX" puts a keyframe at each frame, with exactly the path's value;
    /// "BEZIER_FITTER" puts as few keyframes as come within 0.005 of the path at each frame.
    QList<QVariant> convertToSeparate(const QString& conversion);

    Obj getVelocityColumn() const; ///< The column that tells the place on the path; it belongs to the path.

private:
    AT_Fnc3dTimedValue& path() const;
};

} // namespace OMC
