#pragma once

#include "engine/drawings/linesections.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace brindle::engine {

/// A section of a line at a place of a span, with its edges.
struct LineCut {
    double t;
    LineSection section;
    Math::Point2d left = section.left();
    Math::Point2d right = section.right();
};

/// Whether a point lies no further than `tolerance` from a segment.
inline bool isNearSegment(const Math::Point2d& point, const Math::Point2d& from, const Math::Point2d& to,
                          double tolerance)
{
    const Math::Vector2d way = to - from;
    const double square = way.dot(way);
    const double place = square > 0 ? std::clamp((point - from).dot(way) / square, 0.0, 1.0) : 0;
    return distanceSquared(point, from + way * place) <= tolerance * tolerance;
}

/// Cuts the spans of a line into pieces whose centre and edges are straight to about a tolerance, in units of the
/// drawing: pieces are halved while one of three places on them is too far from the chords, or while a bend between
/// these may take an edge further out.
class LinePieces {
public:
    LinePieces(const LineSections& sections, double tolerance) : m_sections(sections), m_tolerance(tolerance) {}

    /// Calls `take(from, to)` with the cuts at the ends of each piece of a span between two sections, in order, until
    /// it gives false.
    template <typename Take>
    void cut(int span, const LineSection& from, const LineSection& to, const Take& take) const
    {
        part(span, {0, from}, at(span, 0.5), {1, to}, 0, take);
    }

private:
    LineCut at(int span, double t) const { return {t, m_sections.at(span, t)}; }

    template <typename Take>
    bool part(int span, const LineCut& from, const LineCut& middle, const LineCut& to, int depth,
              const Take& take) const
    {
        constexpr int deepest = 16;
        const LineCut before = at(span, std::lerp(from.t, middle.t, 0.5));
        const LineCut behind = at(span, std::lerp(middle.t, to.t, 0.5));
        if (depth == deepest || (turnsLittle(from, to) && isStraight(from, middle, to) &&
                                 isStraight(from, before, to) && isStraight(from, behind, to)))
            return take(from, to);
        return part(span, from, before, middle, depth + 1, take) && part(span, middle, behind, to, depth + 1, take);
    }

    /// Whether an edge stays within the tolerance of its chord even where the whole turn of the path between two cuts
    /// happens at one place, so that the edge is an arc. Within a span the path turns one way only.
    bool turnsLittle(const LineCut& from, const LineCut& to) const
    {
        const GR_HalfWidths& start = from.section.widths;
        const GR_HalfWidths& end = to.section.widths;
        const double widest = std::max({start.left, start.right, end.left, end.right});
        const double cosHalfTurn = std::sqrt(std::max(0.0, (1 + from.section.along.dot(to.section.along)) / 2));
        return widest * (1 - cosHalfTurn) <= m_tolerance;
    }

    bool isStraight(const LineCut& from, const LineCut& between, const LineCut& to) const
    {
        return isNearSegment(between.section.place, from.section.place, to.section.place, m_tolerance) &&
               isNearSegment(between.left, from.left, to.left, m_tolerance) &&
               isNearSegment(between.right, from.right, to.right, m_tolerance);
    }

    const LineSections& m_sections;
    double m_tolerance;
};

/// Calls `make(tolerance)`; where it gives false for too many pieces, again with a tolerance four times as large, until
/// that exceeds the size of the line. It is in units of the drawing, finite and above 0 (else std::invalid_argument).
template <typename Make>
void withTolerance(const LineForm& form, double tolerance, const Make& make)
{
    if (!std::isfinite(tolerance) || tolerance <= 0)
        throw std::invalid_argument("The tolerance of an outline must be a finite number above 0.");
    Math::Box2d box = form.path->GetBox();
    box.Enlarge(form.largestHalfWidth(), form.largestHalfWidth());
    const double size = std::max(box.width(), box.height());
    constexpr double finest = 1e-9; // of the size
    tolerance = std::max(tolerance, finest * size);
    while (!make(tolerance) && tolerance <= size && std::isfinite(tolerance))
        tolerance *= 4;
}

} // namespace brindle::engine
