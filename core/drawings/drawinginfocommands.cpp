#include "core/drawings/drawinginfocommands.h"

#include "core/drawings/celdrawing.h"

#include <utility>

namespace OMC {

bool DrawingInfoCommand::Execute()
{
    const auto drawing = celdrawing::findOrOpen(m_key);
    GR_CompositeDrawingInfo* info = drawing ? drawing->GetDrawingInfo() : nullptr;
    if (!info)
        return false;
    m_before = *info;
    change(*info);
    drawing->InfoChanged();
    return true;
}

bool DrawingInfoCommand::Undo()
{
    const auto drawing = celdrawing::findOrOpen(m_key);
    GR_CompositeDrawingInfo* info = drawing ? drawing->GetDrawingInfo() : nullptr;
    if (!info)
        return false;
    *info = m_before;
    drawing->InfoChanged();
    return true;
}

} // namespace OMC
