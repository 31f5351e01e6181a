#pragma once

#include "core/frame/finite.h"
#include "core/frame/refused.h"
#include "core/geometry/curvelist.h"
#include "core/geometry/matrix.h"
#include "core/geometry/point2d.h"
#include "core/geometry/rectangles.h"
#include "core/geometry/vectors.h"
#include "core/host/gr_bezier.h"
#include "core/host/gr_bezierpath.h"
#include "core/host/math_box2d.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace OMC {

/// The differences between the two kinds of curves, which the source of each defines: the text, the control points, the
/// box, and how far from a point its nearest one is looked for.
template <typename Curve>
struct CurveTraits;

using CurvePoints = std::vector<std::unique_ptr<Math::Point2d>>;

inline CurvePoints readCurvePoints(const QVariant& value)
{
    CurvePoints points;
    Point2d::fromQVariant(value, points);
    return points;
}

inline Obj rectangleOf(const Math::Box2d& box)
{
    return Obj(new AllocatedRect2D(box.width(), box.height(), box.minX(), box.minY()));
}

inline QList<QVariant> pointValues(const std::vector<Math::Point2d>& points)
{
    QList<QVariant> values;
    values.reserve(static_cast<qsizetype>(points.size()));
    for (const Math::Point2d& point : points)
        values.append(QVariant::fromValue(Point2d(point)));
    return values;
}

template <typename Curve, typename HostCurve>
struct CurveList<Curve, HostCurve>::Record {
    HostCurve curve;
};

template <typename Curve, typename HostCurve>
CurveList<Curve, HostCurve>::CurveList(const HostCurve& curve) : m_record(new Record{curve})
{}

template <typename Curve, typename HostCurve>
CurveList<Curve, HostCurve>::CurveList(const CurveList& other) : CountedList(),
                                                                 m_record(new Record{other.getBezier()})
{}

template <typename Curve, typename HostCurve>
CurveList<Curve, HostCurve>& CurveList<Curve, HostCurve>::operator=(const CurveList& other)
{
    *m_record = Record{other.getBezier()};
    this->setPosition(0);
    return *this;
}

template <typename Curve, typename HostCurve>
CurveList<Curve, HostCurve>::~CurveList() = default;

template <typename Curve, typename HostCurve>
const HostCurve& CurveList<Curve, HostCurve>::getBezier() const
{
    return m_record->curve;
}

template <typename Curve, typename HostCurve>
HostCurve& CurveList<Curve, HostCurve>::hostCurve() const
{
    return m_record->curve;
}

template <typename Curve, typename HostCurve>
std::string CurveList<Curve, HostCurve>::__str__() const
{
    return QString::fromLatin1(CurveTraits<Curve>::text).arg(size()).toStdString();
}

template <typename Curve, typename HostCurve>
std::size_t CurveList<Curve, HostCurve>::size() const
{
    return CurveTraits<Curve>::count(getBezier());
}

template <typename Curve, typename HostCurve>
QVariant CurveList<Curve, HostCurve>::get(int index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    return QVariant::fromValue(Point2d(getBezier().GetPoint(static_cast<unsigned int>(index))));
}

template <typename Curve, typename HostCurve>
void CurveList<Curve, HostCurve>::set(int index, const QVariant& value)
{
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        throwIndexOutOfRange();
    const CurvePoints points = readCurvePoints(value);
    const auto first = static_cast<unsigned int>(index);
    if (points.empty())
        throw Exception(Curve::tr("Must specify a point."));
    if (points.size() == 1)
        hostCurve().SetPoint(first, *points.front());
    else
        CurveTraits<Curve>::setPoints(hostCurve(), first, points);
}

template <typename Curve, typename HostCurve>
QList<QVariant> CurveList<Curve, HostCurve>::list() const
{
    QList<QVariant> points;
    const auto count = static_cast<unsigned int>(size());
    points.reserve(count);
    for (unsigned int index = 0; index < count; ++index)
        points.append(QVariant::fromValue(Point2d(getBezier().GetPoint(index))));
    return points;
}

template <typename Curve, typename HostCurve>
bool CurveList<Curve, HostCurve>::contains(const QVariant& value) const
{
    const CurvePoints points = readCurvePoints(value);
    if (points.empty())
        return false;
    // The places are sorted, so that many points are found among many. A place that is no number equals none and can't
    // be sorted.
    std::vector<std::pair<double, double>> places;
    for (unsigned int index = 0; index < size(); ++index) {
        const Math::Point2d& point = getBezier().GetPoint(index);
        if (!std::isnan(point.x) && !std::isnan(point.y))
            places.emplace_back(point.x, point.y);
    }
    std::sort(places.begin(), places.end());
    return std::all_of(points.begin(), points.end(), [&](const auto& point) {
        return !std::isnan(point->x) && !std::isnan(point->y) &&
               std::binary_search(places.begin(), places.end(), std::pair(point->x, point->y));
    });
}

