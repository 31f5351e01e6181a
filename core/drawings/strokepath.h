#pragma once

#include "core/host/gr_bezierpath.h"

#include <QVariant>

#include <optional>

/// The paths of strokes, as scripts give them.
namespace OMC::strokepath {

/// The same curves with degree 3, as strokes have them.
GR_BezierPath2d cubic(const GR_BezierPath2d& path);

/// The path that an argument tells, as BezierPath reads it, with degree 3. Nothing for one without a point, and for
/// what BezierPath can't read.
std::optional<GR_BezierPath2d> read(const QVariant& value);

} // namespace OMC::strokepath
