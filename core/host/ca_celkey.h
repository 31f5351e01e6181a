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

/// Names what a cel is drawn from. A plain value.
class BRINDLE_HOST_EXPORT CA_CelKey {
public:
    CA_CelKey() : m_element(-1) {} ///< Of nothing.
    CA_CelKey(const CA_CelKeyElement& element) : m_element(element) {}

    bool isValid() const { return m_element.elementId() >= 0; }
    const CA_CelKeyElement& element() const { return m_element; }
    bool operator==(const CA_CelKey&) const = default;

private:
    CA_CelKeyElement m_element;
};
