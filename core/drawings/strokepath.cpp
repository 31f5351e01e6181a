#include "core/drawings/strokepath.h"

#include "core/geometry/bezierpath.h"

namespace OMC::strokepath {

namespace {

/// The cubic that runs through the same points, also in the same time.
GR_Bezier2d cubic(const GR_Bezier2d& curve)
{
    const unsigned int degree = curve.GetDegree();
    const Math::Point2d from = curve.GetFromPoint();
    const Math::Point2d to = curve.GetToPoint();
    // A curve of degree 2 has its one handle on both sides, two thirds of the way; a line has its handles on itself.
    const Math::Point2d fromSide = degree == 2 ? curve.GetPoint(1) : from + (to - from) * 0.5;
    const Math::Point2d toSide = degree == 2 ? curve.GetPoint(1) : to + (from - to) * 0.5;
    GR_Bezier2d raised = curve;
    raised.SetDegree(GR_Bezier2d::maxDegree);
    raised.SetPoint(1, from + (fromSide - from) * (2.0 / 3.0));
    raised.SetPoint(2, to + (toSide - to) * (2.0 / 3.0));
    raised.SetPoint(3, to);
    return raised;
}

bool isCubic(const GR_BezierPath2d& path)
{
    for (unsigned int index = 0; index < path.GetNumBezier(); ++index) {
        if (path.GetDegree(index) != GR_Bezier2d::maxDegree)
            return false;
    }
    return true;
}

} // namespace

GR_BezierPath2d cubic(const GR_BezierPath2d& path)
{
    if (isCubic(path))
        return path;
    GR_BezierPath2d raised;
    raised.Append(path.GetFromPoint(), true);
    for (unsigned int index = 0; index < path.GetNumBezier(); ++index) {
        const GR_Bezier2d curve = path.GetBezier(index);
        if (curve.GetDegree() == GR_Bezier2d::maxDegree) {
            raised.Append(curve);
            continue;
        }
        raised.Append(cubic(curve));
    }
    return raised;
}

std::optional<GR_BezierPath2d> read(const QVariant& value)
{
    BezierPath path;
    try {
        BezierPath::getBezierPathFromQVariant(value, path, GR_Bezier2d::maxDegree);
    } catch (const Exception&) { // Its sentence speaks of a point.
        return std::nullopt;
    }
    const GR_BezierPath2d& read = path.getBezier();
    if (read.IsEmpty())
        return std::nullopt;
    return cubic(read);
}

} // namespace OMC::strokepath
