#pragma once

#include "core/frame/obj.h"
#include "core/geometry/bezier.h"
#include "core/geometry/bezierpath.h"
#include "core/geometry/point2d.h"
#include "core/host/gr_bezier.h"
#include "core/host/gr_bezierpath.h"

#include <QVariant>

#include <initializer_list>
#include <ostream>
#include <vector>

/// Curves to test with, and short ways to say points.

using Points = std::vector<Math::Point2d>;

namespace Math {
inline void PrintTo(const Point2d& point, std::ostream* stream)
{
    *stream << "(" << point.x << ", " << point.y << ")";
}
} // namespace Math

/// A curve with one point more than its degree.
inline GR_Bezier2d hostCurve(const Points& points)
{
    GR_Bezier2d curve(static_cast<unsigned int>(points.size()) - 1, Math::Constants::Closed, Math::Constants::Closed);
    for (unsigned int index = 0; index < points.size(); ++index)
        curve.SetPoint(index, points[index]);
    return curve;
}

/// A Bezier, or a BezierPath of one curve.
template <typename Curve>
Curve curveThrough(const Points& points)
{
    return Curve(hostCurve(points));
}
template <>
inline OMC::BezierPath curveThrough(const Points& points)
{
    GR_BezierPath2d path;
    path.Append(hostCurve(points));
    return OMC::BezierPath(path);
}

/// A hump from (0, 0) to (10, 0), symmetrical about x = 5, whose top is at y = 7.5.
inline const Points hump = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
/// A curve that crosses itself on x = 5.
inline const Points loop = {{0, 0}, {20, 10}, {-10, 10}, {10, 0}};
inline const Math::Point2d origin{0, 0};

/// The sentence for an argument that is no point.
inline constexpr char noPoint2d[] = "Unsupported Point2D type.";

inline QVariant value(const Math::Point2d& point)
{
    return QVariant::fromValue(OMC::Point2d(point));
}
inline QVariant numbers(const Math::Point2d& point)
{
    return QVariantList{point.x, point.y};
}
/// A script's list of points, each a list of two numbers.
inline QVariant numbers(const Points& points)
{
    QVariantList list;
    for (const Math::Point2d& point : points)
        list.append(numbers(point));
    return list;
}

inline Math::Point2d pointIn(const QVariant& value)
{
    const auto* point = OMC::objectFrom<OMC::Point2d>(value);
    return point ? Math::Point2d{point->x, point->y} : Math::Point2d{-999, -999};
}
inline Math::Point2d pointIn(const OMC::Obj& handle)
{
    return pointIn(QVariant::fromValue(handle));
}
inline Points pointsIn(const QList<QVariant>& list)
{
    Points points;
    for (const QVariant& item : list)
        points.push_back(pointIn(item));
    return points;
}

/// The path that an operation gave; an empty one where it gave something else.
inline OMC::BezierPath pathOf(const OMC::Obj& handle)
{
    const auto* path = OMC::objectIn<OMC::BezierPath>(handle);
    return path ? *path : OMC::BezierPath();
}

inline const OMC::BezierPath square = pathOf(OMC::BezierPath::createRectangle(0, 0, 10, 10));
