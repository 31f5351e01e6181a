#include "engine/curves/pathpiece.h"

namespace brindle::engine {

using Math::Point3d;
using Math::Vector3d;

namespace {

/// A cubic polynomial by its end points and tangents (Hermite).
class PositionPiece final : public PathPiece {
public:
    PositionPiece(const Point3d& from, const Vector3d& start, const Point3d& to, const Vector3d& end) : m_from(from)
    {
        const Vector3d chord = to - from;
        m_first = start;
        m_second = chord * 3 - start * 2 - end;
        m_third = start + end - chord * 2;
        measure(ArcLength([this](double t) {
            const Vector3d velocity = m_first + (m_second * 2 + m_third * (3 * t)) * t;
            return std::sqrt(velocity.dot(velocity));
        }));
    }

private:
    Point3d pointAt(double t) const override { return m_from + (m_first + (m_second + m_third * t) * t) * t; }

    Point3d m_from;
    Vector3d m_first, m_second, m_third;
};

Vector3d chordAt(const std::vector<PathPoint>& points, int index)
{
    const auto at = static_cast<std::size_t>(index);
    return points[at + 1].position - points[at].position;
}

} // namespace

bool PathPoint::isSound() const
{
    const auto isParameter = [](double number) { return number >= -1 && number <= 1; };
    return std::isfinite(position.x) && std::isfinite(position.y) && std::isfinite(position.z) &&
           isParameter(tension) && isParameter(continuity) && isParameter(bias);
}

PathTangents::PathTangents(const PathPoint& point)
{
    const double half = (1 - point.tension) / 2;
    const double c = point.continuity;
    const double b = point.bias;
    inOfBefore = half * (1 - c) * (1 + b);
    inOfAfter = half * (1 + c) * (1 - b);
    outOfBefore = half * (1 + c) * (1 + b);
    outOfAfter = half * (1 - c) * (1 - b);
}

std::unique_ptr<PathPiece> makePositionPiece(const std::vector<PathPoint>& points, int index)
{
    const auto at = static_cast<std::size_t>(index);
    const PathPoint& from = points[at];
    const PathPoint& to = points[at + 1];
    if (from.position == to.position)
        return std::make_unique<PositionPiece>(from.position, Vector3d{}, to.position, Vector3d{});
    const Vector3d chord = chordAt(points, index);
    const Vector3d before = index > 0 ? chordAt(points, index - 1) : chord;
    const Vector3d after = at + 2 < points.size() ? chordAt(points, index + 1) : chord;
    const PathTangents ofFrom(from);
    const PathTangents ofTo(to);
    return std::make_unique<PositionPiece>(from.position, before * ofFrom.outOfBefore + chord * ofFrom.outOfAfter,
                                           to.position, chord * ofTo.inOfBefore + after * ofTo.inOfAfter);
}

} // namespace brindle::engine
