#include "engine/session/metrics.h"

#include "core/host/tu_sceneutil.h"
#include "engine/session/projectsettings.h"

#include <cmath>
#include <numbers>

namespace brindle::engine {

namespace {

double halfTangent(double degrees)
{
    return std::tan(degrees * std::numbers::pi / 360.0);
}

} // namespace

int Metrics::designAspectRatioX() const
{
    return m_settings.aspectRatio.x;
}

int Metrics::designAspectRatioY() const
{
    return m_settings.aspectRatio.y;
}

double Metrics::designFieldChartX() const
{
    return m_settings.fieldChart.x;
}

double Metrics::designFieldChartY() const
{
    return m_settings.fieldChart.y;
}

double Metrics::designFieldChartZ() const
{
    return m_settings.fieldChart.z;
}

int Metrics::coordinateAtCenterX() const
{
    return m_settings.center.x;
}

int Metrics::coordinateAtCenterY() const
{
    return m_settings.center.y;
}

double Metrics::fromOGLFactorX() const
{
    return m_settings.fieldChart.x * m_settings.aspectRatio.y / m_settings.aspectRatio.x;
}

double Metrics::fromOGLFactorY() const
{
    return m_settings.fieldChart.y;
}

double Metrics::fromOGLFactorZ() const
{
    return m_settings.fieldChart.z;
}

double Metrics::toOGLFactorX() const
{
    return static_cast<double>(m_settings.aspectRatio.x) / m_settings.aspectRatio.y / m_settings.fieldChart.x;
}

double Metrics::toOGLFactorY() const
{
    return 1.0 / m_settings.fieldChart.y;
}

double Metrics::toOGLFactorZ() const
{
    return 1.0 / m_settings.fieldChart.z;
}

Math::Point3d Metrics::fromOGL(const Math::Point3d& point) const
{
    return {point.x * fromOGLFactorX(), point.y * fromOGLFactorY(), point.z * fromOGLFactorZ()};
}

Math::Point3d Metrics::toOGL(const Math::Point3d& point) const
{
    return {point.x * toOGLFactorX(), point.y * toOGLFactorY(), point.z * toOGLFactorZ()};
}

} // namespace brindle::engine

double TUSceneUtil::convertBitmapResolutionFactorToPixelPerModelUnit(const SC_Resolution& resolution,
                                                                     const SC_SceneMetrics* metrics, double fov,
                                                                     double factor)
{
    if (!metrics)
        return 0.0;
    const int side = resolution.fovFit() == TUDbResolution::kFitWidth ? resolution.width() : resolution.height();
    const double unitsSeen =
        2.0 * brindle::engine::halfTangent(fov) / brindle::engine::halfTangent(brindle::engine::Picture::standardFov);
    return side / unitsSeen * metrics->toOGLFactorY() * factor;
}
