#include "core/host/gr_bezierpath.h"

#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace brindle::engine;

namespace {

/// Whether a curve that starts at `other` goes on from `point`, but for rounding, in numbers of a size.
bool joins(const Math::Point2d& point, const Math::Point2d& other, double size)
{
    constexpr double rounding = 1e-9;
    return point == other || std::max(std::abs(point.x - other.x), std::abs(point.y - other.y)) <= rounding * size;
}

void requireNotEmpty(const GR_BezierPath2d& path)
{
    if (path.IsEmpty())
        throw std::out_of_range("The path has no point.");
}

void requireRoom(std::size_t size)
{
    if (size > GR_BezierPath2d::maxPoints)
        throw std::length_error("A path has at most 16777216 points.");
}

[[noreturn]] void throwNoSuchPoint()
{
    throw std::out_of_range("The path has no such point.");
}

void requireCurve(const GR_BezierPath2d& path, unsigned int index)
{
    if (index >= path.GetNumBezier())
        throw std::out_of_range("The path has no such curve.");
}

GR_BezierPath2d pathOf(const GR_Bezier2d& bezier)
{
    GR_BezierPath2d path;
    for (unsigned int i = 0; i <= bezier.GetDegree(); ++i)
        path.Append(bezier.GetPoint(i), i == 0 || i == bezier.GetDegree());
    return path;
}

} // namespace

void GR_BezierPath2d::Append(const Math::Point2d& point, bool onCurve)
{
    requireRoom(m_points.size() + 1);
    if (!onCurve) {
        if (m_points.empty())
            throw std::invalid_argument("The first point of a path is on the curve.");
        if (m_points.size() - m_onCurve.back() >= GR_Bezier2d::maxDegree)
            throw std::invalid_argument("A curve of a path has at most two points off the curve.");
    }
    m_points.push_back(point);
    if (onCurve)
        m_onCurve.push_back(static_cast<unsigned int>(m_points.size() - 1));
}

void GR_BezierPath2d::Append(const GR_Bezier2d& bezier)
{
    Append(pathOf(bezier));
}

void GR_BezierPath2d::Append(const GR_BezierPath2d& path)
{
    if (path.IsEmpty())
        return;
    if (&path == this)
        return Append(GR_BezierPath2d(path));
    requireRoom(m_points.size() + path.m_points.size());
    std::size_t known = 0; // points of the other path that this one has already
    if (!m_points.empty()) {
        const bool waiting = m_onCurve.back() + 1 != m_points.size();
        // The first curve and the join tell how large the numbers are.
        const unsigned int firstCurve = path.GetNumBezier() > 0 ? path.m_onCurve[1] : 0;
        const double size = std::max(magnitude({path.m_points.data(), firstCurve + 1}), magnitude({&GetToPoint(), 1}));
        known = !waiting && joins(GetToPoint(), path.GetFromPoint(), size) ? 1 : 0;
    }
    const auto shift = static_cast<unsigned int>(m_points.size() - known);
    m_points.insert(m_points.end(), path.m_points.begin() + static_cast<std::ptrdiff_t>(known), path.m_points.end());
    for (std::size_t i = known; i < path.m_onCurve.size(); ++i)
        m_onCurve.push_back(path.m_onCurve[i] + shift);
}

void GR_BezierPath2d::AppendFront(const Math::Point2d& point)
{
    requireRoom(m_points.size() + 1);
    m_points.insert(m_points.begin(), point);
    for (unsigned int& index : m_onCurve)
        ++index;
    m_onCurve.insert(m_onCurve.begin(), 0);
}

void GR_BezierPath2d::AppendFront(const GR_Bezier2d& bezier)
{
    AppendFront(pathOf(bezier));
}

void GR_BezierPath2d::AppendFront(const GR_BezierPath2d& path)
{
    if (path.IsEmpty())
        return;
    // A path whose end is near enough ends at this one's first point, which stays where it is.
    GR_BezierPath2d front = path;
    if (!m_points.empty() && front.m_onCurve.back() + 1 == front.m_points.size()) {
        const std::size_t last = front.m_onCurve.size() > 1 ? front.m_onCurve[front.m_onCurve.size() - 2] : 0;
        const double size =
            std::max(magnitude(std::span(front.m_points).subspan(last)), magnitude({&GetFromPoint(), 1}));
        if (joins(front.GetToPoint(), GetFromPoint(), size))
            front.SetToPoint(GetFromPoint());
    }
    front.Append(*this);
    *this = std::move(front);
}

void GR_BezierPath2d::ClosePath()
{
    if (m_points.size() < 2 || IsClosed())
        return;
    const Math::Point2d first = GetFromPoint();
    Append(first, true);
}

void GR_BezierPath2d::Clear()
{
    m_points.clear();
    m_onCurve.clear();
}

