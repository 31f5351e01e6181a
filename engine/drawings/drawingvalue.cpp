#include "engine/drawings/drawingvalue.h"

#include "engine/drawings/drawingfile.h"

#include <algorithm>

namespace brindle::engine {

namespace {

template <typename Value>
bool equal(const std::shared_ptr<const Value>& first, const std::shared_ptr<const Value>& second)
{
    return first == second || (first && second && *first == *second);
}

} // namespace

bool LayerValue::isEmpty() const
{
    return strokes.isEmpty() && (!text || text->text.isEmpty()) && (!bitmap || bitmap->pixels.isEmpty());
}

bool LayerValue::operator==(const LayerValue& other) const
{
    return id == other.id && type == other.type && strokes == other.strokes && equal(text, other.text) &&
           equal(bitmap, other.bitmap);
}

bool ArtValue::isEmpty() const
{
    return std::all_of(layers.begin(), layers.end(), [](const LayerPointer& layer) { return layer->isEmpty(); });
}

bool ArtValue::operator==(const ArtValue& other) const
{
    return std::equal(layers.begin(), layers.end(), other.layers.begin(), other.layers.end(), equal<LayerValue>);
}

const DrawingPointer& DrawingValue::blank()
{
    static const DrawingPointer value = [] {
        auto made = std::make_shared<DrawingValue>();
        made->arts.fill(std::make_shared<ArtValue>());
        return made;
    }();
    return value;
}

bool DrawingValue::isEmpty() const
{
    return std::all_of(arts.begin(), arts.end(), [](const ArtPointer& art) { return !art || art->isEmpty(); });
}

QByteArray DrawingValue::bytes() const
{
    return drawingFileBytes(*this);
}

bool haveEqualArts(const DrawingValue& first, const DrawingValue& second)
{
    return std::equal(first.arts.begin(), first.arts.end(), second.arts.begin(), equal<ArtValue>);
}

} // namespace brindle::engine
