#include "engine/drawings/contournesting.h"

#include "engine/geometry2d/planecurve.h"
#include "engine/geometry2d/winding.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <utility>

namespace brindle::engine {

namespace {

/// How often a stroke crosses the ray from a place to the right: upwards +1, downwards -1.
int strokeCrossings(const PlanarMap& map, int stroke, const Math::Point2d& place)
{
    const Math::Box2d& box = map.strokeBox(stroke);
    if (box.maxX() < place.x || box.maxY() < place.y || box.minY() > place.y)
        return 0;
    const GR_BezierPath2d& path = map.path(stroke);
    const auto above = [&place](const Math::Point2d& point) { return static_cast<int>(point.y >= place.y); };
    if (box.minX() > place.x)
        return above(path.GetToPoint()) - above(path.GetFromPoint());
    int crossings = 0;
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i)
        crossings += rayCrossings(planeCurve(path.GetBezier(i)), place);
    return crossings;
}

Math::Point2d leftmostPlace(const GR_BezierPath2d& path)
{
    Math::Point2d leftmost = path.GetFromPoint();
    const auto consider = [&leftmost](const Math::Point2d& place) {
        if (std::pair(place.x, place.y) < std::pair(leftmost.x, leftmost.y))
            leftmost = place;
    };
    for (const PlaneCurve& curve : planeCurves(path)) {
        consider(curve.to());
        if (curve.degree < 2 || curve.hullBox().minX() >= leftmost.x)
            continue;
        const PlaneCurve slopes = curve.derivative();
        std::array<double, GR_Bezier2d::maxDegree> rise{};
        for (unsigned int i = 0; i <= slopes.degree; ++i)
            rise[i] = slopes.points[i].x;
        for (const double t : bernsteinRoots({rise.data(), slopes.degree + 1}))
            consider(curve.at(t));
    }
    return leftmost;
}

/// A component with the place that decides on its parent.
struct Query {
    int component;
    Math::Point2d place;
};

std::vector<Query> queries(const PlanarMap& map)
{
    std::vector<int> leftmost(static_cast<std::size_t>(map.componentCount()), PlanarMap::none);
    for (int stroke = 0; stroke < map.strokeCount(); ++stroke) {
        if (map.isDegenerateStroke(stroke))
            continue;
        const int contour = map.contourOf(PlanarMap::halfEdge(stroke, PlanarMap::Left));
        int& best = leftmost[static_cast<std::size_t>(map.componentOf(contour))];
        if (best == PlanarMap::none || map.strokeBox(stroke).minX() < map.strokeBox(best).minX())
            best = stroke;
    }
    std::vector<Query> asked;
    for (int component = 0; component < map.componentCount(); ++component)
        asked.push_back({component, leftmostPlace(map.path(leftmost[static_cast<std::size_t>(component)]))});
    std::ranges::sort(asked, {}, [](const Query& query) { return query.place.x; });
    return asked;
}

} // namespace

int turnsAround(const PlanarMap& map, int contour, const Math::Point2d& place)
{
    int turns = 0;
    for (const int edge : map.halfEdges(contour)) {
        const int crossings = strokeCrossings(map, PlanarMap::strokeOf(edge), place);
        turns += PlanarMap::sideOf(edge) == PlanarMap::Left ? crossings : -crossings;
    }
    return turns;
}

std::vector<int> parentsOfComponents(const PlanarMap& map, std::span<const int> inner)
{
    std::vector<int> parents(static_cast<std::size_t>(map.componentCount()), PlanarMap::none);
    std::vector<int> coming(inner.begin(), inner.end());
    std::ranges::stable_sort(coming, {}, [&map](int contour) { return map.box(contour).minX(); });
    auto next = coming.begin();

    // A sweep from left to right: open are the contours whose boxes it has entered, the smallest area last:
    // of contours within one another the smaller one comes later.
    struct Open {
        double area;
        int contour;
        double minY, maxY, maxX;
    };
    std::vector<Open> open;
    const auto rank = [](const Open& one) { return std::pair(-one.area, -one.contour); };
    std::size_t sinceCleared = 0;
    for (const Query& query : queries(map)) {
        for (; next != coming.end() && map.box(*next).minX() <= query.place.x; ++next) {
            const Math::Box2d& box = map.box(*next);
            const Open entered{map.area(*next), *next, box.minY(), box.maxY(), box.maxX()};
            open.insert(std::ranges::lower_bound(open, rank(entered), {}, rank), entered);
        }
        if (++sinceCleared > open.size() / 8) {
            std::erase_if(open, [&query](const Open& one) { return one.maxX < query.place.x; });
            sinceCleared = 0;
        }
        for (const Open& one : std::views::reverse(open)) {
            if (one.minY <= query.place.y && query.place.y <= one.maxY && query.place.x <= one.maxX &&
                map.componentOf(one.contour) != query.component && turnsAround(map, one.contour, query.place) != 0) {
                parents[static_cast<std::size_t>(query.component)] = one.contour;
                break;
            }
        }
    }
    return parents;
}

} // namespace brindle::engine
