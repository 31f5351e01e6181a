#include "engine/curves/pathpiece.h"
#include "engine/math/angle.h"

#include <Imath/ImathQuat.h>

namespace brindle::engine {

using Math::Point3d;

namespace {

using Quaternion = Imath::Quatd;
using Axis = Imath::V3d;

/// About x, then y, then z.
Quaternion quaternionOf(const Point3d& degrees)
{
    const auto about = [](double angle, const Axis& axis) {
        const auto [sine, cosine] = SineCosine::ofDegrees(angle / 2);
        return Quaternion(cosine, axis * sine);
    };
    return about(degrees.z, {0, 0, 1}) * about(degrees.y, {0, 1, 0}) * about(degrees.x, {1, 0, 0});
}

/// The angles of rotateZ(z) rotateY(y) rotateX(x) (Shoemake, Euler Angle Conversion, in Graphics Gems IV). Where y is a
/// right angle, x and z turn about the same axis, and z is 0.
Point3d anglesOf(const Quaternion& turn)
{
    const double w = turn.r;
    const auto [x, y, z] = std::array{turn.v.x, turn.v.y, turn.v.z};
    const double sine = 2 * (w * y - x * z);
    const double xx = 1 - 2 * (y * y + z * z);
    const double yx = 2 * (x * y + w * z);
    const double cosine = std::sqrt(xx * xx + yx * yx);
    Point3d angles;
    angles.y = std::atan2(sine, cosine);
    if (cosine > 1e-12) {
        angles.x = std::atan2(2 * (y * z + w * x), 1 - 2 * (x * x + y * y));
        angles.z = std::atan2(yx, xx);
    } else {
        angles.x = std::atan2(-2 * (y * z - w * x), 1 - 2 * (x * x + z * z));
    }
    return {angles.x * degreesPerRadian, angles.y * degreesPerRadian, angles.z * degreesPerRadian};
}

/// The axis and half the angle of the shorter turn from one rotation to another, as one vector.
Axis turnBetween(const Quaternion& from, const Quaternion& to)
{
    Quaternion way = ~from * to;
    if (way.r < 0)
        way = -way;
    const double sine = way.v.length();
    return sine > 0 ? way.v * (std::atan2(sine, way.r) / sine) : Axis(0);
}

/// A part of the curve: a turn about one axis, through an angle that a weight tells.
struct TurnPart {
    explicit TurnPart(const Axis& turn) : angle(turn.length()), axis(angle > 0 ? turn / angle : Axis(0)) {}

    Quaternion at(double weight) const { return {std::cos(angle * weight), axis * std::sin(angle * weight)}; }

    double angle;
    Axis axis;
};

Quaternion exponential(const Axis& turn)
{
    return TurnPart(turn).at(1);
}

class RotationPiece final : public PathPiece {
public:
    /// `start` and `end` are the velocities at the ends, as turns; `from` and `to` are the end points.
    RotationPiece(const Quaternion& from, const Axis& start, const Quaternion& to, const Axis& end)
        : m_from(from),
          m_first(start / 3),
          m_middle(turnBetween(from * exponential(start / 3), to * ~exponential(end / 3))),
          m_last(end / 3)
    {
        measure(ArcLength([this](double t) { return speedAt(t); }));
    }

private:
    /// The cumulative Bernstein polynomials of degree 3.
    static std::array<double, 3> weightsAt(double t)
    {
        const double u = 1 - t;
        return {1 - u * u * u, t * t * (3 - 2 * t), t * t * t};
    }

    Point3d pointAt(double t) const override
    {
        const auto [first, middle, last] = weightsAt(t);
        return anglesOf(m_from * m_first.at(first) * m_middle.at(middle) * m_last.at(last));
    }

    /// In degrees for the whole parameter: the angular velocity, seen from the turned body.
    double speedAt(double t) const
    {
        const auto [first, middle, last] = weightsAt(t);
        const double u = 1 - t;
        const Quaternion lastTurn = m_last.at(last);
        const Quaternion behind = m_middle.at(middle) * lastTurn;
        const auto seenFrom = [](const Quaternion& turn, const Axis& axis) {
            return (~turn * Quaternion(0, axis) * turn).v;
        };
        const Axis velocity = seenFrom(behind, m_first.axis * (m_first.angle * 3 * u * u)) +
                              seenFrom(lastTurn, m_middle.axis * (m_middle.angle * 6 * t * u)) +
                              m_last.axis * (m_last.angle * 3 * t * t);
        return 2 * velocity.length() * degreesPerRadian;
    }

    Quaternion m_from;
    TurnPart m_first, m_middle, m_last;
};

Axis turnAt(const std::vector<PathPoint>& points, int index)
{
    const auto at = static_cast<std::size_t>(index);
    return turnBetween(quaternionOf(points[at].position), quaternionOf(points[at + 1].position));
}

} // namespace

std::unique_ptr<PathPiece> makeRotationPiece(const std::vector<PathPoint>& points, int index)
{
    const auto at = static_cast<std::size_t>(index);
    const PathPoint& from = points[at];
    const PathPoint& to = points[at + 1];
    const Quaternion start = quaternionOf(from.position);
    const Quaternion end = quaternionOf(to.position);
    const Axis turn = turnBetween(start, end);
    if (turn == Axis(0))
        return std::make_unique<RotationPiece>(start, Axis(0), start, Axis(0));
    const Axis before = index > 0 ? turnAt(points, index - 1) : turn;
    const Axis after = at + 2 < points.size() ? turnAt(points, index + 1) : turn;
    const PathTangents ofFrom(from);
    const PathTangents ofTo(to);
    return std::make_unique<RotationPiece>(start, before * ofFrom.outOfBefore + turn * ofFrom.outOfAfter, end,
                                           turn * ofTo.inOfBefore + after * ofTo.inOfAfter);
}

} // namespace brindle::engine
