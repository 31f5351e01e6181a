#pragma once

#include "core/host/gr_bezier.h"
#include "core/host/gr_bezierfitter.h"
#include "core/host/gr_bezierpath.h"

#include <initializer_list>
#include <random>
#include <vector>

/// Curves and paths for tests, and what a computation in a wider number says about them.
namespace curves {

/// Curves of all degrees, with points within -size to size. The same seed gives the same curves.
class RandomCurves {
public:
    explicit RandomCurves(unsigned int seed, double size = 100) : m_random(seed), m_size(size) {}

    double number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(m_random); }
    unsigned int below(unsigned int count) { return m_random() % count; }
    Math::Point2d point() { return {number(-m_size, m_size), number(-m_size, m_size)}; }
    GR_Bezier2d curve(unsigned int degree);
    GR_Bezier2d curve() { return curve(below(4)); }
    /// A chain of this many curves of degree 1 to 3.
    GR_BezierPath2d path(unsigned int count);
    /// Any kind of fit, with the default numbers.
    GR_BezierPath2dFitterOptions fitterOptions();

private:
    std::mt19937 m_random;
    double m_size;
};

GR_Bezier2d curve(std::initializer_list<Math::Point2d> points);
GR_BezierPath2d polyline(std::initializer_list<Math::Point2d> points);
/// Four cubic arcs around a centre, clockwise from the top.
GR_BezierPath2d circle(const Math::Point2d& centre, double radius);

double distance(const Math::Point2d& one, const Math::Point2d& other);
/// Evaluates by de Casteljau's construction in a wider number type.
Math::Point2d reference(const GR_Bezier2d& curve, double t);
/// The length of a polyline through this many places, improved by Richardson's extrapolation.
double referenceLength(const GR_Bezier2d& curve, int places);
/// The distance to the nearest of this many places, improved by halving around it.
double referenceDistance(const GR_Bezier2d& curve, const Math::Point2d& point, int places);

} // namespace curves