void GR_BezierPath2d::Erase(unsigned int first, unsigned int count)
{
    if (first > m_points.size() || count > m_points.size() - first)
        throwNoSuchPoint();
    if (count == 0)
        return;
    const std::size_t end = std::size_t{first} + count;
    const bool endGoes = m_onCurve.back() >= first && m_onCurve.back() < end;
    GR_BezierPath2d rest;
    std::vector<Math::Point2d> handles; // since the last point on the curve
    const auto appendHandles = [&] {
        if (!handles.empty())
            rest.Append(handles.front(), false);
        if (handles.size() > 1)
            rest.Append(handles.back(), false);
        handles.clear();
    };
    auto onCurve = m_onCurve.begin();
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        const bool isOnCurve = onCurve != m_onCurve.end() && *onCurve == i;
        if (isOnCurve)
            ++onCurve;
        if (i >= first && i < end)
            continue;
        if (!isOnCurve) {
            handles.push_back(m_points[i]);
            continue;
        }
        if (rest.IsEmpty())
            handles.clear();
        appendHandles();
        rest.Append(m_points[i], true);
    }
    if (!endGoes)
        appendHandles();
    *this = std::move(rest);
}

void GR_BezierPath2d::insertPoint(double parameter)
{
    requireNotEmpty(*this);
    requireFiniteParameter(parameter);
    const double place = std::clamp(parameter, 0.0, static_cast<double>(GetNumBezier()));
    const double whole = std::floor(place);
    if (place == whole)
        return;
    const auto index = static_cast<unsigned int>(whole);
    const auto [before, behind] = GetBezier(index).Split(place - whole);
    const unsigned int degree = before.GetDegree();
    requireRoom(m_points.size() + degree);

    std::vector<Math::Point2d> made;
    for (unsigned int i = 1; i <= degree; ++i)
        made.push_back(before.GetPoint(i));
    for (unsigned int i = 1; i < degree; ++i)
        made.push_back(behind.GetPoint(i));
    const auto from = m_points.begin() + m_onCurve[index] + 1;
    const auto behindOld = m_points.erase(from, from + degree - 1);
    m_points.insert(behindOld, made.begin(), made.end());
    for (std::size_t i = index + 1; i < m_onCurve.size(); ++i)
        m_onCurve[i] += degree;
    m_onCurve.insert(m_onCurve.begin() + index + 1, m_onCurve[index] + degree);
}

void GR_BezierPath2d::trimNumPointsToSize(unsigned int size)
{
    if (size <= m_points.size())
        return;
    requireNotEmpty(*this);
    requireRoom(size);
    const Math::Point2d last = m_points.back();
    while (m_points.size() < size)
        Append(last, true);
}

const Math::Point2d& GR_BezierPath2d::GetPoint(unsigned int index) const
{
    if (index >= m_points.size())
        throwNoSuchPoint();
    return m_points[index];
}

void GR_BezierPath2d::SetPoint(unsigned int index, const Math::Point2d& point)
{
    if (index >= m_points.size())
        throwNoSuchPoint();
    m_points[index] = point;
}

bool GR_BezierPath2d::IsOnCurve(unsigned int index) const
{
    if (index >= m_points.size())
        throwNoSuchPoint();
    return std::ranges::binary_search(m_onCurve, index);
}

const Math::Point2d& GR_BezierPath2d::GetFromPoint() const
{
    requireNotEmpty(*this);
    return m_points.front();
}

const Math::Point2d& GR_BezierPath2d::GetToPoint() const
{
    requireNotEmpty(*this);
    return m_points[m_onCurve.back()];
}

void GR_BezierPath2d::SetToPoint(const Math::Point2d& point)
{
    requireNotEmpty(*this);
    m_points[m_onCurve.back()] = point;
}

unsigned int GR_BezierPath2d::GetDegree(unsigned int index) const
{
    requireCurve(*this, index);
    return m_onCurve[index + 1] - m_onCurve[index];
}

GR_Bezier2d GR_BezierPath2d::GetBezier(unsigned int index) const
{
    GR_Bezier2d bezier(GetDegree(index), Math::Constants::Closed, Math::Constants::Closed);
    for (unsigned int i = 0; i <= bezier.GetDegree(); ++i)
        bezier.SetPoint(i, m_points[m_onCurve[index] + i]);
    return bezier;
}

void GR_BezierPath2d::SetBezier(unsigned int index, const GR_Bezier2d& bezier)
{
    const unsigned int old = GetDegree(index);
    const unsigned int degree = bezier.GetDegree();
    if (degree == 0)
        throw std::invalid_argument("A curve of a path has a degree from 1 through 3.");
    requireRoom(m_points.size() - old + degree);
    const bool staysClosed = IsClosed() && GetNumBezier() > 1;
    const bool isLast = index + 1 == GetNumBezier();
    const auto place = m_points.begin() + m_onCurve[index] + 1;
    if (degree > old)
        m_points.insert(place, degree - old, Math::Point2d{});
    else
        m_points.erase(place, place + old - degree);
    for (unsigned int i = 1; i < degree; ++i)
        m_points[m_onCurve[index] + i] = bezier.GetPoint(i);
    for (std::size_t i = index + 1; i < m_onCurve.size() && degree != old; ++i)
        m_onCurve[i] = m_onCurve[i] - old + degree;
    m_points[m_onCurve[index]] = bezier.GetFromPoint();
    m_points[m_onCurve[index + 1]] = bezier.GetToPoint();
    if (staysClosed && index == 0)
        SetToPoint(bezier.GetFromPoint());
    if (staysClosed && isLast)
        m_points.front() = bezier.GetToPoint();
}

bool GR_BezierPath2d::IsClosed() const
{
    return m_onCurve.size() > 1 && m_onCurve.back() + 1 == m_points.size() && m_points.back() == m_points.front();
}
