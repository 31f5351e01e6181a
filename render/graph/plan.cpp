#include "render/graph/plan.h"

#include "core/host/at_attr.h"
#include "core/host/ca_celcache.h"
#include "core/host/cm_rgba.h"
#include "core/host/mo_node.h"
#include "core/host/mo_port.h"
#include "core/host/mo_porttransform.h"
#include "core/host/sc_metrics.h"
#include "core/host/sc_resolution.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/ut_performance.h"
#include "render/graph/stopwatch.h"
#include "render/raster/placing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace brindle::render {

namespace {

/// A drawing that comes back within so many plans needn't be taken anew.
constexpr quint64 kPlansKept = 240;
/// The number by which a drawing itself is remembered; outlines have those of their scales.
constexpr int kArtItself = std::numeric_limits<int>::max();

template <typename Attribute>
Attribute* attribute(const MO_Node& node, const char* keyword)
{
    return dynamic_cast<Attribute*>(node.findAttributeByKeyword(QString::fromLatin1(keyword)));
}

double numberAt(const MO_Node& node, const char* keyword, double frame, double otherwise)
{
    const auto* number = attribute<AT_DoubleAttr>(node, keyword);
    const double value = number ? number->value(frame) : otherwise;
    return std::isfinite(value) ? value : otherwise;
}

bool flagAt(const MO_Node& node, const char* keyword, double frame, bool otherwise)
{
    const auto* flag = attribute<AT_BoolAttr>(node, keyword);
    return flag ? flag->value(frame) : otherwise;
}

[[noreturn]] void throwCircle(const MO_Node& node)
{
    throw std::runtime_error(QStringLiteral("The node \"%1\" feeds itself.").arg(node.qualifiedName()).toStdString());
}

bool isLightDrawing(const Operation& operation)
{
    return operation.kind == Operation::Draw && operation.inputs.empty() && operation.art->isLight();
}

/// Where a picture lies: from OpenGL units, as a camera in the origin sees them, to pixels.
class View {
public:
    View(const SC_SceneCommon& scene, const SC_Resolution& resolution, double frame, const QSize& size)
        : m_resolution(resolution),
          m_size(size)
    {
        const SC_SceneMetrics* metrics = scene.metrics();
        const double halfWidth = metrics ? metrics->toOGLFactorX() * metrics->designFieldChartX() : 4.0 / 3;
        m_scale =
            m_resolution.fovFit() == TUDbResolution::kFitWidth ? size.width() / (2 * halfWidth) : size.height() / 2.0;
        TUCameraModule* camera = scene.camera(false);
        if (!camera)
            return;
        const MO_PortTransform* transform = camera->getPortTransformation(MO_BaseContext(MO_FrameKey(frame), 0));
        if (!transform)
            return;
        m_camera = transform->transformation().matrix(true);
        m_isVisible = !m_camera.isSingular();
        if (m_isVisible)
            m_camera.inverse();
    }

    /// From the plane z = 0 of a node's drawing, in OpenGL units, to pixels. False where the camera doesn't see it.
    bool place(const Math::Matrix4x4& node, QTransform& result) const
    {
        if (!m_isVisible)
            return false;
        const Math::Matrix4x4 seen = m_camera * node;
        const std::array<double, 16>& m = seen.cells();
        if (!std::all_of(m.begin(), m.end(), [](double cell) { return std::isfinite(cell); }))
            return false;
        // The divisor of a point: 1 in the plane through the origin, smaller nearer to the camera.
        const auto divisor = [&](int row) {
            return m_resolution.projection() == TUDbResolution::kPerspective
                       ? m[row + 3] - m[row + 2] / Math::Matrix4x4::cameraDistance
                       : m[row + 3];
        };
        const double wx = divisor(0);
        const double wy = divisor(4);
        const double w = divisor(12);
        constexpr double kNearest = 1e-6;
        if (w < kNearest)
            return false;
        const double middleX = m_size.width() / 2.0;
        const double middleY = m_size.height() / 2.0;
        result = QTransform((m_scale * m[0] + middleX * wx) / w, (-m_scale * m[1] + middleY * wx) / w, wx / w,
                            (m_scale * m[4] + middleX * wy) / w, (-m_scale * m[5] + middleY * wy) / w, wy / w,
                            (m_scale * m[12] + middleX * w) / w, (-m_scale * m[13] + middleY * w) / w, 1);
        return result.isInvertible();
    }

