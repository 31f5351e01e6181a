#include "core/host/gr_bezierpath.h"

#include "engine/geometry2d/nearest.h"
#include "engine/geometry2d/patharea.h"
#include "engine/geometry2d/pathmeetings.h"
#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

// Places along a path: evaluation, parts, and meetings with points, areas and other paths.

using namespace brindle::engine;

namespace {

/// A parameter of a path held in its range, as a curve and the parameter on it.
struct Location {
    unsigned int curve;
    double t;
};

double held(double parameter, const GR_BezierPath2d& path)
{
    requireFiniteParameter(parameter);
    return std::clamp(parameter, 0.0, static_cast<double>(path.GetNumBezier()));
}

Location locationOf(double parameter, const GR_BezierPath2d& path)
{
    const auto last = static_cast<double>(path.GetNumBezier() - 1);
    const double curve = std::min(std::floor(parameter), last);
    return {static_cast<unsigned int>(curve), parameter - curve};
}

void appendPart(GR_BezierPath2d& path, const PlaneCurve& part)
{
    if (path.IsEmpty())
        path.Append(part.from(), true);
    for (unsigned int i = 1; i <= part.degree; ++i)
        path.Append(part.points[i], i == part.degree);
}

/// The stretch from one parameter to a higher one.
GR_BezierPath2d stretchOf(const GR_BezierPath2d& path, double from, double to)
{
    GR_BezierPath2d stretch;
    if (from == to) {
        stretch.Append(path.Evaluate(from), true);
        return stretch;
    }
    const Location first = locationOf(from, path);
    const Location last = locationOf(to, path);
    for (unsigned int i = first.curve; i <= last.curve; ++i) {
        const double start = i == first.curve ? first.t : 0;
        const double end = i == last.curve ? last.t : 1;
        if (start == end)
            continue;
        const PlaneCurve curve = planeCurve(path.GetBezier(i));
        requireFinite(curve);
        appendPart(stretch, start == 0 && end == 1 ? curve : curve.stretch(start, end));
    }
    return stretch;
}

std::vector<Math::Point2d> placesAt(const GR_BezierPath2d& path, const std::vector<double>& parameters)
{
    std::vector<Math::Point2d> places;
    places.reserve(parameters.size());
    for (const double parameter : parameters)
        places.push_back(path.Evaluate(parameter));
    return places;
}

/// On which side of another path's edge all of a path is. It can change where the paths meet only, so one place between
/// each two meetings tells.
struct Sides {
    bool inside = false;
    bool outside = false;
};

Sides sidesOf(const GR_BezierPath2d& path, const GR_BezierPath2d& other, Math::Constants::FillType fill)
{
    const PathArea area(other, fill);
    Sides sides;
    const auto look = [&](double parameter) {
        const PathArea::Place place = area.placeOf(path.Evaluate(parameter));
        sides.inside = sides.inside || place == PathArea::Inside;
        sides.outside = sides.outside || place == PathArea::Outside;
    };
    std::vector<double> cuts = pathMeetings(path, other);
    if (!other.IsClosed() && other.GetNumBezier() > 0) {
        GR_BezierPath2d closing;
        closing.Append(other.GetToPoint(), true);
        closing.Append(other.GetFromPoint(), true);
        std::ranges::copy(pathMeetings(path, closing), std::back_inserter(cuts));
    }
    cuts.push_back(0);
    cuts.push_back(path.GetNumBezier());
    std::ranges::sort(cuts);
    constexpr double tooShort = 1e-6; // to tell from the meeting itself
    for (std::size_t i = 1; i < cuts.size(); ++i) {
        if (cuts[i] - cuts[i - 1] > tooShort)
            look(std::midpoint(cuts[i - 1], cuts[i]));
    }
    if (path.GetNumBezier() == 0)
        look(0);
    return sides;
}

} // namespace

Math::Point2d GR_BezierPath2d::Evaluate(double parameter) const
{
    const Math::Point2d& first = GetFromPoint();
    const double place = held(parameter, *this);
    if (GetNumBezier() == 0)
        return finiteResult(first);
    const Location at = locationOf(place, *this);
    ControlPoints points{};
    const unsigned int degree = GetDegree(at.curve);
    std::copy_n(m_points.begin() + m_onCurve[at.curve], degree + 1, points.begin());
    return finiteResult(evaluated(points, degree, at.t));
}

