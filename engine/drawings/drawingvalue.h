#pragma once

#include "core/host/gr_drawing.h"
#include "engine/drawings/strokesequence.h"
#include "engine/elements/drawingcontent.h"

#include <array>
#include <memory>
#include <vector>

namespace brindle::engine {

/// What a layer holds: strokes, or a text, or a picture, as its type says.
struct LayerValue {
    quint32 id = 0;
    GR_Layer::LayerType type = GR_Layer::kUndefined;
    StrokeSequence strokes;
    std::shared_ptr<const GR_TextLayer::Data> text;     ///< Not null in a text layer, null in others.
    std::shared_ptr<const GR_BitmapLayer::Data> bitmap; ///< Not null in a bitmap layer, null in others.

    bool isEmpty() const;
    bool operator==(const LayerValue& other) const;
};
using LayerPointer = std::shared_ptr<const LayerValue>;

/// What an art layer holds: its layers, bottom first.
struct ArtValue {
    std::vector<LayerPointer> layers;

    bool isEmpty() const;
    bool operator==(const ArtValue& other) const;
};
using ArtPointer = std::shared_ptr<const ArtValue>;

/// What a drawing holds. A value that nobody changes while two hold it: an edit makes copies of the parts that it
/// touches and shares the rest, so that keeping how a drawing was costs what differs.
struct DrawingValue final : ContentValue {
    std::array<ArtPointer, GR_CompositeVectorDrawingObj::kArtCount> arts; ///< Null where the drawing lacks one.
    GR_CompositeDrawingInfo info;
    /// The highest ids that a layer and a stroke of the drawing have had.
    quint32 lastLayerId = 0;
    quint32 lastStrokeId = 0;

    /// A drawing with four art layers and nothing in them.
    static const std::shared_ptr<const DrawingValue>& blank();

    bool isEmpty() const;
    QByteArray bytes() const override; ///< Of its file (drawingfile.h).
};
using DrawingPointer = std::shared_ptr<const DrawingValue>;

/// Whether both have equal art layers, whatever else is noted about them.
bool haveEqualArts(const DrawingValue& first, const DrawingValue& second);

/// The value for changing: its own, or a copy of one that others hold too. Values are made by std::make_shared of the
/// type without `const`.
template <typename Value>
Value& unshared(std::shared_ptr<const Value>& held)
{
    if (held.use_count() != 1)
        held = std::make_shared<Value>(*held);
    return const_cast<Value&>(*held);
}

} // namespace brindle::engine
