#include "engine/drawings/liveleaf.h"

#include "engine/drawings/liveart.h"

namespace brindle::engine {

std::unique_ptr<LiveLeaf> LiveLeaf::make(quint32 id, GR_Layer::LayerType type)
{
    switch (type) {
    case GR_Layer::kText:
        return std::make_unique<TextLeaf>(id);
    case GR_Layer::kBitmap:
        return std::make_unique<BitmapLeaf>(id);
    default:
        return std::make_unique<StrokeLeaf>(id);
    }
}

UT_Node* LiveLeaf::nextLeaf() const
{
    LiveLeaf* next = m_art ? m_art->leafAt(m_place + 1) : nullptr;
    return next ? &next->node() : nullptr;
}

void LiveLeaf::stand(LiveArt& art, std::size_t place, const LayerValue& value)
{
    m_art = &art;
    m_place = place;
    const LayerPointer last = std::move(m_last);
    if (m_value == &value)
        return;
    m_value = &value;
    shown();
}

void LiveLeaf::follow(const LayerValue& value)
{
    m_value = &value;
    followed();
}

void LiveLeaf::leave(const LayerPointer& last)
{
    m_art = nullptr;
    m_last = last;
    m_value = last.get();
    shown();
}

LiveLeaf* liveLeaf(const UT_Node* node)
{
    return const_cast<LiveLeaf*>(dynamic_cast<const LiveLeaf*>(node));
}

const GR_TextLayer::Data& TextLeaf::GetData() const
{
    static const Data none;
    return shownValue() ? *shownValue()->text : none;
}

const TextLayout& TextLeaf::layout() const
{
    const auto text = shownValue() ? shownValue()->text : nullptr;
    if (!m_layout || m_laidOut != text) {
        m_layout = std::make_unique<TextLayout>(GetData());
        m_laidOut = text;
    }
    return *m_layout;
}

const GR_BitmapLayer::Data& BitmapLeaf::GetData() const
{
    static const Data none;
    return shownValue() ? *shownValue()->bitmap : none;
}

Math::Box2d BitmapLeaf::modelBox() const
{
    const Data& data = GetData();
    Math::Box2d box;
    if (data.pixels.isEmpty())
        return box;
    const double width = data.width;
    const double height = data.height;
    for (const Math::Point2d& corner : {Math::Point2d{0, 0}, {width, 0}, {0, height}, {width, height}})
        box.AddClosed(data.matrix * corner);
    return box;
}

} // namespace brindle::engine
