#pragma once

#include "core/host/export.h"
#include "core/host/gr_bezier.h"

#include <utility>
#include <vector>

/// A chain of curves of degree 1 to 3, each starting where the one before it ends. A value: copied freely, owned by who
/// holds it.
///
/// It is kept as one list of control points, each on the curve or off it (a handle). The points off the curve between
/// two points on it, at most two, make the curve's degree. A path of one point has no curve. Points off the curve at
/// the end of the list wait for the point that completes their curve. A path is closed when it has a curve and its last
/// point is its first one; nothing else is stored about that.
///
/// The parameter of a path is the index of a curve plus the parameter on it: 0 is the start, 2.25 lies a quarter along
/// the third curve, GetNumBezier() is the end. Parameters are held in that range. Lengths, angles and axes are as those
/// of GR_Bezier2d, and so are the exceptions; besides, what needs a point throws std::out_of_range on an empty path,
/// and what would make more than maxPoints points throws std::length_error. The path has not changed then.
class BRINDLE_HOST_EXPORT GR_BezierPath2d {
public:
    static constexpr unsigned int maxPoints = 1u << 24;

    GR_BezierPath2d() = default;

    // --- Building ---------------------------------------------------------------------------------------------------
    /// Adds one point. std::invalid_argument for a third point off the curve in a row, and for a first one off it.
    void Append(const Math::Point2d& point, bool onCurve);
    /// Adds a curve behind the last. Where it doesn't start at the path's last point, to within 1e-9 of the
    /// coordinates' size, a straight line leads there. Of a curve of degree 0 there is the line only. Handles that wait
    /// for their point are completed by the curve's first one.
    void Append(const GR_Bezier2d& bezier);
    void Append(const GR_BezierPath2d& path); ///< Joined as a curve is.
    /// Adds before the first point, joined in the same way.
    void AppendFront(const Math::Point2d& point); ///< With a straight line.
    void AppendFront(const GR_Bezier2d& bezier);
    void AppendFront(const GR_BezierPath2d& path);

    /// Leads the path back to its first point with a straight line, or completes a curve whose handles wait. Does
    /// nothing on a closed path and on one without a curve or handle.
    void ClosePath();
    void Clear();
    /// Removes `count` points from index `first` on; std::out_of_range when there aren't as many. Where points on the
    /// curve go, the curves on both sides become one, with the outermost handles that are left; handles at the start or
    /// the end of the path go with the end that they belonged to.
    void Erase(unsigned int first, unsigned int count);
    /// Makes a point on the curve at a parameter, without changing the shape; where one stands, it does nothing.
    void insertPoint(double parameter);
    /// Pads the path to this many points by repeating the last one, which adds lines of no length. A path that has as
    /// many, or more, stays.
    void trimNumPointsToSize(unsigned int size);

    // --- Points -----------------------------------------------------------------------------------------------------
    bool IsEmpty() const { return m_points.empty(); }
    unsigned int GetNumPoints() const { return static_cast<unsigned int>(m_points.size()); }
    unsigned int GetNumPointsOnCurve() const { return static_cast<unsigned int>(m_onCurve.size()); }
    const Math::Point2d& GetPoint(unsigned int index) const;
    void SetPoint(unsigned int index, const Math::Point2d& point);
    bool IsOnCurve(unsigned int index) const;
    const Math::Point2d& GetFromPoint() const;
    /// The last point on the curve. SetToPoint() moves it alone.
    const Math::Point2d& GetToPoint() const;
    void SetToPoint(const Math::Point2d& point);

    // --- Curves -----------------------------------------------------------------------------------------------------
    unsigned int GetNumBezier() const { return m_onCurve.empty() ? 0 : GetNumPointsOnCurve() - 1; }
    unsigned int GetDegree(unsigned int index) const; ///< The degree of one curve.
    GR_Bezier2d GetBezier(unsigned int index) const;  ///< With closed ends.
    /// Replaces a curve, also by one of another degree from 1 to 3 (else std::invalid_argument). The path stays a
    /// chain: the ends of the neighbouring curves move to the new ends, and a closed path stays closed.
    void SetBezier(unsigned int index, const GR_Bezier2d& bezier);

    // --- Shape ------------------------------------------------------------------------------------------------------
    bool IsClosed() const;
    bool IsDegenerate() const;       ///< No curve, or all points in one place.
    bool IsPolyline() const;         ///< Each curve is a segment, as GR_Bezier2d::IsSegment() says.
    Math::Box2d GetBox() const;      ///< The smallest box that holds the curves (and a single point).
    Math::Box2d GetInnerBox() const; ///< The smallest box that holds the points on the curve.
    /// As of a curve; curves of no length at the ends are passed over.
    Math::Vector2d GetFromTangent() const;
    Math::Vector2d GetToTangent() const;
    double GetLength() const; ///< The sum over the curves.
    double GetArea() const; ///< Within the curves, whose ends a straight line closes; what runs clockwise is negative.

    /// Measures of the control polygon: all points, on the curve and off it, joined by straight lines.
    double GetPolygonLength() const;
    /// The length from the first point to this one; 0 for the first.
    double GetSubPolygonLength(unsigned int index) const;
    double GetPolygonArea() const;   ///< Never negative; the polygon is closed by a straight line.
    bool IsClockwisePolygon() const; ///< By the sign of its area; false for an area of 0.

    // --- Evaluation and changes along the path ----------------------------------------------------------------------
    Math::Point2d Evaluate(double parameter) const;
    /// The parts before and behind a parameter. A part of no length is a path of one point.
    std::pair<GR_BezierPath2d, GR_BezierPath2d> Split(double parameter) const;
    /// Becomes the stretch between two parameters; it runs backwards when `from` > `to`.
    void Truncate(double from, double to);
    void Reverse();
    /// Moves each control point to the nearest multiples of `step`, which must be finite and above 0.
    void Round(double step);
    GR_BezierPath2d& operator*=(const Math::Matrix2x3& matrix);

    // --- Comparison: the points and which are on the curve, exactly -------------------------------------------------
    bool operator==(const GR_BezierPath2d& other) const;
    bool operator!=(const GR_BezierPath2d& other) const { return !(*this == other); }
    bool isReverseEqual(const GR_BezierPath2d& other) const;

    // --- Nearness and area ------------------------------------------------------------------------------------------
    /// As of a curve. A path of one point is that point, with parameter 0.
    bool GetClosestPoint(const Math::Point2d& point, double& radiusSquared, double& parameter) const;

    /// The places where the path meets itself, each once, and where it meets another, in the order of this path's
    /// parameter. Neighbouring curves don't meet at the point that joins them, nor do a closed path's first and last.
    bool IsIntersecting() const;
    bool IsIntersecting(const GR_BezierPath2d& other) const;
    std::vector<Math::Point2d> GetIntersections() const;
    std::vector<Math::Point2d> GetIntersections(const GR_BezierPath2d& other) const;

    /// Whether a point lies in the area that the path fills, or on the path. A straight line closes an open path.
    bool IsContaining(const Math::Point2d& point, Math::Constants::FillType fill) const;
    /// Whether all of this path lies in the area that the other fills (its edge counts), or none of it does (touching
    /// the edge from outside is allowed). Both are false when either path is empty.
    bool IsInside(const GR_BezierPath2d& other, Math::Constants::FillType fill) const;
    bool IsOutside(const GR_BezierPath2d& other, Math::Constants::FillType fill) const;

private:
    std::vector<Math::Point2d> m_points;
    std::vector<unsigned int> m_onCurve; ///< The indices of the points on the curve, ascending; the first is 0.
};
