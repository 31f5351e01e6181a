#include "core/drawings/drawingaccessimpl.h"

#include "core/drawings/celdrawing.h"
#include "core/drawings/drawingedit.h"
#include "core/drawings/drawinglayerimplshared.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/frame/weakhandle.h"
#include "core/host/dt_undolistener.h"
#include "core/host/plug_interactiveviewmanager.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/host/ut_undoredo.h"

#include <array>
#include <map>
#include <set>

namespace OMC {

namespace {

/// Takes guides and handles off a layer that is about to go.
class DrawingChangeListener final : public GR_DrawingAccessListener {
public:
    void nodeAboutToBeRemoved(UT_Node* node) override
    {
        const auto* leaf = dynamic_cast<GR_LayerNode*>(node);
        GR_Layer* layer = leaf ? leaf->GetLayer() : nullptr;
        if (GR_CanvasObjManager* objects = layer ? layer->canvasObjManager() : nullptr)
            objects->deleteAll();
    }
};

/// Knows the layers of the session that have wrappers, and which of them are there.
class LayerSetListener final : public GR_LayerSetListener {
public:
    using GR_LayerSetListener::GR_LayerSetListener;

    void nodeCreated(UT_Node* node) override
    {
        if (m_active.contains(node->id()))
            m_surviving.insert(node->id());
    }
    void nodeAboutToBeRemoved(UT_Node* node) override { m_surviving.erase(node->id()); }

    void add(DrawingLayerImplShared& record)
    {
        if (m_active.try_emplace(record.layerId(), WeakHandle(&record)).second)
            m_surviving.insert(record.layerId());
    }
    bool isErased(const DrawingLayerImplShared& record) const
    {
        const auto known = m_active.find(record.layerId());
        return known != m_active.end() && known->second.get() == &record && !m_surviving.contains(record.layerId());
    }
    void invalidateErased()
    {
        for (const auto& [id, handle] : m_active) {
            DrawingLayerImplShared* record = handle.get();
            if (record && !m_surviving.contains(id))
                record->invalidate();
        }
    }

private:
    std::map<quint32, WeakHandle<DrawingLayerImplShared>> m_active;
    std::set<quint32> m_surviving;
};

const CA_DrawingLayerKey& invalidKey()
{
    static const CA_DrawingLayerKey key;
    return key;
}

QString stepLabel()
{
    return DrawingAccessImpl::tr("Drawing Modified with Python");
}

SC_SessionContext& sessionContext()
{
    return found(Global::sessionContext(), &BaseObject::throwUnexpected);
}

} // namespace

/// What an open session holds; it is dropped in the reverse order.
struct DrawingAccessImpl::Session {
    Session(GR_VectorDrawingObj* drawn, CO_CommandManager& manager, DT_SelectionManager* selection,
            TUSceneChangeManager* changes)
        : commands(&manager),
          drawing(drawn),
          access(&changeListener),
          layers(&access),
          undo(std::make_unique<DT_UndoListener>(selection, changes, nullptr, 1))
    {
        access.AddListener(&layers);
        access.AddListener(undo.get());
        access.AddListener(&changeListener);
    }

    ~Session() { endListening(); }

    /// The step from the beginning to now; null where nothing was told of a change. No more changes follow.
    std::unique_ptr<DT_Command> release()
    {
        std::unique_ptr<DT_Command> step(undo->Release());
        return step && !step->IsEmpty() ? std::move(step) : nullptr;
    }

    void endListening()
    {
        access.RemoveListener(&changeListener);
        if (undo)
            access.RemoveListener(undo.get());
        access.RemoveListener(&layers);
        undo.reset();
    }

    void addLayers()
    {
        const GR_CompositeVectorDrawingObj* composite = drawing->GetComposite();
        for (int art = 0; composite && art < GR_CompositeVectorDrawingObj::kArtCount; ++art) {
            const auto* vector = dynamic_cast<GR_VectorDrawingObj*>(composite->GetArt(art));
            for (const auto& record : DrawingLayerImplShared::allOf(vector)) {
                try {
                    record->getLayer();
                    layers.add(*record);
                } catch (const Exception&) { // NOLINT(bugprone-empty-catch): the layer is gone.
                }
            }
        }
    }

