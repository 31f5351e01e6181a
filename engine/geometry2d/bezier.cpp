#include "core/host/gr_bezier.h"

#include "engine/geometry2d/curveshape.h"
#include "engine/geometry2d/intersection.h"
#include "engine/geometry2d/nearest.h"
#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace brindle::engine;

namespace {

void requireDegree(unsigned int degree)
{
    if (degree > GR_Bezier2d::maxDegree)
        throw std::out_of_range("The degree of a curve is from 0 through 3.");
}

void requirePlace(unsigned int index)
{
    if (index > GR_Bezier2d::maxDegree)
        throw std::out_of_range("A curve has no such control point.");
}

/// The intersections as places on the first curve, each once.
std::vector<Math::Point2d> places(const PlaneCurve& curve, const std::vector<Meeting>& meetings)
{
    const Math::Box2d hull = curve.hullBox();
    const double same = meetingTolerance * std::max(hull.width(), hull.height());
    std::vector<Math::Point2d> points;
    for (const Meeting& meeting : meetings) {
        const Math::Point2d place = curve.at(meeting.first);
        const bool known = std::ranges::any_of(points, [&](const Math::Point2d& point) {
            return std::max(std::abs(point.x - place.x), std::abs(point.y - place.y)) <= same;
        });
        if (!known)
            points.push_back(place);
    }
    return points;
}

bool hasEnd(const GR_Bezier2d& bezier, double t)
{
    return !(t == 0 && bezier.GetFromBoundary() == Math::Constants::Open) &&
           !(t == 1 && bezier.GetToBoundary() == Math::Constants::Open);
}

std::vector<Meeting> meetingsWithin(const GR_Bezier2d& one)
{
    const PlaneCurve curve = planeCurve(one);
    requireFinite(curve);
    std::vector<Meeting> meetings = selfMeetings(curve);
    std::erase_if(meetings, [&](const Meeting& at) { return !hasEnd(one, at.first) || !hasEnd(one, at.second); });
    return meetings;
}

std::vector<Meeting> meetingsBetween(const GR_Bezier2d& one, const GR_Bezier2d& other)
{
    const PlaneCurve first = planeCurve(one);
    const PlaneCurve second = planeCurve(other);
    requireFinite(first);
    requireFinite(second);
    std::vector<Meeting> meetings = brindle::engine::meetings(first, second);
    std::erase_if(meetings, [&](const Meeting& at) { return !hasEnd(one, at.first) || !hasEnd(other, at.second); });
    return meetings;
}

} // namespace

GR_Bezier2d::GR_Bezier2d(unsigned int degree, Math::Constants::Boundary from, Math::Constants::Boundary to)
    : m_degree(degree),
      m_fromBoundary(from),
      m_toBoundary(to)
{
    requireDegree(degree);
}

void GR_Bezier2d::SetDegree(unsigned int degree)
{
    requireDegree(degree);
    if (m_degree == degree)
        return;
    m_degree = degree;
    markStale();
}

const Math::Point2d& GR_Bezier2d::GetPoint(unsigned int index) const
{
    requirePlace(index);
    return m_points[index];
}

void GR_Bezier2d::SetPoint(unsigned int index, const Math::Point2d& point)
{
    requirePlace(index);
    m_points[index] = point;
    markStale();
}

void GR_Bezier2d::SetFromBoundary(Math::Constants::Boundary boundary)
{
    if (m_fromBoundary == boundary)
        return;
    m_fromBoundary = boundary;
    markStale();
}

void GR_Bezier2d::SetToBoundary(Math::Constants::Boundary boundary)
{
    if (m_toBoundary == boundary)
        return;
    m_toBoundary = boundary;
    markStale();
}

Math::Point2d GR_Bezier2d::Evaluate(double t) const
{
    requireFiniteParameter(t);
    return finiteResult(evaluated(m_points, m_degree, t));
}

Math::Point2d GR_Bezier2d::EvaluateAndRound(double t) const
{
    const Math::Point2d place = Evaluate(t);
    return {std::round(place.x), std::round(place.y)};
}

GR_Bezier2d GR_Bezier2d::GetDerivative() const
{
    const PlaneCurve slopes = planeCurve(*this).derivative();
    requireFinite(slopes);
    GR_Bezier2d derivative(slopes.degree, m_fromBoundary, m_toBoundary);
    derivative.m_points = slopes.points;
    derivative.m_fromParameter = m_fromParameter;
    derivative.m_toParameter = m_toParameter;
    return derivative;
}

