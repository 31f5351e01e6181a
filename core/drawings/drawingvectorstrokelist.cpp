#include "core/drawings/drawingvectorstrokelist.h"

#include "core/drawings/drawingedit.h"
#include "core/frame/found.h"

namespace OMC {

namespace {

std::vector<GR_StrokeData> dataOf(const std::vector<DrawingVectorStroke>& strokes)
{
    std::vector<GR_StrokeData> data;
    data.reserve(strokes.size());
    for (const DrawingVectorStroke& stroke : strokes)
        data.push_back(found(stroke.validateStroke()).GetStrokeData());
    return data;
}

} // namespace

DrawingVectorStrokeList::DrawingVectorStrokeList(DrawingLayerImplShared* layer) : LayerContents(layer) {}

std::string DrawingVectorStrokeList::__str__() const
{
    return "DrawingVectorStrokeList()";
}

std::vector<const GR_VectorStroke*> DrawingVectorStrokeList::read(const GR_Layer& layer) const
{
    return {layer.GetStrokeBegin(), layer.GetStrokeEnd()};
}

void DrawingVectorStrokeList::set(int index, const QVariant& value)
{
    const std::vector<const GR_VectorStroke*>& strokes = entries();
    if (index < 0 || static_cast<std::size_t>(index) >= strokes.size())
        throwIndexOutOfRange();
    const GR_VectorStroke* replaced = strokes[static_cast<std::size_t>(index)];
    GR_StrokeData data = replaced->GetStrokeData();
    if (const auto* other = objectFrom<DrawingVectorStroke>(value))
        data = found(other->validateStroke()).GetStrokeData();
    else
        data.SetPath(layerprimitives::pathArgument(value, 1));
    drawingedit::run(layer()->drawing(), layer()->key(), [&, id = replaced->id()](GR_DrawingAccess& access) {
        access.Replace(&found(layer()->strokes().FindStroke(id)), data);
    });
}

bool DrawingVectorStrokeList::contains(const QVariant& value) const
{
    validate();
    const auto* stroke = objectFrom<DrawingVectorStroke>(value);
    return stroke && stroke->layerRecord() == layer().get() && stroke->validateStroke();
}

QVariant DrawingVectorStrokeList::add(const QVariant& value)
{
    validate();
    const auto strokes = DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(value);
    const std::vector<GR_StrokeData> data =
        strokes.empty() ? std::vector{GR_StrokeData(layerprimitives::pathArgument(value, 0))} : dataOf(strokes);
    const bool isOne = strokes.empty() || objectFrom<DrawingVectorStroke>(value);
    return drawingedit::run(layer()->drawing(), layer()->key(), [&](GR_DrawingAccess& access) -> QVariant {
        const std::vector<quint32> ids = access.Insert(data, layer()->getLayer());
        const GR_Layer& own = layer()->strokes();
        QList<QVariant> made;
        for (const quint32 id : ids)
            made.append(toVariant(new DrawingVectorStroke(layer().get(), own.FindStroke(id))));
        return isOne ? made.front() : QVariant(made);
    });
}

} // namespace OMC
