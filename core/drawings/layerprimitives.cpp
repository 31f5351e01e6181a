#include "core/drawings/layerprimitives.h"

#include "core/drawings/drawingvectorcontour.h"
#include "core/drawings/drawingvectorstroke.h"
#include "core/drawings/strokepath.h"

#include <optional>

namespace OMC::layerprimitives {

QList<QVariant> strokes(DrawingLayerImplShared& layer, const std::vector<const GR_VectorStroke*>& strokes)
{
    QList<QVariant> wrapped;
    wrapped.reserve(static_cast<qsizetype>(strokes.size()));
    for (const GR_VectorStroke* stroke : strokes)
        wrapped.append(toVariant(new DrawingVectorStroke(&layer, stroke)));
    return wrapped;
}

QList<QVariant> contours(DrawingLayerImplShared& layer, const std::vector<const GR_Contour*>& contours)
{
    QList<QVariant> wrapped;
    wrapped.reserve(static_cast<qsizetype>(contours.size()));
    for (const GR_Contour* contour : contours)
        wrapped.append(toVariant(new DrawingVectorContour(&layer, contour)));
    return wrapped;
}

GR_BezierPath2d pathArgument(const QVariant& value, unsigned int argument)
{
    std::optional<GR_BezierPath2d> path;
    try {
        path = strokepath::read(value);
    } catch (const Exception&) {
        BaseObject::throwInvalidArgument(argument);
    }
    if (!path)
        BaseObject::throwInvalidArgument(argument);
    return *std::move(path);
}

} // namespace OMC::layerprimitives
