#include "engine/drawings/livelayer.h"
#include "engine/drawings/strokebounds.h"

#include <algorithm>

namespace brindle::engine {

namespace {

/// An end of a stroke on the map: the half-edge that leaves the joint there.
struct MapEnd {
    const LiveLayer* layer = nullptr;
    int halfEdge = PlanarMap::none;

    explicit operator bool() const { return halfEdge != PlanarMap::none; }
    const PlanarMap& map() const { return layer->map(); }
    int joint() const { return map().origin(halfEdge); }
};

MapEnd endOf(const GR_StrokeAccess& access)
{
    const LiveStroke* stroke = liveStroke(access.GetStroke());
    if (!stroke || access.GetExtremity() == GR_StrokeAccess::kInvalid)
        return {};
    const bool isTail = access.GetExtremity() == GR_StrokeAccess::kTail;
    return {&stroke->layer(), stroke->halfEdge(isTail ? GR_StrokeSide::Left : GR_StrokeSide::Right)};
}

GR_Joint jointAt(const MapEnd& end, int halfEdge)
{
    const LiveStroke& stroke = end.layer->stroke(static_cast<std::size_t>(PlanarMap::strokeOf(halfEdge)));
    return PlanarMap::sideOf(halfEdge) == PlanarMap::Left ? stroke.Tail() : stroke.Head();
}

/// The colour of a stroke's side, seen along the stroke or, from its head, against it.
GR_ColorPtr colourBeside(const GR_StrokeAccess& access, bool isLeft)
{
    if (!access.GetStroke() || access.GetExtremity() == GR_StrokeAccess::kInvalid)
        return nullptr;
    const bool isAlong = access.GetExtremity() == GR_StrokeAccess::kTail;
    return access.GetStroke()->GetStrokeData().GetColor(isLeft == isAlong ? 1 : 0);
}

} // namespace

const LiveStroke* liveStroke(const GR_VectorStroke* stroke)
{
    return dynamic_cast<const LiveStroke*>(stroke);
}

const StrokePointer& LiveStroke::pointer() const
{
    static const StrokePointer empty = std::make_shared<StrokeRecord>(StrokeRecord{0, {}});
    const StrokeSequence& strokes = m_layer.strokes();
    return m_index < strokes.size() ? strokes.at(m_index) : empty;
}

const StrokeRecord& LiveStroke::record() const
{
    return *pointer();
}

int LiveStroke::halfEdge(GR_StrokeSide side) const
{
    const PlanarMap& map = m_layer.map();
    const int stroke = static_cast<int>(m_index);
    if (stroke >= map.strokeCount() || map.isDegenerateStroke(stroke))
        return PlanarMap::none;
    return PlanarMap::halfEdge(stroke, static_cast<PlanarMap::Side>(side));
}

GR_Layer* LiveStroke::GetLayer() const
{
    return const_cast<LiveLayer*>(&m_layer);
}

Math::Box2d LiveStroke::GetVisibleBox() const
{
    const GR_StrokeData& data = GetStrokeData();
    return data.GetLineStyle().IsVisible() ? visibleBox(data) : Math::Box2d();
}

Math::Vector2d LiveStroke::GetTangent(GR_StrokeAccess::StrokeExtremity extremity) const
{
    const GR_BezierPath2d& path = GetStrokeData().GetPath();
    if (path.IsEmpty() || extremity == GR_StrokeAccess::kInvalid)
        return {};
    return extremity == GR_StrokeAccess::kTail ? path.GetFromTangent() : path.GetToTangent();
}

const GR_Contour* LiveStroke::GetContour(GR_StrokeSide side) const
{
    const int edge = halfEdge(side);
    return edge == PlanarMap::none ? nullptr : &m_layer.contour(m_layer.map().contourOf(edge));
}

double LiveStroke::GetMaxVisibleThickness() const
{
    const GR_StrokeData& data = GetStrokeData();
    return data.GetLineStyle().IsVisible() ? visibleThickness(data) : 0;
}

bool LiveStroke::IsThicknessValid() const
{
    const GR_ThicknessBinder& binder = GetStrokeData().GetThicknessBinder();
    return binder.thicknessPath() && !binder.thicknessPath()->isEmpty() && binder.startPosition != binder.stopPosition;
}

std::vector<const GR_VectorStroke*> LiveStroke::GetStrokesSharingThickness() const
{
    std::vector<const GR_VectorStroke*> sharing{this};
    const GR_ThicknessBinder& own = GetStrokeData().GetThicknessBinder();
    std::size_t index = 0;
    m_layer.strokes().forEach([&](const StrokePointer& stroke) {
        if (index != m_index && own.isSharing(stroke->data.GetThicknessBinder()))
            sharing.push_back(&m_layer.stroke(index));
        ++index;
    });
    return sharing;
}

/// From this stroke on as far as strokes go on, and from it back.
std::vector<const GR_VectorStroke*> LiveStroke::GetStrokesShared() const
{
    const GR_ThicknessBinder& own = GetStrokeData().GetThicknessBinder();
    const PlanarMap& map = m_layer.map();
    std::vector<const GR_VectorStroke*> line{this};
    const auto isOn = [&line](const GR_VectorStroke* stroke) {
        return std::find(line.begin(), line.end(), stroke) != line.end();
    };
    // `edge` leaves the joint where the line ends; the next stroke leaves it in the opposite direction.
    const auto next = [&](int edge) -> int {
        for (const int beside : {map.leftNeighbour(edge), map.rightNeighbour(edge)}) {
            const int stroke = PlanarMap::strokeOf(beside);
            const LiveStroke& other = m_layer.stroke(static_cast<std::size_t>(stroke));
            if (!isOn(&other) && own.isSharing(other.GetStrokeData().GetThicknessBinder()) &&
                map.isContinuous(PlanarMap::strokeOf(edge), stroke))
                return beside;
        }
        return PlanarMap::none;
    };
    const int ahead = halfEdge(GR_StrokeSide::Right);
    for (int edge = ahead; edge != PlanarMap::none;) {
        edge = next(edge);
        if (edge == PlanarMap::none)
            break;
        line.push_back(&m_layer.stroke(static_cast<std::size_t>(PlanarMap::strokeOf(edge))));
        edge = PlanarMap::twin(edge);
    }
    for (int edge = halfEdge(GR_StrokeSide::Left); edge != PlanarMap::none;) {
        edge = next(edge);
        if (edge == PlanarMap::none)
            break;
        line.insert(line.begin(), &m_layer.stroke(static_cast<std::size_t>(PlanarMap::strokeOf(edge))));
        edge = PlanarMap::twin(edge);
    }
    return line;
}

bool LiveStroke::IsContinuous(const GR_VectorStroke& other) const
{
    const LiveStroke* stroke = liveStroke(&other);
    if (!stroke || &stroke->layer() != &m_layer || stroke == this)
        return false;
    const int count = m_layer.map().strokeCount();
    const auto mine = static_cast<int>(m_index);
    const auto theirs = static_cast<int>(stroke->index());
    return mine < count && theirs < count && m_layer.map().isContinuous(mine, theirs);
}

} // namespace brindle::engine

