#pragma once

#include "core/host/gr_drawing.h"

#include <QExplicitlySharedDataPointer>

/// Whether what a wrapper holds of a drawing is still part of a project. Wrappers keep the memory, and nothing else.
namespace OMC::drawingpresence {

/// Whether others than the holder keep a drawing, and its project has it. Null is not there.
inline bool isThere(const QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj>& drawing)
{
    return drawing && drawing->ref.loadRelaxed() > 1 && !drawing->IsGone();
}

/// The same for an art layer, or for what of one holds it.
template <typename Art>
bool isThere(const QExplicitlySharedDataPointer<Art>& art)
{
    if (!art || art->ref.loadRelaxed() <= 1)
        return false;
    const GR_CompositeVectorDrawingObj* composite = art->GetComposite();
    return composite && !composite->IsGone();
}

} // namespace OMC::drawingpresence
