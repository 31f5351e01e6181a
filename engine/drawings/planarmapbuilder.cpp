#include "engine/drawings/planarmapbuilder.h"

#include "engine/drawings/contournesting.h"
#include "engine/geometry2d/curveshape.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace brindle::engine {

namespace {

using Side = PlanarMap::Side;
constexpr int none = PlanarMap::none;

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

struct PlaceHash {
    std::size_t operator()(const Math::Point2d& place) const
    {
        const std::size_t x = std::hash<double>()(place.x);
        return x ^ (std::hash<double>()(place.y) + 0x9e3779b97f4a7c15u + (x << 6) + (x >> 2));
    }
};

/// Sets of joints that are connected.
class ConnectedSets {
public:
    explicit ConnectedSets(int count) : m_parent(at(count)) { std::iota(m_parent.begin(), m_parent.end(), 0); }

    int find(int item)
    {
        while (m_parent[at(item)] != item)
            item = m_parent[at(item)] = m_parent[at(m_parent[at(item)])];
        return item;
    }
    void join(int one, int other) { m_parent[at(find(one))] = find(other); }

private:
    std::vector<int> m_parent;
};

} // namespace

void PlanarMapBuilder::build()
{
    m_map.m_byId.resize(m_map.m_strokes.size());
    std::iota(m_map.m_byId.begin(), m_map.m_byId.end(), 0);
    std::ranges::sort(m_map.m_byId, {}, [this](int stroke) { return m_map.idOf(stroke); });
    findScale();
    readStrokes();
    makeJoints();
    makeRings();
    walkContours();
    findComponents();
    nest();
}

void PlanarMapBuilder::findScale()
{
    constexpr double large = 1e75;
    constexpr double small = 1e-50;
    double largest = 0;
    for (const MapStroke& stroke : m_map.m_strokes) {
        for (unsigned int i = 0; i < stroke.path->GetNumPoints(); ++i) {
            const Math::Point2d& point = stroke.path->GetPoint(i);
            requireFinite({&point, 1});
            largest = std::max({largest, std::abs(point.x), std::abs(point.y)});
        }
    }
    if (largest > large || (largest > 0 && largest < small))
        m_scale = std::ldexp(1.0, std::clamp(-std::ilogb(largest), -1022, 1022));
}

PlaneCurve PlanarMapBuilder::scaledCurve(const GR_BezierPath2d& path, unsigned int index) const
{
    PlaneCurve curve = planeCurve(path.GetBezier(index));
    if (m_scale != 1) {
        for (auto& point : curve.points)
            point = scaled(point);
    }
    return curve;
}

void PlanarMapBuilder::readStrokes()
{
    const std::size_t count = m_map.m_strokes.size();
    m_map.m_strokeBox.resize(count);
    m_map.m_origin.assign(2 * count, none);
    m_map.m_tangent.resize(2 * count);
    m_strokeArea.resize(count);
    for (int stroke = 0; stroke < m_map.strokeCount(); ++stroke)
        readStroke(stroke);
}

void PlanarMapBuilder::readStroke(int stroke)
{
    const GR_BezierPath2d& path = m_map.path(stroke);
    Math::Box2d& box = m_map.m_strokeBox[at(stroke)];
    if (path.IsEmpty())
        return;
    box.AddClosed(path.GetFromPoint());
    const Math::Point2d tail = scaled(path.GetFromPoint());
    PlaneCurve first;
    PlaneCurve last;
    double area = 0;
    for (unsigned int i = 0; i < path.GetNumBezier(); ++i) {
        box.AddClosed(tightBox(planeCurve(path.GetBezier(i))));
        const PlaneCurve curve = scaledCurve(path, i);
        area += sectorArea(curve, tail);
        if (curve.isPoint())
            continue;
        if (first.isPoint())
            first = curve;
        last = curve;
    }
    if (first.isPoint())
        return;
    m_strokeArea[at(stroke)] = area;
    // Not in a joint yet, but in none for ever: makeJoints() numbers them.
    m_map.m_origin[at(PlanarMap::halfEdge(stroke, Side::Left))] = 0;
    m_map.m_origin[at(PlanarMap::halfEdge(stroke, Side::Right))] = 0;
    m_map.m_tangent[at(PlanarMap::halfEdge(stroke, Side::Left))] = fromTangent(first);
    m_map.m_tangent[at(PlanarMap::halfEdge(stroke, Side::Right))] = fromTangent(last.reversed());
}

void PlanarMapBuilder::makeJoints()
{
    std::unordered_map<Math::Point2d, int, PlaceHash> joints;
    joints.reserve(m_map.m_strokes.size() * 2);
    const auto jointAt = [&](const Math::Point2d& place) {
        const auto [found, isNew] = joints.try_emplace(place, m_map.jointCount());
        if (isNew)
            m_map.m_position.push_back(place);
        return found->second;
    };
    for (const int stroke : m_map.m_byId) {
        if (m_map.isDegenerateStroke(stroke))
            continue;
        const GR_BezierPath2d& path = m_map.path(stroke);
        m_map.m_origin[at(PlanarMap::halfEdge(stroke, Side::Left))] = jointAt(path.GetFromPoint());
        m_map.m_origin[at(PlanarMap::halfEdge(stroke, Side::Right))] = jointAt(path.GetToPoint());
    }
}

Departure PlanarMapBuilder::departure(int halfEdge) const
{
    const int stroke = PlanarMap::strokeOf(halfEdge);
    const GR_BezierPath2d& path = m_map.path(stroke);
    const bool isLeft = PlanarMap::sideOf(halfEdge) == Side::Left;
    const unsigned int count = path.GetNumBezier();
    PlaneCurve curve;
    for (unsigned int i = 0; curve.isPoint(); ++i) // the stroke isn't degenerate
        curve = scaledCurve(path, isLeft ? i : count - 1 - i);
    return {halfEdge, m_map.idOf(stroke), isLeft, &path, isLeft ? curve : curve.reversed()};
}

