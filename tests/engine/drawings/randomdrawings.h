#pragma once

#include "engine/drawings/planarmap.h"
#include "tests/engine/geometry2d/randomcurves.h"

#include <deque>
#include <set>
#include <utility>
#include <vector>

/// Layers of strokes for tests, and what a slow way says about their maps.
namespace drawings {

using brindle::engine::MapStroke;
using brindle::engine::PlanarMap;

/// The strokes of one layer. Moving it keeps the paths where they are.
class Strokes {
public:
    unsigned int add(const GR_BezierPath2d& path); ///< Gives its id: 1, 2, and so on.
    void addWithId(unsigned int id, const GR_BezierPath2d& path);
    const std::vector<MapStroke>& strokes() const { return m_strokes; }
    PlanarMap map() const { return PlanarMap(m_strokes); }
    GR_BezierPath2d& path(std::size_t index) { return m_paths[index]; }
    std::size_t size() const { return m_paths.size(); }
    void setId(std::size_t index, unsigned int id) { m_strokes[index].id = id; }
    void shuffle(curves::RandomCurves& random); ///< Another order of the strokes; ids stay with their paths.

private:
    std::deque<GR_BezierPath2d> m_paths;
    std::vector<MapStroke> m_strokes;
};

/// A cubic stroke from one place to another whose handles stand aside of the chord by shares of its length.
GR_BezierPath2d bow(const Math::Point2d& from, const Math::Point2d& to, double aside, double asideAtEnd);
inline GR_BezierPath2d bow(const Math::Point2d& from, const Math::Point2d& to, double aside)
{
    return bow(from, to, aside, aside);
}

/// A drawing without crossings: a bent grid with some of its edges, in whose cells smaller ones may stand. Strokes run
/// in either sense, have one curve or several, and are sometimes doubled by one that bends the other way.
Strokes randomPlanarDrawing(curves::RandomCurves& random);
/// Strokes at random between few places: they cross, coincide, run back to where they began, and may be degenerate.
Strokes randomTangle(curves::RandomCurves& random, unsigned int count);

/// (id, side) of the half-edges of each contour. `reversed`: strokes by id whose sides are to be told the other way.
using Names = std::set<std::set<std::pair<unsigned int, int>>>;
Names contourNames(const PlanarMap& map, const std::set<unsigned int>& reversed = {});

/// Many places along a contour.
std::vector<Math::Point2d> flattened(const PlanarMap& map, int contour, int placesPerCurve);
double polygonArea(const std::vector<Math::Point2d>& polygon);
bool polygonRunsAround(const std::vector<Math::Point2d>& polygon, const Math::Point2d& place);

} // namespace drawings