    /// Colours that the session sets are found in the palettes that the drawing's are.
    void attachPalettes(const CA_CelKey& key)
    {
        GR_ColorDict& colours = *access.GetColorDict();
        colours.attachPaletteInfo(nullptr);
        if (const auto composite = key.isValid() ? celdrawing::find(key) : celdrawing::Pointer())
            colours.attachPaletteInfo(composite->GetPaletteInfo());
    }

    bool isOf(const GR_VectorDrawingObj* other) const
    {
        return other && other->GetComposite() == drawing->GetComposite();
    }

    WeakHandle<CO_CommandManager> commands;
    UT_UndoRedoManager undoManager;
    DrawingChangeListener changeListener;
    QExplicitlySharedDataPointer<GR_VectorDrawingObj> drawing;
    GR_DrawingAccess access;
    LayerSetListener layers;
    std::unique_ptr<DT_UndoListener> undo;
};

DrawingAccessImpl& DrawingAccessImpl::get()
{
    static DrawingAccessImpl session;
    return session;
}

DrawingAccessImpl::DrawingAccessImpl() = default;

DrawingAccessImpl::~DrawingAccessImpl()
{
    // No exception leaves a destructor, and at the end of the process nobody could act on one.
    try {
        vectorCancel();
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch)
    }
}

bool DrawingAccessImpl::active() const
{
    return m_session && !m_session->commands.isGone();
}

GR_VectorDrawingObj* DrawingAccessImpl::vectorDrawing() const
{
    return active() ? m_session->drawing.data() : nullptr;
}

const CA_DrawingLayerKey& DrawingAccessImpl::getCurrentKey() const
{
    return active() ? m_key : invalidKey();
}

bool DrawingAccessImpl::getRespectSticky() const
{
    return m_respectSticky;
}

void DrawingAccessImpl::setRespectSticky(bool respect)
{
    m_respectSticky = respect;
    if (active())
        m_session->access.SetRespectSticky(respect);
}

quint64 DrawingAccessImpl::sessionNumber() const
{
    return m_sessionNumber;
}

GR_DrawingAccess* DrawingAccessImpl::vectorBegin(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key,
                                                 bool& created)
{
    created = false;
    if (active()) {
        if (!m_session->isOf(drawing))
            throw Exception(tr("A different drawing is already being modified."));
        return &m_session->access;
    }
    close();
    if (!drawing)
        BaseObject::throwUnexpected();
    const SC_SessionContext& context = sessionContext();
    TUSceneChangeManager& changes = found(context.changeManager(), &BaseObject::throwUnexpected);
    CO_CommandManager& commands = found(context.commandManager(), &BaseObject::throwUnexpected);
    const auto* views = PLUG_InteractiveViewManagerImpl::instance();
    DT_SelectionManager* selection = views ? views->getDrawingSelectionManager() : nullptr;

    drawingedit::onHost([&] {
        auto session = std::make_unique<Session>(drawing, commands, selection, &changes);
        session->undoManager.SetStageCommandManager(&commands);
        session->access.SetDrawing(drawing);
        session->addLayers();
        session->attachPalettes(key.cel());
        session->undo->SetCurrentDrawing(drawing, key.isValid() ? key.cel() : CA_CelKey());
        session->access.SetRespectSticky(m_respectSticky);
        session->access.BeginOperations(1);
        m_session = std::move(session);
    });
    m_key = key;
    ++m_sessionNumber;
    created = true;
    return &m_session->access;
}

void DrawingAccessImpl::vectorEnd(bool finish)
{
    const SC_SessionContext& context = sessionContext();
    if (!active())
        throw Exception(tr("There is no active drawing access."));
    drawingedit::onHost([&] {
        if (m_session->access.commandModeOn())
            m_session->access.EndOperations(finish);
        if (auto step = m_session->release())
            addStep(std::move(step));
    });
    m_session->layers.invalidateErased();
    const CA_DrawingLayerKey key = m_key;
    close();
    tellChanged(context.changeManager(), key);
}

void DrawingAccessImpl::addStep(std::unique_ptr<DT_Command> step)
{
    step->setAllDrawingsModified();
    m_session->undoManager.AddUndo(step.release(), stepLabel());
}

void DrawingAccessImpl::tellChanged(TUSceneChangeManager* changes, const CA_DrawingLayerKey& key)
{
    if (!changes)
        return;
    if (key.isValid())
        changes->emitDrawingsDirty(key.cel());
    changes->emitDrawingChanged();
    changes->notifyInteractive();
}

