#pragma once

#include "core/host/export.h"
#include "core/host/math_point.h"

/// The two coordinate systems of a scene, and the way between them.
///
/// A person thinks in fields: the field chart lies over the picture, from -designFieldChartX to designFieldChartX
/// across and from -designFieldChartY to designFieldChartY up; designFieldChartZ fields reach towards the viewer. The
/// chart covers an area of the shape designAspectRatioX to designAspectRatioY.
///
/// The engine draws in OpenGL units: the origin is the centre of the chart, which reaches from -1 to 1 up, and across
/// as far as its shape says:
///
///     x OpenGL = x field * (designAspectRatioX / designAspectRatioY) / designFieldChartX
///     y OpenGL = y field / designFieldChartY
///     z OpenGL = z field / designFieldChartZ
///
/// Both are measured from the centre. The coordinates at the centre are what a ruler along the chart writes there; no
/// conversion counts them in, so that what stands at 0, 0 stands in the middle of the picture whatever the ruler says.
///
/// The metrics belong to the project, and all its scenes have the same.
class BRINDLE_HOST_EXPORT SC_SceneMetrics {
public:
    virtual ~SC_SceneMetrics() = default;

    virtual int designAspectRatioX() const = 0;
    virtual int designAspectRatioY() const = 0;
    virtual double designFieldChartX() const = 0; ///< Fields from the centre to the border.
    virtual double designFieldChartY() const = 0;
    virtual double designFieldChartZ() const = 0;
    virtual int coordinateAtCenterX() const = 0;
    virtual int coordinateAtCenterY() const = 0;

    /// Fields in one OpenGL unit, along each axis.
    virtual double fromOGLFactorX() const = 0;
    virtual double fromOGLFactorY() const = 0;
    virtual double fromOGLFactorZ() const = 0;
    /// OpenGL units in one field, along each axis.
    virtual double toOGLFactorX() const = 0;
    virtual double toOGLFactorY() const = 0;
    virtual double toOGLFactorZ() const = 0;

    virtual Math::Point3d fromOGL(const Math::Point3d& point) const = 0; ///< OpenGL units to fields.
    virtual Math::Point3d toOGL(const Math::Point3d& point) const = 0;   ///< Fields to OpenGL units.
};
