#include "core/drawings/drawingvectorlayer.h"

#include "core/drawings/drawingedit.h"
#include "core/drawings/drawingvalues.h"
#include "core/drawings/drawingvectorcontourlist.h"
#include "core/drawings/drawingvectorjointlist.h"
#include "core/drawings/drawingvectorstrokelist.h"
#include "core/drawings/scratchdrawing.h"
#include "core/frame/found.h"

namespace OMC {

std::string DrawingVectorLayer::__str__() const
{
    return "DrawingVectorLayer()";
}

void DrawingVectorLayer::validate() const
{
    DrawingLayer::validate();
    foundAs<GR_LayerNode>(record()->getLayer());
}

GR_Layer& DrawingVectorLayer::layer() const
{
    validate();
    return record()->strokes();
}

GR_Layer& DrawingVectorLayer::measuredLayer() const
{
    GR_Layer& measured = layer();
    drawingedit::onHost([&] { measured.UpdateBoxes(); });
    return measured;
}

QVariant DrawingVectorLayer::getBoundingBox() const
{
    return drawingvalues::rectangle(measuredLayer().GetBox());
}

QVariant DrawingVectorLayer::getBoundingBoxVisible() const
{
    return drawingvalues::rectangle(measuredLayer().GetVisibleBox());
}

QVariant DrawingVectorLayer::getBoundingBoxLinestyle() const
{
    return drawingvalues::rectangle(measuredLayer().GetLineStyleBox());
}

QString DrawingVectorLayer::getType() const
{
    validate();
    return QStringLiteral("Vector");
}

Obj DrawingVectorLayer::getContours() const
{
    return Obj(newContours());
}

Obj DrawingVectorLayer::getStrokes() const
{
    return Obj(newStrokes());
}

Obj DrawingVectorLayer::getJoints() const
{
    return Obj(newJoints());
}

DrawingVectorContourList* DrawingVectorLayer::newContours() const
{
    validate();
    return new DrawingVectorContourList(record().get());
}

DrawingVectorStrokeList* DrawingVectorLayer::newStrokes() const
{
    validate();
    return new DrawingVectorStrokeList(record().get());
}

DrawingVectorJointList* DrawingVectorLayer::newJoints() const
{
    validate();
    return new DrawingVectorJointList(record().get());
}

void DrawingVectorLayer::transform(const QVariant& matrix)
{
    validate();
    transformBy(drawingvalues::matrixArgument(matrix));
}

void DrawingVectorLayer::translate(const QVariant& vector)
{
    validate();
    transformBy(drawingvalues::translationArgument(vector));
}

void DrawingVectorLayer::transformBy(const Math::Matrix2x3& matrix)
{
    drawingedit::run(record()->drawing(), record()->key(), [&](GR_DrawingAccess& access) {
        UT_Node* leaf = record()->getLayer();
        const GR_Layer& strokes = record()->strokes();
        ScratchDrawing copy;
        copy.access().Copy(leaf, copy.access().CreateLayerAbove(strokes.GetType(), nullptr));
        ScratchDrawing transformed;
        transformed.access().Paste(copy.art(), matrix);
        while (strokes.GetStrokeBegin() != strokes.GetStrokeEnd())
            access.Erase(strokes.FindStroke((*(strokes.GetStrokeEnd() - 1))->id()));
        access.Copy(transformed.firstLayer(), leaf);
    });
}

} // namespace OMC
