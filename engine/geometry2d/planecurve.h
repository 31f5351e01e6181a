#pragma once

#include "core/host/gr_bezier.h"
#include "core/host/math_box2d.h"
#include "core/host/math_point.h"

#include <array>
#include <span>
#include <utility>
#include <vector>

class GR_BezierPath2d;

namespace brindle::engine {

using ControlPoints = std::array<Math::Point2d, GR_Bezier2d::maxDegree + 1>;

/// The place at t, by the Bernstein polynomials of the degree.
inline Math::Point2d evaluated(const ControlPoints& p, unsigned int degree, double t)
{
    const double s = 1 - t;
    const auto weighted = [&p](const auto&... weight) {
        unsigned int i = 0;
        unsigned int j = 0;
        return Math::Point2d{(... + (weight * p[i++].x)), (... + (weight * p[j++].y))};
    };
    switch (degree) {
    case 0:
        return p[0];
    case 1:
        return weighted(s, t);
    case 2:
        return weighted(s * s, 2 * s * t, t * t);
    default:
        return weighted(s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t);
    }
}

/// The control points of a curve of degree 0 to 3: what the computations on plane curves work with.
///
/// The computations in this folder are our own. lib2geom offers most of them, and costs each process 25 more libraries
/// (Cairo, GLib and X11 among them), 5 MB and 6 to 10 ms to load, of the 40 ms that `import brindle` may take. Evaluating
/// and finding the nearest place or the box take as long as its own and give the same; where results or times differ,
/// the comment of the operation says by how much. bench/curves.cpp measures both sides.
struct PlaneCurve {
    unsigned int degree = 0;
    ControlPoints points{};

    const Math::Point2d& from() const { return points[0]; }
    const Math::Point2d& to() const { return points[degree]; }
    std::span<const Math::Point2d> used() const { return {points.data(), degree + 1}; }

    Math::Point2d at(double t) const { return evaluated(points, degree, t); }
    /// The derivative by t.
    Math::Vector2d slopeAt(double t) const;

    /// The part from one parameter to another, backwards when `start` > `end`: its control points are the polar form of
    /// the curve (Ramshaw 1989) at the two parameters.
    PlaneCurve stretch(double start, double end) const;
    /// The parts before and behind the middle.
    std::pair<PlaneCurve, PlaneCurve> halves() const;
    /// The differences of neighbouring control points times the degree: the control points of the derivative.
    PlaneCurve derivative() const;
    PlaneCurve reversed() const;

    Math::Box2d hullBox() const;
    bool isPoint() const; ///< All control points are the same.
};

PlaneCurve planeCurve(const GR_Bezier2d& bezier);
/// The curves of a path, in their order.
std::vector<PlaneCurve> planeCurves(const GR_BezierPath2d& path);

bool isFinite(const Math::Point2d& point);
bool isFinite(const Math::Vector2d& way);
bool isFinite(std::span<const Math::Point2d> points);
/// Throw std::domain_error, with the text that scripts see.
void requireFinite(std::span<const Math::Point2d> points);
void requireFinite(const PlaneCurve& curve);
double finiteResult(double result);
Math::Point2d finiteResult(const Math::Point2d& result);
/// Throws std::invalid_argument.
void requireFiniteParameter(double parameter);

Math::Point2d between(const Math::Point2d& from, const Math::Point2d& to, double t);
double distanceSquared(const Math::Point2d& one, const Math::Point2d& other);
/// The direction of a way, of length 1; zero for no way. Right for the longest and the shortest ways too.
Math::Vector2d direction(const Math::Point2d& from, const Math::Point2d& to);
/// The largest absolute coordinate.
double magnitude(std::span<const Math::Point2d> points);
/// The nearest multiple of a step; numbers so large that the step is below their last digit stay.
Math::Point2d roundedTo(const Math::Point2d& point, double step);
void requireStep(double step);

/// A frame of reference in which coordinates are about 1: it moves the centre of the points to (0, 0) and divides by
/// half their extent, rounded to a power of 2. There, products of coordinates don't overflow, small curves aren't lost,
/// and tolerances have one meaning. Throws std::domain_error when a point is not finite.
class UnitFrame {
public:
    explicit UnitFrame(std::span<const Math::Point2d> points);
    explicit UnitFrame(const Math::Box2d& box);

    Math::Point2d toUnit(const Math::Point2d& point) const;
    PlaneCurve toUnit(const PlaneCurve& curve) const;
    Math::Point2d fromUnit(const Math::Point2d& point) const;
    double scale() const { return m_scale; } ///< The length of 1 in the frame.

private:
    Math::Point2d m_centre;
    double m_scale = 1;
};

/// The roots in [0, 1] of a polynomial by its Bernstein coefficients (of a degree up to 7), ascending: halved until
/// Descartes' rule of signs leaves one root to Newton's method. None for the polynomial that is zero
/// everywhere, and for coefficients that aren't finite.
std::vector<double> bernsteinRoots(std::span<const double> coefficients);

} // namespace brindle::engine
