#include "core/drawings/drawingartlayer.h"

#include "core/drawings/drawingpresence.h"
#include "core/drawings/drawingvectorartlayer.h"
#include "core/drawings/objectsin.h"

namespace OMC {

DrawingArtLayer::DrawingArtLayer(GR_DrawingBase* drawing, const CA_DrawingLayerKey& key)
    : m_drawing(drawing),
      m_key(key)
{}

std::string DrawingArtLayer::__str__() const
{
    return "DrawingArtLayer()";
}

void DrawingArtLayer::validate() const
{
    if (!drawingpresence::isThere(m_drawing)) {
        m_drawing.reset();
        throwInvalid();
    }
    validateThreadLock();
}

GR_DrawingBase& DrawingArtLayer::drawingBase() const
{
    validate();
    return *m_drawing;
}

bool DrawingArtLayer::operator==(const DrawingArtLayer* other) const
{
    return other == this || (other && m_drawing && m_drawing == other->m_drawing);
}

DrawingArtLayer* DrawingArtLayer::getWrapped(GR_DrawingBase* drawing, const CA_DrawingLayerKey& key)
{
    if (auto* vector = dynamic_cast<GR_VectorDrawingObj*>(drawing))
        return new DrawingVectorArtLayer(vector, key);
    return new DrawingArtLayer(drawing, key);
}

void DrawingArtLayer::getDrawingBaseFromQVariant(const QVariant& value, std::set<GR_DrawingBase*>& seen,
                                                 std::vector<GR_DrawingBase*>& drawings)
{
    forEachObject(value, [&](const QObject* object) {
        const auto* art = dynamic_cast<const DrawingArtLayer*>(object);
        if (art && seen.insert(&art->drawingBase()).second)
            drawings.push_back(&art->drawingBase());
    });
}

} // namespace OMC
