#include "engine/drawings/drawingaccess.h"

#include "engine/drawings/strokechecks.h"

#include <algorithm>
#include <stdexcept>

namespace engine = brindle::engine;

using engine::LiveArt;
using engine::LiveLeaf;

// --- Listeners ------------------------------------------------------------------------------------------------------

GR_DrawingAccessBase::GR_DrawingAccessBase() = default;
GR_DrawingAccessBase::~GR_DrawingAccessBase() = default;

void GR_DrawingAccessBase::AddListener(GR_DrawingAccessListener* listener)
{
    if (listener && std::find(m_listeners.begin(), m_listeners.end(), listener) == m_listeners.end())
        m_listeners.push_back(listener);
}

void GR_DrawingAccessBase::RemoveListener(GR_DrawingAccessListener* listener)
{
    std::erase(m_listeners, listener);
}

// --- What operations have in common ---------------------------------------------------------------------------------

LiveArt& GR_DrawingAccess::Private::art() const
{
    if (!drawn)
        throw std::invalid_argument("No drawing is given to the access.");
    if (!drawn->drawing() || drawn->drawing()->IsGone())
        throw std::invalid_argument("The drawing is no longer there.");
    return *drawn;
}

LiveLeaf& GR_DrawingAccess::Private::leaf(const UT_Node* node) const
{
    const LiveArt& own = art();
    LiveLeaf* found = engine::liveLeaf(node);
    if (!found || !found->isInTree() || found->art()->drawing() != own.drawing())
        throw std::invalid_argument("The layer is not in the drawing.");
    return *found;
}

LiveLeaf& GR_DrawingAccess::Private::strokeLeaf(const UT_Node* node) const
{
    LiveLeaf& found = leaf(node);
    if (!found.strokes())
        throw std::invalid_argument("The layer has no strokes.");
    return found;
}

const engine::LiveStroke& GR_DrawingAccess::Private::stroke(const GR_VectorStroke* stroke) const
{
    const LiveStroke& found = source(stroke);
    if (found.layer().leaf().art()->drawing() != art().drawing())
        throw std::invalid_argument("The stroke is not in the drawing.");
    return found;
}

const LiveLeaf& GR_DrawingAccess::Private::source(const UT_Node* node)
{
    const LiveLeaf* found = engine::liveLeaf(node);
    if (!found || !found->isInTree())
        throw std::invalid_argument("The layer is in no drawing.");
    return *found;
}

const engine::LiveStroke& GR_DrawingAccess::Private::source(const GR_VectorStroke* stroke)
{
    const LiveStroke* found = engine::liveStroke(stroke);
    if (!found || !found->layer().leaf().isInTree() || found->index() >= found->layer().strokes().size())
        throw std::invalid_argument("The stroke is in no drawing.");
    return *found;
}

void GR_DrawingAccess::Private::aboutToChange()
{
    if (m_told == drawing().link())
        return;
    m_told = drawing().link();
    const auto told = m_access.listeners();
    for (GR_DrawingAccessListener* listener : told)
        listener->drawingAboutToChange();
}

UT_Node* GR_DrawingAccess::Private::insert(LiveArt& art, std::size_t place, const engine::LayerPointer& layer)
{
    aboutToChange();
    UT_Node& node = art.drawing()->insert(art, place, layer).node();
    const auto told = m_access.listeners();
    for (GR_DrawingAccessListener* listener : told)
        listener->nodeCreated(&node);
    return &node;
}

UT_Node* GR_DrawingAccess::Private::create(GR_Layer::LayerType type, LiveArt& art, std::size_t place)
{
    engine::requireLayerType(type);
    auto layer = std::make_shared<engine::LayerValue>();
    layer->type = type;
    if (type == GR_Layer::kText)
        layer->text = std::make_shared<const GR_TextLayer::Data>();
    if (type == GR_Layer::kBitmap)
        layer->bitmap = std::make_shared<const GR_BitmapLayer::Data>();
    layer->id = art.drawing()->newLayerId();
    return insert(art, place, layer);
}

