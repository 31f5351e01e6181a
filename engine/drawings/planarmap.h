#pragma once

#include "core/host/gr_bezierpath.h"
#include "core/host/math_box2d.h"
#include "core/host/math_point.h"

#include <cstddef>
#include <span>
#include <vector>

namespace brindle::engine {

/// A stroke as the map reads it: its path runs from the tail to the head. The path is the owner's.
struct MapStroke {
    unsigned int id;
    const GR_BezierPath2d* path;
};

/// The planar map of one layer: which ends of strokes meet, and which areas the strokes enclose. A value, computed from
/// the strokes once; who changes a stroke makes a new map. The paths must stay where and as they are while a map is in
/// use. Reading from several threads is safe.
///
/// Everything is told by an index, `none` standing for nothing there: strokes in the order in which they were given,
/// joints and contours in the order of their names, so that the order of the strokes changes neither.
///
/// - A *half-edge* is one side of a stroke, 2 * stroke + side. It has the area of its side on its left hand (axes x to
///   the right, y up): `Left` runs from the tail to the head, `Right` from the head to the tail.
/// - A *joint* is a place that ends of strokes share exactly (JointGrid brings ends together when strokes are
/// inserted).
///   Its ring has the half-edges that leave it, anticlockwise.
/// - A *contour* is a closed walk along the border of an area: next() turns as far to the left as the joint allows, and
///   turns back at a free end. Its name is the least (stroke id, side) on it. Every half-edge lies on one contour.
/// - A *component* is what strokes connect. One of its contours goes around it from outside, clockwise: the outer
///   contour. The others go anticlockwise around the areas that its strokes enclose. A component without an area, such
///   as a single open stroke, has the outer contour only, and that is degenerate.
///
/// Strokes are not cut where they cross; of a component whose strokes cross, areas overlap, and more than one contour
/// may run clockwise. A degenerate stroke (all of its path in one place) belongs to no joint, contour and component.
class PlanarMap {
public:
    static constexpr int none = -1;
    enum Side : int { Right = 0, Left = 1 };

    PlanarMap() = default;
    /// Each id once. Throws std::domain_error when a point is not finite.
    explicit PlanarMap(std::span<const MapStroke> strokes);

    // --- Strokes ----------------------------------------------------------------------------------------------------
    int strokeCount() const { return static_cast<int>(m_strokes.size()); }
    int strokeWithId(unsigned int id) const; ///< Or none.
    unsigned int idOf(int stroke) const { return m_strokes[at(stroke)].id; }
    const GR_BezierPath2d& path(int stroke) const { return *m_strokes[at(stroke)].path; }
    bool isDegenerateStroke(int stroke) const { return m_origin[at(halfEdge(stroke, Left))] == none; }
    const Math::Box2d& strokeBox(int stroke) const
    {
        return m_strokeBox[at(stroke)];
    } ///< The smallest about its curves.
    /// Whether ends of two strokes are neighbours in a joint and run on there in one direction, to within 1e-6 radians.
    bool isContinuous(int stroke, int other) const;

    // --- Half-edges. Those of a degenerate stroke have neither origin nor contour. ----------------------------------
    static constexpr int halfEdge(int stroke, Side side) { return 2 * stroke + side; }
    static constexpr int strokeOf(int halfEdge) { return halfEdge / 2; }
    static constexpr Side sideOf(int halfEdge) { return static_cast<Side>(halfEdge % 2); }
    static constexpr int twin(int halfEdge) { return halfEdge ^ 1; } ///< The other side of the stroke.
    int halfEdgeCount() const { return static_cast<int>(m_origin.size()); }
    int next(int halfEdge) const { return m_next[at(halfEdge)]; }     ///< The one behind it on its contour.
    int origin(int halfEdge) const { return m_origin[at(halfEdge)]; } ///< The joint that it leaves.
    int contourOf(int halfEdge) const { return m_contourOf[at(halfEdge)]; }
    /// The direction in which it leaves its joint, of length 1.
    Math::Vector2d tangent(int halfEdge) const { return m_tangent[at(halfEdge)]; }
    /// The half-edge that leaves the same joint next to it: anticlockwise from it, or clockwise.
    int leftNeighbour(int halfEdge) const { return m_leftNeighbour[at(halfEdge)]; }
    int rightNeighbour(int halfEdge) const { return m_next[at(twin(halfEdge))]; }

    // --- Joints -----------------------------------------------------------------------------------------------------
    int jointCount() const { return static_cast<int>(m_position.size()); }
    const Math::Point2d& position(int joint) const { return m_position[at(joint)]; }
    /// The half-edges that leave it, anticlockwise, from the least (stroke id, side) on. A stroke that begins and ends
    /// here is there with both sides.
    std::span<const int> ring(int joint) const { return m_rings[joint]; }
    int degree(int joint) const { return static_cast<int>(ring(joint).size()); }

