#pragma once

#include "core/host/export.h"

/// Settings of a project that few people touch. A plain value: it is copied, changed and set as a whole.
class BRINDLE_HOST_EXPORT SC_AdvancedFlags {
public:
    /// How finely new drawings are stored as textures, as a factor of the project's resolution: 1 is one pixel of the
    /// texture for each pixel of the picture.
    double pixelPerModelUnitForBitmapLayers() const { return m_bitmapFactor; }
    void setPixelPerModelUnitForBitmapLayers(double factor) { m_bitmapFactor = factor; }
    double pixelPerModelUnitForVectorLayers() const { return m_vectorFactor; }
    void setPixelPerModelUnitForVectorLayers(double factor) { m_vectorFactor = factor; }

    bool operator==(const SC_AdvancedFlags& other) const = default;

private:
    double m_bitmapFactor = 1.0;
    double m_vectorFactor = 1.0;
};