    const QSize& size() const { return m_size; }

    /// Pixels of this picture in one of the project's resolution.
    double pixelScale() const
    {
        return m_resolution.height() > 0 ? double(m_size.height()) / m_resolution.height() : 1;
    }

private:
    SC_Resolution m_resolution;
    QSize m_size;
    double m_scale;
    Math::Matrix4x4 m_camera;
    bool m_isVisible = true;
};

/// The first in-port of a node that isn't for a matte; null where there is none.
const MO_Port* imagePort(const MO_Node& node)
{
    for (unsigned int i = 0; i < node.nInPorts(); ++i)
        if (const MO_Port* port = node.inPort(i); port && !port->isMattePort())
            return port;
    return nullptr;
}

/// The in-port that a port of a group or of its inside continues as; null for a port of any other node, `isPassed` then
/// is false. A disabled group lets through what stands at the same place of its in-ports, or at the first one.
const MO_Port* continued(const MO_Port& out, bool& isPassed)
{
    MO_Node* node = out.node();
    isPassed = true;
    if (const TUGroup* group = node->group()) {
        const int place = group->outPortId(&out);
        if (!group->isEnabled()) {
            const MO_Port* same = place >= 0 ? group->inPort(static_cast<unsigned int>(place)) : nullptr;
            return same ? same : imagePort(*group);
        }
        const TUMultiPortOut* inside = group->getInMultiPort();
        return inside && place >= 0 ? inside->inPort(static_cast<unsigned int>(place)) : nullptr;
    }
    if (const auto* inside = dynamic_cast<const TUMultiPortIn*>(node)) {
        const int place = inside->outPortId(&out);
        const TUGroup* group = inside->parentGroup();
        return group && place >= 0 ? group->inPort(static_cast<unsigned int>(place)) : nullptr;
    }
    isPassed = false;
    return nullptr;
}

/// The module whose out-port feeds an in-port, through groups; null where nothing does.
MO_Node* sourceOf(const MO_Port* in)
{
    std::vector<const MO_Port*> seen;
    while (in) {
        const MO_Port* out = in->srcPort();
        if (!out || !out->node())
            return nullptr;
        bool isPassed = false;
        in = continued(*out, isPassed);
        if (!isPassed)
            return out->node();
        if (std::find(seen.begin(), seen.end(), out) != seen.end())
            throwCircle(*out->node());
        seen.push_back(out);
    }
    return nullptr;
}

} // namespace

/// The way through the graph for one plan. Chains may be longer than the call stack, so it keeps its own.
class Planner::Walk {
public:
    Walk(Planner& planner, const SC_SceneCommon& scene, const View& view, double frame, bool isMeasured,
         QStringList& remarks)
        : m_planner(planner),
          m_scene(scene),
          m_view(view),
          m_frame(frame),
          m_isMeasured(isMeasured),
          m_remarks(remarks)
    {}

    OperationPtr of(MO_Node& root)
    {
        m_open.push_back(&root);
        while (!m_open.empty()) {
            MO_Node& node = *m_open.back();
            State& state = m_states[&node];
            if (state.result) {
                m_open.pop_back();
                continue;
            }
            Stopwatch watch(m_isMeasured);
            const std::vector<MO_Node*> sources = sourcesOf(node);
            const qint64 traverseTime = watch.lap();
            if (!state.isUnderWay) {
                state.isUnderWay = true;
                bool isWaiting = false;
                for (MO_Node* source : sources) {
                    if (!source)
                        continue;
                    const State& before = m_states[source];
                    if (before.isUnderWay && !before.result)
                        throwCircle(*source);
                    if (!before.result) {
                        m_open.push_back(source);
                        isWaiting = true;
                    }
                }
                if (isWaiting)
                    continue;
            }
            std::vector<OperationPtr> inputs;
            for (MO_Node* source : sources)
                inputs.push_back(source ? m_states[source].result : empty());
            m_timer = m_isMeasured ? node.performanceTimer() : nullptr;
            watch.lap();
            m_states[&node].result = operationOf(node, inputs);
            if (m_timer)
                m_timer->addVisit(traverseTime, watch.lap());
            m_open.pop_back();
        }
        return m_states[&root].result;
    }

