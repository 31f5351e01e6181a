#pragma once

#include "core/frame/export.h"
#include "core/host/cm_color.h"
#include "core/host/gr_bezierpath.h"
#include "core/host/gr_stroke.h"
#include "core/host/math_matrix2x3.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace OMC::svg {

/// What an area or a line of an SVG picture is painted with.
struct Paint {
    enum Kind { None, Solid, Linear, Radial };

    Kind kind = None;
    CM_GradientDataCol markers; ///< One for a solid paint, two to eight for a gradient, in the order of their places.
    /// From the gradient's own coordinates, as GR_Color has them, to the picture's.
    Math::Matrix2x3 matrix;
};

/// A path with what it is filled and drawn with.
struct Shape {
    std::vector<GR_BezierPath2d> outlines; ///< Each closed, or open as a line is.
    bool isEvenOdd = false;                ///< By which rule the outlines fill an area; else by the non-zero rule.
    Paint fill;
    Paint line;
    double lineWidth = 0;
    GR_TipType tip = kFlatTip;
};

/// A group of the picture: its shapes, the lowest first.
using Layer = std::vector<Shape>;

/// An SVG picture as far as drawings can have it. Its coordinates are those of drawings: y up, the middle of the
/// picture in the origin, and its whole height 2400 units, that of a field chart of 12 fields.
struct Picture {
    std::vector<Layer> layers; ///< The lowest first.
    QStringList notCarried;    ///< A line for each kind of thing in the text that a drawing can't have.
};

/// Reads the text of an SVG file. The groups at its top become layers, and so do the shapes between them; a group that
/// has all the rest in it counts as the top. Throws OMC::Exception, with the line and the column, for a text that is no
/// SVG picture.
///
/// Qt's library for SVG does the reading, as far as it is SVG Tiny 1.2; it is loaded with the first picture.
BRINDLE_CORE_EXPORT Picture read(const QByteArray& text);
/// The same for a file; throws, with its name, also where that can't be read.
BRINDLE_CORE_EXPORT Picture readFile(const QString& path);

} // namespace OMC::svg
