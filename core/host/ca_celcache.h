#pragma once

#include "core/host/ca_celref.h"
#include "core/host/export.h"
#include "core/host/gr_drawing.h"

#include <QString>

/// Names an art layer of a drawing. A plain value.
class BRINDLE_HOST_EXPORT CA_DrawingLayerKey {
public:
    CA_DrawingLayerKey() = default; ///< Of nothing.
    CA_DrawingLayerKey(const CA_CelKey& cel, int art) : m_cel(cel), m_art(art) {}

    bool isValid() const { return m_cel.isValid() && m_art >= 0; }
    const CA_CelKey& cel() const { return m_cel; }
    int art() const { return m_art; } ///< The art layer's index; -1 for none.
    bool operator==(const CA_DrawingLayerKey&) const = default;

private:
    CA_CelKey m_cel;
    int m_art = -1;
};

/// The cels of the open project's drawings.
///
/// A cel that it gives shows what the drawing was when it was asked for: the vector drawing itself, which goes on
/// changing, or the picture of that moment.
class BRINDLE_HOST_EXPORT CA_CelCache {
public:
    /// The cel of a vector drawing that was opened already; none for all others.
    static CA_CelPtr findItem(const CA_CelKey& key, const CEL_Context& context = CEL_Context());
    /// The cel of a drawing, in the version that is shown. Of a drawing without a file it is an empty cel. None where
    /// the key names no drawing of the project. Throws std::runtime_error with one sentence where its file can't be
    /// read.
    static CA_CelPtr insertItemBis(const CA_CelKey& key, const CEL_Context& context);
    /// The same, where a drawing of an element of vector drawings has no file yet: it has an empty one from now on,
    /// which no undo takes away. None for an element of pictures.
    static CA_CelPtr createVectorDrawing(const CA_CelKey& key);
};
