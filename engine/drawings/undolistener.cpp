#include "core/host/dt_undolistener.h"

#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "engine/drawings/livedrawing.h"
#include "engine/elements/elementmanager.h"

#include <optional>

namespace brindle::engine {

namespace {

/// Gives a drawing the art layers of before a session, or of after it. Once the drawing is gone for good there is
/// nothing left to do.
class DrawingStep final : public CO_Command {
public:
    DrawingStep(const LiveDrawing& drawing, LiveDrawing::State before, TUSceneChangeManager* changes, bool isSaved)
        : m_drawing(drawing.link()),
          m_other(std::move(before)),
          m_changes(changes),
          m_isSaved(isSaved)
    {}

    Status execute() override
    {
        if (!m_isDone)
            return exchange();
        if (m_isSaved && *m_drawing)
            (*m_drawing)->stepIsSaved();
        return kOk;
    }
    Status unexecute() override { return m_isDone ? exchange() : kFail; }

private:
    Status exchange()
    {
        LiveDrawing* drawing = *m_drawing;
        if (drawing && drawing->isUnderEdit())
            return kFail;
        if (drawing) {
            LiveDrawing::State now = drawing->state();
            drawing->setArts(m_other);
            m_other = std::move(now);
            tell();
        }
        m_isDone = !m_isDone;
        return kOk;
    }

    /// Who was to be told may be gone by now.
    void tell() const
    {
        const SC_SessionContext* session = PLUG_Services::getSessionContext();
        if (m_changes && session && session->changeManager() == m_changes)
            m_changes->notify();
    }

    std::shared_ptr<LiveDrawing*> m_drawing;
    LiveDrawing::State m_other; ///< What the next step gives.
    TUSceneChangeManager* m_changes;
    bool m_isSaved; ///< What the session has led to is what is on disk.
    bool m_isDone = true;
};

class SessionCommand final : public DT_Command {
public:
    SessionCommand(std::unique_ptr<CO_Command> step, bool isEmpty) : DT_Command(std::move(step)), m_isEmpty(isEmpty) {}

    bool IsEmpty() const override { return m_isEmpty; }
    void setAllDrawingsModified() override {}

private:
    bool m_isEmpty;
};

} // namespace

} // namespace brindle::engine

class DT_UndoListener::Private {
public:
    TUSceneChangeManager* changes = nullptr;
    std::optional<brindle::engine::SessionMark> session;
    brindle::engine::LiveDrawing::State before;
};

DT_UndoListener::DT_UndoListener(DT_SelectionManager*, TUSceneChangeManager* changes, void*, int)
    : d(std::make_unique<Private>())
{
    d->changes = changes;
}

DT_UndoListener::~DT_UndoListener() = default;

void DT_UndoListener::SetCurrentDrawing(GR_VectorDrawingObj* drawing, const CA_CelKey&)
{
    const brindle::engine::LiveArt* art = brindle::engine::liveArt(drawing);
    d->session.reset();
    if (!art || !art->drawing())
        return;
    d->session.emplace(*art->drawing());
    d->before = art->drawing()->state();
}

DT_Command* DT_UndoListener::Release()
{
    using namespace brindle::engine;
    if (!d->session)
        return nullptr;
    LiveDrawing* drawing = d->session->drawing();
    if (!drawing) {
        d->session.reset();
        return nullptr;
    }
    const bool isEmpty = haveEqualArts(*d->before.value, *drawing->value());
    const bool isSaved = drawing->endEdits(!isEmpty);
    d->session.reset();
    // What came and went leaves the file as it is.
    if (isEmpty && drawing->value() != d->before.value)
        drawing->setArts(d->before);
    return new SessionCommand(std::make_unique<DrawingStep>(*drawing, std::move(d->before), d->changes, isSaved),
                              isEmpty);
}
