#include "engine/drawings/contourpath.h"
#include "engine/drawings/livelayer.h"

#include <algorithm>

namespace brindle::engine {

namespace {

Math::Constants::FillType fillOf(int type)
{
    return static_cast<Math::Constants::FillType>(type);
}

} // namespace

const LiveContour* liveContour(const GR_Contour* contour)
{
    return dynamic_cast<const LiveContour*>(contour);
}

const PlanarMap& LiveContour::map() const
{
    return m_layer.map();
}

quint32 LiveContour::id() const
{
    return 2 * GetStroke()->id() + static_cast<quint32>(GetSide());
}

const GR_VectorStroke* LiveContour::GetStroke() const
{
    return &m_layer.stroke(static_cast<std::size_t>(PlanarMap::strokeOf(map().halfEdges(m_index).front())));
}

GR_StrokeSide LiveContour::GetSide() const
{
    return static_cast<GR_StrokeSide>(PlanarMap::sideOf(map().halfEdges(m_index).front()));
}

std::vector<const GR_VectorStroke*> LiveContour::GetStrokes() const
{
    return m_layer.strokesAt(map().strokes(m_index));
}

bool LiveContour::IsOutlineColorUsed() const
{
    const std::vector<const GR_VectorStroke*> strokes = GetStrokes();
    return std::any_of(strokes.begin(), strokes.end(), [](const GR_VectorStroke* stroke) {
        return stroke->GetStrokeData().GetLineStyle().IsVisible();
    });
}

GR_ColorPtr LiveContour::GetInsideColor() const
{
    return GetStroke()->GetStrokeData().GetColor(static_cast<int>(GetSide()));
}

GR_ColorPtr LiveContour::GetOutsideColor() const
{
    return GetStroke()->GetStrokeData().GetColor(1 - static_cast<int>(GetSide()));
}

GR_ColorPtr LiveContour::GetFillColor() const
{
    return m_layer.paintOf(m_index);
}

std::vector<GR_BezierPath2d> LiveContour::GetArea() const
{
    std::vector<GR_BezierPath2d> area;
    if (!map().isAnticlockwise(m_index))
        return area;
    area.push_back(contourPath(map(), m_index));
    for (const int child : map().children(m_index)) {
        if (!map().isOuter(child) || map().isDegenerate(child))
            continue;
        GR_BezierPath2d hole = contourPath(map(), child);
        // What crosses the border of the area is laid over it instead.
        if (!m_layer.isCrossed(map().componentOf(child)) ||
            contourIsContaining(map(), m_index, hole, Math::Constants::NonZero))
            area.push_back(std::move(hole));
    }
    return area;
}

bool LiveContour::IsCrossed() const
{
    return m_layer.isCrossed(map().componentOf(m_index));
}

const GR_Contour* LiveContour::GetParent() const
{
    const int parent = map().parent(m_index);
    return parent == PlanarMap::none ? nullptr : &m_layer.contour(parent);
}

std::vector<const GR_Contour*> LiveContour::GetChildren() const
{
    std::vector<const GR_Contour*> children;
    for (const int child : map().children(m_index))
        children.push_back(&m_layer.contour(child));
    return children;
}

std::vector<const GR_VectorStroke*> LiveContour::GetStrokesInside() const
{
    return m_layer.strokesAt(map().strokesInside(m_index));
}

std::vector<const GR_VectorStroke*> LiveContour::GetStrokesOfChildren() const
{
    return m_layer.strokesAt(map().strokesOfChildren(m_index));
}

GR_Contour::Comparison LiveContour::TopologicalComparison(const GR_Contour* other) const
{
    const LiveContour* contour = liveContour(other);
    if (!contour || &contour->m_layer != &m_layer)
        return kNotRelated;
    switch (map().relation(m_index, contour->m_index)) {
    case PlanarMap::Contains:
        return kContains;
    case PlanarMap::ContainedIn:
        return kContainedIn;
    default:
        return kNotRelated;
    }
}

bool LiveContour::IsInside(const GR_BezierPath2d& path, int fillType) const
{
    return contourIsInside(map(), m_index, path, fillOf(fillType));
}

bool LiveContour::IsContaining(const GR_BezierPath2d& path, int fillType) const
{
    return contourIsContaining(map(), m_index, path, fillOf(fillType));
}

bool LiveContour::IsOutside(const GR_BezierPath2d& path, int fillType) const
{
    return contourIsOutside(map(), m_index, path, fillOf(fillType));
}

} // namespace brindle::engine
