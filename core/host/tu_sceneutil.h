#pragma once

#include "core/host/export.h"
#include "core/host/sc_resolution.h"

class SC_SceneMetrics;

namespace TUSceneUtil {

/// The pixels of a texture for one model unit. The model unit is one field up the chart. A factor of 1 gives each pixel
/// of the picture one of the texture:
///
///     side / (2 * distance * tan(fov / 2)) * toOGLFactorY * factor
///
/// `side` is the side of the picture, in pixels, that the field of view spans, `fov` its angle in degrees, and
/// `distance` that from which an angle of 41.112 degrees sees the chart from bottom to top: 1 / tan(41.112 / 2).
/// With 1080 lines, a chart of 12 fields and that angle it is 45. 0 for a picture of no size and without metrics.
BRINDLE_HOST_EXPORT double convertBitmapResolutionFactorToPixelPerModelUnit(const SC_Resolution& resolution,
                                                                            const SC_SceneMetrics* metrics, double fov,
                                                                            double factor);

} // namespace TUSceneUtil
