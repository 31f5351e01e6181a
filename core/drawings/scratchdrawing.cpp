#include "core/drawings/scratchdrawing.h"

#include "core/frame/found.h"

namespace OMC {

ScratchDrawing::ScratchDrawing()
    : m_drawing(GR_CompositeVectorDrawingObj::Create(&m_colours)),
      m_art(&foundAs<GR_VectorDrawingObj>(m_drawing->GetArt(GR_CompositeVectorDrawingObj::kLine)))
{
    m_access.SetDrawing(m_art);
}

} // namespace OMC
