#pragma once

#include "core/drawings/drawingvectorartlayer.h"

#include <optional>

namespace brindle::python {

/// A with block that edits a drawing, got from DrawingAccess.editing(). It opens an edit session, whose changes become
/// one step of the undo list at the end of the block. An exception that leaves the block takes all of them back,
/// without a trace on the undo list, and goes on.
///
/// A block within a block of the same drawing joins its session: new layers go into the art layer of the inner block
/// meanwhile, and the outer one ends the session.
class DrawingEditing : public OMC::BaseObject {
    Q_OBJECT

public:
    explicit DrawingEditing(const OMC::DrawingVectorArtLayer& art) : m_art(art) {}
    DrawingEditing(const DrawingEditing& other) : OMC::BaseObject(other), m_art(other.m_art) {}

    OMC::BaseObject* copy() const override { return new DrawingEditing(*this); }
    std::string __str__() const override { return "DrawingEditing()"; }

    /// Opens the session, or joins it; gives a DrawingAccess.
    OMC::BaseObject* enter();
    /// Ends the session if the block began it.
    void leave(bool failed);

private:
    /// The session that the block works in, and what it worked on before.
    struct Block {
        quint64 session = 0;
        bool isOwn = false;
        QExplicitlySharedDataPointer<GR_VectorDrawingObj> outerDrawing;
        CA_DrawingLayerKey outerKey;
    };

    OMC::DrawingVectorArtLayer m_art;
    std::vector<Block> m_blocks; ///< The same object may be entered again within its block.
};

} // namespace brindle::python
