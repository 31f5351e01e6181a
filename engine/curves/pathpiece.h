#pragma once

#include "core/host/math_point.h"
#include "engine/curves/arclength.h"

#include <memory>
#include <vector>

namespace brindle::engine {

/// A control point of a path, as the path keeps it.
struct PathPoint {
    Math::Point3d position;
    double tension = 0;
    double continuity = 0;
    double bias = 0;
    unsigned long long identity = 0; ///< Unlike that of all other points that the path ever had.

    bool operator==(const PathPoint&) const = default;
    bool isSound() const; ///< The position is finite; tension, continuity and bias are between -1 and 1.
};

/// The curve of a path from one control point to the next.
class PathPiece {
public:
    virtual ~PathPiece() = default;

    double length() const { return m_arc.length(); }
    /// The place at a distance from the first point, between 0 and the length, which is above 0.
    Math::Point3d at(double distance) const { return pointAt(m_arc.parameterAt(distance)); }

protected:
    void measure(const ArcLength& arc) { m_arc = arc; }

private:
    virtual Math::Point3d pointAt(double t) const = 0;

    ArcLength m_arc;
};

/// Makes the piece between a control point and the one behind it.
using PieceMaker = std::unique_ptr<PathPiece> (*)(const std::vector<PathPoint>& points, int index);

/// A piece of a smooth path through positions. Between two points at the same place the path stands still.
///
/// D. H. U. Kochanek and R. H. Bartels, "Interpolating Splines with Local Tension, Continuity, and Bias Control",
/// SIGGRAPH 1984. With all three at 0 it is the spline of Catmull and Rom. The first and the last point have the same
/// chord on both sides.
std::unique_ptr<PathPiece> makePositionPiece(const std::vector<PathPoint>& points, int index);

/// A piece of a smooth path through rotations, given by angles in degrees about x, then y, then z. Its length is the
/// angle that it turns through, in degrees.
///
/// From one rotation to the next it takes the shorter way round. Between two rotations without others beside them it
/// turns about one axis (K. Shoemake, "Animating Rotation with Quaternion Curves", SIGGRAPH 1985); with others it is
/// the smooth curve of M.-J. Kim, M.-S. Kim and S. Y. Shin, "A General Construction Scheme for Unit Quaternion Curves
/// with Simple High Order Derivatives", SIGGRAPH 1995, in its Bezier form, with the angular velocities that tension,
/// continuity and bias make of the turns on both sides, as a path through positions makes its tangents of the chords.
std::unique_ptr<PathPiece> makeRotationPiece(const std::vector<PathPoint>& points, int index);

/// The tangents that a control point's tension, continuity and bias make of the chords beside it: with these the path
/// comes to the point and goes on from it.
struct PathTangents {
    double inOfBefore, inOfAfter;   ///< The parts of the chords in the incoming tangent.
    double outOfBefore, outOfAfter; ///< And in the outgoing one.

    explicit PathTangents(const PathPoint& point);
};

} // namespace brindle::engine
