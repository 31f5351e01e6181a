#include "engine/drawings/contourpath.h"

namespace brindle::engine {

GR_BezierPath2d contourPath(const PlanarMap& map, int contour)
{
    GR_BezierPath2d closed;
    for (const int edge : map.halfEdges(contour)) {
        const GR_BezierPath2d& path = map.path(PlanarMap::strokeOf(edge));
        const unsigned int count = path.GetNumBezier();
        for (unsigned int i = 0; i < count; ++i) {
            const bool isLeft = PlanarMap::sideOf(edge) == PlanarMap::Left;
            GR_Bezier2d curve = path.GetBezier(isLeft ? i : count - 1 - i);
            if (!isLeft)
                curve.Reverse();
            closed.Append(curve);
        }
    }
    return closed;
}

bool contourIsInside(const PlanarMap& map, int contour, const GR_BezierPath2d& path, Math::Constants::FillType fill)
{
    return contourPath(map, contour).IsInside(path, fill);
}

bool contourIsContaining(const PlanarMap& map, int contour, const GR_BezierPath2d& path, Math::Constants::FillType fill)
{
    return path.IsInside(contourPath(map, contour), fill);
}

bool contourIsOutside(const PlanarMap& map, int contour, const GR_BezierPath2d& path, Math::Constants::FillType fill)
{
    const GR_BezierPath2d closed = contourPath(map, contour);
    return closed.IsOutside(path, fill) && path.IsOutside(closed, fill);
}

} // namespace brindle::engine