void GR_DrawingAccess::Private::erase(LiveLeaf& leaf)
{
    aboutToChange();
    const auto told = m_access.listeners();
    for (GR_DrawingAccessListener* listener : told)
        listener->nodeAboutToBeRemoved(&leaf.node());
    drawing().take(leaf);
}

// --- The access -----------------------------------------------------------------------------------------------------

GR_DrawingAccess::GR_DrawingAccess(GR_DrawingAccessListener* changes) : d(std::make_unique<Private>(*this))
{
    AddListener(changes);
}

GR_DrawingAccess::~GR_DrawingAccess() = default;

void GR_DrawingAccess::SetDrawing(GR_VectorDrawingObj* drawing)
{
    LiveArt* art = engine::liveArt(drawing);
    if (drawing && !art)
        throw std::invalid_argument("The drawing is another engine's.");
    d->drawn.reset(art);
}

GR_VectorDrawingObj* GR_DrawingAccess::GetDrawing() const
{
    return d->drawn.data();
}

void GR_DrawingAccess::BeginOperations(int)
{
    d->isCommandOpen = true;
    d->copies.clear();
}

void GR_DrawingAccess::EndOperations(bool)
{
    d->isCommandOpen = false;
}

bool GR_DrawingAccess::commandModeOn() const
{
    return d->isCommandOpen;
}

GR_ColorDict* GR_DrawingAccess::GetColorDict() const
{
    return d->drawn && d->drawn->drawing() ? &d->drawn->drawing()->dict() : nullptr;
}

void GR_DrawingAccess::SetRespectSticky(bool respect)
{
    d->respectsSticky = respect;
}

UT_Node* GR_DrawingAccess::CreateLayerAbove(GR_Layer::LayerType type, UT_Node* reference)
{
    if (!reference)
        return d->create(type, d->art(), d->art().leaves().size());
    const LiveLeaf& leaf = d->leaf(reference);
    return d->create(type, *leaf.art(), leaf.place() + 1);
}

UT_Node* GR_DrawingAccess::CreateLayerUnder(GR_Layer::LayerType type, UT_Node* reference)
{
    if (!reference)
        return d->create(type, d->art(), 0);
    const LiveLeaf& leaf = d->leaf(reference);
    return d->create(type, *leaf.art(), leaf.place());
}

UT_Node* GR_DrawingAccess::CreateLayerNodeAt(GR_Layer::LayerType type, unsigned int index)
{
    if (index > d->art().leaves().size())
        throw std::invalid_argument("There is no such place among the layers.");
    return d->create(type, d->art(), index);
}

void GR_DrawingAccess::Erase(UT_Node* layer)
{
    d->erase(d->leaf(layer));
}

void GR_DrawingAccess::Copy(const UT_Node* source, UT_Node* target)
{
    const LiveLeaf& from = Private::source(source);
    LiveLeaf& to = d->leaf(target);
    if (!to.isFor(from.value().type))
        throw std::invalid_argument("The layers are of different kinds.");
    d->aboutToChange();
    if (to.strokes()) {
        std::vector<engine::StrokePointer> strokes;
        from.value().strokes.forEach([&](const engine::StrokePointer& stroke) {
            strokes.push_back(std::make_shared<engine::StrokeRecord>(
                engine::StrokeRecord{d->drawing().newStrokeId(), d->copies.of(stroke->data)}));
        });
        d->append(to, strokes);
        return;
    }
    const auto text = from.value().text;
    const auto bitmap = from.value().bitmap;
    engine::LayerValue& layer = d->drawing().edit(to);
    layer.text = text;
    layer.bitmap = bitmap;
}

void GR_DrawingAccess::Move(UT_Node* layer, UT_Node* target)
{
    LiveLeaf& leaf = d->leaf(layer);
    if (layer == target)
        return;
    LiveArt& art = target ? *d->leaf(target).art() : d->art();
    std::size_t place = target ? d->leaf(target).place() + 1 : art.leaves().size();
    if (leaf.art() == &art && leaf.place() < place)
        --place;
    if (leaf.art() == &art && leaf.place() == place)
        return;
    d->aboutToChange();
    d->drawing().insert(art, place, d->drawing().take(leaf));
}

