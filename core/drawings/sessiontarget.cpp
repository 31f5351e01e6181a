#include "core/drawings/sessiontarget.h"

#include "core/drawings/drawingaccessimpl.h"
#include "core/drawings/drawinglayer.h"
#include "core/drawings/drawingvectorstroke.h"
#include "core/frame/exception.h"

#include <QCoreApplication>

#include <algorithm>

namespace OMC::sessiontarget {

namespace {

[[noreturn]] void refuse(const char* sentence)
{
    throw Exception(QCoreApplication::translate("OMC::DrawingAccess", sentence));
}

} // namespace

bool isOfSession(const DrawingLayerImplShared& record)
{
    const DrawingAccessImpl& session = DrawingAccessImpl::get();
    record.update();
    return session.active() && record.drawing()->GetComposite() == session.vectorDrawing()->GetComposite() &&
           !session.isErased(record);
}

void requireSession()
{
    BaseObject::validateThreadLock();
    if (!DrawingAccessImpl::get().active())
        refuse("No drawing is currently being modified.");
}

DrawingLayerImplShared::Pointer layerOrStroke(const QVariant& value)
{
    DrawingLayerImplShared::Pointer record;
    if (const auto* layer = objectFrom<DrawingLayer>(value))
        record = layer->record();
    else if (const auto* stroke = objectFrom<DrawingVectorStroke>(value))
        record = stroke->layerRecord()->shared_from_this();
    if (!record || !isOfSession(*record))
        refuse("Invalid target layer or stroke specified.");
    return record;
}

DrawingLayerImplShared::Pointer layerForStrokes(const QVariant& value)
{
    auto record = layerOrStroke(value);
    if (!record->hasStrokes())
        refuse("Invalid target layer or stroke specified.");
    return record;
}

std::vector<const DrawingLayer*> sourceLayers(const QVariant& value)
{
    auto layers = DrawingLayer::getDrawingLayerFromQVariant(value);
    const bool areThere = std::ranges::none_of(
        layers, [](const DrawingLayer* layer) { return DrawingAccessImpl::get().isErased(*layer->record()); });
    if (layers.empty() || !areThere)
        refuse("Invalid target layer specified.");
    return layers;
}

std::vector<const DrawingLayer*> ownLayers(const QVariant& value)
{
    auto layers = sourceLayers(value);
    if (!std::ranges::all_of(layers, [](const DrawingLayer* layer) { return isOfSession(*layer->record()); }))
        refuse("Invalid target layer specified.");
    std::ranges::stable_sort(layers, [](const DrawingLayer* left, const DrawingLayer* right) {
        return GR_DrawingAccess::LayerLess(left->getNode(), right->getNode());
    });
    return layers;
}

std::vector<DrawingVectorStroke> sourceStrokes(const QVariant& value)
{
    auto strokes = DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(value);
    const bool areThere = std::ranges::all_of(strokes, [](const auto& stroke) { return stroke.validateStroke(); });
    if (strokes.empty() || !areThere)
        refuse("Invalid stroke specified.");
    return strokes;
}

std::vector<DrawingVectorStroke> ownStrokes(const QVariant& value)
{
    auto strokes = sourceStrokes(value);
    if (!std::ranges::all_of(strokes, [](const auto& stroke) { return isOfSession(*stroke.layerRecord()); }))
        refuse("Invalid stroke specified.");
    return strokes;
}

} // namespace OMC::sessiontarget
