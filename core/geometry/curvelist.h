#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"

#include <memory>

class GR_Bezier2d;
class GR_BezierPath2d;

namespace OMC {

/// The common base of a curve and a path of curves: the list of the control points, each a Point2d, and the operations
/// on the whole.
///
/// A value in whatever units its points have, axes x to the right and y up. It owns its curve of the engine and leads
/// to no other object of it; it is always valid. A parameter runs from 0 at the first point on: to 1 on a curve, to the
/// number of curves on a path, 2.25 being a quarter of the way along the third.
///
/// A curve as an argument is an object of the same class, or any form that a constructor reads. An operation that the
/// engine can't do (a point is not finite, a number too large) throws and changes nothing.
template <typename Curve, typename HostCurve>
class CurveList : public CountedList<ListQVar, IterableQVar> {
public:
    ~CurveList() override;

    std::string __str__() const override; ///< "Bezier()[%1]", "BezierPath()[%1]": the number of control points.

    std::size_t size() const override;
    using ListQVar::get;
    QVariant get(int index) const override;
    using ListQVar::set;
    /// Writes a point or several, in a form that the strict reader of Point2d takes.
    void set(int index, const QVariant& points) override;
    QList<QVariant> list() const override;
    /// Whether each of the points is a control point, exactly; false for no points.
    bool contains(const QVariant& points) const override;

    bool operator==(const QVariant& other) const;
    /// Whether another curve, in any form that the constructor takes, is this one run backwards, exactly.
    bool equivalentReverse(const QVariant& other) const;

    /// The parameter of the nearest point of the curve; the point is a Point2d, [x, y], a node, ... Fails where there
    /// is none.
    double closestPoint(const QVariant& point) const;
    Obj evaluate(double parameter) const; ///< The point at a parameter.
    /// The direction at the first point, of length 1, or (0, 0) where the whole is one point.
    Obj getFromTangent() const;
    Obj getToTangent() const; ///< The direction at the last point, of length 1, or (0, 0) where the whole is one point.
    Obj getBoundingBox() const; ///< The smallest rectangle about the curves.

    void multiply(const QVariant& matrix); ///< Transforms the control points by whatever a Matrix is made from.
    void reverse();                        ///< Lets the curve run backwards.
    void round(double step);               ///< Moves the control points to the nearest multiples of a step above 0.
    Obj split(double parameter);           ///< Keeps what is before a parameter and gives what is behind it.
    /// The stretch between two parameters as a new curve, backwards where the start is greater; this one stays.
    Obj truncate(double from, double to) const;

    bool intersecting() const; ///< Whether the curve meets itself, or another in any form that the constructor takes.
    bool intersecting(const QVariant& other) const;
    /// The points where the curve meets itself, or another, in the order of this curve.
    QList<QVariant> intersections() const;
    QList<QVariant> intersections(const QVariant& other) const;

    /// The engine's curve.
    const HostCurve& getBezier() const;

protected:
    explicit CurveList(const HostCurve& curve);
    CurveList(const CurveList& other);
    CurveList& operator=(const CurveList& other);

    HostCurve& hostCurve() const;

private:
    struct Record;

    std::unique_ptr<Record> m_record;
};

} // namespace OMC