/// Another curve in an argument: an object of the class as it is, anything else as the constructor reads it.
template <typename Curve>
Curve readCurve(const QVariant& value)
{
    const auto* curve = objectFrom<Curve>(value);
    return curve ? Curve(*curve) : Curve(value, CurveTraits<Curve>::degree);
}

template <typename Curve, typename HostCurve>
bool CurveList<Curve, HostCurve>::operator==(const QVariant& other) const
{
    return getBezier() == readCurve<Curve>(other).getBezier();
}

template <typename Curve, typename HostCurve>
bool CurveList<Curve, HostCurve>::equivalentReverse(const QVariant& other) const
{
    return getBezier().isReverseEqual(readCurve<Curve>(other).getBezier());
}

template <typename Curve, typename HostCurve>
double CurveList<Curve, HostCurve>::closestPoint(const QVariant& value) const
{
    Math::Point2d point;
    Point2d::ConvertQVariant(value, point.x, point.y);
    return orRefused([&] {
        double radiusSquared = CurveTraits<Curve>::reach(getBezier(), point) * 1.25;
        double parameter = 0.0;
        if (!getBezier().GetClosestPoint(point, radiusSquared, parameter))
            throw Exception(Curve::tr("Failed to find a nearest point."));
        return parameter;
    });
}

template <typename Curve, typename HostCurve>
Obj CurveList<Curve, HostCurve>::evaluate(double parameter) const
{
    requireFinite(parameter, 0);
    return orRefused([&] { return Obj(new Point2d(getBezier().Evaluate(parameter))); });
}

template <typename Curve, typename HostCurve>
Obj CurveList<Curve, HostCurve>::getFromTangent() const
{
    return orRefused([&] { return Obj(new Vector2d(getBezier().GetFromTangent())); });
}

template <typename Curve, typename HostCurve>
Obj CurveList<Curve, HostCurve>::getToTangent() const
{
    return orRefused([&] { return Obj(new Vector2d(getBezier().GetToTangent())); });
}

template <typename Curve, typename HostCurve>
Obj CurveList<Curve, HostCurve>::getBoundingBox() const
{
    return orRefused([&] { return rectangleOf(CurveTraits<Curve>::box(getBezier())); });
}

template <typename Curve, typename HostCurve>
void CurveList<Curve, HostCurve>::multiply(const QVariant& matrix)
{
    const Math::Matrix2x3 transform = Matrix::valueOf(matrix).getTransform2d();
    orRefused([&] { hostCurve() *= transform; });
}

template <typename Curve, typename HostCurve>
void CurveList<Curve, HostCurve>::reverse()
{
    hostCurve().Reverse();
}

template <typename Curve, typename HostCurve>
void CurveList<Curve, HostCurve>::round(double step)
{
    if (!(step > 0.0))
        throwInvalidArgument(0);
    requireFinite(step, 0);
    orRefused([&] { hostCurve().Round(step); });
}

template <typename Curve, typename HostCurve>
Obj CurveList<Curve, HostCurve>::split(double parameter)
{
    requireFinite(parameter, 0);
    return orRefused([&] {
        auto parts = getBezier().Split(parameter);
        Obj behind(new Curve(parts.second));
        hostCurve() = std::move(parts.first);
        return behind;
    });
}

template <typename Curve, typename HostCurve>
Obj CurveList<Curve, HostCurve>::truncate(double from, double to) const
{
    requireFinite(from, 0);
    requireFinite(to, 1);
    return orRefused([&] {
        HostCurve stretch = getBezier();
        stretch.Truncate(from, to);
        return Obj(new Curve(stretch));
    });
}

template <typename Curve, typename HostCurve>
bool CurveList<Curve, HostCurve>::intersecting() const
{
    return orRefused([&] { return getBezier().IsIntersecting(); });
}

template <typename Curve, typename HostCurve>
bool CurveList<Curve, HostCurve>::intersecting(const QVariant& other) const
{
    return orRefused([&] { return getBezier().IsIntersecting(readCurve<Curve>(other).getBezier()); });
}

template <typename Curve, typename HostCurve>
QList<QVariant> CurveList<Curve, HostCurve>::intersections() const
{
    return orRefused([&] { return pointValues(getBezier().GetIntersections()); });
}

template <typename Curve, typename HostCurve>
QList<QVariant> CurveList<Curve, HostCurve>::intersections(const QVariant& other) const
{
    return orRefused([&] { return pointValues(getBezier().GetIntersections(readCurve<Curve>(other).getBezier())); });
}

} // namespace OMC
