#pragma once

#include "core/host/tu_velobasedtimedvalue.h"
#include "engine/curves/pointcurve.h"

namespace brindle::engine {

/// A control point of a velocity.
struct VelocityPoint : VeloBasedCtrlPt {
    bool operator==(const VelocityPoint& other) const;
    bool isSound() const { return std::isfinite(value); }
    void shift(double) {}
    void scale(double factor) { value *= factor; }
};

/// Lengths along a path on which places are told by numbers.
class PathRuler {
public:
    /// The length of the way from one place to another; negative where that lies ahead of it.
    virtual double distance(double from, double to) const = 0;
    /// The place at a distance from another one.
    virtual double placeAt(double from, double distance) const = 0;

protected:
    ~PathRuler() = default;
};

/// The way that a path moves along: a function of the frame through control points, constant before the first and after
/// the last one. Between two points the distance is a cubic polynomial that never runs back; its slope at a point, the
/// velocity there, is the mean of those on both sides, or 0 where the way turns round.
///
/// Monotone piecewise cubic interpolation after F. N. Fritsch and J. Butland, "A Method for Constructing Local Monotone
/// Piecewise Cubic Interpolants", SIAM J. Sci. Stat. Comput. 5, 1984. The distance between two values is that of a
/// ruler, or their difference.
class VelocityCurve : public PointCurve<VelocityPoint> {
public:
    static constexpr std::size_t changesOfSplice = 1;

    VelocityCurve() = default;
    /// A copy keeps its own ruler.
    VelocityCurve(const VelocityCurve& other) : PointCurve(other) {}
    VelocityCurve& operator=(const VelocityCurve& other)
    {
        PointCurve::operator=(other);
        return *this;
    }
    void setRuler(const PathRuler& ruler) { m_ruler = &ruler; }

    /// Places on a path lie within a thousand million of 0.
    bool canHave(double value) const;

    double evaluate(double frame) const; ///< 0 while there is no point.
    /// The same as a place, and the distance to go from there.
    struct Way {
        double from;
        double distance;
    };
    Way wayAt(double frame) const;

    /// Makes a point with the value that the curve has there.
    Edit splice(double frame, bool constantSegment, Log& log);
    Edit move(double frame, double newFrame, double value, Log& log);
    Edit setValue(double frame, double value, Log& log);
    /// Adds a number to all values from `from` on that are whole; not in any log.
    void renumber(double from, double by);

private:
    double distance(const VelocityPoint& from, const VelocityPoint& to) const;
    double slopeAt(const VelocityPoint& point, const VelocityPoint* before, const VelocityPoint* after) const;

    const PathRuler* m_ruler = nullptr;
};

} // namespace brindle::engine
