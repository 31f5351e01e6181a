#pragma once

#include "core/geometry/curvelist.h"

namespace OMC {

class BezierPath;
extern template class BRINDLE_CORE_EXPORT CurveList<BezierPath, GR_BezierPath2d>;

/// A chain of curves of degree 1 to 3 in the plane, each starting where the one before it ends: a list of control
/// points (Point2d), in any unit, x to the right and y up. The parameter is the index of a curve plus the parameter on
/// it. The default is an empty path. A list gives the Beziers in it, and its first plain points in a row as one curve
/// of the degree that ends at (0, 0).
///
/// A value that travels inside a QVariant by copy. A point where two curves join counts once.
class BRINDLE_CORE_EXPORT BezierPath : public CurveList<BezierPath, GR_BezierPath2d> {
    Q_OBJECT
    BRINDLE_COPYABLE(BezierPath)
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
    /// The most curves that one call makes, and the most points that padding makes.
    static constexpr unsigned int mostMade = 1'000'000;

    BezierPath(); ///< Empty.
    explicit BezierPath(const GR_BezierPath2d& path);
    BezierPath(const BezierPath& other);
    /// Reads every form that `getBezierPathFromQVariant` takes.
    BezierPath(const QVariant& value, unsigned int degree);
    BezierPath& operator=(const BezierPath& other);

    /// Replaces a path by a BezierPath; other forms are read by `Bezier::getBezierFromQVariant` and added at its end.
    static void getBezierPathFromQVariant(const QVariant& value, BezierPath& path, unsigned int degree);

    /// A circle about (x, y) from so many cubic curves; it starts above the centre and runs clockwise. Four keep within
    /// 0.03 % of the radius.
    static Obj createCircle(double x, double y, double r, unsigned int arcs);
    /// An ellipse about (x, y) with its radii along the axes; it starts above the centre and runs clockwise.
    static Obj createOval(double x, double y, double rx, double ry, unsigned int arcs);
    /// A rectangle between two opposite corners: from the first along x, then along y, and back.
    static Obj createRectangle(double x1, double y1, double x2, double y2);
    /// Fits cubic curves to points, open or closed: as few as come within 1 of every point, or a single one in the
    /// directions of the ends that comes as near as it can.
    static Obj createBezierFit(const QVariant& points, bool closed, bool oneBezier);

    Obj bezier(unsigned int index) const;                ///< One of the curves, from 0.
    unsigned int bezierDegree(unsigned int index) const; ///< The degree of one of the curves, from 0.
    /// Adds a Bezier, a BezierPath or a list of Beziers at the end, joined by a straight line where there is a gap.
    void bezierAppend(const QVariant& curves) const;
    /// Adds a Bezier, a BezierPath or a list of Beziers in front; a list is added item by item, so its last comes
    /// first.
    void bezierAppendFront(const QVariant& curves) const;
    /// Replaces the curves from an index on; the ends of their neighbours move along.
    void bezierSet(unsigned int index, const QVariant& curves) const;

    bool pointOnCurve(unsigned int index) const; ///< Whether a control point lies on the curve; else it is a handle.
    void insertPoint(double parameter);          ///< Makes a point on the curve at a parameter; the shape stays.
    void erase(unsigned int first, unsigned int count); ///< Takes control points away, from an index on.
    void clear();                                       ///< Takes all points away.
    void close();      ///< Leads the path back to its first point, with a straight line.
    void straighten(); ///< Replaces each curve by the straight line between its ends.
    /// Pads the path to a number of control points by repeating the last; fails for fewer than it has.
    ///
    /// Required as it is, whatever the name says.
    void trim(unsigned int count);

    /// The length of the polygon through the control points, or of the part up to the control point at an index from 0.
    double getPolygonLength(int index) const;

    /// Whether a point, in any form that a Point2d is made from, lies in the area that the path fills, or on it.
    bool containing(const QVariant& point) const;
    bool inside(const QVariant& other) const; ///< Whether the path lies in the area that another path fills.
    /// Whether no part of the path lies in the area that another path fills.
    bool outside(const QVariant& other) const;

    /// Whether the path leads back to its first point; writing true closes it, false does nothing.
    bool getClosed() const;
    void setClosed(bool closed);
    bool getEmpty() const; ///< Whether there is no point; writing true clears the path, false does nothing.
    void setEmpty(bool empty);
    bool getDegenerate() const;            ///< Whether there is no curve, or all points are in one place.
    bool getPolyline() const;              ///< Whether all curves are straight lines.
    unsigned int getPointsOnCurve() const; ///< How many control points lie on the curve; the others are handles.
    unsigned int getBezierCount() const;   ///< The number of curves.
    Obj getBoundingBoxInner() const;       ///< The smallest rectangle about the points on the curve.
    double getPolygonLength() const;
    double getPolygonArea() const;    ///< The area within the straight lines from control point to control point.
    bool getPolygonClockwise() const; ///< Whether the straight lines from control point to control point run clockwise.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::BezierPath)
