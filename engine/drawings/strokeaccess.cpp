#include "engine/drawings/drawingaccess.h"
#include "engine/drawings/strokechecks.h"

#include <cmath>
#include <stdexcept>

namespace engine = brindle::engine;

using engine::LiveLayer;
using engine::LiveLeaf;
using engine::LiveStroke;
using engine::PlanarMap;
using engine::StrokePointer;
using engine::StrokeRecord;

namespace {

bool isSpecial(const GR_ColorPtr& colour, const CM_ColorId_t& id)
{
    return colour && colour->GetColorID() == id;
}

StrokePointer recordOf(quint32 id, const GR_StrokeData& data)
{
    return std::make_shared<StrokeRecord>(StrokeRecord{id, data});
}

} // namespace

// --- What operations have in common ---------------------------------------------------------------------------------

/// The stroke with its ends on joints of the layer, where these are near.
GR_StrokeData GR_DrawingAccess::Private::placed(const GR_StrokeData& data, const LiveLayer& layer,
                                                const GR_BezierPath2d* own) const
{
    const GR_BezierPath2d path = layer.snapped(data.GetPath(), own);
    if (path == data.GetPath())
        return data;
    GR_StrokeData moved = data;
    moved.SetPath(path);
    return moved;
}

LiveStroke* GR_DrawingAccess::Private::append(LiveLeaf& leaf, const std::vector<StrokePointer>& strokes)
{
    aboutToChange();
    engine::LayerValue& layer = drawing().edit(leaf);
    const std::size_t first = layer.strokes.size();
    for (const StrokePointer& stroke : strokes)
        layer.strokes.append(stroke);
    leaf.strokes()->appended(strokes.size());
    return const_cast<LiveStroke*>(&leaf.strokes()->stroke(first));
}

StrokePointer GR_DrawingAccess::Private::take(const LiveStroke& stroke)
{
    aboutToChange();
    LiveLeaf& leaf = stroke.layer().leaf();
    StrokePointer taken = stroke.pointer();
    drawing().edit(leaf).strokes.erase(stroke.index());
    leaf.strokes()->erased(*taken);
    return taken;
}

template <typename Change>
void GR_DrawingAccess::Private::replace(const LiveStroke& stroke, Change change)
{
    const StrokePointer before = stroke.pointer();
    GR_StrokeData data = before->data;
    change(data);
    if (engine::isSame(data, before->data))
        return;
    StrokePointer record = recordOf(before->id, data);
    aboutToChange();
    LiveLeaf& leaf = stroke.layer().leaf();
    drawing().edit(leaf).strokes.set(stroke.index(), std::move(record));
    if (&before->data.GetPath() == &data.GetPath())
        leaf.strokes()->paintReplaced();
    else
        leaf.strokes()->pathReplaced(before->data.GetPath(), data.GetPath());
}

void GR_DrawingAccess::Private::paint(LiveLeaf& leaf, const Sides& sides, const GR_ColorPtr& colour)
{
    const LiveLayer& layer = *leaf.strokes();
    for (const auto& [index, side] : sides) {
        const LiveStroke& stroke = layer.stroke(index);
        GR_ColorPtr given = colour;
        if (isSpecial(colour, GR_Color::autoId())) {
            const int halfEdge = stroke.halfEdge(static_cast<GR_StrokeSide>(side));
            given = halfEdge == PlanarMap::none ? nullptr : layer.paintOf(layer.map().contourOf(halfEdge));
        }
        replace(stroke, [&given, side = side](GR_StrokeData& data) { data.SetColor(given, side); });
    }
}

// --- Strokes come and go --------------------------------------------------------------------------------------------

GR_VectorStroke* GR_DrawingAccess::Insert(const GR_StrokeData& data, UT_Node* layer)
{
    LiveLeaf& leaf = d->strokeLeaf(layer);
    engine::requireStroke(data);
    const StrokePointer record = recordOf(d->drawing().newStrokeId(), d->placed(data, *leaf.strokes()));
    LiveStroke* stroke = d->append(leaf, {record});
    for (const int side : {0, 1}) {
        if (isSpecial(data.GetColor(side), GR_Color::autoId()))
            d->paint(leaf, {{stroke->index(), side}}, data.GetColor(side));
    }
    return stroke;
}

