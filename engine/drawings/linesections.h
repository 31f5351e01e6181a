#pragma once

#include "core/host/gr_bezierpath.h"
#include "core/host/gr_stroke.h"
#include "engine/geometry2d/planecurve.h"

#include <array>
#include <vector>

namespace brindle::engine {

/// What the line of a stroke is drawn from.
struct LineForm {
    const GR_BezierPath2d* path; ///< The owner's.
    GR_ThicknessBinder thickness;
    double halfWidth = 0; ///< On both sides, where the binder has no path. 0 or more.
    std::array<GR_TipType, 2> tips{kRoundTip, kRoundTip};

    /// Of a stroke, with half the thickness of its line style. The stroke's path must outlive it.
    static LineForm of(const GR_StrokeData& stroke);

    GR_HalfWidths widthsAt(double share) const; ///< At a share of the path's length.
    bool hasConstantWidths() const;
    double largestHalfWidth() const;
    /// Whether the line is joined to its own start and has no tips: its path is closed, and so is its thickness path,
    /// if it has one.
    bool isClosed() const;
};

/// A place on a line: the ends of the straight cut across it are its left and its right edge.
struct LineSection {
    Math::Point2d place;
    Math::Vector2d along; ///< The direction of the path, of length 1.
    GR_HalfWidths widths;

    Math::Vector2d toLeft() const { return {-along.y, along.x}; }
    Math::Point2d left() const { return place + toLeft() * widths.left; }
    Math::Point2d right() const { return place + toLeft() * -widths.right; }
};

/// A part of a line's path on which each coordinate, and the direction of bending, only goes one way, and the width
/// follows one cubic: between the extrema and inflections of a curve, and the keys of the thickness.
class LineSpan {
public:
    /// `measured`: lengths along it will be asked for.
    LineSpan(const PlaneCurve& curve, bool measured);

    const PlaneCurve& curve() const { return m_curve; }
    double length() const { return m_lengths.back(); }
    double lengthUntil(double t) const; ///< To about 1e-6 of the length.
    double parameterAt(double length) const;
    /// The direction at t, of length 1; at the ends as seen from within.
    Math::Vector2d along(double t) const;

private:
    static constexpr int steps = 8;

    PlaneCurve m_curve;
    PlaneCurve m_slopes;
    std::array<double, steps + 1> m_lengths{}; ///< Up to each step.
    std::array<double, steps + 1> m_speeds{};
    Math::Vector2d m_from, m_to; ///< The directions at the ends.
};

/// The spans of a line, and its section anywhere on them.
class LineSections {
public:
    /// `measured` makes `length` and `lengthUntil` available. Throws std::domain_error when a point of the path is not
    /// finite.
    explicit LineSections(const LineForm& form, bool measured = false);

    int spanCount() const { return static_cast<int>(m_spans.size()); } ///< 0: the path is one place.
    LineSection at(int span, double t) const;                          ///< `t` from 0 to 1 along the span.
    double length() const { return m_length; }                         ///< Of the path, in units of the drawing.
    double lengthUntil(int span, double t) const;                      ///< From the start of the path.

private:
    void addCurve(const PlaneCurve& curve);
    void measure();
    void cutAtKeys();
    std::vector<double> keyShares() const;

    const LineForm& m_form;
    bool m_measured;
    std::vector<LineSpan> m_spans;
    std::vector<double> m_before; ///< The length of the path ahead of each span.
    double m_length = 0;
};

} // namespace brindle::engine
