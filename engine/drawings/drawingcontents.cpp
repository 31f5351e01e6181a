#include "engine/drawings/drawingcontents.h"

#include "engine/drawings/drawingfile.h"
#include "engine/elements/elementmanager.h"

namespace brindle::engine {

namespace {

/// What a key names: a drawing of an element of vector drawings, in a layer that there is.
struct Named {
    Element* element = nullptr;
    Drawing* drawing = nullptr;
    EM_LayerId layer = EM_DefaultLayerId;
};

Named named(ElementManager& elements, const CA_CelKey& key)
{
    Element* element = key.isValid() ? elements.find(key.element().elementId()) : nullptr;
    const EM_LayerId layer = key.element().layerId();
    if (!element || element->vectorType() == TUElement::kNoVector ||
        (layer != EM_DefaultLayerId && !element->findLayer(layer)))
        return {};
    return {element, element->drawings().find(key.element().drawingId()), layer};
}

LiveDrawing* liveOf(ElementManager& elements, const Named& place)
{
    Drawing& drawing = *place.drawing;
    if (LiveDrawing* live = drawing.live(place.layer, drawing.version))
        return live;
    LiveDrawingPointer live(new LiveDrawing(elements.contents(), elements.history(), drawing.content(place.layer)));
    constexpr double standardChart = 12;
    live->setScale(
        [element = place.element, &drawing] { return element->fieldChart() / standardChart * drawing.scaleFactor; });
    drawing.setLive(place.layer, drawing.version, live);
    return live.data();
}

} // namespace

DrawingPointer drawingValueOf(const ContentPointer& content)
{
    if (!content)
        return DrawingValue::blank();
    if (auto known = std::dynamic_pointer_cast<const DrawingValue>(content->value()))
        return known;
    DrawingPointer value = readDrawingFile(content->shownPath(), content->bytes());
    content->remember(value);
    return value;
}

LiveDrawing* vectorDrawing(ElementManager& elements, const CA_CelKey& key)
{
    const Named place = named(elements, key);
    return place.drawing && place.drawing->content(place.layer) ? liveOf(elements, place) : nullptr;
}

LiveDrawing* createVectorDrawing(ElementManager& elements, const CA_CelKey& key)
{
    const Named place = named(elements, key);
    if (!place.drawing)
        return nullptr;
    if (!place.drawing->content(place.layer)) {
        place.drawing->setContent(place.layer, place.drawing->version,
                                  elements.contents().fromValue(DrawingValue::blank()));
        elements.tellChanged();
    }
    return liveOf(elements, place);
}

} // namespace brindle::engine