    /// The timers of the nodes that the steps are for, where they are measured.
    const Timers& timers() const { return m_timers; }

    PalettePaints palettes;

private:
    struct State {
        bool isUnderWay = false;
        OperationPtr result;
    };

    OperationPtr empty() { return one({}); }
    OperationPtr one(Operation operation)
    {
        operation.size = m_view.size();
        OperationPtr step = m_planner.m_operations.one(std::move(operation));
        if (m_timer)
            m_timers.try_emplace(step.get(), m_timer);
        return step;
    }

    /// The nodes whose pictures a node needs, by its ports; null where nothing is linked.
    std::vector<MO_Node*> sourcesOf(MO_Node& node) const
    {
        if (const TUGroup* group = node.group()) {
            // Asked for itself, a group shows what its first out-port gives.
            bool isPassed = false;
            const MO_Port* out = group->outPort(0);
            return {out ? sourceOf(continued(*out, isPassed)) : nullptr};
        }
        if (!node.isEnabled()) {
            const MO_Port* port = imagePort(node);
            return {port && port->typeName() == u"IMAGE" ? sourceOf(port) : nullptr};
        }
        std::vector<MO_Node*> sources;
        for (unsigned int i = 0; i < node.nInPorts(); ++i)
            if (const MO_Port* port = node.inPort(i); port->typeName() == u"IMAGE")
                sources.push_back(sourceOf(port));
        return sources;
    }

    OperationPtr operationOf(MO_Node& node, const std::vector<OperationPtr>& inputs)
    {
        const auto first = [&] { return inputs.empty() ? empty() : inputs.front(); };
        if (node.group() || !node.isEnabled())
            return first();
        const QString type = node.typeName();
        if (type == u"READ")
            return drawing(node);
        if (type == u"COLOR_CARD")
            return card(node);
        if (type == u"COMPOSITE")
            return composite(node, inputs);
        if (type == u"CUTTER")
            return cutter(node, inputs);
        if (type == u"BLUR")
            return blur(node, first());
        return first();
    }

    OperationPtr card(const MO_Node& node)
    {
        Operation operation{.kind = Operation::Card};
        CM_Rgba rgba(255, 255, 255, 255);
        if (const auto* colour = attribute<AT_ColorAttr>(node, "colour"))
            colour->value(rgba, m_frame, nullptr);
        operation.colour = QRgba64::fromRgba(rgba.red(), rgba.green(), rgba.blue(), rgba.alpha());
        return one(std::move(operation));
    }

    /// Pictures in the order of the ports, the first one lowest.
    OperationPtr composite(const MO_Node& node, const std::vector<OperationPtr>& inputs)
    {
        const auto* choice = attribute<AT_EnumAttrBase>(node, "mode");
        const auto mode = static_cast<BlendMode>(choice ? choice->localValue() : 0);
        OperationPtr result;
        for (const OperationPtr& input : inputs) {
            if (input->kind == Operation::Empty)
                continue;
            if (!result)
                result = input;
            else if (mode == BlendMode::Normal && isLightDrawing(*input))
                result = one({.kind = Operation::Draw, .inputs = {result}, .art = input->art, .place = input->place});
            else
                result = one({.kind = Operation::Blend, .inputs = {result, input}, .mode = mode});
        }
        return result ? result : empty();
    }

