#include "core/drawings/drawingbitmaplayer.h"

#include "core/drawings/drawingvalues.h"
#include "core/frame/found.h"

namespace OMC {

std::string DrawingBitmapLayer::__str__() const
{
    return "DrawingBitmapLayer()";
}

void DrawingBitmapLayer::validate() const
{
    DrawingLayer::validate();
    foundAs<GR_BitmapNode>(record()->getLayer());
}

QVariant DrawingBitmapLayer::getBoundingBox() const
{
    validate();
    return drawingvalues::rectangle(foundAs<GR_BitmapNode>(getNode()).GetLayer()->modelBox());
}

QVariant DrawingBitmapLayer::getBoundingBoxVisible() const
{
    return getBoundingBox();
}

QString DrawingBitmapLayer::getType() const
{
    validate();
    return QStringLiteral("Bitmap");
}

} // namespace OMC
