#include "core/drawings/drawingvectorartlayer.h"

#include "core/drawings/drawing.h"
#include "core/drawings/drawingedit.h"
#include "core/drawings/drawinglayer.h"
#include "core/drawings/drawingvalues.h"
#include "core/drawings/drawingvectorcontour.h"
#include "core/drawings/drawingvectorstroke.h"
#include "core/drawings/scratchdrawing.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"
#include "core/geometry/point2d.h"
#include "core/nodes/indexargument.h"

#include <algorithm>

namespace OMC {

namespace {

/// The type of the layer that can hold what a leaf holds. Required: a layer of strokes gets one without a type.
GR_Layer::LayerType typeForCopyOf(const UT_Node* leaf)
{
    if (dynamic_cast<const GR_TextNode*>(leaf))
        return GR_Layer::kText;
    if (dynamic_cast<const GR_BitmapNode*>(leaf))
        return GR_Layer::kBitmap;
    return GR_Layer::kUndefined;
}

bool isIndex(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

/// Hears of new layers while it lives.
class NewLayers {
public:
    explicit NewLayers(GR_DrawingAccess& access) : m_access(access) { m_access.AddListener(&m_listener); }
    NewLayers(const NewLayers&) = delete;
    NewLayers& operator=(const NewLayers&) = delete;
    ~NewLayers() { m_access.RemoveListener(&m_listener); }

    const std::vector<UT_Node*>& leaves() const { return m_listener.nodes(); }

private:
    GR_DrawingAccess& m_access;
    GR_NewLayerSetListener m_listener;
};

} // namespace

DrawingVectorArtLayer::DrawingVectorArtLayer(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key)
    : DrawingArtLayer(drawing, key),
      m_vector(drawing)
{}

std::string DrawingVectorArtLayer::__str__() const
{
    return "DrawingVectorArtLayer()";
}

void DrawingVectorArtLayer::validate() const
{
    DrawingArtLayer::validate();
    const GR_CompositeVectorDrawingObj& composite = found(m_vector->GetComposite());
    if (composite.GetArt(getKey().art()) != m_vector)
        throwInvalid();
    validateThreadLock();
}

GR_VectorDrawingObj& DrawingVectorArtLayer::drawing() const
{
    validate();
    return *m_vector;
}

const std::vector<UT_Node*>& DrawingVectorArtLayer::leaves() const
{
    GR_VectorDrawingObj& vector = drawing();
    const int revision = vector.GetRevision();
    if (!m_leaves || revision != m_leavesRevision) {
        std::vector<UT_Node*> leaves;
        for (UT_Node* leaf = vector.GetNonConstRootnode()->GetNextLeaf(); leaf; leaf = leaf->GetNextLeaf())
            leaves.push_back(leaf);
        m_leaves = std::make_shared<const std::vector<UT_Node*>>(std::move(leaves));
        m_leavesRevision = revision;
    }
    return *m_leaves;
}

UT_Node* DrawingVectorArtLayer::topLayer() const
{
    return leaves().empty() ? nullptr : leaves().back();
}

DrawingLayer* DrawingVectorArtLayer::wrapperOf(UT_Node* leaf) const
{
    return DrawingLayer::getWrapped(m_vector, leaf, getKey());
}

std::size_t DrawingVectorArtLayer::size() const
{
    return leaves().size();
}

DrawingLayer* DrawingVectorArtLayer::newItem(int index) const
{
    const std::vector<UT_Node*>& all = leaves();
    if (index < 0 || static_cast<std::size_t>(index) >= all.size())
        throwIndexOutOfRange();
    return wrapperOf(all[index]);
}

QVariant DrawingVectorArtLayer::get(int index) const
{
    return toVariant(newItem(index));
}

// Required: nothing happens, and nothing is said.
void DrawingVectorArtLayer::set(int, const QVariant&)
{
    validate();
}

QList<QVariant> DrawingVectorArtLayer::list() const
{
    QList<QVariant> layers;
    for (UT_Node* leaf : leaves())
        layers.append(toVariant(wrapperOf(leaf)));
    return layers;
}

bool DrawingVectorArtLayer::contains(const QVariant& layer) const
{
    const std::vector<UT_Node*>& all = leaves();
    const auto* wrapper = objectFrom<DrawingLayer>(layer);
    return wrapper && std::ranges::find(all, wrapper->getNode()) != all.end();
}

QVariant DrawingVectorArtLayer::add(const QVariant& value)
{
    validate();
    if (value.typeId() == QMetaType::QString) {
        const GR_Layer::LayerType type = DrawingAccessImpl::layerTypeFromQString(value.toString());
        // Required: it goes under the top layer.
        return drawingedit::run(m_vector, getKey(), [&](GR_DrawingAccess& access) {
            UT_Node* top = topLayer();
            UT_Node* made = top ? access.CreateLayerUnder(type, top) : access.CreateLayerAbove(type, nullptr);
            return toVariant(wrapperOf(&found(made, &BaseObject::throwUnexpected)));
        });
    }
    std::set<GR_DrawingBase*> seen;
    std::vector<GR_DrawingBase*> arts;
    getDrawingBaseFromQVariant(value, seen, arts);
    if (!arts.empty())
        return addCopies(arts);

    const auto layers = DrawingLayer::getDrawingLayerFromQVariant(value);
    const auto strokes = layers.empty() ? DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(value)
                                        : std::vector<DrawingVectorStroke>();
    if (layers.empty() && strokes.empty())
        return {};
    return drawingedit::run(m_vector, getKey(), [&](GR_DrawingAccess& access) -> QVariant {
        QList<QVariant> made;
        UT_Node* anchor = topLayer();
        const auto addUnder = [&](GR_Layer::LayerType type) {
            anchor = &found(access.CreateLayerUnder(type, anchor), &BaseObject::throwUnexpected);
            made.append(toVariant(wrapperOf(anchor)));
        };
        for (const DrawingLayer* layer : layers) {
            addUnder(typeForCopyOf(layer->getNode()));
            access.Copy(layer->getNode(), anchor);
        }
        for (const DrawingVectorStroke& stroke : strokes) {
            addUnder(GR_Layer::kUndefined);
            access.Copy(&found(stroke.validateStroke()), anchor);
        }
        return made;
    });
}

QVariant DrawingVectorArtLayer::addCopies(const std::vector<GR_DrawingBase*>& arts)
{
    return drawingedit::run(m_vector, getKey(), [&](GR_DrawingAccess& access) -> QVariant {
        const NewLayers made(access);
        for (GR_DrawingBase* art : arts)
            access.Paste(foundAs<GR_VectorDrawingObj>(art));
        QList<QVariant> layers;
        for (UT_Node* leaf : made.leaves())
            layers.append(toVariant(wrapperOf(leaf)));
        return layers;
    });
}

void DrawingVectorArtLayer::remove(const QVariant& value)
{
    const std::vector<UT_Node*>& all = leaves();
    std::set<UT_Node*> gone;
    std::vector<DrawingVectorStroke> strokes;
    if (isIndex(value)) {
        const int index = fitsIndex(value) ? value.toInt() : -1;
        if (index < 0 || static_cast<std::size_t>(index) >= all.size())
            throwIndexOutOfRange();
        gone.insert(all[index]);
    } else {
        std::vector<const DrawingLayer*> layers;
        DrawingLayer::getDrawingLayerFromQVariant(value, gone, layers);
        strokes = DrawingVectorStroke::getDrawingVectorStrokeFromQVariant(value);
    }
    const auto isHere = [&all](UT_Node* leaf) { return std::ranges::find(all, leaf) != all.end(); };
    const bool areStrokesHere = std::ranges::all_of(strokes, [&](const DrawingVectorStroke& stroke) {
        return stroke.validateStroke() && isHere(stroke.layerRecord()->getLayer());
    });
    if ((gone.empty() && strokes.empty()) || !std::ranges::all_of(gone, isHere) || !areStrokesHere)
        throwInvalidArgument(0);
    drawingedit::run(m_vector, getKey(), [&](GR_DrawingAccess& access) {
        for (const DrawingVectorStroke& stroke : strokes)
            access.Erase(&found(stroke.validateStroke()));
        for (UT_Node* layer : gone)
            access.Erase(layer);
    });
}

void DrawingVectorArtLayer::clear()
{
    validate();
    drawingedit::run(m_vector, getKey(), [](GR_DrawingAccess& access) { access.Clear(); });
}

QList<QVariant> DrawingVectorArtLayer::findContainingContour(const QVariant& point) const
{
    const GR_VectorDrawingObj& vector = drawing();
    Math::Point2d place;
    Point2d::ConvertQVariant(point, place.x, place.y);
    requireFinite(place.x, 0);
    requireFinite(place.y, 0);
    QList<QVariant> contours;
    for (const GR_Contour* contour : vector.FindContainingContours(place)) {
        const GR_Layer* layer = contour->GetStroke()->GetLayer();
        const auto leaf = std::ranges::find_if(leaves(), [layer](UT_Node* candidate) {
            const auto* vectorLeaf = dynamic_cast<GR_LayerNode*>(candidate);
            return vectorLeaf && vectorLeaf->GetLayer() == layer;
        });
        if (leaf == leaves().end())
            continue;
        const auto record = DrawingLayerImplShared::of(m_vector, *leaf, getKey());
        contours.append(toVariant(new DrawingVectorContour(record.get(), contour)));
    }
    return contours;
}

void DrawingVectorArtLayer::transform(const QVariant& matrix)
{
    validate();
    transformBy(drawingvalues::matrixArgument(matrix));
}

void DrawingVectorArtLayer::translate(const QVariant& vector)
{
    validate();
    transformBy(drawingvalues::translationArgument(vector));
}

void DrawingVectorArtLayer::transformBy(const Math::Matrix2x3& matrix)
{
    drawingedit::run(m_vector, getKey(), [&](GR_DrawingAccess& access) {
        ScratchDrawing scratch;
        scratch.access().Paste(*m_vector, matrix);
        access.Clear();
        access.Paste(scratch.art());
    });
}

QVariant DrawingVectorArtLayer::getColors() const
{
    validate();
    return QVariant::fromValue(Obj());
}

const GR_CompositeDrawingInfo* DrawingVectorArtLayer::drawingInfo() const
{
    return found(drawing().GetComposite()).GetDrawingInfo();
}

QVariant DrawingVectorArtLayer::getPivot() const
{
    const GR_CompositeDrawingInfo* info = drawingInfo();
    return info && info->IsPivotPointDefined() ? QVariant::fromValue(Point2d(info->GetPivotPoint())) : QVariant();
}

bool DrawingVectorArtLayer::getPivotDefined() const
{
    const GR_CompositeDrawingInfo* info = drawingInfo();
    return info && info->IsPivotPointDefined();
}

void DrawingVectorArtLayer::setPivot(const QVariant&)
{
    validate();
    refusePivot();
}

void DrawingVectorArtLayer::setPivotDefined(bool)
{
    validate();
    refusePivot();
}

void DrawingVectorArtLayer::refusePivot()
{
    throw Exception(tr("Unable to set a pivot on a vector art layer. It must be set on the vector composite object."));
}

double DrawingVectorArtLayer::getThicknessMax() const
{
    return drawing().GetMaxThickness();
}

QVariant DrawingVectorArtLayer::getBoundingBox() const
{
    return drawingvalues::rectangle(drawing().GetWorldBBox());
}

QVariant DrawingVectorArtLayer::getBoundingBoxVisible() const
{
    return drawingvalues::rectangle(drawing().GetVisibleWorldBBox());
}

bool DrawingVectorArtLayer::getEmpty() const
{
    return drawing().IsEmpty();
}

} // namespace OMC
