#include "engine/drawings/liveart.h"

#include "engine/drawings/livedrawing.h"

#include <algorithm>
#include <cmath>

namespace brindle::engine {

LiveArt* liveArt(const GR_DrawingBase* art)
{
    return const_cast<LiveArt*>(dynamic_cast<const LiveArt*>(art));
}

LiveArt::LiveArt(LiveDrawing& drawing, int index) : m_drawing(&drawing), m_index(index) {}

UT_Node* LiveArt::Root::GetNextLeaf() const
{
    LiveLeaf* first = m_art.leafAt(0);
    return first ? &first->node() : nullptr;
}

const ArtValue& LiveArt::value() const
{
    return *m_drawing->value()->arts[static_cast<std::size_t>(m_index)];
}

void LiveArt::show(const ArtValue& value, std::vector<LiveLeaf*> leaves)
{
    std::swap(m_leaves, leaves);
    for (std::size_t place = 0; place < m_leaves.size(); ++place)
        m_leaves[place]->stand(*this, place, *value.layers[place]);
    for (LiveLeaf* before : leaves) {
        if (before->art() == this && leafAt(before->place()) != before)
            before->leave();
    }
}

void LiveArt::insert(LiveLeaf& leaf, std::size_t place, const LayerValue& value)
{
    m_leaves.insert(m_leaves.begin() + static_cast<std::ptrdiff_t>(place), &leaf);
    leaf.stand(*this, place, value);
    for (std::size_t behind = place + 1; behind < m_leaves.size(); ++behind)
        m_leaves[behind]->shift(behind);
}

void LiveArt::remove(LiveLeaf& leaf, const LayerPointer& last)
{
    const std::size_t place = leaf.place();
    m_leaves.erase(m_leaves.begin() + static_cast<std::ptrdiff_t>(place));
    leaf.leave(last);
    for (std::size_t behind = place; behind < m_leaves.size(); ++behind)
        m_leaves[behind]->shift(behind);
}

void LiveArt::drawingIsGone()
{
    m_lastRevision = m_drawing->revision() + 1;
    m_drawing = nullptr;
    m_leaves.clear();
}

GR_CompositeVectorDrawingObj* LiveArt::GetComposite() const
{
    return m_drawing;
}

int LiveArt::GetRevision() const
{
    return m_drawing ? m_drawing->revision() : m_lastRevision;
}

bool LiveArt::HasLeaf(const UT_Node* node) const
{
    // Without the drawing there are no leaves that could be asked.
    const LiveLeaf* leaf = m_drawing ? liveLeaf(node) : nullptr;
    return leaf && leaf->art() == this;
}

bool LiveArt::IsEmpty() const
{
    return !m_drawing || value().isEmpty();
}

Math::Box2d LiveArt::GetWorldBBox() const
{
    Math::Box2d box;
    for (const LiveLeaf* leaf : m_leaves)
        box.AddClosed(leaf->box());
    return box;
}

Math::Box2d LiveArt::GetVisibleWorldBBox() const
{
    Math::Box2d box;
    for (const LiveLeaf* leaf : m_leaves)
        box.AddClosed(leaf->visibleBox());
    return box;
}

double LiveArt::GetMaxThickness() const
{
    double thickness = 0;
    for (const LiveLeaf* leaf : m_leaves)
        thickness = std::max(thickness, leaf->thickness());
    return thickness;
}

std::vector<const GR_Contour*> LiveArt::FindContainingContours(const Math::Point2d& point) const
{
    std::vector<const GR_Contour*> contours;
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return contours;
    for (auto leaf = m_leaves.rbegin(); leaf != m_leaves.rend(); ++leaf) {
        const LiveLayer* layer = (*leaf)->strokes();
        if (!layer)
            continue;
        for (const int contour : layer->map().contoursAround(point))
            contours.push_back(&layer->contour(contour));
    }
    return contours;
}

} // namespace brindle::engine
