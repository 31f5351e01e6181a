#pragma once

#include "core/drawings/svgpicture.h"

#include <QBrush>
#include <QRectF>
#include <QStringList>
#include <QTransform>

namespace brindle::svg {

/// The paint that a brush is. `shape` is the box of the shape it paints, `transform` leads from there to the drawing;
/// `opacity` is multiplied into the alpha of all colours. What a drawing can't have goes to `notCarried`.
OMC::svg::Paint paintOf(const QBrush& brush, const QRectF& shape, const QTransform& transform, double opacity,
                        QStringList& notCarried);

} // namespace brindle::svg