std::vector<quint32> GR_DrawingAccess::Insert(const std::vector<GR_StrokeData>& data, UT_Node* layer)
{
    d->strokeLeaf(layer);
    for (const GR_StrokeData& stroke : data)
        engine::requireStroke(stroke);
    std::vector<quint32> ids;
    ids.reserve(data.size());
    for (const GR_StrokeData& stroke : data)
        ids.push_back(Insert(stroke, layer)->id());
    return ids;
}

void GR_DrawingAccess::Erase(GR_VectorStroke* stroke)
{
    d->take(d->stroke(stroke));
}

GR_VectorStroke* GR_DrawingAccess::Copy(const GR_VectorStroke* stroke, UT_Node* target)
{
    const StrokePointer source = Private::source(stroke).pointer();
    LiveLeaf& leaf = d->strokeLeaf(target);
    return d->append(leaf, {recordOf(d->drawing().newStrokeId(), d->copies.of(source->data))});
}

GR_VectorStroke* GR_DrawingAccess::Move(GR_VectorStroke* stroke, UT_Node* target)
{
    const LiveStroke& moved = d->stroke(stroke);
    LiveLeaf& leaf = d->strokeLeaf(target);
    return d->append(leaf, {d->take(moved)});
}

void GR_DrawingAccess::Replace(GR_VectorStroke* stroke, const GR_StrokeData& data)
{
    const LiveStroke& replaced = d->stroke(stroke);
    engine::requireStroke(data);
    const StrokePointer before = replaced.pointer();
    const GR_StrokeData placed = d->placed(data, replaced.layer(), &before->data.GetPath());
    d->replace(replaced, [&placed](GR_StrokeData& own) { own = placed; });
    for (const int side : {0, 1}) {
        if (isSpecial(data.GetColor(side), GR_Color::autoId()))
            d->paint(replaced.layer().leaf(), {{replaced.index(), side}}, data.GetColor(side));
    }
}

// --- Colours --------------------------------------------------------------------------------------------------------

void GR_DrawingAccess::SetColor(GR_VectorStroke* stroke, const GR_ColorPtr& colour, int side)
{
    const LiveStroke& painted = d->stroke(stroke);
    engine::requireColour(colour);
    d->paint(painted.layer().leaf(), {{painted.index(), side == 0 ? 0 : 1}}, colour);
}

void GR_DrawingAccess::SetColor(const GR_Contour* contour, const GR_ColorPtr& colour, bool outside)
{
    const engine::LiveContour* painted = engine::liveContour(contour);
    const LiveLeaf* leaf = painted ? &painted->layer().leaf() : nullptr;
    if (!leaf || !leaf->isInTree() || leaf->art()->drawing() != d->art().drawing())
        throw std::invalid_argument("The contour is not in the drawing.");
    engine::requireColour(colour);
    const LiveLayer& layer = painted->layer();
    Private::Sides sides;
    for (const int halfEdge : layer.map().halfEdges(painted->index())) {
        const auto index = static_cast<std::size_t>(PlanarMap::strokeOf(halfEdge));
        const int side = PlanarMap::sideOf(outside ? PlanarMap::twin(halfEdge) : halfEdge);
        const bool isSticky = isSpecial(layer.strokes().at(index)->data.GetColor(side), GR_Color::eraserId());
        if (!d->respectsSticky || !isSticky)
            sides.emplace_back(index, side);
    }
    d->paint(layer.leaf(), sides, isSpecial(colour, GR_Color::eraserId()) ? nullptr : colour);
}

void GR_DrawingAccess::SetColor(const GR_Joint& joint, const GR_ColorPtr& colour, bool outside)
{
    const GR_StrokeAccess& access = joint.GetStrokeAccess();
    const LiveStroke& painted = d->stroke(access.GetStroke());
    if (access.GetExtremity() == GR_StrokeAccess::kInvalid)
        throw std::invalid_argument("The joint is at no end of a stroke.");
    engine::requireColour(colour);
    const bool isAlong = access.GetExtremity() == GR_StrokeAccess::kTail;
    const int side = isAlong != outside ? 1 : 0;
    d->paint(painted.layer().leaf(), {{painted.index(), side}},
             isSpecial(colour, GR_Color::eraserId()) ? nullptr : colour);
}

