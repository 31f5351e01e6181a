#include "core/drawings/drawingaccess.h"

#include "core/drawings/drawingedit.h"
#include "core/drawings/drawinglayer.h"
#include "core/drawings/drawingvectorartlayer.h"
#include "core/drawings/drawingvectorlayer.h"
#include "core/drawings/layerdescription.h"
#include "core/drawings/sessiontarget.h"
#include "core/frame/found.h"
#include "core/frame/listqvar.h"

#include <algorithm>

namespace OMC {

namespace {

DrawingAccessImpl& session()
{
    return DrawingAccessImpl::get();
}

/// Runs an edit in the open session, on the art layer that it works on.
template <typename Edit>
auto inSession(Edit&& edit)
{
    return drawingedit::run(session().vectorDrawing(), session().getCurrentKey(), std::forward<Edit>(edit));
}

DrawingLayer* wrapperOf(UT_Node* leaf)
{
    return DrawingLayer::getWrapped(session().vectorDrawing(), &found(leaf, &BaseObject::throwUnexpected),
                                    session().getCurrentKey());
}

/// The leaves of the art layer under edit, lowest first.
std::vector<UT_Node*> leaves()
{
    std::vector<UT_Node*> all;
    for (UT_Node* leaf = session().vectorDrawing()->GetNonConstRootnode()->GetNextLeaf(); leaf;
         leaf = leaf->GetNextLeaf())
        all.push_back(leaf);
    return all;
}

/// The place for a new layer.
void requirePlace(unsigned int index)
{
    if (index > leaves().size())
        ListQVar::throwIndexOutOfRange();
}

const DrawingVectorArtLayer& artLayerIn(const QVariant& value)
{
    return found(objectFrom<DrawingVectorArtLayer>(value),
                 [] { return DrawingAccess::tr("Unexpected argument - a valid art-layer was not provided."); });
}

/// The leaves of layers, all of which have strokes.
std::vector<UT_Node*> strokeLeaves(const std::vector<const DrawingLayer*>& layers)
{
    std::vector<UT_Node*> nodes;
    for (const DrawingLayer* layer : layers) {
        nodes.push_back(layer->getNode());
        if (!dynamic_cast<GR_LayerNode*>(nodes.back()))
            throw Exception(DrawingAccess::tr("Invalid target layer specified."));
    }
    return nodes;
}

/// Whether both layers are of one kind: of strokes, of a text or of a picture.
bool isSameKind(const DrawingLayer& layer, const DrawingLayerImplShared& other)
{
    const auto kindOf = [](UT_Node* leaf) {
        return std::pair(dynamic_cast<GR_LayerNode*>(leaf) != nullptr, dynamic_cast<GR_TextNode*>(leaf) != nullptr);
    };
    return kindOf(layer.getNode()) == kindOf(other.getLayer());
}

/// Whether results come in a list, as the argument did.
bool isList(const QVariant& value)
{
    return value.typeId() == QMetaType::QVariantList;
}

} // namespace

std::string DrawingAccess::__str__() const
{
    return "DrawingAccess()";
}

bool DrawingAccess::getColourRespectSticky() const
{
    return session().getRespectSticky();
}

void DrawingAccess::setColourRespectSticky(bool respect)
{
    session().setRespectSticky(respect);
}

void DrawingAccess::vectorBeginOperations(const QVariant& artLayer)
{
    const DrawingVectorArtLayer& art = artLayerIn(artLayer);
    GR_VectorDrawingObj& drawing = foundAs<GR_VectorDrawingObj>(&art.drawingBase());
    bool created = false;
    session().vectorBegin(&drawing, art.getKey(), created);
}

void DrawingAccess::vectorEndOperations(bool finish)
{
    validateThreadLock();
    session().vectorEnd(finish);
}

Obj DrawingAccess::vectorLayerCreate(const QString& type)
{
    sessiontarget::requireSession();
    const GR_Layer::LayerType kind = DrawingAccessImpl::layerTypeFromQString(type);
    return inSession([&](GR_DrawingAccess& access) { return Obj(wrapperOf(access.CreateLayerAbove(kind, nullptr))); });
}

Obj DrawingAccess::vectorLayerCreateAbove(const QVariant& reference, const QString& type)
{
    return layerCreate(reference, type, false);
}

Obj DrawingAccess::vectorLayerCreateUnder(const QVariant& reference, const QString& type)
{
    return layerCreate(reference, type, true);
}

Obj DrawingAccess::layerCreate(const QVariant& reference, const QString& type, bool under)
{
    sessiontarget::requireSession();
    const auto target = sessiontarget::layerOrStroke(reference);
    const GR_Layer::LayerType kind = DrawingAccessImpl::layerTypeFromQString(type);
    return drawingedit::run(target->drawing(), target->key(), [&](GR_DrawingAccess& access) {
        UT_Node* leaf = under ? access.CreateLayerUnder(kind, target->getLayer())
                              : access.CreateLayerAbove(kind, target->getLayer());
        return Obj(
            DrawingLayer::getWrapped(target->drawing(), &found(leaf, &BaseObject::throwUnexpected), target->key()));
    });
}

Obj DrawingAccess::vectorLayerCreateAt(unsigned int index, const QString& type)
{
    sessiontarget::requireSession();
    requirePlace(index);
    const GR_Layer::LayerType kind = DrawingAccessImpl::layerTypeFromQString(type);
    return inSession([&](GR_DrawingAccess& access) { return Obj(wrapperOf(access.CreateLayerNodeAt(kind, index))); });
}

QList<QVariant> DrawingAccess::vectorLayersCreate(const QVariant& description)
{
    sessiontarget::requireSession();
    const std::vector<layerdescription::Layer> layers = layerdescription::layers(description);
    return inSession([&](GR_DrawingAccess& access) {
        QList<QVariant> made;
        for (UT_Node* leaf : layerdescription::make(access, layers))
            made.append(toVariant(wrapperOf(leaf)));
        return made;
    });
}

void DrawingAccess::vectorLayerCopy(const QVariant& layers, const QVariant& target)
{
    sessiontarget::requireSession();
    const auto sources = sessiontarget::sourceLayers(layers);
    const auto place = sessiontarget::layerOrStroke(target);
    if (!std::ranges::all_of(sources, [&](const DrawingLayer* layer) { return isSameKind(*layer, *place); }))
        throw Exception(tr("Invalid target layer specified."));
    inSession([&](GR_DrawingAccess& access) {
        for (const DrawingLayer* layer : sources)
            access.Copy(layer->getNode(), place->getLayer());
    });
}

void DrawingAccess::vectorLayerMove(const QVariant& layers, const QVariant& target)
{
    sessiontarget::requireSession();
    const auto moved = sessiontarget::ownLayers(layers);
    const auto place = sessiontarget::layerOrStroke(target);
    inSession([&](GR_DrawingAccess& access) {
        UT_Node* below = place->getLayer();
        for (const DrawingLayer* layer : moved) {
            UT_Node* leaf = layer->getNode();
            if (leaf != below)
                access.Move(leaf, below);
            layer->record()->moveTo(place->drawing(), place->key());
            below = leaf;
        }
    });
}

QVariant DrawingAccess::vectorLayerPasteAt(unsigned int index, const QVariant& layers)
{
    sessiontarget::requireSession();
    requirePlace(index);
    const auto sources = sessiontarget::sourceLayers(layers);
    return inSession([&](GR_DrawingAccess& access) -> QVariant {
        QList<QVariant> made;
        for (const DrawingLayer* layer : sources)
            made.append(toVariant(wrapperOf(access.PasteNodeAt(layer->getNode(), index++))));
        return isList(layers) ? QVariant(made) : made.first();
    });
}

void DrawingAccess::vectorLayerErase(const QVariant& layers)
{
    sessiontarget::requireSession();
    const auto erased = sessiontarget::ownLayers(layers);
    inSession([&](GR_DrawingAccess& access) {
        for (const DrawingLayer* layer : erased)
            access.Erase(layer->getNode());
    });
}

void DrawingAccess::vectorLayerEraseAt(unsigned int index)
{
    sessiontarget::requireSession();
    const std::vector<UT_Node*> all = leaves();
    if (index >= all.size())
        ListQVar::throwIndexOutOfRange();
    inSession([&](GR_DrawingAccess& access) { access.Erase(all[index]); });
}

Obj DrawingAccess::vectorLayersMerge(const QVariant& layers)
{
    sessiontarget::requireSession();
    const auto merged = sessiontarget::ownLayers(layers);
    const std::vector<UT_Node*> nodes = strokeLeaves(merged);
    const DrawingLayerImplShared& lowest = *merged.front()->record();
    return drawingedit::run(lowest.drawing(), lowest.key(), [&](GR_DrawingAccess& access) {
        UT_Node* leaf = &found(access.Merge(nodes), &BaseObject::throwUnexpected);
        return Obj(new DrawingVectorLayer(DrawingLayerImplShared::of(lowest.drawing(), leaf, lowest.key()).get()));
    });
}

int DrawingAccess::vectorLayerCut(const QVariant& layers)
{
    sessiontarget::requireSession();
    const std::vector<UT_Node*> nodes = strokeLeaves(sessiontarget::ownLayers(layers));
    return inSession([&](GR_DrawingAccess& access) {
        int cuts = 0;
        for (UT_Node* leaf : nodes)
            cuts += access.Cut(leaf);
        return cuts;
    });
}

void DrawingAccess::artLayerPaste(const QVariant& target, const QVariant& source)
{
    sessiontarget::requireSession();
    const DrawingVectorArtLayer& art = artLayerIn(target);
    GR_VectorDrawingObj& drawing = foundAs<GR_VectorDrawingObj>(&art.drawingBase());
    GR_VectorDrawingObj& pasted =
        source.isValid() ? foundAs<GR_VectorDrawingObj>(&artLayerIn(source).drawingBase()) : *session().vectorDrawing();
    drawingedit::run(&drawing, art.getKey(), [&](GR_DrawingAccess& access) { access.Paste(pasted); });
}

} // namespace OMC
