#include "core/drawings/drawingedit.h"

namespace OMC::drawingedit {

Step::Step(GR_VectorDrawingObj* drawing, const CA_DrawingLayerKey& key)
{
    DrawingAccessImpl& session = DrawingAccessImpl::get();
    session.vectorBegin(drawing, key, m_isOwn);
    m_access = session.vectorStep(false, true);
    if (m_access->GetDrawing() != drawing)
        m_access->SetDrawing(drawing);
}

Step::~Step()
{
    if (m_isFinished)
        return;
    // What made the edit fail is what counts.
    try {
        DrawingAccessImpl& session = DrawingAccessImpl::get();
        if (m_isOwn) {
            session.vectorTakeBack();
        } else if (session.active()) {
            restoreArtLayer();
            session.vectorStep(true, true);
        }
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch)
    }
}

void Step::restoreArtLayer()
{
    GR_VectorDrawingObj* drawing = DrawingAccessImpl::get().vectorDrawing();
    if (m_access->GetDrawing() != drawing)
        m_access->SetDrawing(drawing);
}

void Step::finish()
{
    DrawingAccessImpl& session = DrawingAccessImpl::get();
    if (m_isOwn) {
        session.vectorEnd(true);
    } else {
        restoreArtLayer();
        session.vectorStep(true, true);
    }
    m_isFinished = true;
}

} // namespace OMC::drawingedit