GR_DrawingAccess* DrawingAccessImpl::vectorStep(bool reopen, bool finish)
{
    if (!active())
        throw Exception(tr("There is no active drawing access."));
    GR_DrawingAccess& access = m_session->access;
    if (access.commandModeOn())
        access.EndOperations(finish);
    access.BeginOperations(1);
    if (!reopen)
        access.EndOperations(finish);
    return &access;
}

// Required: a session without a change is left as it is. Its step is on the redo side afterwards, and nobody is told.
void DrawingAccessImpl::vectorCancel()
{
    if (!active())
        return;
    if (m_session->access.commandModeOn())
        m_session->access.EndOperations(true);
    auto step = m_session->release();
    if (!step)
        return;
    addStep(std::move(step));
    CO_CommandManager* commands = m_session->commands.get();
    close(); // A step isn't undone while a session is open on its drawing.
    commands->unexecute(1);
}

void DrawingAccessImpl::vectorTakeBack()
{
    if (!active())
        return;
    const SC_SessionContext* context = Global::sessionContext();
    drawingedit::onHost([&] {
        if (m_session->access.commandModeOn())
            m_session->access.EndOperations(true);
        auto step = m_session->release();
        UT_UndoRedoManager undoManager = m_session->undoManager;
        const CA_DrawingLayerKey key = m_key;
        close(); // A step isn't undone while a session is open on its drawing.
        if (step && step->unexecute() == CO_Command::kFail) {
            // What can't be taken back is on the undo list, which tells what is there.
            step->setAllDrawingsModified();
            undoManager.AddUndo(step.release(), stepLabel());
        }
        tellChanged(context ? context->changeManager() : nullptr, key);
    });
}

void DrawingAccessImpl::close()
{
    m_session.reset();
    m_key = {};
}

void DrawingAccessImpl::setArtLayer(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key)
{
    if (!active() || !m_session->isOf(drawing))
        throw Exception(tr("No drawing is currently being modified."));
    m_session->drawing.reset(drawing);
    m_session->access.SetDrawing(drawing);
    m_key = key;
}

void DrawingAccessImpl::addActiveLayer(GR_VectorDrawingObj* drawing, UT_Node* layer, DrawingLayerImplShared* record)
{
    if (layer && record && active() && m_session->isOf(drawing))
        m_session->layers.add(*record);
}

bool DrawingAccessImpl::isErased(const DrawingLayerImplShared& record) const
{
    return active() && m_session->isOf(record.drawing()) && m_session->layers.isErased(record);
}

GR_Layer::LayerType DrawingAccessImpl::layerTypeFromQString(const QString& name)
{
    struct NamedType {
        const char* name;
        GR_Layer::LayerType type;
    };
    static constexpr std::array types = {
        NamedType{"UNDEFINED_LAYER", GR_Layer::kUndefined},
        NamedType{"PAINT_LAYER", GR_Layer::kPaint},
        NamedType{"BRUSH_LAYER", GR_Layer::kBrush},
        NamedType{"PEN_LAYER", GR_Layer::kPen},
        NamedType{"RECTANGLE_LAYER", GR_Layer::kRectangle},
        NamedType{"ELLIPSE_LAYER", GR_Layer::kEllipse},
        NamedType{"POLYLINE_LAYER", GR_Layer::kPolyline},
        NamedType{"STROKE_LAYER", GR_Layer::kStroke},
        NamedType{"CLOSE_GAP_LAYER", GR_Layer::kCloseGap},
        NamedType{"CENTERLINE_EXTRACTOR_LAYER", GR_Layer::kCenterlineExtractor},
        NamedType{"FLASH_LAYER", GR_Layer::kFlash},
        NamedType{"ILLUSTRATOR_LAYER", GR_Layer::kIllustrator},
        NamedType{"BITMAP_LAYER", GR_Layer::kBitmap},
        NamedType{"TEXT_LAYER", GR_Layer::kText},
    };
    for (const NamedType& entry : types) {
        if (name == QLatin1String(entry.name))
            return entry.type;
    }
    throw Exception(tr("Unexpected layer type \"%1\".").arg(name));
}

} // namespace OMC
