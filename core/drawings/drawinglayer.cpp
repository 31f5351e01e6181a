#include "core/drawings/drawinglayer.h"

#include "core/drawings/drawing.h"
#include "core/drawings/drawingbitmaplayer.h"
#include "core/drawings/drawingtextlayer.h"
#include "core/drawings/drawingvalues.h"
#include "core/drawings/drawingvectorlayer.h"
#include "core/drawings/objectsin.h"
#include "core/frame/found.h"

namespace OMC {

DrawingLayer::DrawingLayer(DrawingLayerImplShared* layer) : m_record(layer->shared_from_this()) {}

std::string DrawingLayer::__str__() const
{
    return "DrawingLayer()";
}

void DrawingLayer::validate() const
{
    m_record->update();
    validateThreadLock();
}

UT_Node* DrawingLayer::getNode() const
{
    validate();
    return m_record->getLayer();
}

bool DrawingLayer::operator==(const DrawingLayer* other) const
{
    return other && m_record == other->m_record;
}

Obj DrawingLayer::drawing() const
{
    validate();
    return Obj(new Drawing(m_record->drawing()->GetComposite(), m_record->key().cel()));
}

QVariant DrawingLayer::getBoundingBox() const
{
    validate();
    return drawingvalues::rectangle({});
}

QVariant DrawingLayer::getBoundingBoxVisible() const
{
    validate();
    return drawingvalues::rectangle({});
}

QVariant DrawingLayer::getBoundingBoxLinestyle() const
{
    validate();
    return drawingvalues::rectangle({});
}

QString DrawingLayer::getType() const
{
    validate();
    return QStringLiteral("Unknown");
}

DrawingLayer* DrawingLayer::getWrapped(GR_VectorDrawingObj* drawing, UT_Node* layer, const CA_DrawingLayerKey& key)
{
    const auto record = [&] { return DrawingLayerImplShared::of(drawing, layer, key); };
    if (dynamic_cast<GR_LayerNode*>(layer))
        return new DrawingVectorLayer(record().get());
    if (dynamic_cast<GR_BitmapNode*>(layer))
        return new DrawingBitmapLayer(record().get());
    if (dynamic_cast<GR_TextNode*>(layer))
        return new DrawingTextLayer(record().get());
    return nullptr;
}

void DrawingLayer::getDrawingLayerFromQVariant(const QVariant& value, std::set<UT_Node*>& nodes,
                                               std::vector<const DrawingLayer*>& layers)
{
    forEachObject(value, [&](const QObject* object) {
        const auto* layer = dynamic_cast<const DrawingLayer*>(object);
        if (layer && nodes.insert(layer->getNode()).second)
            layers.push_back(layer);
    });
}

std::vector<const DrawingLayer*> DrawingLayer::getDrawingLayerFromQVariant(const QVariant& value)
{
    std::set<UT_Node*> nodes;
    std::vector<const DrawingLayer*> layers;
    getDrawingLayerFromQVariant(value, nodes, layers);
    return layers;
}

} // namespace OMC
