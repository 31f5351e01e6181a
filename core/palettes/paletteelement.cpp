#include "core/palettes/paletteelement.h"

#include "core/elements/element.h"

namespace OMC::palettelocation {

Element* newElement(int id)
{
    return id < 0 ? nullptr : new Element(id);
}

std::optional<int> elementIn(const QVariant& value)
{
    const auto* element = objectFrom<Element>(value);
    return element ? std::optional(element->getId()) : std::nullopt;
}

} // namespace OMC::palettelocation