Math::Vector2d GR_Bezier2d::GetFromTangent() const
{
    return fromTangent(planeCurve(*this));
}

Math::Vector2d GR_Bezier2d::GetToTangent() const
{
    return Math::Vector2d{} - fromTangent(planeCurve(*this).reversed()); // So that no 0 becomes -0.
}

const Math::Box2d& GR_Bezier2d::GetBoxRef() const
{
    if (m_stale) {
        m_box = tightBox(planeCurve(*this));
        m_stale = false;
    }
    return m_box;
}

bool GR_Bezier2d::IsSegment() const
{
    return isSegment(planeCurve(*this));
}

GR_Bezier2d::Characteristic GR_Bezier2d::GetCurveCharacteristic() const
{
    return characteristic(planeCurve(*this));
}

double GR_Bezier2d::GetLength() const
{
    return length(planeCurve(*this));
}

std::pair<GR_Bezier2d, GR_Bezier2d> GR_Bezier2d::Split(double t) const
{
    std::pair<GR_Bezier2d, GR_Bezier2d> parts{*this, *this};
    parts.first.Truncate(0, t);
    parts.second.Truncate(t, 1);
    return parts;
}

void GR_Bezier2d::Truncate(double from, double to)
{
    requireFiniteParameter(from);
    requireFiniteParameter(to);
    const double start = std::clamp(from, 0.0, 1.0);
    const double end = std::clamp(to, 0.0, 1.0);
    const PlaneCurve whole = planeCurve(*this);
    requireFinite(whole); // A mean with what is no number may well be a number.
    const PlaneCurve part = whole.stretch(start, end);
    requireFinite(part);
    const auto boundary = [this](double t) {
        if (t == 0)
            return m_fromBoundary;
        return t == 1 ? m_toBoundary : Math::Constants::Closed;
    };
    const auto fromBoundary = boundary(start);
    const auto toBoundary = boundary(end);
    const double fromParameter = std::lerp(m_fromParameter, m_toParameter, start);
    const double toParameter = std::lerp(m_fromParameter, m_toParameter, end);
    std::ranges::copy(part.used(), m_points.begin());
    m_fromBoundary = fromBoundary;
    m_toBoundary = toBoundary;
    m_fromParameter = fromParameter;
    m_toParameter = toParameter;
    markStale();
}

void GR_Bezier2d::Reverse()
{
    std::reverse(m_points.begin(), m_points.begin() + m_degree + 1);
    std::swap(m_fromBoundary, m_toBoundary);
    std::swap(m_fromParameter, m_toParameter);
    markStale();
}

void GR_Bezier2d::Round(double step)
{
    requireStep(step);
    auto points = m_points;
    for (unsigned int i = 0; i <= m_degree; ++i)
        points[i] = finiteResult(roundedTo(points[i], step));
    m_points = points;
    markStale();
}

GR_Bezier2d& GR_Bezier2d::operator*=(const Math::Matrix2x3& matrix)
{
    auto points = m_points;
    for (unsigned int i = 0; i <= m_degree; ++i)
        points[i] = finiteResult(matrix * points[i]);
    m_points = points;
    markStale();
    return *this;
}

bool GR_Bezier2d::operator==(const GR_Bezier2d& other) const
{
    return m_degree == other.m_degree &&
           std::equal(m_points.begin(), m_points.begin() + m_degree + 1, other.m_points.begin());
}

bool GR_Bezier2d::isReverseEqual(const GR_Bezier2d& other) const
{
    GR_Bezier2d reverse = other;
    reverse.Reverse();
    return *this == reverse;
}

bool GR_Bezier2d::GetClosestPoint(const Math::Point2d& point, double& radiusSquared, double& parameter) const
{
    const auto found = nearest(planeCurve(*this), point);
    if (!found || !(found->distanceSquared <= radiusSquared))
        return false;
    radiusSquared = found->distanceSquared;
    parameter = found->parameter;
    return true;
}

bool GR_Bezier2d::IsIntersecting() const
{
    return !meetingsWithin(*this).empty();
}

bool GR_Bezier2d::IsIntersecting(const GR_Bezier2d& other) const
{
    return !meetingsBetween(*this, other).empty();
}

std::vector<Math::Point2d> GR_Bezier2d::GetIntersections() const
{
    return places(planeCurve(*this), meetingsWithin(*this));
}

std::vector<Math::Point2d> GR_Bezier2d::GetIntersections(const GR_Bezier2d& other) const
{
    return places(planeCurve(*this), meetingsBetween(*this, other));
}
