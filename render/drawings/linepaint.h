#pragma once

#include "core/host/gr_stroke.h"
#include "core/host/math_point.h"
#include "render/raster/paint.h"

#include <optional>
#include <variant>

namespace brindle::render {

/// A texture on a line. GR_LineStyle explains scaling, offset and tiling.
struct LineTexture {
    QImage picture;
    Math::Vector2d scaling{1, 1};
    Math::Vector2d offset;
    bool isTiled = false;
};

/// The paint of a line: one colour, or a gradient or texture that follows it; and a texture whose alpha thins it. The
/// `place` of a gradient isn't used.
struct LinePaint {
    std::variant<SolidPaint, GradientPaint, LineTexture> colour;
    std::optional<LineTexture> opacity;
    bool coversTips = false; ///< Whether gradients and textures begin and end at the ends of the tips.
};

/// The colours of a line in a box of the picture (in pixels), to fill the line's outline with: they reach a little
/// beyond its edges. Nothing where the line doesn't reach the box. Where the line runs over itself, its later part is
/// above. `place` leads from the units of the line to the pixels of the picture. Throws std::bad_alloc where memory
/// doesn't suffice.
std::optional<TexturePaint> paintAlong(const GR_LineCuts& line, const LinePaint& paint, const QRect& box,
                                       const QTransform& place);

} // namespace brindle::render
