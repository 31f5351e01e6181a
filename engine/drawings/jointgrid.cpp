#include "engine/drawings/jointgrid.h"

#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <tuple>

namespace brindle::engine {

namespace {

bool hasCurve(const GR_BezierPath2d& path)
{
    return path.GetNumBezier() > 0;
}

bool isWithin(const GR_BezierPath2d& path, double reach)
{
    const Math::Point2d& first = path.GetFromPoint();
    for (unsigned int i = 1; i < path.GetNumPoints(); ++i) {
        if ((path.GetPoint(i) - first).length() > reach)
            return false;
    }
    return true;
}

} // namespace

JointGrid::JointGrid(double reach) : m_reach(reach)
{
    if (!std::isfinite(reach) || reach <= 0)
        throw std::invalid_argument("The reach of joints must be a finite number above 0.");
}

std::size_t JointGrid::CellHash::operator()(const Cell& cell) const
{
    const std::size_t column = std::hash<double>()(cell.column);
    return column ^ (std::hash<double>()(cell.row) + 0x9e3779b97f4a7c15u + (column << 6) + (column >> 2));
}

JointGrid::Cell JointGrid::cellOf(const Math::Point2d& point) const
{
    // In cells so far out that numbers have no digits for the reach, or beyond what a double holds, places still
    // differ.
    return {std::floor(point.x / (2 * m_reach)), std::floor(point.y / (2 * m_reach))};
}

void JointGrid::add(const Math::Point2d& place)
{
    std::vector<Place>& cell = m_cells[cellOf(place)];
    const auto known = std::ranges::find(cell, place, &Place::point);
    if (known != cell.end())
        ++known->ends;
    else
        cell.push_back({place, 1});
}

void JointGrid::remove(const Math::Point2d& place)
{
    const auto cell = m_cells.find(cellOf(place));
    if (cell == m_cells.end())
        return;
    const auto known = std::ranges::find(cell->second, place, &Place::point);
    if (known == cell->second.end() || --known->ends > 0)
        return;
    cell->second.erase(known);
    if (cell->second.empty())
        m_cells.erase(cell);
}

void JointGrid::add(const GR_BezierPath2d& path)
{
    if (!hasCurve(path))
        return;
    add(path.GetFromPoint());
    add(path.GetToPoint());
}

void JointGrid::remove(const GR_BezierPath2d& path)
{
    if (!hasCurve(path))
        return;
    remove(path.GetFromPoint());
    remove(path.GetToPoint());
}

std::optional<Math::Point2d> JointGrid::nearby(const Math::Point2d& point) const
{
    std::optional<Math::Point2d> best;
    const auto rank = [&point](const Math::Point2d& place) {
        return std::tuple((place - point).length(), place.x, place.y);
    };
    const auto consider = [&](const Cell& cell) {
        const auto found = m_cells.find(cell);
        if (found == m_cells.end())
            return;
        for (const Place& place : found->second) {
            const bool isNear = place.point == point || (place.point - point).length() <= m_reach;
            if (isNear && (!best || rank(place.point) < rank(*best)))
                best = place.point;
        }
    };
    const Cell low = cellOf({point.x - m_reach, point.y - m_reach});
    const Cell high = cellOf({point.x + m_reach, point.y + m_reach});
    consider(low);
    if (high.column != low.column)
        consider({high.column, low.row});
    if (high.row != low.row)
        consider({low.column, high.row});
    if (high.column != low.column && high.row != low.row)
        consider(high);
    return best;
}

GR_BezierPath2d JointGrid::snapped(GR_BezierPath2d path) const
{
    if (!hasCurve(path) || isWithin(path, m_reach))
        return path;
    const Math::Point2d from = nearby(path.GetFromPoint()).value_or(path.GetFromPoint());
    Math::Point2d to = path.GetToPoint();
    if (const auto joint = nearby(to))
        to = *joint;
    else if ((to - from).length() <= m_reach)
        to = from;
    if (from != path.GetFromPoint())
        path.SetPoint(0, from);
    if (to != path.GetToPoint())
        path.SetToPoint(to);
    return path;
}

} // namespace brindle::engine
