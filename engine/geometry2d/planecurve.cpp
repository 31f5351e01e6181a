#include "engine/geometry2d/planecurve.h"

#include "core/host/gr_bezierpath.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace brindle::engine {

namespace {

/// The polar form at `count` times `end` and, for the rest of the degree, `start`.
Math::Point2d polarForm(const PlaneCurve& curve, double start, double end, unsigned int count)
{
    auto points = curve.points;
    for (unsigned int level = 0; level < curve.degree; ++level) {
        const double t = level < count ? end : start;
        for (unsigned int i = 0; i + level < curve.degree; ++i)
            points[i] = between(points[i], points[i + 1], t);
    }
    return points[0];
}

} // namespace

Math::Vector2d PlaneCurve::slopeAt(double t) const
{
    const Math::Point2d slope = derivative().at(t);
    return {slope.x, slope.y};
}

PlaneCurve PlaneCurve::stretch(double start, double end) const
{
    PlaneCurve part;
    part.degree = degree;
    for (unsigned int i = 0; i <= degree; ++i)
        part.points[i] = polarForm(*this, start, end, i);
    return part;
}

std::pair<PlaneCurve, PlaneCurve> PlaneCurve::halves() const
{
    PlaneCurve before = *this;
    PlaneCurve behind = *this;
    for (unsigned int level = 0; level <= degree; ++level) {
        before.points[level] = behind.points[0];
        for (unsigned int i = 0; i + level < degree; ++i) {
            const Math::Point2d& next = behind.points[i + 1];
            behind.points[i] = {(behind.points[i].x + next.x) / 2, (behind.points[i].y + next.y) / 2};
        }
    }
    return {before, behind};
}

PlaneCurve PlaneCurve::derivative() const
{
    PlaneCurve slopes;
    if (degree == 0)
        return slopes;
    slopes.degree = degree - 1;
    for (unsigned int i = 0; i < degree; ++i) {
        const Math::Vector2d way = (points[i + 1] - points[i]) * degree;
        slopes.points[i] = {way.x, way.y};
    }
    return slopes;
}

PlaneCurve PlaneCurve::reversed() const
{
    PlaneCurve reverse = *this;
    std::reverse(reverse.points.begin(), reverse.points.begin() + degree + 1);
    return reverse;
}

Math::Box2d PlaneCurve::hullBox() const
{
    Math::Box2d box;
    for (const auto& point : used())
        box.AddClosed(point);
    return box;
}

bool PlaneCurve::isPoint() const
{
    return std::ranges::all_of(used(), [this](const auto& point) { return point == from(); });
}

PlaneCurve planeCurve(const GR_Bezier2d& bezier)
{
    PlaneCurve curve;
    curve.degree = bezier.GetDegree();
    for (unsigned int i = 0; i <= curve.degree; ++i)
        curve.points[i] = bezier.GetPoint(i);
    return curve;
}

std::vector<PlaneCurve> planeCurves(const GR_BezierPath2d& path)
{
    std::vector<PlaneCurve> curves;
    curves.reserve(path.GetNumBezier());
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i)
        curves.push_back(planeCurve(path.GetBezier(i)));
    return curves;
}

bool isFinite(const Math::Point2d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool isFinite(const Math::Vector2d& way)
{
    return std::isfinite(way.x) && std::isfinite(way.y);
}

bool isFinite(std::span<const Math::Point2d> points)
{
    return std::ranges::all_of(points, [](const Math::Point2d& point) { return isFinite(point); });
}

void requireFinite(std::span<const Math::Point2d> points)
{
    if (!isFinite(points))
        throw std::domain_error("A point of the curve is not finite.");
}

void requireFinite(const PlaneCurve& curve)
{
    requireFinite(curve.used());
}

double finiteResult(double result)
{
    if (!std::isfinite(result))
        throw std::domain_error("The curve's points are too large, or not finite.");
    return result;
}

Math::Point2d finiteResult(const Math::Point2d& result)
{
    finiteResult(result.x);
    finiteResult(result.y);
    return result;
}

void requireFiniteParameter(double parameter)
{
    if (!std::isfinite(parameter))
        throw std::invalid_argument("The parameter is not finite.");
}

Math::Point2d between(const Math::Point2d& from, const Math::Point2d& to, double t)
{
    return {std::lerp(from.x, to.x, t), std::lerp(from.y, to.y, t)};
}

double distanceSquared(const Math::Point2d& one, const Math::Point2d& other)
{
    const Math::Vector2d way = one - other;
    return way.dot(way);
}

Math::Vector2d direction(const Math::Point2d& from, const Math::Point2d& to)
{
    Math::Vector2d way = to - from;
    if (!isFinite(way)) // longer than what a double holds: half of it has the same direction
        way = {to.x / 2 - from.x / 2, to.y / 2 - from.y / 2};
    const double size = std::max(std::abs(way.x), std::abs(way.y));
    if (size == 0)
        return {};
    const Math::Vector2d even{way.x / size, way.y / size};
    return {even.x / even.length(), even.y / even.length()};
}

double magnitude(std::span<const Math::Point2d> points)
{
    double largest = 0;
    for (const auto& point : points)
        largest = std::max({largest, std::abs(point.x), std::abs(point.y)});
    return largest;
}

Math::Point2d roundedTo(const Math::Point2d& point, double step)
{
    const auto rounded = [step](double value) {
        constexpr double wholeOnly = 4503599627370496.0; // 2^52: from here on a double has no digits behind the point
        const double steps = value / step;
        return std::abs(steps) < wholeOnly ? std::round(steps) * step : value;
    };
    return {rounded(point.x), rounded(point.y)};
}

void requireStep(double step)
{
    if (!std::isfinite(step) || step <= 0)
        throw std::invalid_argument("The step to round to must be a finite number above 0.");
}

UnitFrame::UnitFrame(std::span<const Math::Point2d> points)
{
    requireFinite(points);
    Math::Box2d box;
    for (const auto& point : points)
        box.AddClosed(point);
    *this = UnitFrame(box);
}

UnitFrame::UnitFrame(const Math::Box2d& box)
    : m_centre{box.minX() / 2 + box.maxX() / 2, box.minY() / 2 + box.maxY() / 2}
{
    const double half = std::max(box.maxX() / 2 - box.minX() / 2, box.maxY() / 2 - box.minY() / 2);
    if (half > 0)
        m_scale = std::ldexp(1.0, std::min(std::ilogb(half) + 1, 1023));
}

Math::Point2d UnitFrame::toUnit(const Math::Point2d& point) const
{
    return {(point.x - m_centre.x) / m_scale, (point.y - m_centre.y) / m_scale};
}

PlaneCurve UnitFrame::toUnit(const PlaneCurve& curve) const
{
    PlaneCurve unit;
    unit.degree = curve.degree;
    for (unsigned int i = 0; i <= curve.degree; ++i)
        unit.points[i] = toUnit(curve.points[i]);
    return unit;
}

Math::Point2d UnitFrame::fromUnit(const Math::Point2d& point) const
{
    return {m_centre.x + point.x * m_scale, m_centre.y + point.y * m_scale};
}

} // namespace brindle::engine
