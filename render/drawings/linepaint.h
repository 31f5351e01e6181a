#pragma once

#include "core/host/gr_stroke.h"
#include "core/host/math_point.h"
#include "render/raster/paint.h"

#include <optional>
#include <variant>

namespace brindle::render {

/// A texture on a line; how its numbers count stands in GR_LineStyle.
struct LineTexture {
    QImage picture;
    Math::Vector2d scaling{1, 1};
    Math::Vector2d offset;
    bool isTiled = false;
};

/// What a line is painted with that isn't the same all over: a gradient or texture that follows it, and a texture whose
/// alpha thins it. Of a gradient, `place` doesn't count.
struct LinePaint {
    std::variant<SolidPaint, GradientPaint, LineTexture> colour;
    std::optional<LineTexture> opacity;
    bool coversTips = false; ///< Distances count from the ends of the tips.
};

/// The colours of a line in a box of the picture, also a little beyond the line's edges, for its outline to be filled
/// with; nothing where the line doesn't reach the box. Where the line runs over itself, what comes later is above.
/// `place` leads from the units of the line to the pixels of the picture.
std::optional<TexturePaint> paintAlong(const GR_LineCuts& line, const LinePaint& paint, const QRect& box,
                                       const QTransform& place);

} // namespace brindle::render
