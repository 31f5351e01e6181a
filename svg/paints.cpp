#include "svg/paints.h"

#include <QGradient>

#include <algorithm>
#include <cmath>

namespace brindle::svg {

namespace {

constexpr int kMaxMarkers = 8; ///< A palette's gradient has no more.

CM_Rgba rgbaOf(const QColor& colour, double opacity)
{
    const QColor rgb = colour.toRgb();
    return {static_cast<unsigned char>(rgb.red()), static_cast<unsigned char>(rgb.green()),
            static_cast<unsigned char>(rgb.blue()),
            static_cast<unsigned char>(std::lround(std::clamp(rgb.alphaF() * opacity, 0.0, 1.0) * 255))};
}

/// From a gradient's own coordinates to those of the shape it paints, as a painter has them.
QTransform placeOf(const QBrush& brush, const QRectF& shape)
{
    const QTransform toShape(shape.width(), 0, 0, shape.height(), shape.x(), shape.y());
    switch (brush.gradient()->coordinateMode()) {
    case QGradient::ObjectMode:
        return brush.transform() * toShape;
    case QGradient::ObjectBoundingMode:
        return toShape * brush.transform();
    default:
        return brush.transform();
    }
}

Math::Matrix2x3 matrixOf(const QTransform& transform)
{
    return {{transform.m11(), transform.m12()}, {transform.m21(), transform.m22()}, {transform.dx(), transform.dy()}};
}

} // namespace

OMC::svg::Paint paintOf(const QBrush& brush, const QRectF& shape, const QTransform& transform, double opacity,
                        QStringList& notCarried)
{
    using OMC::svg::Paint;
    Paint paint;
    const QGradient* gradient = brush.gradient();
    if (!gradient) {
        if (brush.style() == Qt::NoBrush)
            return paint;
        paint.kind = Paint::Solid;
        paint.markers = {{0, rgbaOf(brush.color(), opacity)}};
        return paint;
    }

    for (const QGradientStop& stop : gradient->stops())
        paint.markers.push_back({stop.first, rgbaOf(stop.second, opacity)});
    if (paint.markers.size() > kMaxMarkers) {
        notCarried.append(QStringLiteral("Gradients of more than %1 stops have only %1.").arg(kMaxMarkers));
        CM_GradientDataCol fewer;
        for (int i = 0; i < kMaxMarkers; ++i)
            fewer.push_back(paint.markers[i * (paint.markers.size() - 1) / (kMaxMarkers - 1)]);
        paint.markers = std::move(fewer);
    }
    if (gradient->spread() != QGradient::PadSpread)
        notCarried.append(QStringLiteral("Gradients that repeat are shown once."));

    QTransform own;
    if (gradient->type() == QGradient::LinearGradient) {
        const auto* linear = static_cast<const QLinearGradient*>(gradient);
        const QPointF along = linear->finalStop() - linear->start();
        paint.kind = Paint::Linear;
        own = QTransform(along.x(), along.y(), -along.y(), along.x(), linear->start().x(), linear->start().y());
    } else {
        const auto* radial = static_cast<const QRadialGradient*>(gradient);
        if (radial->focalPoint() != radial->center())
            notCarried.append(QStringLiteral("Radial gradients spread from their centre, not from their focal point."));
        paint.kind = Paint::Radial;
        own = QTransform(radial->radius(), 0, 0, radial->radius(), radial->center().x(), radial->center().y());
    }
    const QTransform place = own * placeOf(brush, shape) * transform;
    const bool isUsable = std::isfinite(place.determinant()) && place.determinant() != 0;
    if (paint.markers.size() < 2 || !isUsable) {
        // By SVG 1.1, section 13.2, a gradient without a length paints the colour of its last stop.
        paint.kind = Paint::Solid;
        paint.markers = {{0, paint.markers.empty() ? CM_Rgba{0, 0, 0, 0} : paint.markers.back().rgba}};
        return paint;
    }
    paint.matrix = matrixOf(place);
    return paint;
}

} // namespace brindle::svg
