#include "engine/drawings/planarmap.h"

#include "engine/drawings/contournesting.h"
#include "engine/drawings/planarmapbuilder.h"
#include "engine/geometry2d/planecurve.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <unordered_set>

namespace brindle::engine {

PlanarMap::PlanarMap(std::span<const MapStroke> strokes) : m_strokes(strokes.begin(), strokes.end())
{
    PlanarMapBuilder(*this).build();
}

int PlanarMap::strokeWithId(unsigned int id) const
{
    const auto found = std::ranges::lower_bound(m_byId, id, {}, [this](int stroke) { return idOf(stroke); });
    return found != m_byId.end() && idOf(*found) == id ? *found : none;
}

bool PlanarMap::isContinuous(int stroke, int other) const
{
    constexpr double onOneLine = 1e-6; // radians
    const auto isStraightOn = [&](int one, int next) {
        const Math::Vector2d way = tangent(one);
        const Math::Vector2d back = tangent(next);
        return way.dot(back) < 0 && std::abs(way.cross(back)) <= onOneLine;
    };
    if (isDegenerateStroke(stroke))
        return false;
    for (const Side side : {Right, Left}) {
        const int leaving = halfEdge(stroke, side);
        for (const int neighbour : {leftNeighbour(leaving), rightNeighbour(leaving)}) {
            if (neighbour != leaving && strokeOf(neighbour) == other && isStraightOn(leaving, neighbour))
                return true;
        }
    }
    return false;
}

Math::Box2d PlanarMap::innerBox(int contour) const
{
    Math::Box2d box;
    for (const int stroke : strokes(contour))
        box.AddClosed(path(stroke).GetInnerBox());
    return box;
}

PlanarMap::Relation PlanarMap::relation(int contour, int other) const
{
    if (contour == other)
        return Same;
    const auto isAmongParents = [this](int wanted, int start) {
        for (int around = parent(start); around != none; around = parent(around)) {
            if (around == wanted)
                return true;
        }
        return false;
    };
    if (isAmongParents(contour, other))
        return Contains;
    return isAmongParents(other, contour) ? ContainedIn : NotRelated;
}

std::vector<int> PlanarMap::contoursAround(const Math::Point2d& place) const
{
    requireFinite({&place, 1});
    std::vector<int> around;
    for (int contour = 0; contour < contourCount(); ++contour) {
        if (isAnticlockwise(contour) && box(contour).contains(place) && turnsAround(*this, contour, place) != 0)
            around.push_back(contour);
    }
    std::ranges::stable_sort(around, {}, [this](int contour) { return area(contour); });
    return around;
}

bool PlanarMap::endsInside(int stroke, int contour) const
{
    return contourOf(halfEdge(stroke, Right)) == contour && contourOf(halfEdge(stroke, Left)) == contour;
}

std::vector<int> PlanarMap::strokes(int contour) const
{
    std::vector<int> found;
    std::unordered_set<int> passed; // those with both sides here, which come twice
    for (const int edge : halfEdges(contour)) {
        const int stroke = strokeOf(edge);
        if (!endsInside(stroke, contour) || passed.insert(stroke).second)
            found.push_back(stroke);
    }
    return found;
}

std::vector<int> PlanarMap::endingStrokes(int contour) const
{
    std::vector<int> found;
    for (const int edge : halfEdges(contour)) {
        if (sideOf(edge) == Left && endsInside(strokeOf(edge), contour))
            found.push_back(strokeOf(edge));
    }
    std::ranges::sort(found);
    return found;
}

std::vector<int> PlanarMap::strokesInside(int contour) const
{
    if (isOuter(contour))
        return {};
    std::vector<int> found = endingStrokes(contour);
    std::vector<int> open(children(contour).begin(), children(contour).end());
    while (!open.empty()) {
        const int inner = open.back();
        open.pop_back();
        for (const int edge : halfEdges(inner))
            found.push_back(strokeOf(edge));
        std::ranges::copy(children(inner), std::back_inserter(open));
    }
    std::ranges::sort(found);
    found.erase(std::ranges::unique(found).begin(), found.end());
    return found;
}

std::vector<int> PlanarMap::strokesOfChildren(int contour) const
{
    std::vector<int> found;
    for (const int child : children(contour)) {
        for (const int edge : halfEdges(child))
            found.push_back(strokeOf(edge));
    }
    std::ranges::sort(found);
    found.erase(std::ranges::unique(found).begin(), found.end());
    return found;
}

} // namespace brindle::engine
