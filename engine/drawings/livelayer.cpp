#include "engine/drawings/livelayer.h"

#include "engine/drawings/cutting.h"
#include "engine/drawings/strokebounds.h"

namespace brindle::engine {

const StrokeSequence& LiveLayer::noStrokes()
{
    static const StrokeSequence none;
    return none;
}

const LiveStroke& LiveLayer::stroke(std::size_t index) const
{
    while (m_strokes.size() <= index)
        m_strokes.emplace_back(*this, m_strokes.size());
    return m_strokes[index];
}

const std::vector<const GR_VectorStroke*>& LiveLayer::pointers() const
{
    const std::size_t count = strokes().size();
    while (m_pointers.size() < count)
        m_pointers.push_back(&stroke(m_pointers.size()));
    return m_pointers;
}

std::vector<const GR_VectorStroke*> LiveLayer::strokesAt(const std::vector<int>& indices) const
{
    std::vector<const GR_VectorStroke*> found;
    found.reserve(indices.size());
    for (const int index : indices)
        found.push_back(&stroke(static_cast<std::size_t>(index)));
    return found;
}

/// New strokes have the highest ids, so that most layers have them in ascending order.
std::optional<std::size_t> LiveLayer::indexOf(quint32 id) const
{
    const StrokeSequence& all = strokes();
    if (m_order == Order::Unknown) {
        m_order = Order::Ascending;
        quint32 last = 0;
        all.forEach([&](const StrokePointer& stroke) {
            if (stroke->id <= last)
                m_order = Order::Any;
            last = stroke->id;
        });
        m_indices.clear();
        if (m_order == Order::Any) {
            std::size_t index = 0;
            all.forEach([&](const StrokePointer& stroke) { m_indices.emplace(stroke->id, index++); });
        }
    }
    if (m_order == Order::Any) {
        const auto found = m_indices.find(id);
        return found == m_indices.end() ? std::nullopt : std::optional(found->second);
    }
    std::size_t low = 0;
    for (std::size_t high = all.size(); low < high;) {
        const std::size_t middle = (low + high) / 2;
        if (all.at(middle)->id < id)
            low = middle + 1;
        else
            high = middle;
    }
    return low < all.size() && all.at(low)->id == id ? std::optional(low) : std::nullopt;
}

const LiveLayer::Topology& LiveLayer::topology() const
{
    if (!m_topology) {
        std::vector<MapStroke> read;
        read.reserve(strokes().size());
        strokes().forEach([&read](const StrokePointer& stroke) {
            read.push_back({stroke->id, &stroke->data.GetPath()});
        });
        auto topology = std::make_unique<Topology>(Topology{PlanarMap(read), {}, {}});
        for (int index = 0; index < topology->map.contourCount(); ++index)
            topology->contours.emplace_back(*this, index);
        m_topology = std::move(topology);
    }
    return *m_topology;
}

const PlanarMap& LiveLayer::map() const
{
    return topology().map;
}

const LiveContour& LiveLayer::contour(int index) const
{
    return topology().contours[static_cast<std::size_t>(index)];
}

bool LiveLayer::isCrossed(int component) const
{
    const Topology& known = topology();
    if (!known.crossed)
        known.crossed = crossedComponents(known.map, JointGrid::defaultReach);
    return (*known.crossed)[static_cast<std::size_t>(component)];
}

GR_ColorPtr LiveLayer::paintOf(int contour) const
{
    for (const int halfEdge : map().halfEdges(contour)) {
        const auto index = static_cast<std::size_t>(PlanarMap::strokeOf(halfEdge));
        const GR_ColorPtr& colour = strokes().at(index)->data.GetColor(PlanarMap::sideOf(halfEdge));
        if (colour && colour->GetColorID() != GR_Color::eraserId())
            return colour;
    }
    return nullptr;
}

JointGrid& LiveLayer::joints() const
{
    if (!m_joints) {
        m_joints = std::make_unique<JointGrid>();
        strokes().forEach([this](const StrokePointer& stroke) { m_joints->add(stroke->data.GetPath()); });
    }
    return *m_joints;
}

GR_BezierPath2d LiveLayer::snapped(const GR_BezierPath2d& path, const GR_BezierPath2d* own) const
{
    JointGrid& grid = joints();
    if (!own)
        return grid.snapped(path);
    grid.remove(*own);
    GR_BezierPath2d found = grid.snapped(path);
    grid.add(*own);
    return found;
}

const LiveLayer::Boxes& LiveLayer::boxes() const
{
    if (m_boxes)
        return *m_boxes;
    Boxes boxes;
    strokes().forEach([&boxes](const StrokePointer& stroke) {
        boxes.curves.AddClosed(stroke->data.GetPath().GetBox());
        if (stroke->data.GetLineStyle().IsVisible()) {
            boxes.lines.AddClosed(visibleBox(stroke->data));
            boxes.thickness = std::max(boxes.thickness, visibleThickness(stroke->data));
        }
    });
    boxes.painted = boxes.lines;
    const PlanarMap& planarMap = map();
    for (int contour = 0; contour < planarMap.contourCount(); ++contour) {
        if (!planarMap.isDegenerate(contour) && !planarMap.isClockwise(contour) && paintOf(contour))
            boxes.painted.AddClosed(planarMap.box(contour));
    }
    m_boxes = boxes;
    return *m_boxes;
}

void LiveLayer::forgetShape()
{
    m_topology.reset();
    m_boxes.reset();
}

void LiveLayer::show(const LayerValue* value)
{
    m_value = value;
    forgetShape();
    m_joints.reset();
    m_order = Order::Unknown;
}

void LiveLayer::appended(std::size_t count)
{
    forgetShape();
    const StrokeSequence& all = strokes();
    for (std::size_t index = all.size() - count; index < all.size(); ++index) {
        const StrokeRecord& stroke = *all.at(index);
        if (m_joints)
            m_joints->add(stroke.data.GetPath());
        if (m_order == Order::Ascending && index > 0 && stroke.id <= all.at(index - 1)->id)
            m_order = Order::Unknown;
        else if (m_order == Order::Any)
            m_indices.emplace(stroke.id, index);
    }
}

void LiveLayer::erased(const StrokeRecord& stroke)
{
    forgetShape();
    if (m_joints)
        m_joints->remove(stroke.data.GetPath());
    if (m_order == Order::Any)
        m_order = Order::Unknown;
}

void LiveLayer::pathReplaced(const GR_BezierPath2d& before, const GR_BezierPath2d& now)
{
    forgetShape();
    if (m_joints) {
        m_joints->remove(before);
        m_joints->add(now);
    }
}

void LiveLayer::paintReplaced()
{
    m_boxes.reset();
}

GR_VectorStroke* LiveLayer::FindStroke(quint32 id) const
{
    const std::optional<std::size_t> index = indexOf(id);
    return index ? const_cast<LiveStroke*>(&stroke(*index)) : nullptr;
}

const GR_Contour* LiveLayer::FindContour(const GR_VectorStroke* stroke, GR_StrokeSide side) const
{
    const LiveStroke* own = liveStroke(stroke);
    return own && &own->layer() == this ? own->GetContour(side) : nullptr;
}

std::vector<const GR_Contour*> LiveLayer::GetContours() const
{
    std::vector<const GR_Contour*> contours;
    contours.reserve(topology().contours.size());
    for (const LiveContour& contour : topology().contours)
        contours.push_back(&contour);
    return contours;
}

std::vector<GR_Joint> LiveLayer::GetJoints() const
{
    const PlanarMap& planarMap = map();
    std::vector<GR_Joint> joints;
    joints.reserve(static_cast<std::size_t>(planarMap.jointCount()));
    for (int joint = 0; joint < planarMap.jointCount(); ++joint) {
        // The least end: the tail of a stroke counts ahead of its head.
        int least = planarMap.ring(joint).front();
        for (const int halfEdge : planarMap.ring(joint)) {
            const auto name = [&planarMap](int edge) {
                return std::pair(planarMap.idOf(PlanarMap::strokeOf(edge)),
                                 PlanarMap::sideOf(edge) == PlanarMap::Right);
            };
            if (name(halfEdge) < name(least))
                least = halfEdge;
        }
        const LiveStroke& seenFrom = stroke(static_cast<std::size_t>(PlanarMap::strokeOf(least)));
        joints.push_back(PlanarMap::sideOf(least) == PlanarMap::Left ? seenFrom.Tail() : seenFrom.Head());
    }
    return joints;
}

} // namespace brindle::engine