// --- Lines ----------------------------------------------------------------------------------------------------------

void GR_DrawingAccess::SetLineStyle(GR_VectorStroke* stroke, const GR_LineStyle& style)
{
    const LiveStroke& changed = d->stroke(stroke);
    engine::requireLineStyle(style);
    d->replace(changed, [&style](GR_StrokeData& data) { data.SetLineStyle(style); });
}

void GR_DrawingAccess::SetBezierPath(GR_VectorStroke* stroke, const GR_BezierPath2d& path)
{
    const LiveStroke& changed = d->stroke(stroke);
    engine::requirePath(path);
    const StrokePointer before = changed.pointer();
    const GR_BezierPath2d placed = changed.layer().snapped(path, &before->data.GetPath());
    d->replace(changed, [&placed](GR_StrokeData& data) { data.SetPath(placed); });
}

void GR_DrawingAccess::setTipType(GR_VectorStroke* stroke, GR_StrokeEnd end, GR_TipType type)
{
    const LiveStroke& changed = d->stroke(stroke);
    d->replace(changed, [end, type](GR_StrokeData& data) { data.setTipType(end, type); });
}

void GR_DrawingAccess::setTipTangent(GR_VectorStroke* stroke, GR_StrokeSide side, GR_StrokeEnd end, double tangent)
{
    GR_ThicknessBinder binder = d->stroke(stroke).GetStrokeData().GetThicknessBinder();
    if (end == GR_StrokeEnd::From)
        (side == GR_StrokeSide::Left ? binder.startTangentLeft : binder.startTangentRight) = tangent;
    else
        (side == GR_StrokeSide::Left ? binder.stopTangentLeft : binder.stopTangentRight) = tangent;
    SetThicknessBinder(stroke, binder);
}

void GR_DrawingAccess::SetThicknessBinder(GR_VectorStroke* stroke, const GR_ThicknessBinder& thickness)
{
    const LiveStroke& changed = d->stroke(stroke);
    engine::requireThickness(thickness);
    d->replace(changed, [&thickness](GR_StrokeData& data) { data.CopyThicknessBinder(thickness); });
}

/// A stroke that runs against the line has its part of the path turned round. The first stroke runs towards the second.
void GR_DrawingAccess::setSharedThicknessPath(const std::vector<GR_VectorStroke*>& strokes,
                                              const GR_ThicknessPathPtr& path)
{
    struct Part {
        const LiveStroke* stroke;
        double length;
        bool isTurned;
    };
    std::vector<Part> line;
    double total = 0;
    for (const GR_VectorStroke* stroke : strokes) {
        const LiveStroke& part = d->stroke(stroke);
        line.push_back({&part, part.GetStrokeData().GetPath().GetLength(), false});
        total += line.back().length;
    }
    const auto tail = [](const Part& part) { return part.stroke->GetStrokeData().GetPath().GetFromPoint(); };
    const auto head = [](const Part& part) { return part.stroke->GetStrokeData().GetPath().GetToPoint(); };
    for (std::size_t index = 0; index + 1 < line.size(); ++index) {
        Part& part = line[index];
        Part& next = line[index + 1];
        const auto meetsNext = [&](const Math::Point2d& end) { return end == tail(next) || end == head(next); };
        if (index == 0)
            part.isTurned = meetsNext(tail(part)) && !meetsNext(head(part));
        const Math::Point2d end = part.isTurned ? tail(part) : head(part);
        next.isTurned = end == head(next) && !(end == tail(next));
    }
    double passed = 0;
    for (std::size_t index = 0; index < line.size(); ++index) {
        const bool isLast = index + 1 == line.size();
        GR_ThicknessBinder binder = line[index].stroke->GetStrokeData().GetThicknessBinder();
        binder.setThicknessPath(path);
        binder.startPosition = total > 0 ? passed / total : double(index) / double(line.size());
        passed += line[index].length;
        binder.stopPosition = isLast ? 1 : total > 0 ? passed / total : double(index + 1) / double(line.size());
        if (line[index].isTurned)
            std::swap(binder.startPosition, binder.stopPosition);
        d->replace(*line[index].stroke, [&binder](GR_StrokeData& data) { data.CopyThicknessBinder(binder); });
    }
}