void PlanarMapBuilder::makeRings()
{
    // The half-edges by joint, those of a joint from the least name on.
    std::vector<int> starts(at(m_map.jointCount()) + 1, 0);
    for (const int joint : m_map.m_origin) {
        if (joint != none)
            ++starts[at(joint) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    std::vector<int>& items = m_map.m_rings.items;
    items.resize(at(starts.back()));
    std::vector<int> filled = starts;
    for (const int stroke : m_map.m_byId) {
        for (const Side side : {Side::Right, Side::Left}) {
            const int edge = PlanarMap::halfEdge(stroke, side);
            if (m_map.origin(edge) != none)
                items[at(filled[at(m_map.origin(edge))]++)] = edge;
        }
    }
    m_map.m_rings.starts = std::move(starts);

    m_map.m_next.assign(m_map.m_origin.size(), none);
    m_map.m_leftNeighbour.assign(m_map.m_origin.size(), none);
    for (int joint = 0; joint < m_map.jointCount(); ++joint) {
        const std::span ring(items.data() + m_map.m_rings.starts[at(joint)], m_map.ring(joint).size());
        if (ring.size() > 2) { // one or two are in order, whatever their directions
            std::vector<Departure> departures;
            departures.reserve(ring.size());
            for (const int edge : ring)
                departures.push_back(departure(edge));
            std::ranges::copy(ringOrder(std::move(departures)), ring.begin());
        }
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const int edge = ring[i];
            m_map.m_leftNeighbour[at(edge)] = ring[(i + 1) % ring.size()];
            m_map.m_next[at(PlanarMap::twin(edge))] = ring[(i + ring.size() - 1) % ring.size()];
        }
    }
}

void PlanarMapBuilder::walkContours()
{
    m_map.m_contourOf.assign(m_map.m_origin.size(), none);
    for (const int stroke : m_map.m_byId) {
        for (const Side side : {Side::Right, Side::Left}) {
            const int edge = PlanarMap::halfEdge(stroke, side);
            if (m_map.origin(edge) != none && m_map.contourOf(edge) == none)
                addContour(edge);
        }
    }
}

void PlanarMapBuilder::addContour(int first)
{
    const int contour = m_map.contourCount();
    const auto place = [this](int edge) { return scaled(m_map.position(m_map.origin(edge))); };
    const Math::Point2d start = place(first);
    Math::Box2d box;
    double area = 0; // Green's theorem: the polygon of the joints, and what lies between the strokes and their chords
    int edge = first;
    do {
        m_map.m_contourOf[at(edge)] = contour;
        m_map.m_contours.items.push_back(edge);
        const int stroke = PlanarMap::strokeOf(edge);
        const bool isLeft = PlanarMap::sideOf(edge) == Side::Left;
        area += isLeft ? m_strokeArea[at(stroke)] : -m_strokeArea[at(stroke)];
        area += (place(edge) - start).cross(place(PlanarMap::twin(edge)) - start) / 2;
        box.AddClosed(m_map.strokeBox(stroke));
        edge = m_map.next(edge);
    } while (edge != first);
    m_map.m_contours.close();

    constexpr double flat = 1e-12;
    const double size = (box.maxX() * m_scale - box.minX() * m_scale) + (box.maxY() * m_scale - box.minY() * m_scale);
    m_map.m_box.push_back(box);
    m_map.m_area.push_back(area / m_scale / m_scale);
    const bool isFlat = std::abs(area) <= flat * size * size;
    m_map.m_turn.push_back(isFlat ? 0 : area < 0 ? -1 : 1);
}

void PlanarMapBuilder::findComponents()
{
    ConnectedSets sets(m_map.jointCount());
    for (int edge = 0; edge < m_map.halfEdgeCount(); edge += 2) {
        if (m_map.origin(edge) != none)
            sets.join(m_map.origin(edge), m_map.origin(PlanarMap::twin(edge)));
    }
    std::vector<int> componentOfSet(at(m_map.jointCount()), none);
    for (int contour = 0; contour < m_map.contourCount(); ++contour) {
        int& component = componentOfSet[at(sets.find(m_map.origin(m_map.halfEdges(contour).front())))];
        if (component == none) {
            component = m_map.componentCount();
            m_map.m_outer.push_back(contour);
        }
        m_map.m_componentOf.push_back(component);
        const auto rank = [this](int one) {
            return std::pair(m_map.m_turn[at(one)], m_map.isDegenerate(one) ? 0 : m_map.area(one));
        };
        int& outer = m_map.m_outer[at(component)];
        if (rank(contour) < rank(outer))
            outer = contour;
    }
}

void PlanarMapBuilder::nest()
{
    std::vector<int> inner;
    for (int contour = 0; contour < m_map.contourCount(); ++contour) {
        if (m_map.isAnticlockwise(contour))
            inner.push_back(contour);
    }
    m_map.m_parentOf = parentsOfComponents(m_map, inner);

    std::vector<int>& starts = m_map.m_children.starts;
    starts.assign(at(m_map.contourCount()) + 1, 0);
    for (int contour = 0; contour < m_map.contourCount(); ++contour) {
        if (!m_map.isTopLevel(contour))
            ++starts[at(m_map.parent(contour)) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    m_map.m_children.items.resize(at(starts.back()));
    std::vector<int> filled = starts;
    for (int contour = 0; contour < m_map.contourCount(); ++contour) {
        if (!m_map.isTopLevel(contour))
            m_map.m_children.items[at(filled[at(m_map.parent(contour))]++)] = contour;
    }
}

} // namespace brindle::engine
