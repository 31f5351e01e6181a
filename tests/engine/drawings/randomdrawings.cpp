#include "tests/engine/drawings/randomdrawings.h"

#include "engine/drawings/contourpath.h"

#include <algorithm>

namespace drawings {

unsigned int Strokes::add(const GR_BezierPath2d& path)
{
    const auto id = static_cast<unsigned int>(m_strokes.size() + 1);
    addWithId(id, path);
    return id;
}

void Strokes::addWithId(unsigned int id, const GR_BezierPath2d& path)
{
    m_paths.push_back(path);
    m_strokes.push_back({id, &m_paths.back()});
}

void Strokes::shuffle(curves::RandomCurves& random)
{
    for (std::size_t i = m_strokes.size(); i > 1; --i)
        std::swap(m_strokes[i - 1], m_strokes[random.below(static_cast<unsigned int>(i))]);
}

GR_BezierPath2d bow(const Math::Point2d& from, const Math::Point2d& to, double aside, double asideAtEnd)
{
    const Math::Vector2d way = to - from;
    const Math::Vector2d left{-way.y, way.x};
    GR_BezierPath2d path;
    path.Append(from, true);
    path.Append(from + way * (1.0 / 3) + left * aside, false);
    path.Append(from + way * (2.0 / 3) + left * asideAtEnd, false);
    path.Append(to, true);
    return path;
}

namespace {

void addEdge(Strokes& strokes, curves::RandomCurves& random, GR_BezierPath2d path)
{
    for (unsigned int cuts = random.below(3); cuts > 0; --cuts)
        path.insertPoint(random.number(0.1, path.GetNumBezier() - 0.1));
    if (random.below(2) == 0)
        path.Reverse();
    strokes.add(path);
}

void addBentGrid(Strokes& strokes, curves::RandomCurves& random, const Math::Point2d& corner, double size, int depth)
{
    const unsigned int columns = 1 + random.below(3);
    const unsigned int rows = 1 + random.below(3);
    const double cell = size / std::max(columns, rows);
    std::vector<std::vector<Math::Point2d>> places(columns + 1, std::vector<Math::Point2d>(rows + 1));
    for (unsigned int i = 0; i <= columns; ++i) {
        for (unsigned int j = 0; j <= rows; ++j)
            places[i][j] = corner + Math::Vector2d{(i + random.number(-0.08, 0.08)) * cell,
                                                   (j + random.number(-0.08, 0.08)) * cell};
    }
    const auto addSome = [&](const Math::Point2d& from, const Math::Point2d& to) {
        const unsigned int chance = random.below(10);
        if (chance < 8)
            addEdge(strokes, random, bow(from, to, random.number(0.01, 0.06), random.number(0.01, 0.06)));
        if (chance == 7)
            addEdge(strokes, random, bow(from, to, random.number(-0.06, -0.01), random.number(-0.06, -0.01)));
    };
    for (unsigned int i = 0; i <= columns; ++i) {
        for (unsigned int j = 0; j <= rows; ++j) {
            if (i < columns)
                addSome(places[i][j], places[i + 1][j]);
            if (j < rows)
                addSome(places[i][j], places[i][j + 1]);
            if (i < columns && j < rows && depth > 0 && random.below(3) == 0)
                addBentGrid(strokes, random, places[i][j] + Math::Vector2d{0.3 * cell, 0.3 * cell}, 0.4 * cell,
                            depth - 1);
        }
    }
}

} // namespace

Strokes randomPlanarDrawing(curves::RandomCurves& random)
{
    Strokes strokes;
    addBentGrid(strokes, random, random.point(), random.number(10, 1000), 2);
    return strokes;
}

Strokes randomTangle(curves::RandomCurves& random, unsigned int count)
{
    Strokes strokes;
    std::vector<Math::Point2d> places;
    for (int i = 0; i < 6; ++i)
        places.push_back(random.point());
    const auto place = [&] { return places[random.below(6)]; };
    for (unsigned int i = 0; i < count; ++i) {
        GR_BezierPath2d path;
        path.Append(place(), true);
        for (unsigned int parts = random.below(4); parts > 0; --parts) {
            for (unsigned int handles = random.below(3); handles > 0; --handles)
                path.Append(random.below(2) == 0 ? place() : random.point(), false);
            path.Append(place(), true);
        }
        if (random.below(5) == 0 && strokes.size() > 0) {
            path = strokes.path(random.below(static_cast<unsigned int>(strokes.size())));
            if (random.below(2) == 0)
                path.Reverse();
        }
        strokes.add(path);
    }
    return strokes;
}

Names contourNames(const PlanarMap& map, const std::set<unsigned int>& reversed)
{
    Names names;
    for (int contour = 0; contour < map.contourCount(); ++contour) {
        std::set<std::pair<unsigned int, int>> sides;
        for (const int edge : map.halfEdges(contour)) {
            const unsigned int id = map.idOf(PlanarMap::strokeOf(edge));
            const int side = PlanarMap::sideOf(edge);
            sides.emplace(id, reversed.contains(id) ? 1 - side : side);
        }
        names.insert(sides);
    }
    return names;
}

std::vector<Math::Point2d> flattened(const PlanarMap& map, int contour, int placesPerCurve)
{
    std::vector<Math::Point2d> places;
    const GR_BezierPath2d path = brindle::engine::contourPath(map, contour);
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i) {
        for (int place = 0; place < placesPerCurve; ++place)
            places.push_back(curves::reference(path.GetBezier(i), static_cast<double>(place) / placesPerCurve));
    }
    return places;
}

double polygonArea(const std::vector<Math::Point2d>& polygon)
{
    double twice = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i)
        twice += (polygon[i] - polygon[0]).cross(polygon[(i + 1) % polygon.size()] - polygon[0]);
    return twice / 2;
}

bool polygonRunsAround(const std::vector<Math::Point2d>& polygon, const Math::Point2d& place)
{
    int turns = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Math::Point2d& from = polygon[i];
        const Math::Point2d& to = polygon[(i + 1) % polygon.size()];
        if ((from.y >= place.y) == (to.y >= place.y))
            continue;
        const double x = from.x + (to.x - from.x) * (place.y - from.y) / (to.y - from.y);
        if (x > place.x)
            turns += to.y > from.y ? 1 : -1;
    }
    return turns != 0;
}

} // namespace drawings