UT_Node* GR_DrawingAccess::PasteNodeAt(const UT_Node* source, unsigned int index)
{
    const LiveLeaf& from = Private::source(source);
    LiveArt& art = d->art();
    if (index > art.leaves().size())
        throw std::invalid_argument("There is no such place among the layers.");
    return d->insert(art, index, d->copies.of(from.value(), d->drawing()));
}

UT_Node* GR_DrawingAccess::Merge(const std::vector<UT_Node*>& layers)
{
    std::vector<LiveLeaf*> leaves;
    for (const UT_Node* layer : layers) {
        LiveLeaf& leaf = d->strokeLeaf(layer);
        if (!leaves.empty() && leaf.art() != leaves.front()->art())
            throw std::invalid_argument("Layers of different art layers can't be merged.");
        if (std::find(leaves.begin(), leaves.end(), &leaf) == leaves.end())
            leaves.push_back(&leaf);
    }
    if (leaves.empty())
        return nullptr;
    std::sort(leaves.begin(), leaves.end(),
              [](const LiveLeaf* left, const LiveLeaf* right) { return left->place() < right->place(); });
    std::vector<engine::StrokePointer> strokes;
    for (std::size_t index = 1; index < leaves.size(); ++index)
        leaves[index]->value().strokes.forEach(
            [&strokes](const engine::StrokePointer& stroke) { strokes.push_back(stroke); });
    for (std::size_t index = leaves.size() - 1; index > 0; --index)
        d->erase(*leaves[index]);
    if (!strokes.empty())
        d->append(*leaves.front(), strokes);
    return &leaves.front()->node();
}

void GR_DrawingAccess::Clear()
{
    LiveArt& art = d->art();
    while (!art.leaves().empty())
        d->erase(*art.leaves().back());
}

void GR_DrawingAccess::Paste(const GR_VectorDrawingObj& source, const Math::Matrix2x3& transform)
{
    engine::requireMatrix(transform);
    const LiveArt* from = engine::liveArt(&source);
    LiveArt& art = d->art();
    if (!from || !from->drawing())
        throw std::invalid_argument("There is no drawing to paste.");
    engine::StrokeCopies copies(transform);
    std::vector<engine::LayerPointer> layers;
    for (const LiveLeaf* leaf : from->leaves())
        layers.push_back(copies.of(leaf->value(), d->drawing()));
    for (const engine::LayerPointer& layer : layers)
        d->insert(art, art.leaves().size(), layer);
}

bool GR_DrawingAccess::LayerLess(const UT_Node* left, const UT_Node* right)
{
    const LiveLeaf* first = engine::liveLeaf(left);
    const LiveLeaf* second = engine::liveLeaf(right);
    if (!first || !second || !first->isInTree() || !second->isInTree())
        return false;
    return std::pair(first->art()->index(), first->place()) < std::pair(second->art()->index(), second->place());
}

void GR_DrawingAccess::SetText(UT_Node* layer, const GR_TextLayer::Data& data)
{
    LiveLeaf& leaf = d->leaf(layer);
    if (!leaf.value().text)
        throw std::invalid_argument("The layer has no text.");
    engine::requireText(data);
    if (*leaf.value().text == data)
        return;
    auto text = std::make_shared<const GR_TextLayer::Data>(data);
    d->aboutToChange();
    d->drawing().edit(leaf).text = std::move(text);
}

void GR_DrawingAccess::SetBitmap(UT_Node* layer, const GR_BitmapLayer::Data& data)
{
    LiveLeaf& leaf = d->leaf(layer);
    if (!leaf.value().bitmap)
        throw std::invalid_argument("The layer has no picture.");
    engine::requireBitmap(data);
    if (*leaf.value().bitmap == data)
        return;
    auto bitmap = std::make_shared<const GR_BitmapLayer::Data>(data);
    d->aboutToChange();
    d->drawing().edit(leaf).bitmap = std::move(bitmap);
}