std::pair<GR_BezierPath2d, GR_BezierPath2d> GR_BezierPath2d::Split(double parameter) const
{
    GetFromPoint(); // throws when there is none
    const double place = held(parameter, *this);
    std::pair parts{stretchOf(*this, 0, place), stretchOf(*this, place, GetNumBezier())};
    for (std::size_t i = m_onCurve.back() + 1; i < m_points.size(); ++i)
        parts.second.Append(m_points[i], false);
    return parts;
}

void GR_BezierPath2d::Truncate(double from, double to)
{
    GetFromPoint(); // throws when there is none
    const double start = held(from, *this);
    const double end = held(to, *this);
    GR_BezierPath2d stretch = stretchOf(*this, std::min(start, end), std::max(start, end));
    if (start > end)
        stretch.Reverse();
    *this = std::move(stretch);
}

void GR_BezierPath2d::Reverse()
{
    if (IsEmpty())
        return;
    const unsigned int last = m_onCurve.back();
    m_points.resize(last + 1);
    std::ranges::reverse(m_points);
    std::ranges::reverse(m_onCurve);
    for (unsigned int& index : m_onCurve)
        index = last - index;
}

void GR_BezierPath2d::Round(double step)
{
    requireStep(step);
    std::vector<Math::Point2d> points = m_points;
    for (Math::Point2d& point : points)
        point = finiteResult(roundedTo(point, step));
    m_points = std::move(points);
}

GR_BezierPath2d& GR_BezierPath2d::operator*=(const Math::Matrix2x3& matrix)
{
    std::vector<Math::Point2d> points = m_points;
    for (Math::Point2d& point : points)
        point = finiteResult(matrix * point);
    m_points = std::move(points);
    return *this;
}

bool GR_BezierPath2d::operator==(const GR_BezierPath2d& other) const
{
    return m_points == other.m_points && m_onCurve == other.m_onCurve;
}

bool GR_BezierPath2d::isReverseEqual(const GR_BezierPath2d& other) const
{
    GR_BezierPath2d reverse = other;
    reverse.Reverse();
    return *this == reverse;
}

bool GR_BezierPath2d::GetClosestPoint(const Math::Point2d& point, double& radiusSquared, double& parameter) const
{
    std::vector<PlaneCurve> curves = planeCurves(*this);
    if (curves.empty() && !IsEmpty()) {
        curves.emplace_back();
        curves.back().points[0] = GetFromPoint();
    }
    bool found = false;
    double best = radiusSquared;
    double bestParameter = parameter;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const Math::Box2d hull = curves[i].hullBox();
        const Math::Point2d held{std::clamp(point.x, hull.minX(), hull.maxX()),
                                 std::clamp(point.y, hull.minY(), hull.maxY())};
        if (distanceSquared(held, point) > best)
            continue;
        const auto candidate = nearest(curves[i], point);
        if (!candidate)
            return false;
        if (found ? candidate->distanceSquared < best : candidate->distanceSquared <= best) {
            found = true;
            best = candidate->distanceSquared;
            bestParameter = static_cast<double>(i) + candidate->parameter;
        }
    }
    if (!found)
        return false;
    radiusSquared = best;
    parameter = bestParameter;
    return true;
}

bool GR_BezierPath2d::IsIntersecting() const
{
    return !pathSelfMeetings(*this, Wanted::Any).empty();
}

bool GR_BezierPath2d::IsIntersecting(const GR_BezierPath2d& other) const
{
    return !pathMeetings(*this, other, Wanted::Any).empty();
}

std::vector<Math::Point2d> GR_BezierPath2d::GetIntersections() const
{
    return placesAt(*this, pathSelfMeetings(*this));
}

std::vector<Math::Point2d> GR_BezierPath2d::GetIntersections(const GR_BezierPath2d& other) const
{
    return placesAt(*this, pathMeetings(*this, other));
}

bool GR_BezierPath2d::IsContaining(const Math::Point2d& point, Math::Constants::FillType fill) const
{
    return !IsEmpty() && PathArea(*this, fill).placeOf(point) != PathArea::Outside;
}

bool GR_BezierPath2d::IsInside(const GR_BezierPath2d& other, Math::Constants::FillType fill) const
{
    return !IsEmpty() && !other.IsEmpty() && !sidesOf(*this, other, fill).outside;
}

bool GR_BezierPath2d::IsOutside(const GR_BezierPath2d& other, Math::Constants::FillType fill) const
{
    if (IsEmpty() || other.IsEmpty())
        return false;
    const Sides sides = sidesOf(*this, other, fill);
    return sides.outside && !sides.inside;
}