using brindle::engine::endOf;
using brindle::engine::jointAt;
using brindle::engine::MapEnd;
using brindle::engine::PlanarMap;

Math::Point2d GR_StrokeAccess::GetJointPosition() const
{
    if (const MapEnd end = endOf(*this))
        return end.map().position(end.joint());
    if (!m_stroke || m_stroke->GetStrokeData().GetPath().IsEmpty())
        return {};
    const GR_BezierPath2d& path = m_stroke->GetStrokeData().GetPath();
    return m_extremity == kHead ? path.GetToPoint() : path.GetFromPoint();
}

Math::Vector2d GR_StrokeAccess::GetTangent() const
{
    const MapEnd end = endOf(*this);
    return end ? end.map().tangent(end.halfEdge) : Math::Vector2d();
}

bool GR_Joint::IsEmpty() const
{
    return !endOf(m_access);
}

int GR_Joint::GetDegree() const
{
    const MapEnd end = endOf(m_access);
    return end ? end.map().degree(end.joint()) : 0;
}

GR_Joint GR_Joint::Left() const
{
    const MapEnd end = endOf(m_access);
    return end ? jointAt(end, end.map().leftNeighbour(end.halfEdge)) : *this;
}

GR_Joint GR_Joint::Right() const
{
    const MapEnd end = endOf(m_access);
    return end ? jointAt(end, end.map().rightNeighbour(end.halfEdge)) : *this;
}

GR_Joint GR_Joint::Opposite() const
{
    using Extremity = GR_StrokeAccess::StrokeExtremity;
    const Extremity extremity = m_access.GetExtremity();
    const Extremity other = extremity == GR_StrokeAccess::kTail   ? GR_StrokeAccess::kHead
                            : extremity == GR_StrokeAccess::kHead ? GR_StrokeAccess::kTail
                                                                  : GR_StrokeAccess::kInvalid;
    return GR_Joint({m_access.GetStroke(), other});
}

std::vector<const GR_Contour*> GR_Joint::GetContours() const
{
    std::vector<const GR_Contour*> contours;
    const MapEnd end = endOf(m_access);
    if (!end)
        return contours;
    int halfEdge = end.halfEdge;
    do {
        const GR_Contour* contour = &end.layer->contour(end.map().contourOf(halfEdge));
        if (std::find(contours.begin(), contours.end(), contour) == contours.end())
            contours.push_back(contour);
        halfEdge = end.map().leftNeighbour(halfEdge);
    } while (halfEdge != end.halfEdge);
    return contours;
}

GR_ColorPtr GR_Joint::GetInsideColor() const
{
    return brindle::engine::colourBeside(m_access, true);
}

GR_ColorPtr GR_Joint::GetOutsideColor() const
{
    return brindle::engine::colourBeside(m_access, false);
}

bool GR_Joint::operator==(const GR_Joint& other) const
{
    const MapEnd mine = endOf(m_access);
    const MapEnd theirs = endOf(other.m_access);
    if (mine && theirs)
        return mine.layer == theirs.layer && mine.joint() == theirs.joint();
    return !mine && !theirs && m_access.GetStroke() == other.m_access.GetStroke() &&
           m_access.GetExtremity() == other.m_access.GetExtremity();
}
