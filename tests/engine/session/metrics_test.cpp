#include "engine/session/metrics.h"

#include "core/host/sc_projectcmds.h"
#include "core/host/tu_sceneutil.h"
#include "engine/session/projectsettings.h"

#include <gtest/gtest.h>

#include <QString>

#include <numbers>
#include <random>

namespace {

brindle::engine::ProjectSettings settingsWith(brindle::engine::AspectRatio ratio, brindle::engine::FieldChart chart,
                                              brindle::engine::CenterCoordinates center)
{
    brindle::engine::ProjectSettings settings;
    settings.aspectRatio = ratio;
    settings.fieldChart = chart;
    settings.center = center;
    return settings;
}

/// The pixels that a model unit has in a picture of the new project's chart.
double density(int width, int height, TUDbResolution::FovFit fit, double fov, double factor)
{
    const brindle::engine::ProjectSettings settings;
    const brindle::engine::Metrics metrics(settings);
    const SC_Resolution resolution(QString(), width, height, fit, TUDbResolution::kPerspective);
    return TUSceneUtil::convertBitmapResolutionFactorToPixelPerModelUnit(resolution, &metrics, fov, factor);
}

} // namespace

TEST(MetricsTest, ANewProjectHasTwelveFieldsInAShapeOfFourToThree)
{
    const brindle::engine::ProjectSettings settings;
    const brindle::engine::Metrics metrics(settings);
    EXPECT_EQ(metrics.designAspectRatioX(), 4);
    EXPECT_EQ(metrics.designAspectRatioY(), 3);
    EXPECT_EQ(metrics.designFieldChartX(), 12.0);
    EXPECT_EQ(metrics.designFieldChartY(), 12.0);
    EXPECT_EQ(metrics.designFieldChartZ(), 12.0);
    EXPECT_EQ(metrics.coordinateAtCenterX(), 0);
    EXPECT_EQ(metrics.coordinateAtCenterY(), 0);
}

TEST(MetricsTest, TheChartReachesOneUnitUpAndAsFarAcrossAsItsShape)
{
    const auto settings = settingsWith({16, 9}, {16.0, 10.0, 5.0}, {});
    const brindle::engine::Metrics metrics(settings);
    const Math::Point3d corner = metrics.toOGL({16.0, 10.0, 5.0});
    EXPECT_DOUBLE_EQ(corner.x, 16.0 / 9.0);
    EXPECT_DOUBLE_EQ(corner.y, 1.0);
    EXPECT_DOUBLE_EQ(corner.z, 1.0);
    const Math::Point3d field = metrics.fromOGL({-16.0 / 9.0, -0.5, 2.0});
    EXPECT_DOUBLE_EQ(field.x, -16.0);
    EXPECT_DOUBLE_EQ(field.y, -5.0);
    EXPECT_DOUBLE_EQ(field.z, 10.0);
}

TEST(MetricsTest, TheCoordinatesAtTheCenterMoveNothing)
{
    const auto settings = settingsWith({4, 3}, {12.0, 12.0, 12.0}, {100, -100});
    const brindle::engine::Metrics metrics(settings);
    EXPECT_EQ(metrics.coordinateAtCenterX(), 100);
    EXPECT_EQ(metrics.coordinateAtCenterY(), -100);
    EXPECT_EQ(metrics.toOGL({}), Math::Point3d());
    EXPECT_EQ(metrics.fromOGL({}), Math::Point3d());
}

TEST(MetricsTest, PointsAndFactorsAgreeAndLeadBack)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> value(-1000.0, 1000.0);
    std::uniform_real_distribution<double> fields(0.001, 1000.0);
    std::uniform_int_distribution<int> side(1, 4000);
    for (int round = 0; round < 200; ++round) {
        const auto settings =
            settingsWith({side(random), side(random)}, {fields(random), fields(random), fields(random)}, {});
        const brindle::engine::Metrics metrics(settings);
        const Math::Point3d point{value(random), value(random), value(random)};
        EXPECT_EQ(metrics.toOGL(point),
                  (Math::Point3d{point.x * metrics.toOGLFactorX(), point.y * metrics.toOGLFactorY(),
                                 point.z * metrics.toOGLFactorZ()}));
        EXPECT_EQ(metrics.fromOGL(point),
                  (Math::Point3d{point.x * metrics.fromOGLFactorX(), point.y * metrics.fromOGLFactorY(),
                                 point.z * metrics.fromOGLFactorZ()}));
        const Math::Point3d back = metrics.fromOGL(metrics.toOGL(point));
        EXPECT_NEAR(back.x, point.x, 1e-9);
        EXPECT_NEAR(back.y, point.y, 1e-9);
        EXPECT_NEAR(back.z, point.z, 1e-9);
    }
}

TEST(MetricsTest, AFieldHasAsManyPixelsAsThePictureShows)
{
    constexpr double standard = 41.112;
    EXPECT_DOUBLE_EQ(density(1920, 1080, TUDbResolution::kFitHeight, standard, 1.0), 45.0);
    EXPECT_DOUBLE_EQ(density(1920, 1080, TUDbResolution::kFitHeight, standard, 0.5), 22.5);
    EXPECT_DOUBLE_EQ(density(1920, 1080, TUDbResolution::kFitWidth, standard, 1.0), 80.0);
    EXPECT_EQ(density(1920, 1080, TUDbResolution::kFitHeight, standard, 0.0), 0.0);
    // Twice as much is seen with an angle whose half has twice the tangent.
    const double wide = 2.0 * std::atan(2.0 * std::tan(standard * std::numbers::pi / 360.0)) * 180.0 / std::numbers::pi;
    EXPECT_NEAR(density(1920, 1080, TUDbResolution::kFitHeight, wide, 1.0), 22.5, 1e-12);
}

TEST(MetricsTest, WithoutAPictureOrMetricsThereIsNoDensity)
{
    EXPECT_EQ(density(0, 0, TUDbResolution::kFitHeight, 41.112, 1.0), 0.0);
    EXPECT_EQ(TUSceneUtil::convertBitmapResolutionFactorToPixelPerModelUnit(
                  SC_Resolution("HD_1080", 1920, 1080, TUDbResolution::kFitHeight, TUDbResolution::kPerspective),
                  nullptr, 41.112, 1.0),
              0.0);
}