    // --- Contours ---------------------------------------------------------------------------------------------------
    int contourCount() const { return m_contours.count(); }
    /// In the order of the walk, from the one that gives the contour its name.
    std::span<const int> halfEdges(int contour) const { return m_contours[contour]; }
    double area(int contour) const { return m_area[at(contour)]; }           ///< Negative when it runs clockwise.
    const Math::Box2d& box(int contour) const { return m_box[at(contour)]; } ///< The smallest about its curves.
    Math::Box2d innerBox(int contour) const; ///< The smallest about the points on the curve of its strokes.
    bool isOuter(int contour) const { return outerContour(componentOf(contour)) == contour; }
    bool isAnticlockwise(int contour) const { return m_turn[at(contour)] > 0; }
    bool isClockwise(int contour) const { return m_turn[at(contour)] < 0; }
    /// Whether its area is 0, to within 1e-12 of the square of its size: lines, or strokes that coincide.
    bool isDegenerate(int contour) const { return m_turn[at(contour)] == 0; }

    // --- Components -------------------------------------------------------------------------------------------------
    int componentCount() const { return static_cast<int>(m_outer.size()); }
    int componentOf(int contour) const { return m_componentOf[at(contour)]; }
    int outerContour(int component) const { return m_outer[at(component)]; }

    // --- Nesting ----------------------------------------------------------------------------------------------------
    /// The contour that encloses this one's component most closely, which one extremal place of the component decides;
    /// none at top level. Contours of one component have the same parent: their areas lie beside each other.
    int parent(int contour) const { return m_parentOf[at(componentOf(contour))]; }
    /// All contours of the components that lie directly in the area; an outer contour has none.
    std::span<const int> children(int contour) const { return m_children[contour]; }
    bool isTopLevel(int contour) const { return parent(contour) == none; }

    enum Relation { Same, Contains, ContainedIn, NotRelated };
    /// What the first contour is to the second one: Contains when it is the other's parent, or a parent of that one.
    Relation relation(int contour, int other) const;

    /// Contours that run around a place anticlockwise, the smallest area first. On the border either answer may come.
    /// Throws std::domain_error when the place is not finite.
    std::vector<int> contoursAround(const Math::Point2d& place) const;

    // --- The strokes of a contour, each once -------------------------------------------------------------------------
    std::vector<int> strokes(int contour) const; ///< Along it, on one side or both, in the order of the walk.
    /// Of these, the ones that have it on both sides: lines that end in its area. In the order of the strokes.
    std::vector<int> endingStrokes(int contour) const;
    /// All that lie in the area that an inner contour goes around, at any depth: those that end in it, and what it
    /// contains. In the order of the strokes.
    std::vector<int> strokesInside(int contour) const;
    std::vector<int> strokesOfChildren(int contour) const; ///< In the order of the strokes.

private:
    friend class PlanarMapBuilder;

    /// Lists of indices, one behind the other in one vector.
    struct Lists {
        std::vector<int> items;
        std::vector<int> starts{0}; ///< Where each list starts, and the end of the last.

        int count() const { return static_cast<int>(starts.size()) - 1; }
        std::span<const int> operator[](int index) const
        {
            return {items.data() + starts[at(index)], items.data() + starts[at(index) + 1]};
        }
        void close() { starts.push_back(static_cast<int>(items.size())); }
    };

    static constexpr std::size_t at(int index) { return static_cast<std::size_t>(index); }
    bool endsInside(int stroke, int contour) const; ///< Whether both sides of the stroke are on the contour.

    std::vector<MapStroke> m_strokes;
    std::vector<int> m_byId; ///< The strokes in the order of their ids.
    std::vector<Math::Box2d> m_strokeBox;
    // By half-edge.
    std::vector<int> m_next;
    std::vector<int> m_origin;
    std::vector<int> m_leftNeighbour;
    std::vector<int> m_contourOf;
    std::vector<Math::Vector2d> m_tangent;
    // By joint.
    std::vector<Math::Point2d> m_position;
    Lists m_rings;
    // By contour.
    Lists m_contours;
    std::vector<double> m_area;
    std::vector<int> m_turn; ///< The sign of the area, also where that is too small for a double; 0: degenerate.
    std::vector<Math::Box2d> m_box;
    std::vector<int> m_componentOf;
    Lists m_children;
    // By component.
    std::vector<int> m_outer;
    std::vector<int> m_parentOf;
};

} // namespace brindle::engine
