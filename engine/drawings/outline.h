#pragma once

#include "core/host/math_box2d.h"
#include "engine/drawings/linesections.h"

#include <cstddef>
#include <span>
#include <vector>

namespace brindle::engine {

/// The area of a line, as pieces that are each a convex polygon with a positive area (anticlockwise; axes x to the
/// right, y up). The line covers what lies in any of them: filled as one path by the non-zero rule, what several pieces
/// cover makes no hole, and the common edge of neighbours runs in both directions and leaves no seam.
class Outline {
public:
    std::size_t pieceCount() const { return m_ends.size(); }
    std::span<const Math::Point2d> piece(std::size_t index) const;

    /// Adds a polygon: a convex one as it is, or turned round; another one in triangles. Polygons without an area, and
    /// those that are so large that no double holds it, are left out.
    void add(std::span<const Math::Point2d> polygon);
    /// Adds a polygon that is known to be convex.
    void addConvex(std::span<const Math::Point2d> polygon);

private:
    void addCrossed(std::span<const Math::Point2d> quad);
    void addTriangles(std::span<const Math::Point2d> polygon);

    std::vector<Math::Point2d> m_points;
    std::vector<std::size_t> m_ends; ///< Where each piece ends among the points.
};

/// Pieces beyond one for each part of the path and each corner, at most; the triangles of a tip come on top.
constexpr std::size_t mostOutlinePieces = 65536;

/// The outline of a line whose edges and centre are off by about `tolerance` at most, which is in units of the drawing,
/// finite and above 0 (else std::invalid_argument). Widths count at right angles to the path. Throws std::domain_error
/// when a point of the path is not finite, or a tip too large.
///
/// Each piece of the path gives the quadrilateral between the sections at its ends. Pieces are halved while one of
/// three places on them is too far from the chords of centre and edges; a line that would have too many pieces is made
/// with a tolerance four times as large, and so on. Where an edge turns back on the inner side of a bend, sections
/// cross, and the quadrilateral is the two triangles that the section sweeps. At corners of the path, and cusps, there
/// is a sector around the corner on the outer side; where the path turns back, on both sides. The ends have their tips
/// (tip.h). A path in one place has its tips alone, to the left and to the right: with round ones a dot.
Outline outlineOf(const LineForm& form, double tolerance);

/// The smallest box about the line, to within 1e-6 of its largest half-width; empty for a line without width. Throws as
/// outlineOf() does.
Math::Box2d outlineBox(const LineForm& form);

} // namespace brindle::engine