    OperationPtr cutter(const MO_Node& node, const std::vector<OperationPtr>& inputs)
    {
        OperationPtr matte = empty();
        OperationPtr image = empty();
        std::size_t next = 0;
        for (unsigned int i = 0; i < node.nInPorts() && next < inputs.size(); ++i)
            if (const MO_Port* port = node.inPort(i); port->typeName() == u"IMAGE")
                (port->isMattePort() ? matte : image) = inputs[next++];
        const bool isInverted = flagAt(node, "inverted", m_frame, false);
        if (image->kind == Operation::Empty || matte->kind == Operation::Empty)
            return isInverted ? image : empty();
        return one({.kind = Operation::Cut, .inputs = {image, matte}, .isInverted = isInverted});
    }

    OperationPtr blur(const MO_Node& node, const OperationPtr& input)
    {
        const double radius = numberAt(node, "radius", m_frame, 0) * m_view.pixelScale();
        if (radius <= 0 || input->kind == Operation::Empty)
            return input;
        return one({.kind = Operation::Blur, .inputs = {input}, .across = radius, .down = radius});
    }

    /// A drawing at its place, faded by the opacities of the node and of the element.
    OperationPtr drawing(MO_Node& node)
    {
        const TUElementMgr* elements = m_scene.elementManager();
        const auto* shown = attribute<AT_DrawingAttr>(node, "drawing");
        if (!elements || !shown || !flagAt(node, "visible", m_frame, true))
            return empty();
        const QString name = shown->value(m_frame);
        const int element = shown->getElementId();
        if (name.isNull() || element < 0)
            return empty();
        const EM_DrawingId drawing = elements->getDrawingId(element, name, false);
        const double opacity = std::clamp(numberAt(node, "opacity", m_frame, 100) / 100, 0.0, 1.0) *
                               std::clamp(elements->getDrawingOpacity(element) / 100.0, 0.0, 1.0);
        if (drawing == EM_InvalidDrawingId || opacity <= 0)
            return empty();

        Math::Matrix4x4 own;
        if (MO_Module* module = node.module())
            if (const MO_PortTransform* at = module->getPortTransformation(MO_BaseContext(MO_FrameKey(m_frame), 0)))
                own = at->transformation().matrix(true);
        QTransform toPixels;
        if (!m_view.place(own, toPixels))
            return empty();

        OperationPtr picture;
        try {
            const CA_CelPtr cel =
                CA_CelCache::insertItemBis(CA_CelKeyElement(element, drawing), CEL_Context(1.0, m_frame));
            picture = cel ? contentOf(*cel.cel(), drawing, toPixels) : nullptr;
        } catch (const std::runtime_error& unreadable) {
            m_remarks.append(QString::fromUtf8(unreadable.what()));
            return empty();
        }
        if (!picture) {
            m_remarks.append(QStringLiteral("The drawing \"%1\" of the node \"%2\" can't be shown.")
                                 .arg(name, node.qualifiedName()));
            return empty();
        }
        if (opacity < 1 && picture->kind != Operation::Empty)
            picture = one({.kind = Operation::Fade, .inputs = {picture}, .opacity = opacity});
        return picture;
    }

    /// What a cel holds, at its place; one without content shows nothing.
    OperationPtr contentOf(CEL_Cel& cel, EM_DrawingId drawing, const QTransform& toPixels)
    {
        if (const std::shared_ptr<const CELVEC_Brd> vectors = cel.findBestVectorRepresentation()) {
            const auto composite = vectors->getDrawingObject();
            const auto art = m_planner.artOf(drawing, *composite, palettes, m_remarks);
            if (art->isEmpty())
                return empty();
            const QTransform toOgl = transformOf(composite->GetImplicitScalingMatrix());
            return one({.kind = Operation::Draw, .art = art, .place = toOgl * toPixels});
        }
        const CEL_PixmapPtr pixmap = cel.findBestPixmapRepresentation();
        if (!pixmap || pixmap->height() == 0)
            return empty();
        // A picture is as high as the field chart.
        const double scale = 2.0 / pixmap->height();
        const QTransform toOgl(scale, 0, 0, -scale, -scale * pixmap->width() / 2, scale * pixmap->height() / 2);
        return one({.kind = Operation::Show, .pixels = pixmap->image(), .place = toOgl * toPixels});
    }

