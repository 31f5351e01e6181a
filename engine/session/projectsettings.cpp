#include "engine/session/projectsettings.h"

#include "engine/session/resolutions.h"

#include <cmath>

namespace brindle::engine {

namespace {

constexpr int maxSide = 32768;
constexpr double leastFields = 0.001;
constexpr double mostFields = 1'000'000.0;

bool isSide(int pixels)
{
    return pixels >= 1 && pixels <= maxSide;
}

bool isFactor(double factor)
{
    return std::isfinite(factor) && factor > 0;
}

bool isFieldCount(double fields)
{
    return fields >= leastFields && fields <= mostFields;
}

} // namespace

Picture Picture::named(const QString& name)
{
    const NamedResolution* row = findNamedResolution(name);
    if (!row)
        return {};
    return {SC_Resolution(name, row->width, row->height, TUDbResolution::kFitHeight, TUDbResolution::kPerspective),
            standardFov};
}

bool isAcceptable(const Picture& picture)
{
    const SC_Resolution& resolution = picture.resolution;
    return isSide(resolution.width()) && isSide(resolution.height()) && picture.fov > 0 && picture.fov < 180 &&
           (resolution.fovFit() == TUDbResolution::kFitHeight || resolution.fovFit() == TUDbResolution::kFitWidth) &&
           (resolution.projection() == TUDbResolution::kPerspective ||
            resolution.projection() == TUDbResolution::kOrthogonal);
}

bool isAcceptable(const QString& colorSpace)
{
    return !colorSpace.isEmpty();
}

bool isAcceptable(const SC_AdvancedFlags& flags)
{
    return isFactor(flags.pixelPerModelUnitForBitmapLayers()) && isFactor(flags.pixelPerModelUnitForVectorLayers());
}

bool isAcceptable(const AspectRatio& ratio)
{
    return ratio.x >= 1 && ratio.y >= 1;
}

bool isAcceptable(const FieldChart& chart)
{
    return isFieldCount(chart.x) && isFieldCount(chart.y) && isFieldCount(chart.z);
}

bool isAcceptable(const CenterCoordinates&)
{
    return true;
}

bool isAcceptable(const ProjectSettings& settings)
{
    return isAcceptable(settings.picture) && isAcceptable(settings.colorSpace) &&
           isAcceptable(settings.advancedFlags) && isAcceptable(settings.aspectRatio) &&
           isAcceptable(settings.fieldChart) && isAcceptable(settings.center);
}

} // namespace brindle::engine
