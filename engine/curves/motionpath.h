#pragma once

#include "engine/curves/pathpiece.h"
#include "engine/curves/velocitycurve.h"

#include <limits>

namespace brindle::engine {

/// One elementary change of a path, with what takes it back.
struct MotionChange {
    enum Kind { Inserted, Removed, Edited, Velocity };
    Kind kind;
    int index = 0;                    ///< The control point's.
    PathPoint before = {};            ///< As it was.
    VelocityCurve::Log velocity = {}; ///< Changes of the velocity's points.
};

/// A path through control points in space, and the velocity that tells the place on it at a frame: the whole part of a
/// value is the index of the control point that lies behind, the fraction the part of the way to the next one, by
/// length. Values beyond the ends count as the ends. A control point is a keyframe at the frames at which a point of
/// the velocity stands on it, that is, has its index as value.
///
/// It knows nothing of scenes and commands; the column that owns it does. Edits and logs are as for a PointCurve. Where
/// control points come and go, the values of the velocity's points follow: each stays at its place in space, as near as
/// the new shape has it.
class MotionPath final : public PathRuler {
public:
    using Edit = CurveEdit;
    using Log = std::vector<MotionChange>;

    /// The velocity outlives it and takes it as its ruler.
    MotionPath(VelocityCurve& velocity, PieceMaker maker);
    MotionPath(const MotionPath&) = delete;
    MotionPath& operator=(const MotionPath&) = delete;

    const std::vector<PathPoint>& points() const { return m_points; }
    int size() const { return static_cast<int>(m_points.size()); }
    bool has(int index) const { return index >= 0 && index < size(); }
    void setPoints(const std::vector<PathPoint>& points); ///< For a new path; each point must be sound.

    bool valueAt(double frame, Math::Point3d& position) const; ///< False while there is no control point.

    int keyAt(double frame) const; ///< The control point of the keyframe at exactly this frame, or -1.
    /// The velocity's point of the last keyframe at or before the frame, of the first behind it; null for none.
    const VelocityPoint* keyBefore(double frame) const;
    const VelocityPoint* keyAfter(double frame) const;
    const VelocityPoint* keyOf(int index) const;                    ///< The first keyframe on a control point, or null.
    double timeOf(int index) const;                                 ///< As AT_Fnc3dTimedValue::computeControlPointTime.
    std::vector<double> keyFrames(double first, double last) const; ///< Those within a range, ascending.

    /// Makes a keyframe at the place where the path is at the frame, with a control point of its own: the path goes
    /// through the same place then, and beside it its shape changes a little. A control point that is no keyframe yet
    /// and lies there exactly becomes it.
    Edit addKey(double frame, Log& log);
    /// The same, moved to a position; refused where a keyframe stands.
    Edit makeKey(double frame, const Math::Point3d& position, Log& log);
    /// Sets the position of the keyframe at a frame, and makes it if need be.
    Edit setKey(double frame, const Math::Point3d& position, Log& log);
    Edit move(int index, const Math::Point3d& position, Log& log);
    Edit setParameters(int index, double tension, double continuity, double bias, Log& log);
    Edit setConstSegment(double frame, bool constantSegment, Log& log);
    Edit remove(int index, Log& log);
    /// Takes the keyframes at some frames; a control point goes with its last one.
    Edit removeKeys(const std::vector<double>& frames, Log& log);
    Edit trim(Log& log); ///< As TrimCtrlPtsCmd.
    /// Multiplies the positions by a factor: all coordinates, or only x, y or z (1, 2, 3).
    Edit scale(double factor, int axis, Log& log);
    /// As PointCurve::shift, with the control points of the keyframes that go.
    Edit shift(int at, int delta, Log& log);
    /// Takes what the velocity has from a frame up to before another one, with the control points of the keyframes.
    Edit clear(double begin, double end, Log& log);

    void revert(Log& log);

    double distance(double from, double to) const override;
    double placeAt(double from, double distance) const override;

private:
    /// A place on the path: a piece, and the distance from its first point; at the last point, the point's own index.
    struct Place {
        int index;
        double distance;
    };

    double clamped(double place) const;
    Place placeOf(double value) const;
    Place walk(double from, double distance) const;
    Math::Point3d positionOf(const Place& place) const;
    const PathPiece& piece(int index) const;
    double lengthOf(int index) const;
    void forget(int index);
    void insertPoint(int index, const PathPoint& point);
    void erasePoint(int index);

    void insert(int index, PathPoint point, Log& log);
    void erase(int index, Log& log);
    void change(int index, const PathPoint& point, Log& log);
    template <typename VelocityEdit>
    Edit editVelocity(Log& log, VelocityEdit edit);
    /// Gives points of the velocity, by their frames, other values.
    void setValues(const std::vector<std::pair<double, double>>& values, Log& log);
    void standOn(double frame, int index, Log& log);

    VelocityCurve& m_velocity;
    PieceMaker m_maker;
    std::vector<PathPoint> m_points;
    unsigned long long m_identities = 0;
    mutable std::vector<std::unique_ptr<PathPiece>> m_pieces; ///< Between the points; null until it is asked for.
    mutable std::vector<double> m_keyFrames;                  ///< By control point; NaN for one that is no keyframe.
    mutable unsigned long long m_keyFramesOf = 0;             ///< The velocity's changes up to which that was true.
    mutable bool m_hasKeyFrames = false;
    unsigned long long m_changes = 0; ///< Counts the changes of control points.

    /// The last frame that was asked for: scripts read the three coordinates one after the other.
    struct Recent {
        double frame = std::numeric_limits<double>::quiet_NaN();
        Math::Point3d position;
        unsigned long long changes = 0;
        unsigned long long velocityChanges = 0;
    };
    mutable Recent m_recent;
};

} // namespace brindle::engine