    Planner& m_planner;
    const SC_SceneCommon& m_scene;
    const View& m_view;
    double m_frame;
    bool m_isMeasured;
    QStringList& m_remarks;
    std::shared_ptr<TIR_PerformanceTimer> m_timer; ///< Of the node whose steps are made.
    Timers m_timers;
    std::vector<MO_Node*> m_open;
    std::unordered_map<const MO_Node*, State> m_states;
};

std::shared_ptr<const Art> Planner::artOf(EM_DrawingId id, const GR_CompositeVectorDrawingObj& drawing,
                                          PalettePaints& palettes, QStringList& remarks)
{
    const auto* art = dynamic_cast<const GR_VectorDrawingObj*>(drawing.GetArt(GR_CompositeVectorDrawingObj::kLine));
    const int revision = art ? art->GetRevision() : -1;
    KnownArt& known = m_art[id];
    std::shared_ptr<const Art> shown = known.art.lock();
    if (!shown || known.drawing != &drawing || known.revision != revision || !shown->isUpToDate(palettes)) {
        m_memory->forget(shown.get());
        known.remarks.clear();
        shown = std::make_shared<const Art>(drawing, palettes, known.remarks, m_memory);
        known.art = shown;
        known.drawing = &drawing;
        known.revision = revision;
    }
    if (!m_memory->find<Art>(shown.get(), kArtItself))
        m_memory->remember(shown.get(), kArtItself, shown, shown->bytes());
    known.lastPlan = m_plans;
    remarks += known.remarks;
    return shown;
}

void Planner::forgetUnused()
{
    std::erase_if(m_art, [this](const auto& drawing) {
        const KnownArt& known = drawing.second;
        const bool isUnused = known.lastPlan + kPlansKept < m_plans;
        if (isUnused)
            m_memory->forget(known.art.lock().get());
        return isUnused;
    });
}

void Planner::order(const OperationPtr& last, const Timers& timers, Plan& plan)
{
    constexpr std::size_t kOpen = std::size_t(-1);
    std::unordered_map<const Operation*, std::size_t> places;
    std::vector<OperationPtr> open{last};
    while (!open.empty()) {
        const OperationPtr step = open.back();
        const auto [place, isNew] = places.try_emplace(step.get(), kOpen);
        if (isNew) {
            for (const OperationPtr& input : step->inputs)
                open.push_back(input);
            continue;
        }
        open.pop_back();
        if (place->second != kOpen)
            continue;
        place->second = plan.steps.size();
        std::vector<std::size_t> inputs;
        for (const OperationPtr& input : step->inputs)
            inputs.push_back(places.at(input.get()));
        const auto timer = timers.find(step.get());
        plan.steps.push_back({step, std::move(inputs), false, timer == timers.end() ? nullptr : timer->second});
    }
    // What lasts is worth remembering where a step that changes needs it, and at the end.
    plan.steps.back().isKept = m_last.contains(last);
    for (const Plan::Step& step : plan.steps) {
        if (m_last.contains(step.operation))
            continue;
        for (const std::size_t input : step.inputs)
            plan.steps[input].isKept = m_last.contains(plan.steps[input].operation);
    }
}

Plan Planner::plan(MO_Node& node, double frame, const QSize& size, const SC_Resolution& resolution, bool isMeasured)
{
    ++m_plans;
    Plan plan{.size = size, .steps = {}, .remarks = {}};
    const SC_SceneCommon& scene = *node.sceneCommon();
    const View view(scene, resolution, frame, size);
    Walk walk(*this, scene, view, frame, isMeasured, plan.remarks);
    const OperationPtr last = walk.of(node);
    order(last, walk.timers(), plan);
    plan.remarks += walk.palettes.missing();
    plan.remarks.removeDuplicates();

    m_last.clear();
    for (const Plan::Step& step : plan.steps)
        m_last.insert(step.operation);
    m_operations.tidy();
    forgetUnused();
    return plan;
}

} // namespace brindle::render
