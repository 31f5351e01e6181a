#pragma once

#include "core/host/sc_metrics.h"

namespace brindle::engine {

struct AspectRatio {
    int x = 4;
    int y = 3;
    bool operator==(const AspectRatio&) const = default;
};

/// Fields from the centre to the border.
struct FieldChart {
    double x = 12.0;
    double y = 12.0;
    double z = 12.0;
    bool operator==(const FieldChart&) const = default;
};

struct CenterCoordinates {
    int x = 0;
    int y = 0;
    bool operator==(const CenterCoordinates&) const = default;
};

struct ProjectSettings;

/// The metrics of a project: a view of its settings, which it belongs to.
class Metrics final : public SC_SceneMetrics {
public:
    explicit Metrics(const ProjectSettings& settings) : m_settings(settings) {}

    int designAspectRatioX() const override;
    int designAspectRatioY() const override;
    double designFieldChartX() const override;
    double designFieldChartY() const override;
    double designFieldChartZ() const override;
    int coordinateAtCenterX() const override;
    int coordinateAtCenterY() const override;

    double fromOGLFactorX() const override;
    double fromOGLFactorY() const override;
    double fromOGLFactorZ() const override;
    double toOGLFactorX() const override;
    double toOGLFactorY() const override;
    double toOGLFactorZ() const override;

    Math::Point3d fromOGL(const Math::Point3d& point) const override;
    Math::Point3d toOGL(const Math::Point3d& point) const override;

private:
    const ProjectSettings& m_settings;
};

} // namespace brindle::engine
