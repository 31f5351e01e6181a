#include "service/python/drawings/editing.h"

#include "core/drawings/drawingaccess.h"
#include "core/drawings/drawingaccessimpl.h"
#include "core/frame/found.h"

namespace brindle::python {

OMC::BaseObject* DrawingEditing::enter()
{
    auto* drawing = &OMC::foundAs<GR_VectorDrawingObj>(&m_art.drawingBase());
    OMC::DrawingAccessImpl& session = OMC::DrawingAccessImpl::get();
    Block block;
    session.vectorBegin(drawing, m_art.getKey(), block.isOwn);
    block.session = session.sessionNumber();
    block.outerDrawing.reset(session.vectorDrawing());
    block.outerKey = session.getCurrentKey();
    session.setArtLayer(drawing, m_art.getKey());
    m_blocks.push_back(std::move(block));
    return new OMC::DrawingAccess;
}

void DrawingEditing::leave(bool failed)
{
    if (m_blocks.empty())
        throw OMC::Exception(tr("The block was not entered."));
    const Block block = std::move(m_blocks.back());
    m_blocks.pop_back();
    BaseObject::validateThreadLock();
    OMC::DrawingAccessImpl& session = OMC::DrawingAccessImpl::get();
    // The block may have ended its session by hand, or closed the project.
    if (!session.active() || session.sessionNumber() != block.session)
        return;
    if (!block.isOwn)
        session.setArtLayer(block.outerDrawing.data(), block.outerKey);
    else if (failed)
        session.vectorTakeBack();
    else
        session.vectorEnd(true);
}

} // namespace brindle::python
