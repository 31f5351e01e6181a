#pragma once

#include "core/geometry/curvelist.h"

namespace OMC {

class BezierPath;
extern template class BRINDLE_CORE_EXPORT CurveList<BezierPath, GR_BezierPath2d>;

/// A chain of curves of degree 1 to 3 in the plane, each starting where the one before it ends: an outline or a way.
///
/// A value that travels inside a QVariant by copy. Its control points are those of its curves, a point where two curves
/// join counting once.
class BRINDLE_CORE_EXPORT BezierPath : public CurveList<BezierPath, GR_BezierPath2d> {
    Q_OBJECT
    Q_PROPERTY(bool closed READ getClosed WRITE setClosed)
    Q_PROPERTY(bool empty READ getEmpty WRITE setEmpty)
    Q_PROPERTY(bool degenerate READ getDegenerate)
    Q_PROPERTY(bool polyline READ getPolyline)
    Q_PROPERTY(uint points_on_curve READ getPointsOnCurve)
    Q_PROPERTY(uint bezier_count READ getBezierCount)
    Q_PROPERTY(OMC::Obj bounding_box READ getBoundingBox)
    Q_PROPERTY(OMC::Obj bounding_box_inner READ getBoundingBoxInner)
    Q_PROPERTY(OMC::Obj to_tangent READ getToTangent)
    Q_PROPERTY(OMC::Obj from_tangent READ getFromTangent)
    Q_PROPERTY(double polygon_length READ getPolygonLength)
    Q_PROPERTY(double polygon_area READ getPolygonArea)
    Q_PROPERTY(bool polygon_clockwise READ getPolygonClockwise)

public:
    /// A script's path has no more curves from one call, and no more points from padding, than this.
    static constexpr unsigned int mostMade = 1'000'000;

    BezierPath(); ///< Empty.
    explicit BezierPath(const GR_BezierPath2d& path);
    BezierPath(const BezierPath& other);
    /// The curves that getBezierPathFromQVariant reads.
    BezierPath(const QVariant& value, unsigned int degree);
    BezierPath& operator=(const BezierPath& other);

    /// Puts a BezierPath in the path's place, or appends the curves that Bezier::getBezierFromQVariant reads.
    static void getBezierPathFromQVariant(const QVariant& value, BezierPath& path, unsigned int degree);

    /// About a centre, clockwise from the point above it, of so many cubics. Four keep within 0.03 % of the radius.
    static Obj createCircle(double x, double y, double r, unsigned int arcs);
    static Obj createOval(double x, double y, double rx, double ry, unsigned int arcs);
    /// A rectangle between two opposite corners.
    static Obj createRectangle(double x1, double y1, double x2, double y2);
    /// As few cubics as come within 1 of all points (as the strict reader of Point2d takes them), or one however near.
    static Obj createBezierFit(const QVariant& points, bool closed, bool oneBezier);

    Obj bezier(unsigned int index) const; ///< A Bezier.
    unsigned int bezierDegree(unsigned int index) const;
    /// Add a Bezier, a BezierPath, or what getBezierFromQVariant reads as cubics, one before the other: the last of
    /// several that are added in front comes first.
    void bezierAppend(const QVariant& curves) const;
    void bezierAppendFront(const QVariant& curves) const;
    /// Replaces the curves from an index on.
    void bezierSet(unsigned int index, const QVariant& curves) const;

    bool pointOnCurve(unsigned int index) const; ///< Whether a control point lies on the curve; the others are handles.
    void insertPoint(double parameter);          ///< A point on the curve that leaves the shape as it is.
    void erase(unsigned int first, unsigned int count); ///< Control points.
    void clear();
    void close(); ///< Leads the path back to its first point.
    /// Puts the straight line between its ends in each curve's place.
    void straighten();
    /// Required: pads the path to a number of points by repeating the last, and refuses a number below those it has,
    /// whatever the name says.
    void trim(unsigned int count);

    /// The length along the control points to the one at an index, or the whole for a negative index.
    double getPolygonLength(int index) const;

    bool containing(const QVariant& point) const; ///< Whether the point lies in the area that the path fills.
    bool inside(const QVariant& other) const;     ///< Whether the path lies in the area that the other fills.
    bool outside(const QVariant& other) const;

    bool getClosed() const;
    void setClosed(bool closed); ///< False changes nothing.
    bool getEmpty() const;
    void setEmpty(bool empty);  ///< False changes nothing.
    bool getDegenerate() const; ///< No curve, or all points in one place.
    bool getPolyline() const;   ///< All curves are straight lines.
    unsigned int getPointsOnCurve() const;
    unsigned int getBezierCount() const;
    Obj getBoundingBoxInner() const; ///< An AllocatedRect2D about the points on the curve.
    double getPolygonLength() const; ///< The length along the control points.
    double getPolygonArea() const;
    bool getPolygonClockwise() const;
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::BezierPath)
