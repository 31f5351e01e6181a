#pragma once

#include "core/host/em_elementinfo.h"
#include "core/host/export.h"

/// Names a layer of a drawing of an element, as the place that a cel is drawn from. A plain value.
class BRINDLE_HOST_EXPORT CA_CelKeyElement {
public:
    /// Without a drawing it names a place for one that is still to be made.
    explicit CA_CelKeyElement(int elementId, EM_DrawingId drawing = EM_InvalidDrawingId,
                              EM_LayerId layer = EM_DefaultLayerId)
        : m_elementId(elementId),
          m_drawing(drawing),
          m_layer(layer)
    {}

    int elementId() const { return m_elementId; }
    EM_DrawingId drawingId() const { return m_drawing; }
    EM_LayerId layerId() const { return m_layer; }
    bool operator==(const CA_CelKeyElement&) const = default;

private:
    int m_elementId;
    EM_DrawingId m_drawing;
    EM_LayerId m_layer;
};

/// Names a cel that belongs to no element. A plain value.
class BRINDLE_HOST_EXPORT CA_CelKeySpecial {
public:
    static CA_CelKeySpecial emptyCel() { return CA_CelKeySpecial(); } ///< The cel without a picture.
    bool operator==(const CA_CelKeySpecial&) const = default;

private:
    CA_CelKeySpecial() = default;
};

/// Names what a cel is drawn from. A plain value.
class BRINDLE_HOST_EXPORT CA_CelKey {
public:
    CA_CelKey() : m_element(-1) {} ///< Of nothing.
    CA_CelKey(const CA_CelKeyElement& element) : m_element(element) {}
    CA_CelKey(const CA_CelKeySpecial&) : m_element(-1), m_isSpecial(true) {}

    bool isValid() const { return m_element.elementId() >= 0; } ///< Whether it names a drawing of an element.
    bool isSpecial() const { return m_isSpecial; }              ///< Whether it names the empty cel.
    const CA_CelKeyElement& element() const { return m_element; }
    bool operator==(const CA_CelKey&) const = default;

private:
    CA_CelKeyElement m_element;
    bool m_isSpecial = false;
};
