#pragma once

#include "core/host/gr_drawingaccess.h"
#include "core/host/math_matrix2x3.h"

#include <QExplicitlySharedDataPointer>

namespace OMC {

/// A drawing of no element, with its own colours and its own access that nobody listens to: where content is put
/// together or transformed before it is copied into a drawing in one go.
class ScratchDrawing {
public:
    ScratchDrawing();

    GR_VectorDrawingObj& art() const { return *m_art; }
    GR_DrawingAccess& access() { return m_access; }
    /// The lowest layer; null without layers.
    UT_Node* firstLayer() const { return m_art->GetNonConstRootnode()->GetNextLeaf(); }

private:
    GR_ColorDict m_colours;
    QExplicitlySharedDataPointer<GR_CompositeVectorDrawingObj> m_drawing;
    GR_VectorDrawingObj* m_art;
    GR_DrawingAccess m_access;
};

} // namespace OMC
