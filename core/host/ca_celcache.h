#pragma once

#include "core/host/ca_celkey.h"
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
