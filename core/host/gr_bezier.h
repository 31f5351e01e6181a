#pragma once

#include "core/host/export.h"
#include "core/host/math_box2d.h"
#include "core/host/math_constants.h"
#include "core/host/math_matrix2x3.h"
#include "core/host/math_point.h"

#include <array>
#include <utility>
#include <vector>

/// A polynomial curve of degree 0 to 3 in the plane, by its control points (Bernstein form). A value: copied freely,
/// owned by who holds it.
///
/// The parameter t runs from 0 at the first control point to 1 at the last. The unit of length is that of the control
/// points; angles and the sense of rotation are those of axes x to the right, y up.
///
/// The boundaries say whether the ends belong to the curve: an open end is left out of intersections. The from- and
/// to-parameter say which stretch of another curve this one is; they follow Split(), Truncate() and Reverse(), and no
/// other operation reads them.
///
/// Points may be any numbers. Where a result can't be computed because a point is not finite, or so large that the
/// result isn't, the operation throws std::domain_error; a parameter that is not finite, std::invalid_argument; an
/// index or a degree that doesn't exist, std::out_of_range. Nothing has changed then.
class BRINDLE_HOST_EXPORT GR_Bezier2d {
public:
    static constexpr unsigned int maxDegree = 3;

    /// GetCurveCharacteristic()'s answers: what happens between the ends of the curve.
    enum Characteristic { Plain = 0, OneInflection = 1, TwoInflections = 2, Cusp = 3 };

    /// All control points are (0, 0), the parameters 0 and 1.
    GR_Bezier2d(unsigned int degree, Math::Constants::Boundary from, Math::Constants::Boundary to);

    // --- Points and ends --------------------------------------------------------------------------------------------
    unsigned int GetDegree() const { return m_degree; }
    /// 0 to 3. The points that the curve had stay in their places; a place beyond the degree keeps its point.
    void SetDegree(unsigned int degree);

    /// Any of the four places, also one beyond the degree.
    const Math::Point2d& GetPoint(unsigned int index) const;
    void SetPoint(unsigned int index, const Math::Point2d& point);
    const Math::Point2d& GetFromPoint() const { return m_points[0]; }
    const Math::Point2d& GetToPoint() const { return m_points[m_degree]; }

    Math::Constants::Boundary GetFromBoundary() const { return m_fromBoundary; }
    void SetFromBoundary(Math::Constants::Boundary boundary);
    Math::Constants::Boundary GetToBoundary() const { return m_toBoundary; }
    void SetToBoundary(Math::Constants::Boundary boundary);

    double GetFromParameter() const { return m_fromParameter; }
    void SetFromParameter(double parameter) { m_fromParameter = parameter; }
    double GetToParameter() const { return m_toParameter; }
    void SetToParameter(double parameter) { m_toParameter = parameter; }

    // --- Evaluation -------------------------------------------------------------------------------------------------
    /// Outside of 0 to 1 the polynomial is followed further.
    Math::Point2d Evaluate(double t) const;
    /// With both coordinates rounded to whole numbers, halves away from zero.
    Math::Point2d EvaluateAndRound(double t) const;
    /// The curve of the derivatives by t, one degree lower; of degree 0 the point (0, 0). The boundaries are kept.
    GR_Bezier2d GetDerivative() const;

    /// The direction in which the curve leaves its first point, or runs into its last one: of length 1, or zero when
    /// the whole curve is one point. Control points that coincide with the end are passed over.
    Math::Vector2d GetFromTangent() const;
    Math::Vector2d GetToTangent() const;

    // --- Shape ------------------------------------------------------------------------------------------------------
    /// The smallest box that holds the curve. Valid until the curve changes.
    const Math::Box2d& GetBoxRef() const;
    /// Whether all control points lie on the straight line between the ends, to 1e-12 of its length. A curve that is
    /// one point is a segment too.
    bool IsSegment() const;
    /// The inflections and the cusp strictly between the ends (Stone and DeRose 1989). A curve on one straight line has
    /// neither; a cusp outweighs inflections.
    Characteristic GetCurveCharacteristic() const;
    double GetLength() const; ///< To 1e-9 of the length.

    // --- Changes ----------------------------------------------------------------------------------------------------
    /// The parts before and behind t, which is held in 0 to 1 (de Casteljau). The ends at the cut are closed.
    std::pair<GR_Bezier2d, GR_Bezier2d> Split(double t) const;
    /// Becomes the stretch between two parameters, which are held in 0 to 1; it runs backwards when `from` > `to`.
    void Truncate(double from, double to);
    void Reverse();
    /// Moves each control point to the nearest multiples of `step`, which must be finite and above 0.
    void Round(double step);
    GR_Bezier2d& operator*=(const Math::Matrix2x3& matrix);

    // --- Comparison: degree and control points, exactly -------------------------------------------------------------
    bool operator==(const GR_Bezier2d& other) const;
    bool operator!=(const GR_Bezier2d& other) const { return !(*this == other); }
    /// Whether the other curve is this one run backwards.
    bool isReverseEqual(const GR_Bezier2d& other) const;

    // --- Nearness ---------------------------------------------------------------------------------------------------
    /// Finds the nearest point of the curve whose squared distance is at most `radiusSquared`. Then both arguments are
    /// replaced by what was found; of several nearest points, the first. False, with nothing written, when there is
    /// none: also when a number is not finite.
    bool GetClosestPoint(const Math::Point2d& point, double& radiusSquared, double& parameter) const;

    /// The places where the curve meets itself, and where it meets another, in the order of this curve's parameter,
    /// each place once. The two ends of a curve that is closed don't count as meeting; a curve on one straight line
    /// doesn't meet itself. Two curves that coincide over a stretch meet at the ends of that stretch. Curves meet where
    /// they come within 1e-9 of their size.
    bool IsIntersecting() const;
    bool IsIntersecting(const GR_Bezier2d& other) const;
    std::vector<Math::Point2d> GetIntersections() const;
    std::vector<Math::Point2d> GetIntersections(const GR_Bezier2d& other) const;

private:
    void markStale() { m_stale = true; }

    unsigned int m_degree;
    std::array<Math::Point2d, maxDegree + 1> m_points{};
    mutable bool m_stale = true; ///< The box is to be found anew.
    Math::Constants::Boundary m_fromBoundary;
    Math::Constants::Boundary m_toBoundary;
    double m_fromParameter = 0;
    double m_toParameter = 1;
    mutable Math::Box2d m_box;
};
