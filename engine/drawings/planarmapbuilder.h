#pragma once

#include "engine/drawings/jointring.h"
#include "engine/drawings/planarmap.h"

#include <vector>

namespace brindle::engine {

/// Fills a map that knows its strokes. Each step reads what the steps before it have written.
class PlanarMapBuilder {
public:
    explicit PlanarMapBuilder(PlanarMap& map) : m_map(map) {}

    void build();

private:
    void findScale();
    void readStrokes();
    void readStroke(int stroke);
    void makeJoints();
    void makeRings();
    void walkContours();
    void addContour(int first);
    void findComponents();
    void nest();

    Departure departure(int halfEdge) const;
    Math::Point2d scaled(const Math::Point2d& point) const { return {point.x * m_scale, point.y * m_scale}; }
    PlaneCurve scaledCurve(const GR_BezierPath2d& path, unsigned int index) const;

    PlanarMap& m_map;
    /// A power of 2 that coordinates are multiplied by where they are so large, or so small, that products of them
    /// would be lost; 1 for all others.
    double m_scale = 1;
    std::vector<double> m_strokeArea; ///< Between each stroke and its chord, scaled; positive on the left of the chord.
};

} // namespace brindle::engine
