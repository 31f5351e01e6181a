#pragma once

#include "core/host/gr_layer.h"

#include <memory>
#include <vector>

namespace brindle::engine {

/// A text as its layer shows it: the outlines of its letters, and boxes about them. It is laid out when the first of
/// them is asked for; that throws std::runtime_error where the machine has no font.
///
/// Lengths are in units of the drawing, x runs to the right, y up. The baseline of the first line lies at y = 0, the
/// others below it by the line height of the font and the text's line space. A line begins at the left margin, the
/// first one of the text at the indent behind it. Lines end at line feeds (also U+2028, U+2029) and, where the text has
/// a width, at the last place ahead of the right margin at which Unicode lets a line break (UAX #14); a word that is
/// wider than that stands alone. Spaces at such a break take no room.
///
/// The paragraph is as wide as its fixed width, or without one as its widest line with both margins. Lines are aligned
/// within it and its margins. Justified lines have the spaces between words widened, but for lines that the text ends,
/// as far as the fixed width or the width goes; without either they stand at the left.
///
/// Letters are shaped by HarfBuzz, in runs of one font and one script that follow one another as they stand in the
/// text. Those that the font lacks come from the first font that Fontconfig finds with them.
class TextLayout {
public:
    explicit TextLayout(const GR_TextLayer::Data& text) : m_text(text) {}

    Math::Box2d plainBox() const { return laidOut().box; } ///< Advances and font heights, ahead of the text's matrix.
    Math::Box2d box() const;                               ///< The same behind it.
    Math::Box2d outlineBox() const;
    std::vector<GR_BezierPath2d> outlines() const { return laidOut().outlines; } ///< Each closed, behind the matrix.

private:
    struct Result {
        Math::Box2d box;
        std::vector<GR_BezierPath2d> outlines;
    };

    const Result& laidOut() const;

    GR_TextLayer::Data m_text;
    mutable std::unique_ptr<Result> m_result;
};

} // namespace brindle::engine
