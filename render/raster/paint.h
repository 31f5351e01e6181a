#pragma once

#include <QImage>
#include <QRgba64>
#include <QTransform>

#include <variant>
#include <vector>

namespace brindle::render {

/// One colour, not multiplied by alpha.
struct SolidPaint {
    QRgba64 colour;
};

struct GradientStop {
    double position; ///< 0 to 1, ascending.
    QRgba64 colour;  ///< Not multiplied by alpha.
};

/// Colours along a line or around a point; beyond its ends they go on as they are there.
struct GradientPaint {
    enum Form { Linear, Radial };
    Form form = Linear;
    std::vector<GradientStop> stops; ///< At least one.
    /// From the gradient's own coordinates to those of what is painted: linear from x = 0 to x = 1, radial from the
    /// centre (0, 0) to the circle of radius 1.
    QTransform place;
};

/// A picture of which one pixel is one unit, its top left corner at (0, 0).
struct TexturePaint {
    QImage picture;
    bool isTiled = true; ///< Repeated in both directions; else transparent outside.
    QTransform place;    ///< From the picture's coordinates to those of what is painted.
};

/// What an area is painted with.
using Paint = std::variant<SolidPaint, GradientPaint, TexturePaint>;

} // namespace brindle::render
