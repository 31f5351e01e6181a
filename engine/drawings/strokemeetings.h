#pragma once

#include "engine/drawings/planarmap.h"
#include "engine/geometry2d/planecurve.h"

#include <functional>
#include <span>
#include <vector>

namespace brindle::engine {

/// A place on a stroke: the parameter of its path.
struct StrokePlace {
    int stroke;
    double parameter;
};

/// Two places at which strokes, or two parts of one stroke, cross, touch, or begin or cease to coincide.
struct StrokeMeeting {
    StrokePlace first, second;
};

/// The meetings of strokes other than in their joints. The paths are the owner's.
class StrokeMeetings {
public:
    /// Throws std::domain_error when a point is not finite.
    explicit StrokeMeetings(std::span<const MapStroke> strokes);

    /// What to do with a pair of curves whose boxes meet.
    enum class Pair { Compare, PassOver, Stop };

    /// Calls `visit` with each meeting. A place may come several times: curves that follow one another on a stroke each
    /// report it. Pairs of strokes are compared as far as `wanted` says; Stop ends the search.
    ///
    /// Curves are compared where their boxes meet, which a sweep from left to right finds; those that leave a common
    /// point within cones that don't overlap meet there only.
    void forEach(const std::function<Pair(int stroke, int other)>& wanted,
                 const std::function<void(const StrokeMeeting&)>& visit) const;

private:
    /// A curve of a stroke.
    struct Part {
        PlaneCurve curve;
        Math::Box2d hull; ///< Enlarged by what a meeting may be off by.
        int stroke;
        unsigned int index; ///< Of the curve in its path.
        int place;          ///< Among the stroke's curves that aren't points.
        bool isFirst, isLast;
    };

    void addParts(int stroke, const GR_BezierPath2d& path);
    void compare(const Part& one, const Part& other, const std::function<void(const StrokeMeeting&)>& visit) const;
    bool partAtJoint(const Part& one, const Part& other) const;
    bool isJoint(const Part& one, double t, const Part& other, double u) const;

    std::vector<Part> m_parts; ///< In the order of their stroke and index.
};

} // namespace brindle::engine
