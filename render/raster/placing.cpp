#include "render/raster/placing.h"

namespace brindle::render {

QTransform transformOf(const Math::Matrix2x3& matrix)
{
    return {matrix.xAxis().x, matrix.xAxis().y,  matrix.yAxis().x,
            matrix.yAxis().y, matrix.origin().x, matrix.origin().y};
}

GR_BezierPath2d rectanglePath(double width, double height, const Math::Matrix2x3& matrix)
{
    GR_BezierPath2d path;
    for (const Math::Point2d& corner : {Math::Point2d{0, 0}, {width, 0}, {width, height}, {0, height}, {0, 0}})
        path.Append(matrix * corner, true);
    return path;
}

} // namespace brindle::render
