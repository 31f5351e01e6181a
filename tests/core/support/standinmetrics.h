#pragma once

#include "core/host/sc_metrics.h"

/// Metrics of no engine, with any values. The factors are primes, to tell them apart.
class StandInMetrics : public SC_SceneMetrics {
public:
    int designAspectRatioX() const override { return aspectX; }
    int designAspectRatioY() const override { return aspectY; }
    double designFieldChartX() const override { return chartX; }
    double designFieldChartY() const override { return chartY; }
    double designFieldChartZ() const override { return chartZ; }
    int coordinateAtCenterX() const override { return centerX; }
    int coordinateAtCenterY() const override { return centerY; }
    double fromOGLFactorX() const override { return 2.0; }
    double fromOGLFactorY() const override { return 3.0; }
    double fromOGLFactorZ() const override { return 5.0; }
    double toOGLFactorX() const override { return 7.0; }
    double toOGLFactorY() const override { return 11.0; }
    double toOGLFactorZ() const override { return 13.0; }
    Math::Point3d fromOGL(const Math::Point3d& point) const override
    {
        ++conversions;
        return {point.x * 2.0, point.y * 3.0, point.z * 5.0 + 1.0};
    }
    Math::Point3d toOGL(const Math::Point3d& point) const override
    {
        ++conversions;
        return {point.x * 7.0, point.y * 11.0, point.z * 13.0 + 1.0};
    }

    int aspectX = 4;
    int aspectY = 3;
    double chartX = 12.0;
    double chartY = 12.0;
    double chartZ = 12.0;
    int centerX = 0;
    int centerY = 0;
    mutable int conversions = 0; ///< The number of points that were converted.
};
